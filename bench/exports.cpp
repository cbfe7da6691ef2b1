// SPDX-License-Identifier: MIT
#include "bench/exports.h"
#include "bench/covers.h"
#include "bench/jobs.h"
#include "bench/subpictures.h"

namespace bench {
namespace {

using vsurf::Kernels;

constexpr Size kSizes[] = {{352, 288}, {720, 576}, {864, 480}, {1920, 1080}, {3840, 2160}};
// 352 and not 360, which is not a whole number of blocks.
constexpr Size kEnlargedSizes[] = {{352, 288}, {720, 576}, {864, 480}, {1920, 1080}};
// Surfaces from within the first-level cache to well beyond the last one.
constexpr Size kStoreSizes[] = {{64, 48},   {176, 144},  {352, 288},   {512, 384},
                                {720, 576}, {1280, 720}, {1920, 1080}, {3840, 2160}};
constexpr Size kEnlargedStoreSizes[] = {{64, 36},   {96, 72},   {176, 144},  {352, 288},
                                        {720, 576}, {960, 540}, {1920, 1080}};

constexpr Access planar_to(Surface surface, Oddity oddity = Oddity::none)
{
    return {Source::planar, surface, 2, 1, Rows::padded, oddity};
}
constexpr Access packed_to(Surface surface) { return {Source::packed, surface}; }
constexpr Access halved_to(Surface surface) { return {Source::planar, surface, 1}; }
// `width` and `height` are factors.
constexpr Access enlarged(Source source, Surface surface, int width, int height, Rows rows = Rows::padded)
{
    return {source, surface, 2 * width, height, rows};
}

constexpr Access kGrey{Source::luma, Surface::yuy2};
constexpr Access kTightPlanes{Source::planar, Surface::yv12, 2, 1, Rows::tight_source};

const std::vector<Group> kPlanarLoaders = {
    {{{"loadimage_rgb32", &Kernels::loadimage_rgb32, planar_to(Surface::rgb32)},
      {"loadimage_rgb32_ajust", &Kernels::loadimage_rgb32_ajust, planar_to(Surface::rgb32)}}},
    {{{"loadimage_rgb24", &Kernels::loadimage_rgb24, planar_to(Surface::rgb24)},
      {"loadimage_rgb24_ajust", &Kernels::loadimage_rgb24_ajust, planar_to(Surface::rgb24)}}},
    {{{"loadimage_rgb16-565", &Kernels::loadimage_rgb16, planar_to(Surface::rgb565), 0},
      {"loadimage_rgb16_ajust-565", &Kernels::loadimage_rgb16_ajust, planar_to(Surface::rgb565), 0}}},
    {{{"loadimage_rgb16-555", &Kernels::loadimage_rgb16, planar_to(Surface::rgb555), 1},
      {"loadimage_rgb16_ajust-555", &Kernels::loadimage_rgb16_ajust, planar_to(Surface::rgb555), 1}},
     Content::noise,
     true,
     false},
    // The layouts share their code. No peer writes the last two; the nearest is the other layout that fills all 16
    // bits.
    {{{"loadimage_rgb16-664", &Kernels::loadimage_rgb16, planar_to(Surface::rgb565), 2},
      {"loadimage_rgb16_ajust-664", &Kernels::loadimage_rgb16_ajust, planar_to(Surface::rgb565), 2}},
     Content::noise,
     true,
     false},
    {{{"loadimage_rgb16-655", &Kernels::loadimage_rgb16, planar_to(Surface::rgb565), 3},
      {"loadimage_rgb16_ajust-655", &Kernels::loadimage_rgb16_ajust, planar_to(Surface::rgb565), 3}},
     Content::noise,
     true,
     false},
    {{{"loadimage_yuy2", &Kernels::loadimage_yuy2, planar_to(Surface::yuy2, Oddity::holes)},
      {"loadimage_yuy2_ajust", &Kernels::loadimage_yuy2_ajust, planar_to(Surface::yuy2)},
      {"loadimage_yuy2_mono_ajust", &Kernels::loadimage_yuy2_mono_ajust, kGrey}}},
    {{{"loadimage_yv12", &Kernels::loadimage_yv12, planar_to(Surface::yv12, Oddity::overlap)},
      {"loadimage_yv12_ajust", &Kernels::loadimage_yv12_ajust, kTightPlanes}}},
    {{{"loadimage_half_yuy2_ajust", &Kernels::loadimage_half_yuy2_ajust, halved_to(Surface::yuy2)}}},
    {{{"loadimage_half_yv12_ajust", &Kernels::loadimage_half_yv12_ajust, halved_to(Surface::yv12)}}},
};

const std::vector<Group> kPackedLoaders = {
    {{{"LoadYUY2_RGB32", &Kernels::LoadYUY2_RGB32, packed_to(Surface::rgb32)},
      {"LoadYUY2_RGB32_adjust", &Kernels::LoadYUY2_RGB32_adjust, packed_to(Surface::rgb32)}}},
    {{{"LoadYUY2_RGB24", &Kernels::LoadYUY2_RGB24, packed_to(Surface::rgb24)},
      {"LoadYUY2_RGB24_adjust", &Kernels::LoadYUY2_RGB24_adjust, packed_to(Surface::rgb24)}}},
    {{{"LoadYUY2_RGB16-565", &Kernels::LoadYUY2_RGB16, packed_to(Surface::rgb565)},
      {"LoadYUY2_RGB16_adjust-565", &Kernels::LoadYUY2_RGB16_adjust, packed_to(Surface::rgb565)}}},
    {{{"LoadYUY2_YUY2", &Kernels::LoadYUY2_YUY2, packed_to(Surface::yuy2)},
      {"LoadYUY2_YUY2_adjust", &Kernels::LoadYUY2_YUY2_adjust, packed_to(Surface::yuy2)}}},
};

// The adjusted ones are made for planes without gaps.
const std::vector<Group> kPlaneEnlargers = {
    {{{"strech_pic_2X2", &Kernels::strech_pic_2X2, enlarged(Source::luma, Surface::plane, 2, 2)},
      {"strech_pic_2X2_adjust", &Kernels::strech_pic_2X2_adjust,
       enlarged(Source::luma, Surface::plane, 2, 2, Rows::tight_source)}}},
    {{{"strech_pic_1X2_adjust", &Kernels::strech_pic_1X2_adjust,
       enlarged(Source::luma, Surface::plane, 1, 2, Rows::tight_source)}}},
    {{{"strech_picture_2X2_yv12_ajust", &Kernels::strech_picture_2X2_yv12_ajust,
       enlarged(Source::planar, Surface::yv12, 2, 2, Rows::tight_source)}}},
    {{{"strech_picture_1X2_yv12_ajust", &Kernels::strech_picture_1X2_yv12_ajust,
       enlarged(Source::planar, Surface::yv12, 1, 2, Rows::tight_source)}}},
};

constexpr Access kBand = enlarged(Source::planar, Surface::yuy2, 1, 2, Rows::tight_source);

const std::vector<Group> kEnlargedLoaders = {
    {{{"strech_picture_1X2_yuy2", &Kernels::strech_picture_1X2_yuy2, enlarged(Source::planar, Surface::yuy2, 1, 2)},
      {"strech_picture_1X2_yuy2_ajust", &Kernels::strech_picture_1X2_yuy2_ajust,
       enlarged(Source::planar, Surface::yuy2, 1, 2)}}},
    {{{"strech_picture_2X2_yuy2", &Kernels::strech_picture_2X2_yuy2, enlarged(Source::planar, Surface::yuy2, 2, 2)},
      {"strech_picture_2X2_yuy2_ajust", &Kernels::strech_picture_2X2_yuy2_ajust,
       enlarged(Source::planar, Surface::yuy2, 2, 2)}}},
    {{{"strech_picture_1X2_yuy2_ajust_rgb32", &Kernels::strech_picture_1X2_yuy2_ajust_rgb32,
       enlarged(Source::planar, Surface::rgb32, 1, 2)}}},
    {{{"strech_picture_1X2_yuy2_ajust_rgb24", &Kernels::strech_picture_1X2_yuy2_ajust_rgb24,
       enlarged(Source::planar, Surface::rgb24, 1, 2)}}},
    {{{"strech_picture_1X2_yuy2_ajust_rgb16-565", &Kernels::strech_picture_1X2_yuy2_ajust_rgb16,
       enlarged(Source::planar, Surface::rgb565, 1, 2)}}},
    {{{"yuy2_strech_picture_2X2_yuy2", &Kernels::yuy2_strech_picture_2X2_yuy2,
       enlarged(Source::packed, Surface::yuy2, 2, 2, Rows::tight_source)},
      {"yuy2_strech_picture_2X2_yuy2_ajust", &Kernels::yuy2_strech_picture_2X2_yuy2_ajust,
       enlarged(Source::packed, Surface::yuy2, 2, 2, Rows::tight_source)}}},
    // No peer interpolates along edges. In noise every group has to be searched for one.
    {{{"strech_opt_yuy2_ajust-edges", &Kernels::strech_opt_yuy2_ajust, kBand}}, Content::noise, false},
    {{{"strech_opt_yuy2_ajust-natural", &Kernels::strech_opt_yuy2_ajust, kBand}}, Content::natural, false},
};

const Family kFamilies[] = {
    {"planar loaders", kSizes, kStoreSizes, kPlanarLoaders},
    {"packed loaders", kSizes, kStoreSizes, kPackedLoaders},
    {"plane enlargers", kEnlargedSizes, kEnlargedStoreSizes, kPlaneEnlargers},
    {"enlarged loaders", kEnlargedSizes, kEnlargedStoreSizes, kEnlargedLoaders},
    {"mixers", kSizes, kStoreSizes, mixer_groups()},
    {"subpictures", kSizes, kStoreSizes, subpicture_groups()},
};

// Calls a kernel with the arguments of its family.
struct Call {
    const Layout& l;
    const Picture& p;
    ajust_contrast_info* info;

    void operator()(Loader load) const
    {
        const int pitch = l.access.source == Source::packed ? l.y_pitch / 2 : l.y_pitch; // a packed one is in pixels
        load(p.y, p.u, p.v, p.surface, l.size.width, l.size.height, pitch, l.dst_pitch, info);
    }
    void operator()(PlaneEnlarger enlarge) const
    {
        enlarge(p.y, p.surface, l.size.width, l.size.height, l.y_pitch, l.dst_pitch);
    }
    void operator()(AdjustedPlaneEnlarger enlarge) const
    {
        enlarge(p.y, p.surface, l.size.width, l.size.height, l.y_pitch, l.dst_pitch, info, 1);
    }
    void operator()(BandEnlarger enlarge) const
    {
        tagVideoFrame frame{0, p.y, p.u, p.v, l.y_pitch};
        enlarge(&frame, 0, l.size.height, p.surface, l.dst_pitch, info);
    }
    void operator()(PackedEnlarger enlarge) const
    {
        enlarge(p.y, nullptr, nullptr, p.surface, l.y_pitch, l.size.height, l.dst_pitch);
    }
    void operator()(AdjustedPackedEnlarger enlarge) const
    {
        enlarge(p.y, nullptr, nullptr, p.surface, l.y_pitch, l.size.height, l.dst_pitch, info);
    }
    void operator()(Job run) const
    {
        MIX_INFO job = job_for(l, p, info);
        run(&job);
    }
    void operator()(Fill fill) const { fill(kFillColour, p.surface, l.size.width, l.size.height, 0, l.dst_pitch); }
    void operator()(Mask replace) const
    {
        replace(p.surface, p.y, kSelected, kColorKey, l.size.width, l.dst_pitch, l.size.height);
    }
};

ajust_contrast_info record_for(const Export& e, Size size)
{
    ajust_contrast_info info{};
    info.rgb16_layout = e.rgb16_layout;
    info.surface_height = size.height;
    info.lines_to_bottom = size.height; // the picture starts at the top of the surface
    return info;
}

} // namespace

std::span<const Family> families() { return kFamilies; }
const Access& band_access() { return kBand; }

ajust_contrast_info adjustment()
{
    ajust_contrast_info info{};
    info.y_gain = 74;
    info.uv_gain = 80;
    info.y_offset_a = -9;
    info.u_offset_a = 3;
    info.v_offset_a = -4;
    return info;
}

Load load_with(const vsurf::Isa& isa, const Export& e, const Layout& layout)
{
    return std::visit(
        [&](auto member) -> Load {
            if constexpr (std::is_same_v<decltype(member), Make>) {
                return member(isa, layout);
            } else {
                return [layout, info = record_for(e, layout.size), kernel = isa.kernels->*member](const Picture& p) {
                    ajust_contrast_info record = info;
                    Call{layout, p, &record}(kernel);
                };
            }
        },
        e.kernel);
}

} // namespace bench
