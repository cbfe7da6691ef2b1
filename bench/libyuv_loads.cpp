#include "bench/libyuv_loads.h"

#include <libyuv.h>

#include <memory>

namespace bench {
namespace {

using Convert = int (*)(const uint8_t*, int, const uint8_t*, int, const uint8_t*, int, uint8_t*, int, int, int);
using Unpack = int (*)(const uint8_t*, int, uint8_t*, int, uint8_t*, int, uint8_t*, int, int, int);
using Repack = int (*)(const uint8_t*, int, uint8_t*, int, int, int);

// What the steps of a load hand to each other; allocated with the load, outside the clock.
class Scratch {
public:
    Scratch(int line, int lines)
        : pitch_(line), lines_(lines),
          bytes_(std::make_shared<std::vector<uint8_t>>(static_cast<size_t>(line) * static_cast<size_t>(lines)))
    {
    }
    uint8_t* bytes() const { return bytes_->data(); }
    int pitch() const { return pitch_; }
    int lines() const { return lines_; }

private:
    int pitch_, lines_;
    std::shared_ptr<std::vector<uint8_t>> bytes_;
};

// A picture whose chroma has half the luma's width and, with 4:2:0, half its height.
struct Yuv {
    Planes planes;
    Size size;
    int chroma_height;
};
Yuv yuv420(uint8_t* memory, int pitch, Size size)
{
    return {planes_of(memory, pitch, size.height), size, size.height / 2};
}
Yuv yuv422(uint8_t* memory, Size size)
{
    uint8_t* v = memory + ptrdiff_t{size.width} * size.height;
    return {{memory, v + ptrdiff_t{size.width / 2} * size.height, v, size.width}, size, size.height};
}
Yuv source_of(const Picture& p, const Layout& l) { return {{p.y, p.u, p.v, l.y_pitch}, l.size, l.size.height / 2}; }
// Room for a picture of either kind.
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
// average pairs of samples or drop every second one.
libyuv::FilterMode filter_for(const Access& access)
{
    if (access.enlarges()) return libyuv::kFilterBilinear;
    return access.surface == Surface::yv12 ? libyuv::kFilterNone : libyuv::kFilterLinear;
}

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

Load packed_to_argb(const Layout& l)
{
    return [=](const Picture& p) {
        libyuv::YUY2ToARGB(p.y, l.y_pitch, p.surface, l.dst_pitch, l.size.width, l.size.height);
    };
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

Convert conversion_to(Surface surface)
{
    switch (surface) {
    case Surface::rgb32: return libyuv::I420ToARGB;
    case Surface::rgb24: return libyuv::I420ToRGB24;
    case Surface::rgb565: return libyuv::I420ToRGB565;
    case Surface::rgb555: return libyuv::I420ToARGB1555;
    case Surface::yuy2: return libyuv::I420ToYUY2;
    case Surface::yv12:
    case Surface::plane: break;
    }
    return nullptr;
}

std::vector<LibyuvLoad> packed_loads(const Layout& l)
{
    const Load planes = packed_by_planes(conversion_to(l.access.surface), l);
    switch (l.access.surface) {
    case Surface::rgb32: return {{"", packed_to_argb(l)}, {"-i420", planes}};
    case Surface::rgb24: return {{"-argb", packed_by_argb(libyuv::ARGBToRGB24, l)}, {"-i420", planes}};
    case Surface::rgb565: return {{"-argb", packed_by_argb(libyuv::ARGBToRGB565, l)}, {"-i420", planes}};
    case Surface::rgb555: return {{"-argb", packed_by_argb(libyuv::ARGBToARGB1555, l)}, {"-i420", planes}};
    case Surface::yuy2: return {{"", l.access.enlarges() ? enlarge_packed(l) : copy(l)}};
    case Surface::yv12:
    case Surface::plane: break;
    }
    return {};
}

} // namespace

std::vector<LibyuvLoad> libyuv_loads(const Layout& layout)
{
    const Access& access = layout.access;
    if (access.source == Source::packed) return packed_loads(layout);
    if (access.surface == Surface::plane) return {{"", scale_plane(layout)}};
    if (access.surface == Surface::yv12) return {{"", into_planes(layout)}};
    const Convert convert = conversion_to(access.surface);
    const bool same_size = access.half_widths == 2 && access.heights == 1;
    return {{"", same_size ? direct(convert, layout) : scale_and_convert(convert, layout)}};
}

} // namespace bench
