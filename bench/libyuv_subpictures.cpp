// SPDX-License-Identifier: MIT
#include "bench/libyuv_subpictures.h"

#include "bench/libyuv_steps.h"
#include "bench/subpictures.h"

namespace bench {
namespace {

// Of the subpicture's chroma the even lines: what is blended is 4:2:0.
void blend(const Yuv& under, const Picture& p, const Layout& l, const Yuv& to)
{
    const Planes &s = under.planes, &t = to.planes;
    libyuv::I420Blend(p.overlay_y, l.y_pitch, p.overlay_u, l.y_pitch, p.overlay_v, l.y_pitch, s.y, s.pitch, s.u,
                      s.pitch / 2, s.v, s.pitch / 2, p.peers_alpha, l.y_pitch, t.y, t.pitch, t.u, t.pitch / 2, t.v,
                      t.pitch / 2, to.size.width, to.size.height);
}

using Expand = int (*)(const uint8_t*, int, uint8_t*, int, int, int);

Expand expansion_of(Source drawing)
{
    switch (drawing) {
    case Source::rgb24: return libyuv::RGB24ToARGB;
    case Source::rgb565: return libyuv::RGB565ToARGB;
    default: return nullptr;
    }
}

} // namespace

// Up to four calls: a field is doubled, the subpicture blended into a picture between, its width halved, the rest
// converted. YV12 surfaces are blended into directly.
Load blend_and_convert(const Layout& l)
{
    const Convert convert = conversion_to(l.access);
    return [=, doubled = room_for(l.region()), blended = room_for(l.region()),
            small = room_for(l.enlarged())](const Picture& p) {
        const auto between = [](const Scratch& room, Size size) { return yuv420(room.bytes(), size.width, size); };
        Yuv picture = source_of(p, l);
        if (l.access.field) {
            const Yuv whole = between(doubled, l.region());
            scale(picture, whole, filter_for(l.access));
            picture = whole;
        }
        if (!convert) return blend(picture, p, l, yuv420(p.surface, l.dst_pitch, l.region()));
        Yuv mixed = between(blended, l.region());
        blend(picture, p, l, mixed);
        if (l.enlarged().width != l.region().width) {
            const Yuv halved = between(small, l.enlarged());
            scale(mixed, halved, filter_for(l.access));
            mixed = halved;
        }
        convert_with(convert, mixed, p, l);
    };
}

Load convert_drawing(const Layout& l)
{
    const Expand expand = expansion_of(l.access.source);
    const Scratch room(4 * l.size.width, expand ? l.size.height : 0);
    return [=](const Picture& p) {
        const Planes to = planes422_of(p.surface, l.dst_pitch, l.size.height);
        if (expand) expand(p.y, l.y_pitch, room.bytes(), room.pitch(), l.size.width, l.size.height);
        libyuv::ARGBToI422(expand ? room.bytes() : p.y, expand ? room.pitch() : l.y_pitch, to.y, to.pitch, to.u,
                           to.pitch / 2, to.v, to.pitch / 2, l.size.width, l.size.height);
    };
}

Load fill_surface(const Layout& l)
{
    return [=](const Picture& p) {
        if (l.access.surface == Surface::rgb32) {
            libyuv::ARGBRect(p.surface, l.dst_pitch, 0, 0, l.size.width, l.size.height, kFillColour);
        } else {
            libyuv::SetPlane(p.surface, l.dst_pitch, l.surface_line(), l.size.height, kFillColour & 255);
        }
    };
}

} // namespace bench
