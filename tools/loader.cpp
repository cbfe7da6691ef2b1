#include "tools/loader.h"

namespace player {
namespace {

using Load = decltype(vsurf::Kernels::loadimage_rgb32);

Load half_loader(const vsurf::Kernels& kernels, SurfaceFormat format)
{
    return format == SurfaceFormat::yv12 ? kernels.loadimage_half_yv12_ajust : kernels.loadimage_half_yuy2_ajust;
}

// The YUY2 and YV12 loaders without adjustment do not make a complete picture (one leaves the start of each second
// line's blocks, the other moves lines), so those surfaces take the adjusted ones whatever the controls say.
Load full_loader(const vsurf::Kernels& kernels, SurfaceFormat format, const Controls& controls)
{
    const bool plain = controls.neutral();
    switch (format) {
    case SurfaceFormat::rgb32: return plain ? kernels.loadimage_rgb32 : kernels.loadimage_rgb32_ajust;
    case SurfaceFormat::rgb24: return plain ? kernels.loadimage_rgb24 : kernels.loadimage_rgb24_ajust;
    case SurfaceFormat::yuy2: return controls.grey() ? kernels.loadimage_yuy2_mono_ajust : kernels.loadimage_yuy2_ajust;
    case SurfaceFormat::yv12: return kernels.loadimage_yv12_ajust;
    default: return plain ? kernels.loadimage_rgb16 : kernels.loadimage_rgb16_ajust;
    }
}

} // namespace

void Loader::load(const Planes& picture, Surface& surface, const Controls& controls, bool half) const
{
    const vsurf::Kernels& kernels = *isa_.kernels;
    // loadimage_yv12_ajust gives U the offset of V and the reverse; the controls keep both equal.
    ajust_contrast_info info = controls.parameters();
    get_contrast_data(&info);
    info.rgb16_layout = traits(surface.format()).rgb16_layout;
    info.surface_height = info.lines_to_bottom = surface.height();
    const Load run = half ? half_loader(kernels, surface.format()) : full_loader(kernels, surface.format(), controls);
    run(picture.y, picture.u, picture.v, surface.bytes(), picture.width, picture.height, picture.pitch, surface.pitch(),
        &info);
}

} // namespace player
