// SPDX-License-Identifier: MIT
// Packed YUY2 pictures into packed surfaces. The planes for U and V mean nothing to a packed picture.
#include "load/packed.h"
#include "load/loader.h"

namespace vsurf::VSURF_ISA {

// In blocks of 16 bytes.
LOADER_EXPORT(LoadYUY2_YUY2) { do_walk(walk_packed(PICTURE, product(2, width), 1), PackedBytesStep<PlainBytes>{}); }

LOADER_EXPORT(LoadYUY2_YUY2_adjust)
{
    const auto by = adjustments_now();
    const auto walk = walk_packed(PICTURE, product(2, width), 1);
    if (CommonGain::suits(by) && !order_shows(walk)) do_freely(walk, PackedBytesStep<AdjustedBytes<CommonGain>>{by});
    else do_in_order(walk, PackedBytesStep<AdjustedBytes<AnyGain>>{by});
}

// In blocks of 16 pixels.
template <class Sink> ALWAYS_INLINE BlockwiseWalk walk_for(const Picture& p)
{
    return walk_packed(p, p.width, Sink::kBytes);
}

LOADER_EXPORT(LoadYUY2_RGB32) { load_plain<PackedStep, Rgb32>(walk_for<Rgb32>(PICTURE)); }
LOADER_EXPORT(LoadYUY2_RGB24) { load_plain<PackedStep, Rgb24>(walk_for<Rgb24>(PICTURE)); }
LOADER_EXPORT(LoadYUY2_RGB32_adjust) { load_adjusted<PackedStep, Rgb32>(walk_for<Rgb32>(PICTURE)); }
LOADER_EXPORT(LoadYUY2_RGB24_adjust) { load_adjusted<PackedStep, Rgb24>(walk_for<Rgb24>(PICTURE)); }

LOADER_EXPORT(LoadYUY2_RGB16)
{
    const auto walk = walk_for<Rgb16>(PICTURE);
    with_rgb16_sink(info->rgb16_layout, [&](Rgb16 sink) VSURF_INLINED { load_plain<PackedStep>(walk, sink); });
}

LOADER_EXPORT(LoadYUY2_RGB16_adjust)
{
    const auto walk = walk_for<Rgb16>(PICTURE);
    with_rgb16_sink(info->rgb16_layout, [&](Rgb16 sink) VSURF_INLINED { load_adjusted<PackedStep>(walk, sink); });
}

} // namespace vsurf::VSURF_ISA
