// SPDX-License-Identifier: MIT
#include "bench/libyuv_steps.h"

namespace bench {

Yuv yuv420(uint8_t* memory, int pitch, Size size)
{
    return {planes_of(memory, pitch, size.height), size, size.height / 2};
}

Yuv yuv422(uint8_t* memory, Size size) { return {planes422_of(memory, size.width, size.height), size, size.height}; }

Yuv source_of(const Picture& p, const Layout& l) { return {{p.y, p.u, p.v, l.y_pitch}, l.size, l.size.height / 2}; }

Scratch room_for(Size size) { return {size.width, 2 * size.height}; }

void convert_with(Convert convert, const Yuv& from, const Picture& p, const Layout& l)
{
    const Planes& s = from.planes;
    convert(s.y, s.pitch, s.u, s.pitch / 2, s.v, s.pitch / 2, p.surface, l.dst_pitch, from.size.width,
            from.size.height);
}

void unpack_with(Unpack unpack, const Picture& p, const Layout& l, const Yuv& to)
{
    const Planes& t = to.planes;
    unpack(p.y, l.y_pitch, t.y, t.pitch, t.u, t.pitch / 2, t.v, t.pitch / 2, l.size.width, l.size.height);
}

void scale(const Yuv& from, const Yuv& to, libyuv::FilterMode filter)
{
    const Planes &s = from.planes, &t = to.planes;
    const auto plane = [&](const uint8_t* f, uint8_t* d, int part, int from_lines, int to_lines) {
        libyuv::ScalePlane(f, s.pitch / part, from.size.width / part, from_lines, d, t.pitch / part,
                           to.size.width / part, to_lines, filter);
    };
    plane(s.y, t.y, 1, from.size.height, to.size.height);
    plane(s.u, t.u, 2, from.chroma_height, to.chroma_height);
    plane(s.v, t.v, 2, from.chroma_height, to.chroma_height);
}

// Bilinear interpolates both ways, as the enlargers do; the linear filter would repeat lines. The half-size loaders
// average pairs of samples or, as the mixer does, drop every second one.
libyuv::FilterMode filter_for(const Access& access)
{
    if (access.enlarges()) return libyuv::kFilterBilinear;
    return access.surface == Surface::yv12 || access.mixes() ? libyuv::kFilterNone : libyuv::kFilterLinear;
}

namespace {

template <const libyuv::YuvConstants& constants>
int to_argb(const uint8_t* y, int y_pitch, const uint8_t* u, int u_pitch, const uint8_t* v, int v_pitch, uint8_t* to,
            int to_pitch, int width, int height)
{
    return libyuv::I420ToARGBMatrix(y, y_pitch, u, u_pitch, v, v_pitch, to, to_pitch, &constants, width, height);
}

Convert argb_conversion_of(Colour colour)
{
    switch (colour) {
    case Colour::bt601: break;
    case Colour::bt709: return to_argb<libyuv::kYuvH709Constants>;
    case Colour::full: return to_argb<libyuv::kYuvJPEGConstants>;
    }
    return libyuv::I420ToARGB;
}

} // namespace

Convert conversion_to(const Access& access)
{
    switch (access.surface) {
    case Surface::rgb32: return argb_conversion_of(access.colour);
    case Surface::rgb24: return libyuv::I420ToRGB24;
    case Surface::rgb565: return libyuv::I420ToRGB565;
    case Surface::rgb555: return libyuv::I420ToARGB1555;
    case Surface::yuy2: return libyuv::I420ToYUY2;
    case Surface::yv12:
    case Surface::nv12:
    case Surface::plane:
    case Surface::planes: break;
    }
    return nullptr;
}

} // namespace bench
