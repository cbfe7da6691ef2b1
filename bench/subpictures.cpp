// SPDX-License-Identifier: MIT
#include "bench/subpictures.h"

namespace bench {
namespace {

using vsurf::Kernels;

// A group is an export with each cover. The first is what its peers do, who look at no alpha before they blend.
Group with_covers(const std::string& name, Job Kernels::*kernel, Access access,
                  std::initializer_list<std::pair<const char*, Cover>> covers)
{
    Group group;
    for (const auto& [suffix, cover] : covers) {
        access.cover = cover;
        group.exports.push_back({name + suffix, kernel, access});
    }
    return group;
}

struct Mixer {
    const char* name;
    Job Kernels::*kernel;
    Access access;
    const char* loader; // that makes the nearest surface without a subpicture
    Loader Kernels::*load;
    Rows loaders_rows = Rows::padded;
};

Access progressive(Surface surface, int half_widths = 2) { return {Source::planar, surface, half_widths}; }
Access field(Surface surface)
{
    Access access{Source::planar, surface, 2, 2};
    access.field = true;
    return access;
}

const std::vector<Mixer>& mixers()
{
    static const std::vector<Mixer> all = {
        {"mix_ayuy2_rgb32_p_ajust", &Kernels::mix_ayuy2_rgb32_p_ajust, progressive(Surface::rgb32),
         "loadimage_rgb32_ajust", &Kernels::loadimage_rgb32_ajust},
        {"mix_ayuy2_rgb24_p_ajust", &Kernels::mix_ayuy2_rgb24_p_ajust, progressive(Surface::rgb24),
         "loadimage_rgb24_ajust", &Kernels::loadimage_rgb24_ajust},
        {"mix_ayuy2_rgb16_p_ajust", &Kernels::mix_ayuy2_rgb16_p_ajust, progressive(Surface::rgb565),
         "loadimage_rgb16_ajust", &Kernels::loadimage_rgb16_ajust},
        {"mix_ayuy2_yuy2_p_ajust", &Kernels::mix_ayuy2_yuy2_p_ajust, progressive(Surface::yuy2), "loadimage_yuy2_ajust",
         &Kernels::loadimage_yuy2_ajust},
        {"mix_ayuy2_half_yuy2_p_ajust", &Kernels::mix_ayuy2_half_yuy2_p_ajust, progressive(Surface::yuy2, 1),
         "loadimage_half_yuy2_ajust", &Kernels::loadimage_half_yuy2_ajust},
        {"mix_ayv12_yv12_p", &Kernels::mix_ayv12_yv12_p, progressive(Surface::yv12), "loadimage_yv12_ajust",
         &Kernels::loadimage_yv12_ajust, Rows::tight_source},
        {"mix_ayv12_yv12_p_ajust", &Kernels::mix_ayv12_yv12_p_ajust, progressive(Surface::yv12), "loadimage_yv12_ajust",
         &Kernels::loadimage_yv12_ajust, Rows::tight_source},
        {"mix_ayuy2_rgb32_i_ajust", &Kernels::mix_ayuy2_rgb32_i_ajust, field(Surface::rgb32),
         "strech_picture_1X2_yuy2_ajust_rgb32", &Kernels::strech_picture_1X2_yuy2_ajust_rgb32},
        {"mix_ayuy2_rgb24_i_ajust", &Kernels::mix_ayuy2_rgb24_i_ajust, field(Surface::rgb24),
         "strech_picture_1X2_yuy2_ajust_rgb24", &Kernels::strech_picture_1X2_yuy2_ajust_rgb24},
        {"mix_ayuy2_rgb16_i_ajust", &Kernels::mix_ayuy2_rgb16_i_ajust, field(Surface::rgb565),
         "strech_picture_1X2_yuy2_ajust_rgb16", &Kernels::strech_picture_1X2_yuy2_ajust_rgb16},
        {"mix_ayuy2_yuy2_i_ajust", &Kernels::mix_ayuy2_yuy2_i_ajust, field(Surface::yuy2),
         "strech_picture_1X2_yuy2_ajust", &Kernels::strech_picture_1X2_yuy2_ajust},
        {"mix_ayv12_yv12_i", &Kernels::mix_ayv12_yv12_i, field(Surface::yv12), "strech_picture_1X2_yv12_ajust",
         &Kernels::strech_picture_1X2_yv12_ajust, Rows::tight_source},
    };
    return all;
}

Group conversion(const char* name, Job Kernels::*kernel, Source drawing)
{
    return with_covers(name, kernel, {drawing, Surface::planes},
                       {{"-opaque", Cover::whole}, {"-subtitle", Cover::subtitle}, {"-transparent", Cover::clear}});
}

Group without_peers(const char* name, Job Kernels::*kernel, const Access& access)
{
    return {{{name, kernel, access}}, Content::noise, false};
}

// Only the subpicture; a loader makes the same surface of the picture.
Group drawer(const char* name, Job Kernels::*kernel, Surface surface, const char* loader, Loader Kernels::*load)
{
    const Access access{Source::subpicture, surface, 2, 1, Rows::tight_source, Oddity::none, Cover::subtitle};
    Group group = without_peers(name, kernel, access);
    group.loader = Export{loader, load, progressive(surface)};
    return group;
}

Group filling(const char* name, Fill Kernels::*kernel, Surface surface)
{
    return {{{name, kernel, {Source::none, surface}}}};
}

} // namespace

std::vector<Group> mixer_groups()
{
    std::vector<Group> groups;
    for (const Mixer& mixer : mixers()) {
        groups.push_back(
            with_covers(mixer.name, mixer.kernel, mixer.access,
                        {{"-random", Cover::whole}, {"-clear", Cover::clear}, {"-subtitle", Cover::subtitle}}));
        Access loaded = mixer.access;
        loaded.rows = mixer.loaders_rows;
        groups.back().loader = Export{mixer.loader, mixer.load, loaded};
    }
    return groups;
}

std::vector<Group> subpicture_groups()
{
    const auto luma_to = [](Surface surface) { return Access{Source::luma, surface}; };
    const auto alpha_of = [](Source drawing) { return Access{drawing, Surface::plane}; };
    return {
        conversion("Convert_RGB32_To_AYUY2", &Kernels::Convert_RGB32_To_AYUY2, Source::rgb32),
        conversion("Convert_RGB24_To_AYUY2", &Kernels::Convert_RGB24_To_AYUY2, Source::rgb24),
        conversion("Convert_RGB16_565_To_AYUY2", &Kernels::Convert_RGB16_565_To_AYUY2, Source::rgb565),
        without_peers("Restore_RGB32_To_Alpha", &Kernels::Restore_RGB32_To_Alpha, alpha_of(Source::rgb32)),
        without_peers("Restore_RGB24_To_Alpha", &Kernels::Restore_RGB24_To_Alpha, alpha_of(Source::rgb24)),
        without_peers("Restore_RGB16_565_To_Alpha", &Kernels::Restore_RGB16_565_To_Alpha, alpha_of(Source::rgb565)),
        without_peers("load_subpicture_alpha_rgb32", &Kernels::load_subpicture_alpha_rgb32, luma_to(Surface::rgb32)),
        without_peers("load_subpicture_alpha_rgb24", &Kernels::load_subpicture_alpha_rgb24, luma_to(Surface::rgb24)),
        without_peers("load_subpicture_alpha_rgb16_565", &Kernels::load_subpicture_alpha_rgb16_565,
                      luma_to(Surface::rgb565)),
        drawer("load_subpicture_yuy2_rgb32", &Kernels::load_subpicture_yuy2_rgb32, Surface::rgb32, "loadimage_rgb32",
               &Kernels::loadimage_rgb32),
        drawer("load_subpicture_yuy2_rgb24", &Kernels::load_subpicture_yuy2_rgb24, Surface::rgb24, "loadimage_rgb24",
               &Kernels::loadimage_rgb24),
        drawer("load_subpicture_yuy2_rgb16", &Kernels::load_subpicture_yuy2_rgb16, Surface::rgb565, "loadimage_rgb16",
               &Kernels::loadimage_rgb16),
        drawer("load_subpicture_yuy2_rgb32_ajust", &Kernels::load_subpicture_yuy2_rgb32_ajust, Surface::rgb32,
               "loadimage_rgb32_ajust", &Kernels::loadimage_rgb32_ajust),
        drawer("load_subpicture_yuy2_rgb24_ajust", &Kernels::load_subpicture_yuy2_rgb24_ajust, Surface::rgb24,
               "loadimage_rgb24_ajust", &Kernels::loadimage_rgb24_ajust),
        drawer("load_subpicture_yuy2_rgb16_ajust", &Kernels::load_subpicture_yuy2_rgb16_ajust, Surface::rgb565,
               "loadimage_rgb16_ajust", &Kernels::loadimage_rgb16_ajust),
        filling("LoadColorKeyRgb32", &Kernels::LoadColorKeyRgb32, Surface::rgb32),
        filling("LoadColorKeyRgb24", &Kernels::LoadColorKeyRgb24, Surface::rgb24),
        filling("LoadColorKeyRgb16", &Kernels::LoadColorKeyRgb16, Surface::rgb565),
        {{{"RelaceMaskWithColorKey",
           &Kernels::RelaceMaskWithColorKey,
           {Source::luma, Surface::plane, 2, 1, Rows::padded, Oddity::merge}}},
         Content::noise,
         false},
    };
}

} // namespace bench
