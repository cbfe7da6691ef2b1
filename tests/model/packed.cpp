// SPDX-License-Identifier: MIT
// Packed YUY2 pictures to surfaces of the same size. Both lines of a pass take the upper line's chroma.
#include "model/packed.h"

#include "model/pixels.h"

namespace model {
namespace {

// Blocks of `block_pixels`, passes of two lines; every pass starts from the true pitches.
template <class Block> void walk(Planes& planes, const Call& call, int block_pixels, int bytes_per_pixel, Block block)
{
    const int32_t src_pitch = wrap(2 * int64_t{call.y_pitch});
    Pointer src_line(planes.y), dst_line(planes.dst);
    Counter lines(call.height);
    do {
        Pointer src = src_line, dst = dst_line;
        Counter columns(call.width);
        do {
            block(src, src.plus(src_pitch), dst, dst.plus(call.dst_pitch));
            src.advance(2 * block_pixels);
            dst.advance(bytes_per_pixel * block_pixels);
        } while (columns.more_after(static_cast<uint32_t>(block_pixels)));
        src_line.advance(wrap(2 * int64_t{src_pitch}));
        dst_line.advance(wrap(2 * int64_t{call.dst_pitch}));
    } while (lines.more_after(2));
}

// How samples are changed before anything else.
struct Samples {
    bool adjusted;
    State state;

    uint8_t luma(uint8_t x) const { return adjusted ? adjust(x, state.luma_gain, state.luma_offset) : x; }
    uint8_t u(uint8_t x) const { return adjusted ? adjust(x, state.chroma_gain, state.u_offset) : x; }
    uint8_t v(uint8_t x) const { return adjusted ? adjust(x, state.chroma_gain, state.v_offset) : x; }
};

void load_yuy2(Planes& planes, const Call& call, bool adjusted)
{
    const Samples samples{adjusted, call.state};
    walk(planes, call, 8, 2, [&](const Pointer& upper, const Pointer& lower, Pointer dst_upper, Pointer dst_lower) {
        std::array<uint8_t, 16> bytes{};
        for (int i = 0; i < 16; ++i) {
            const uint8_t x = upper[i];
            bytes[static_cast<size_t>(i)] = i % 2 == 0 ? samples.luma(x) : i % 4 == 1 ? samples.u(x) : samples.v(x);
        }
        for (int i = 0; i < 16; ++i) dst_upper.store(i, bytes[static_cast<size_t>(i)]);
        for (int i = 0; i < 16; ++i) {
            const uint8_t own = lower[i]; // its chroma is read and dropped
            dst_lower.store(i, i % 2 == 0 ? samples.luma(own) : bytes[static_cast<size_t>(i)]);
        }
    });
}

Luma16 luma_of(const Pointer& line, const Samples& samples)
{
    Luma16 luma;
    for (int i = 0; i < 32; ++i) {
        const uint8_t x = line[i];
        if (i % 2 == 0) luma[static_cast<size_t>(i / 2)] = samples.luma(x);
    }
    return luma;
}

Terms8 terms_of(const Pointer& line, const Samples& samples)
{
    Terms8 terms;
    for (int k = 0; k < 8; ++k) {
        terms[static_cast<size_t>(k)] = chroma_terms(samples.u(line[4 * k + 1]), samples.v(line[4 * k + 3]));
    }
    return terms;
}

void load_rgb(Planes& planes, const Call& call, Format format, bool adjusted)
{
    PixelFormat pixels{format, 0};
    if (format == Format::kRgb16) {
        pixels.layout = static_cast<uint32_t>(call.info->rgb16_layout);
        if (pixels.layout > 3) return;
    }
    const Samples samples{adjusted, call.state};
    auto block = [&](const Pointer& upper, const Pointer& lower, const Pointer& dst_upper, const Pointer& dst_lower) {
        const Terms8 terms = terms_of(upper, samples);
        store_pixels(dst_upper, luma_of(upper, samples), terms, pixels);
        store_pixels(dst_lower, luma_of(lower, samples), terms, pixels);
    };
    walk(planes, call, 16, bytes_per_pixel(format), block);
}

} // namespace

void LoadYUY2_YUY2(Planes& planes, const Call& call) { load_yuy2(planes, call, false); }
void LoadYUY2_YUY2_adjust(Planes& planes, const Call& call) { load_yuy2(planes, call, true); }
void LoadYUY2_RGB32(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb32, false); }
void LoadYUY2_RGB24(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb24, false); }
void LoadYUY2_RGB16(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb16, false); }
void LoadYUY2_RGB32_adjust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb32, true); }
void LoadYUY2_RGB24_adjust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb24, true); }
void LoadYUY2_RGB16_adjust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb16, true); }

} // namespace model
