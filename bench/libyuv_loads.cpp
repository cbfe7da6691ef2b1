// SPDX-License-Identifier: MIT
#include "bench/libyuv_loads.h"

#include <libyuv.h>

#include "bench/libyuv_steps.h"
#include "bench/libyuv_subpictures.h"

namespace bench {
namespace {

using Repack = int (*)(const uint8_t*, int, uint8_t*, int, int, int); // also one packed format into another

Load direct(Convert convert, const Layout& l)
{
    return [=](const Picture& p) { convert_with(convert, source_of(p, l), p, l); };
}

// No single call does it: scale the planes into a picture of their own, then convert that.
Load scale_and_convert(Convert convert, const Layout& l)
{
    return [=, scratch = room_for(l.enlarged())](const Picture& p) {
        const Yuv between = yuv420(scratch.bytes(), scratch.pitch(), l.enlarged());
        scale(source_of(p, l), between, filter_for(l.access));
        convert_with(convert, between, p, l);
    };
}

Load into_planes(const Layout& l)
{
    return [=](const Picture& p) {
        const Yuv from = source_of(p, l), to = yuv420(p.surface, l.dst_pitch, l.enlarged());
        const Planes &s = from.planes, &t = to.planes;
        if (l.access.half_widths != 2 || l.access.heights != 1) return scale(from, to, filter_for(l.access));
        libyuv::I420Copy(s.y, s.pitch, s.u, s.pitch / 2, s.v, s.pitch / 2, t.y, t.pitch, t.u, t.pitch / 2, t.v,
                         t.pitch / 2, l.size.width, l.size.height);
    };
}

Load scale_plane(const Layout& l)
{
    return [=](const Picture& p) {
        const Size to = l.enlarged();
        libyuv::ScalePlane(p.y, l.y_pitch, l.size.width, l.size.height, p.surface, l.dst_pitch, to.width, to.height,
                           filter_for(l.access));
    };
}

Load into_semi_planar(const Layout& l)
{
    return [=](const Picture& p) {
        uint8_t* const chroma = p.surface + ptrdiff_t{l.dst_pitch} * l.size.height;
        libyuv::I420ToNV12(p.y, l.y_pitch, p.u, l.y_pitch / 2, p.v, l.y_pitch / 2, p.surface, l.dst_pitch, chroma,
                           l.dst_pitch, l.size.width, l.size.height);
    };
}

Load semi_planar_to_argb(const Layout& l)
{
    return [=](const Picture& p) {
        libyuv::NV12ToARGB(p.y, l.y_pitch, p.u, l.y_pitch, p.surface, l.dst_pitch, l.size.width, l.size.height);
    };
}

Load packed_to_argb(Repack repack, const Layout& l)
{
    return [=](const Picture& p) { repack(p.y, l.y_pitch, p.surface, l.dst_pitch, l.size.width, l.size.height); };
}

Load packed_by_argb(Repack repack, const Layout& l)
{
    return [=, scratch = Scratch(4 * l.size.width, l.size.height)](const Picture& p) {
        libyuv::YUY2ToARGB(p.y, l.y_pitch, scratch.bytes(), scratch.pitch(), l.size.width, l.size.height);
        repack(scratch.bytes(), scratch.pitch(), p.surface, l.dst_pitch, l.size.width, l.size.height);
    };
}

Load packed_by_planes(Convert convert, const Layout& l)
{
    return [=, scratch = room_for(l.size)](const Picture& p) {
        const Yuv between = yuv420(scratch.bytes(), scratch.pitch(), l.size);
        unpack_with(libyuv::YUY2ToI420, p, l, between);
        convert_with(convert, between, p, l);
    };
}

Load copy(const Layout& l)
{
    return [=](const Picture& p) {
        libyuv::CopyPlane(p.y, l.y_pitch, p.surface, l.dst_pitch, l.source_line(), l.size.height);
    };
}

// Three calls: apart, enlarged, together again.
Load enlarge_packed(const Layout& l)
{
    return [=, small = room_for(l.size), large = room_for(l.enlarged())](const Picture& p) {
        const Yuv from = yuv422(small.bytes(), l.size), to = yuv422(large.bytes(), l.enlarged());
        unpack_with(libyuv::YUY2ToI422, p, l, from);
        scale(from, to, filter_for(l.access));
        convert_with(libyuv::I422ToYUY2, to, p, l);
    };
}

std::vector<LibyuvLoad> packed_loads(const Layout& l)
{
    const Load planes = packed_by_planes(conversion_to(l.access), l);
    switch (l.access.surface) {
    case Surface::rgb32: return {{"", packed_to_argb(libyuv::YUY2ToARGB, l)}, {"-i420", planes}};
    case Surface::rgb24: return {{"-argb", packed_by_argb(libyuv::ARGBToRGB24, l)}, {"-i420", planes}};
    case Surface::rgb565: return {{"-argb", packed_by_argb(libyuv::ARGBToRGB565, l)}, {"-i420", planes}};
    case Surface::rgb555: return {{"-argb", packed_by_argb(libyuv::ARGBToARGB1555, l)}, {"-i420", planes}};
    case Surface::yuy2: return {{"", l.access.enlarges() ? enlarge_packed(l) : copy(l)}};
    case Surface::yv12:
    case Surface::nv12:
    case Surface::plane:
    case Surface::planes: break;
    }
    return {};
}

} // namespace

std::vector<LibyuvLoad> libyuv_loads(const Layout& layout)
{
    const Access& access = layout.access;
    if (access.mixes()) return {{"", blend_and_convert(layout)}};
    if (access.converts()) return {{"", convert_drawing(layout)}};
    if (access.source == Source::none) return {{"", fill_surface(layout)}};
    if (access.source == Source::packed) return packed_loads(layout);
    if (access.source == Source::uyvy) return {{"", packed_to_argb(libyuv::UYVYToARGB, layout)}};
    if (access.source == Source::semi_planar) return {{"", semi_planar_to_argb(layout)}};
    if (access.surface == Surface::nv12) return {{"", into_semi_planar(layout)}};
    if (access.surface == Surface::plane) return {{"", scale_plane(layout)}};
    if (access.surface == Surface::yv12) return {{"", into_planes(layout)}};
    const Convert convert = conversion_to(access);
    const bool same_size = access.half_widths == 2 && access.heights == 1;
    return {{"", same_size ? direct(convert, layout) : scale_and_convert(convert, layout)}};
}

} // namespace bench
