// SPDX-License-Identifier: MIT
// Planar YV12 pictures into packed surfaces.
#include "load/planar.h"
#include "load/loader.h"

namespace vsurf::VSURF_ISA {

LOADER_EXPORT(loadimage_rgb32) { load_plain<PlanarStep, Rgb32>(walk_by_pass(PICTURE, Rgb32::kBytes)); }
LOADER_EXPORT(loadimage_rgb24) { load_plain<PlanarStep, Rgb24>(walk_by_pass(PICTURE, Rgb24::kBytes)); }
LOADER_EXPORT(loadimage_rgb32_ajust) { load_adjusted<PlanarStep, Rgb32>(walk_by_pass(PICTURE, Rgb32::kBytes)); }
LOADER_EXPORT(loadimage_rgb24_ajust) { load_adjusted<PlanarStep, Rgb24>(walk_by_pass(PICTURE, Rgb24::kBytes)); }

LOADER_EXPORT(loadimage_rgb16)
{
    const auto walk = walk_by_pass(PICTURE, Rgb16::kBytes);
    with_rgb16_sink(info->rgb16_layout, [&](Rgb16 sink) VSURF_INLINED { load_plain<PlanarStep>(walk, sink); });
}

LOADER_EXPORT(loadimage_rgb16_ajust)
{
    const auto walk = walk_by_pass(PICTURE, Rgb16::kBytes);
    with_rgb16_sink(info->rgb16_layout, [&](Rgb16 sink) VSURF_INLINED { load_adjusted<PlanarStep>(walk, sink); });
}

// Irregular: the first four pixels of every block of a lower line stay unwritten.
LOADER_EXPORT(loadimage_yuy2) { load_plain<PlanarStep, Yuy2WithHoles>(walk_by_pass(PICTURE, Yuy2::kBytes)); }

// Irregular: refuses heights up to 8 and odd ones, and drifts from line to line where its siblings drift from pass to
// pass.
LOADER_EXPORT(loadimage_yuy2_ajust)
{
    if (height <= 8 || height % 2 != 0) return;
    load_adjusted<PlanarStep, Yuy2>(walk_by_line(PICTURE, Yuy2::kBytes));
}

// Irregular: takes every height. The chroma planes are not read and may be null, so luma stands in for them.
LOADER_EXPORT(loadimage_yuy2_mono_ajust)
{
    u = v = y;
    load_adjusted<PlanarStep, GreyYuy2>(walk_by_line(PICTURE, Yuy2::kBytes));
}

} // namespace vsurf::VSURF_ISA
