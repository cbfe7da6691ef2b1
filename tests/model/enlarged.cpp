// SPDX-License-Identifier: MIT
// Pictures to surfaces of twice their height, or twice both ways. What is special about each function stands in it.
#include "model/enlarged.h"

#include "model/lines.h"
#include "model/pixels.h"

namespace model {
namespace {

uint8_t as_it_is(uint8_t sample) { return sample; }

Treat adjusted_luma(const State& s)
{
    return [s](uint8_t x) { return adjust(x, s.luma_gain, s.luma_offset); };
}

Treat adjusted_u(const State& s)
{
    return [s](uint8_t x) { return adjust(x, s.chroma_gain, s.u_offset); };
}

Treat adjusted_v(const State& s)
{
    return [s](uint8_t x) { return adjust(x, s.chroma_gain, s.v_offset); };
}

struct Picture {
    Lines y, u, v;
};

Picture planar_picture(Planes& planes, const Call& call)
{
    Picture p;
    for (int64_t s = 0; s < call.height; ++s) p.y.push_back(take(planes.y, s * call.y_pitch, call.width));
    for (int64_t c = 0; c < call.height / 2; ++c) {
        p.u.push_back(take(planes.u, c * (call.y_pitch / 2), call.width / 2));
        p.v.push_back(take(planes.v, c * (call.y_pitch / 2), call.width / 2));
    }
    return p;
}

// Lines follow each other without gaps.
Picture packed_picture(Planes& planes, const Call& call)
{
    Picture p;
    for (int64_t s = 0; s < call.height; ++s) {
        const int64_t at = s * 2 * call.width;
        p.y.push_back(take(planes.y, at, call.width, 2));
        p.u.push_back(take(planes.y, at + 1, call.width / 2, 4));
        p.v.push_back(take(planes.y, at + 3, call.width / 2, 4));
    }
    return p;
}

template <class Change> void for_each_line(Lines& lines, Change change)
{
    for (Line& line : lines) line = change(line);
}

void store_yuy2(Planes& planes, int64_t at, const Line& y, const Line& u, const Line& v)
{
    for (size_t k = 0; k < u.size(); ++k) {
        const int64_t pair = at + 4 * static_cast<int64_t>(k);
        planes.dst.write(pair, y[2 * k]);
        planes.dst.write(pair + 1, u[k]);
        planes.dst.write(pair + 2, y[2 * k + 1]);
        planes.dst.write(pair + 3, v[k]);
    }
}

// Line k of the surface: lines lie between lines, every second luma line and every second pair of chroma lines.
// `luma_between` and `chroma_between` make the new ones.
template <class LumaBetween, class ChromaBetween, class Store>
void enlarge_planar(const Picture& p, LumaBetween luma_between, ChromaBetween chroma_between, Store store)
{
    for (size_t k = 0; k < 2 * p.y.size(); ++k) {
        const size_t s = k / 2, c = s / 2;
        const Line y = k % 2 == 0 ? p.y[s] : luma_between(p.y, s);
        if (s % 2 == 0) {
            store(static_cast<int64_t>(k), y, p.u[c], p.v[c]);
        } else {
            store(static_cast<int64_t>(k), y, chroma_between(p.u, c), chroma_between(p.v, c));
        }
    }
}

auto into_yuy2(Planes& planes, const Call& call)
{
    return [&](int64_t k, const Line& y, const Line& u, const Line& v) {
        store_yuy2(planes, k * call.dst_pitch, y, u, v);
    };
}

void enlarge_into_rgb(Planes& planes, const Call& call, Format format)
{
    if (call.height < 12) return;
    PixelFormat pixels{format, 0};
    if (format == Format::kRgb16) {
        pixels.layout = static_cast<uint32_t>(call.info->rgb16_layout);
        if (pixels.layout > 3) return;
    }
    Picture p = planar_picture(planes, call);
    for_each_line(p.y, [&](const Line& line) { return treated(line, adjusted_luma(call.state)); });
    for_each_line(p.u, [&](const Line& line) { return treated(line, adjusted_u(call.state)); });
    for_each_line(p.v, [&](const Line& line) { return treated(line, adjusted_v(call.state)); });
    enlarge_planar(p, between, between, [&](int64_t line, const Line& y, const Line& u, const Line& v) {
        for (size_t x = 0; x < y.size(); x += 16) {
            Luma16 luma;
            Terms8 terms;
            for (size_t i = 0; i < 16; ++i) luma[i] = y[x + i];
            for (size_t k = 0; k < 8; ++k) terms[k] = chroma_terms(u[x / 2 + k], v[x / 2 + k]);
            Pointer dst(planes.dst);
            dst.advance(wrap(line * call.dst_pitch + static_cast<int64_t>(x) * bytes_per_pixel(format)));
            store_pixels(dst, luma, terms, pixels);
        }
    });
}

// Every line of a packed picture has its own chroma, so that luma and chroma double alike.
void enlarge_packed(Planes& planes, const Call& call, const Picture& p)
{
    for (size_t s = 0; s < p.y.size(); ++s) {
        const int64_t at = static_cast<int64_t>(2 * s) * call.dst_pitch;
        store_yuy2(planes, at, p.y[s], p.u[s], p.v[s]);
        store_yuy2(planes, at + call.dst_pitch, between(p.y, s), between(p.u, s), between(p.v, s));
    }
}

} // namespace

void strech_picture_1X2_yuy2(Planes& planes, const Call& call)
{
    if (call.height < 8) return;
    enlarge_planar(planar_picture(planes, call), between, between, into_yuy2(planes, call));
}

// Filtered, and adjusted last.
void strech_picture_1X2_yuy2_ajust(Planes& planes, const Call& call)
{
    if (call.height < 8) return;
    const State& s = call.state;
    enlarge_planar(
        planar_picture(planes, call), [](const Lines& lines, size_t line) { return between_filtered(lines, line, 2); },
        [](const Lines& lines, size_t line) { return between_filtered(lines, line, 1); },
        [&](int64_t k, const Line& y, const Line& u, const Line& v) {
            store_yuy2(planes, k * call.dst_pitch, treated(y, adjusted_luma(s)), treated(u, adjusted_u(s)),
                       treated(v, adjusted_v(s)));
        });
}

void strech_picture_2X2_yuy2(Planes& planes, const Call& call)
{
    if (call.height < 8) return;
    Picture p = planar_picture(planes, call);
    for (Lines* lines : {&p.y, &p.u, &p.v}) {
        for_each_line(*lines, [](const Line& line) { return doubled(line, as_it_is, as_it_is, 1); });
    }
    enlarge_planar(p, between, between, into_yuy2(planes, call));
}

// Adjusted first, and the U sample ahead of each block of eight by V's offset.
void strech_picture_2X2_yuy2_ajust(Planes& planes, const Call& call)
{
    if (call.height < 16) return;
    const Treat luma = adjusted_luma(call.state), u = adjusted_u(call.state), v = adjusted_v(call.state);
    Picture p = planar_picture(planes, call);
    for_each_line(p.y, [&](const Line& line) { return doubled(line, luma, luma, 16); });
    for_each_line(p.u, [&](const Line& line) { return doubled(line, u, v, 8); });
    for_each_line(p.v, [&](const Line& line) { return doubled(line, v, v, 8); });
    enlarge_planar(p, between, between, into_yuy2(planes, call));
}

void strech_picture_1X2_yuy2_ajust_rgb32(Planes& planes, const Call& call)
{
    enlarge_into_rgb(planes, call, Format::kRgb32);
}

void strech_picture_1X2_yuy2_ajust_rgb24(Planes& planes, const Call& call)
{
    enlarge_into_rgb(planes, call, Format::kRgb24);
}

void strech_picture_1X2_yuy2_ajust_rgb16(Planes& planes, const Call& call)
{
    enlarge_into_rgb(planes, call, Format::kRgb16);
}

void yuy2_strech_picture_2X2_yuy2(Planes& planes, const Call& call)
{
    if (call.height < 16) return;
    Picture p = packed_picture(planes, call);
    for (Lines* lines : {&p.y, &p.u, &p.v}) {
        for_each_line(*lines, [](const Line& line) { return doubled(line, as_it_is, as_it_is, 1); });
    }
    enlarge_packed(planes, call, p);
}

// Adjusted first, and the chroma samples ahead of each block of eight by each other's offset.
void yuy2_strech_picture_2X2_yuy2_ajust(Planes& planes, const Call& call)
{
    if (call.height < 8) return;
    const Treat luma = adjusted_luma(call.state), u = adjusted_u(call.state), v = adjusted_v(call.state);
    Picture p = packed_picture(planes, call);
    for_each_line(p.y, [&](const Line& line) { return doubled(line, luma, luma, 16); });
    for_each_line(p.u, [&](const Line& line) { return doubled(line, u, v, 8); });
    for_each_line(p.v, [&](const Line& line) { return doubled(line, v, u, 8); });
    enlarge_packed(planes, call, p);
}

} // namespace model
