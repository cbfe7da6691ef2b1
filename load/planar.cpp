// SPDX-License-Identifier: MIT
// Planar YV12 pictures into packed surfaces.
#include "frame/dispatch.h"
#include "frame/picture.h"

namespace vsurf::VSURF_ISA {

template <class Format> ALWAYS_INLINE auto planar_lines(Format format)
{
    return [=](Position at) VSURF_INLINED {
        return PixelLine<Format, Row, PlanarChroma<Row>>{{at.y}, {{at.u}, {at.v}}, format};
    };
}

template <class Format> ALWAYS_INLINE auto adjusted_lines(Format format)
{
    return [=](Adjustments by) VSURF_INLINED {
        return [=](Position at) VSURF_INLINED {
            using Samples = Adjust<FastGain, Row>;
            return PixelLine<Format, Samples, PlanarChroma<Samples>>{
                {by.luma, {at.y}}, {{by.u, {at.u}}, {by.v, {at.v}}}, format};
        };
    };
}

template <class Format> ALWAYS_INLINE void load(const Picture& p, Format format)
{
    write_picture(walk_by_pass(p, Format::kBytes), planar_lines(format));
}
template <class Format> ALWAYS_INLINE void load_adjusted(const Picture& p, Format format)
{
    write_adjusted(walk_by_pass(p, Format::kBytes), adjusted_lines(format));
}

void loadimage_rgb32(Picture p) { load(p, Rgb32{}); }
void loadimage_rgb24(Picture p) { load(p, Rgb24{}); }
void loadimage_rgb16(Picture p)
{
    with_rgb16_sink(p.info->rgb16_layout, [&](Rgb16 format) VSURF_INLINED { load(p, format); });
}
void loadimage_rgb32_ajust(Picture p) { load_adjusted(p, Rgb32{}); }
void loadimage_rgb24_ajust(Picture p) { load_adjusted(p, Rgb24{}); }
void loadimage_rgb16_ajust(Picture p)
{
    with_rgb16_sink(p.info->rgb16_layout, [&](Rgb16 format) VSURF_INLINED { load_adjusted(p, format); });
}

// Irregular: the first four pixels of every block of a lower line stay unwritten.
void loadimage_yuy2(Picture p)
{
    write_picture(walk_by_pass(p, Yuy2::kBytes), planar_lines(Yuy2{}), planar_lines(Yuy2WithHoles{}));
}

// Irregular: refuses heights up to 8 and odd ones, and drifts from line to line where the other loaders drift from pass
// to pass.
void loadimage_yuy2_ajust(Picture p)
{
    if (p.height <= 8 || p.height % 2 != 0) return;
    write_adjusted(walk_by_line(p, Yuy2::kBytes), adjusted_lines(Yuy2{}));
}

// Irregular: takes every height. The chroma planes are not read and may be null; every pixel is grey.
void loadimage_yuy2_mono_ajust(Picture p)
{
    write_adjusted(walk_by_line(p, Yuy2::kBytes), [](Adjustments by) VSURF_INLINED {
        return [=](Position at) VSURF_INLINED {
            return PixelLine<Yuy2, Adjust<FastGain, Row>, PlanarChroma<Constant>>{
                {by.luma, {at.y}}, {{128}, {128}}, {}};
        };
    });
}

} // namespace vsurf::VSURF_ISA
