// SPDX-License-Identifier: MIT
#include "tools/mixer.h"
#include "tools/loader.h"

namespace player {
namespace {

struct Export {
    const char* name;
    decltype(&mix_ayv12_yv12_p) run;
};

#define NAMED(name) \
    Export { #name, &name }

Export progressive_mixer(SurfaceFormat format, bool plain)
{
    switch (format) {
    case SurfaceFormat::rgb32: return NAMED(mix_ayuy2_rgb32_p_ajust);
    case SurfaceFormat::rgb24: return NAMED(mix_ayuy2_rgb24_p_ajust);
    case SurfaceFormat::yuy2: return NAMED(mix_ayuy2_yuy2_p_ajust);
    case SurfaceFormat::yv12: return plain ? NAMED(mix_ayv12_yv12_p) : NAMED(mix_ayv12_yv12_p_ajust);
    default: return NAMED(mix_ayuy2_rgb16_p_ajust);
    }
}

Export field_mixer(SurfaceFormat format)
{
    switch (format) {
    case SurfaceFormat::rgb32: return NAMED(mix_ayuy2_rgb32_i_ajust);
    case SurfaceFormat::rgb24: return NAMED(mix_ayuy2_rgb24_i_ajust);
    case SurfaceFormat::yuy2: return NAMED(mix_ayuy2_yuy2_i_ajust);
    case SurfaceFormat::yv12: return NAMED(mix_ayv12_yv12_i);
    default: return NAMED(mix_ayuy2_rgb16_i_ajust);
    }
}

Export drawer(SurfaceFormat format, bool plain)
{
    switch (format) {
    case SurfaceFormat::rgb32:
        return plain ? NAMED(load_subpicture_yuy2_rgb32) : NAMED(load_subpicture_yuy2_rgb32_ajust);
    case SurfaceFormat::rgb24:
        return plain ? NAMED(load_subpicture_yuy2_rgb24) : NAMED(load_subpicture_yuy2_rgb24_ajust);
    default: return plain ? NAMED(load_subpicture_yuy2_rgb16) : NAMED(load_subpicture_yuy2_rgb16_ajust);
    }
}

Export mixer(SurfaceFormat format, Scaling scaling, bool plain)
{
    switch (scaling) {
    case Scaling::half_width: return NAMED(mix_ayuy2_half_yuy2_p_ajust);
    case Scaling::field: return field_mixer(format);
    default: return progressive_mixer(format, plain);
    }
}

#undef NAMED

void draw_on(MIX_INFO& job, const Surface& surface)
{
    job.surface = surface.bytes();
    job.surface_pitch = surface.pitch();
    if (surface.format() != SurfaceFormat::yv12) return;
    job.surface_v = surface.v_plane();
    job.surface_u = surface.u_plane();
}

} // namespace

bool Mixer::reaches(SurfaceFormat format, Scaling scaling, const Controls& controls)
{
    const bool planar = format == SurfaceFormat::yv12;
    switch (scaling) {
    case Scaling::none: return true;
    case Scaling::half_width: return !planar;
    case Scaling::field: return !planar || controls.neutral();
    default: return false;
    }
}

const char* Mixer::mix(const Picture& picture, const Subpicture& subpicture, Surface& surface, const Controls& controls,
                       Scaling scaling) const
{
    ajust_contrast_info info = adjustment(surface, controls, scaling);
    get_contrast_data(&info);
    MIX_INFO job = subpicture.job();
    // A field is every other line of the picture.
    job.picture_pitch = scaling == Scaling::field ? 2 * picture.pitch : picture.pitch;
    job.picture_y = picture.y;
    job.picture_u = picture.u;
    job.picture_v = picture.v;
    job.contrast_info = &info;
    draw_on(job, surface);
    const Export chosen = mixer(surface.format(), scaling, controls.neutral());
    chosen.run(&job);
    return chosen.name;
}

const char* Mixer::draw_alone(const Subpicture& subpicture, uint32_t key, Surface& surface,
                              const Controls& controls) const
{
    ajust_contrast_info info = adjustment(surface, controls, Scaling::none);
    get_contrast_data(&info);
    MIX_INFO job = subpicture.job();
    job.color_key = key;
    job.contrast_info = &info;
    draw_on(job, surface);
    const Export chosen = drawer(surface.format(), controls.neutral());
    chosen.run(&job);
    return chosen.name;
}

uint32_t Mixer::magenta(SurfaceFormat format)
{
    constexpr uint32_t kLayouts[] = {0xf81f, 0xf83e, 0xfc0f, 0xfc1f};
    const int layout = traits(format).rgb16_layout;
    return layout < 0 ? 0xff00ff : kLayouts[layout];
}

} // namespace player
