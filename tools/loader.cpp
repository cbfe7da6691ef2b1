// SPDX-License-Identifier: MIT
#include "tools/loader.h"

namespace player {
namespace {

using Load = decltype(&loadimage_rgb32);

struct Export {
    const char* name;
    Load run;
};

#define NAMED(name) \
    Export { #name, &name }

Export half_loader(SurfaceFormat format)
{
    return format == SurfaceFormat::yv12 ? NAMED(loadimage_half_yv12_ajust) : NAMED(loadimage_half_yuy2_ajust);
}

// The YUY2 and YV12 loaders without adjustment do not make a complete picture (one leaves the start of each second
// line's blocks, the other moves lines), so those surfaces take the adjusted ones whatever the controls say.
Export planar_loader(SurfaceFormat format, const Controls& controls)
{
    const bool plain = controls.neutral();
    switch (format) {
    case SurfaceFormat::rgb32: return plain ? NAMED(loadimage_rgb32) : NAMED(loadimage_rgb32_ajust);
    case SurfaceFormat::rgb24: return plain ? NAMED(loadimage_rgb24) : NAMED(loadimage_rgb24_ajust);
    case SurfaceFormat::yuy2: return controls.grey() ? NAMED(loadimage_yuy2_mono_ajust) : NAMED(loadimage_yuy2_ajust);
    case SurfaceFormat::yv12: return NAMED(loadimage_yv12_ajust);
    default: return plain ? NAMED(loadimage_rgb16) : NAMED(loadimage_rgb16_ajust);
    }
}

Export packed_loader(SurfaceFormat format, bool plain)
{
    switch (format) {
    case SurfaceFormat::rgb32: return plain ? NAMED(LoadYUY2_RGB32) : NAMED(LoadYUY2_RGB32_adjust);
    case SurfaceFormat::rgb24: return plain ? NAMED(LoadYUY2_RGB24) : NAMED(LoadYUY2_RGB24_adjust);
    case SurfaceFormat::yuy2: return plain ? NAMED(LoadYUY2_YUY2) : NAMED(LoadYUY2_YUY2_adjust);
    default: return plain ? NAMED(LoadYUY2_RGB16) : NAMED(LoadYUY2_RGB16_adjust);
    }
}

// Into RGB there are adjusted enlargers only; neutral controls change nothing there.
Export enlarger_1x2(SurfaceFormat format, bool plain)
{
    switch (format) {
    case SurfaceFormat::rgb32: return NAMED(strech_picture_1X2_yuy2_ajust_rgb32);
    case SurfaceFormat::rgb24: return NAMED(strech_picture_1X2_yuy2_ajust_rgb24);
    case SurfaceFormat::yuy2: return plain ? NAMED(strech_picture_1X2_yuy2) : NAMED(strech_picture_1X2_yuy2_ajust);
    case SurfaceFormat::yv12: return NAMED(strech_picture_1X2_yv12_ajust);
    default: return NAMED(strech_picture_1X2_yuy2_ajust_rgb16);
    }
}

Export enlarger_2x2(SurfaceFormat format, bool plain)
{
    if (format == SurfaceFormat::yv12) return NAMED(strech_picture_2X2_yv12_ajust);
    return plain ? NAMED(strech_picture_2X2_yuy2) : NAMED(strech_picture_2X2_yuy2_ajust);
}

#undef NAMED

const char* enlarge_packed(const Picture& picture, Surface& surface, bool plain)
{
    const int line = 2 * picture.width;
    if (plain) {
        yuy2_strech_picture_2X2_yuy2(picture.y, nullptr, nullptr, surface.bytes(), line, picture.height,
                                     surface.pitch());
        return "yuy2_strech_picture_2X2_yuy2";
    }
    yuy2_strech_picture_2X2_yuy2_ajust(picture.y, nullptr, nullptr, surface.bytes(), line, picture.height,
                                       surface.pitch(), nullptr);
    return "yuy2_strech_picture_2X2_yuy2_ajust";
}

const char* double_field(const Picture& picture, Surface& surface)
{
    tagVideoFrame frame{};
    frame.field_mode = 1;
    frame.plane_y = picture.y;
    frame.plane_u = picture.u;
    frame.plane_v = picture.v;
    frame.pitch = picture.pitch;
    strech_opt_yuy2_ajust(&frame, 0, picture.height / 2, surface.bytes(), surface.pitch(), nullptr);
    return "strech_opt_yuy2_ajust";
}

Export choose(bool packed, SurfaceFormat format, const Controls& controls, Scaling scaling)
{
    switch (scaling) {
    case Scaling::half_width: return half_loader(format);
    case Scaling::zoom_1x2: return enlarger_1x2(format, controls.neutral());
    case Scaling::zoom_2x2: return enlarger_2x2(format, controls.neutral());
    default: return packed ? packed_loader(format, controls.neutral()) : planar_loader(format, controls);
    }
}

} // namespace

// The plane enlargers take the luma gain for all planes: the offsets that keep neutral colours neutral then belong to
// it, and saturation follows contrast.
ajust_contrast_info adjustment(const Surface& surface, const Controls& controls, Scaling scaling)
{
    ajust_contrast_info info = controls.parameters();
    const bool zoom = scaling == Scaling::zoom_1x2 || scaling == Scaling::zoom_2x2;
    if (zoom && surface.format() == SurfaceFormat::yv12) info.u_offset_a = info.v_offset_a = info.y_offset_a;
    info.rgb16_layout = traits(surface.format()).rgb16_layout;
    info.surface_height = info.lines_to_bottom = surface.height();
    return info;
}

const char* Loader::load(const Picture& picture, bool packed, Surface& surface, const Controls& controls,
                         Scaling scaling) const
{
    // Some exports give U the offset of V and the reverse; the controls keep both equal.
    ajust_contrast_info info = adjustment(surface, controls, scaling);
    get_contrast_data(&info);
    if (scaling == Scaling::field) return double_field(picture, surface);
    if (packed && scaling == Scaling::zoom_2x2) return enlarge_packed(picture, surface, controls.neutral());
    const Export chosen = choose(packed, surface.format(), controls, scaling);
    chosen.run(picture.y, picture.u, picture.v, surface.bytes(), picture.width, picture.height, picture.pitch,
               surface.pitch(), &info);
    return chosen.name;
}

} // namespace player
