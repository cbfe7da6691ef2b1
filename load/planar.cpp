// Planar YV12 pictures into packed surfaces.
#include "load/loader.h"
#include "load/planar.h"

namespace vsurf::VSURF_ISA {

template <class Sink, class Samples> OP void load_by_pass(const Picture& p, Samples samples)
{
    load_planar(walk_by_pass(p, Sink::kBytes), PlanarStep<Sink, Samples>{samples});
}

template <class Sink, class Samples> OP void load_by_line(const Picture& p, Samples samples)
{
    load_planar(walk_by_line(p, Sink::kBytes), PlanarStep<Sink, Samples>{samples});
}

// Layouts beyond the four write nothing.
template <class Samples> OP void load_rgb16(const Picture& p, Samples samples, int layout)
{
    switch (layout) {
    case 0: return load_by_pass<Rgb565>(p, samples);
    case 1: return load_by_pass<Rgb555>(p, samples);
    case 2: return load_by_pass<Rgb664>(p, samples);
    case 3: return load_by_pass<Rgb655>(p, samples);
    }
}

LOADER_EXPORT(loadimage_rgb32) { load_by_pass<Rgb32>(PICTURE, Plain{}); }
LOADER_EXPORT(loadimage_rgb24) { load_by_pass<Rgb24>(PICTURE, Plain{}); }
LOADER_EXPORT(loadimage_rgb16) { load_rgb16(PICTURE, Plain{}, info->rgb16_layout); }

LOADER_EXPORT(loadimage_rgb32_ajust) { load_by_pass<Rgb32>(PICTURE, Adjusted::now()); }
LOADER_EXPORT(loadimage_rgb24_ajust) { load_by_pass<Rgb24>(PICTURE, Adjusted::now()); }
LOADER_EXPORT(loadimage_rgb16_ajust) { load_rgb16(PICTURE, Adjusted::now(), info->rgb16_layout); }

// Irregular: the first four pixels of every block of a lower line stay unwritten.
LOADER_EXPORT(loadimage_yuy2) { load_by_pass<Yuy2WithHoles>(PICTURE, Plain{}); }

// Irregular: refuses heights up to 8 and odd ones, and drifts from line to line where its siblings drift from pass to
// pass.
LOADER_EXPORT(loadimage_yuy2_ajust)
{
    if (height <= 8 || height % 2 != 0) return;
    load_by_line<Yuy2>(PICTURE, Adjusted::now());
}

// Irregular: takes every height. The chroma planes are not read and may be null, so luma stands in for them.
LOADER_EXPORT(loadimage_yuy2_mono_ajust)
{
    u = v = y;
    load_by_line<GreyYuy2>(PICTURE, Adjusted::now());
}

} // namespace vsurf::VSURF_ISA
