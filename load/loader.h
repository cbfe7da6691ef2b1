// SPDX-License-Identifier: MIT
// The argument list that all loaders share, and the choice between plain and adjusted samples.
#pragma once
#include "frame/adjust.h"
#include "frame/dispatch.h"
#include "frame/passes.h"

#define LOADER_EXPORT(name)                                                                            \
    void name(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch, int dst_pitch, \
              [[maybe_unused]] ajust_contrast_info* info)
#define PICTURE (::vsurf::VSURF_ISA::picture(y, u, v, dst, width, height, y_pitch, dst_pitch))

namespace vsurf::VSURF_ISA {

ALWAYS_INLINE Picture picture(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch, int dst_pitch)
{
    auto samples = [](void* p) { return static_cast<const uint8_t*>(p); };
    return {{samples(y), samples(u), samples(v), static_cast<uint8_t*>(dst)}, width, height, y_pitch, dst_pitch};
}

// Step<Sink, Samples> does the pixels.
template <template <class, class> class Step, class Sink, class W>
ALWAYS_INLINE void load_plain(const W& walk, Sink sink = {})
{
    do_walk(walk, Step<Sink, Plain>{{}, sink});
}

// What is rare is exact, not fast: gains that wrap, with which no picture looks right, and lines that overlap.
template <template <class, class> class Step, class Sink, class W>
ALWAYS_INLINE void load_adjusted(const W& walk, Sink sink = {})
{
    const auto by = adjustments_now();
    if (CommonGain::suits(by) && !order_shows(walk)) do_freely(walk, Step<Sink, Adjusted<CommonGain>>{{by}, sink});
    else do_in_order(walk, Step<Sink, Adjusted<AnyGain>>{{by}, sink});
}

} // namespace vsurf::VSURF_ISA
