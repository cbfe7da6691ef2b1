// SPDX-License-Identifier: MIT
// Lines of adjusted samples, and those that are adjusted once, into a line on the stack, before they are used.
#pragma once
#include "frame/sink.h"

namespace vsurf::VSURF_ISA {

// A line made with the fast gain, exactly where that does not suit.
template <Line L>
ALWAYS_INLINE void write_adjusted_line(Writer& writer, SampleAdjust by, const L& line, uint8_t* to, Range r)
{
    if (FastGain::suits(by)) writer.line(line, to, r);
    else Writer::store_exactly(line, to, r);
}

template <Line L> NEVER_INLINE void store_adjusted_line(bool fast, const L& line_in, uint8_t* to, ptrdiff_t units)
{
    const L line = line_in; // what has no address stays in registers around the stores
    if (fast) Writer::store_line(line, to, {0, units});
    else Writer::store_exactly(line, to, {0, units});
}

template <class Source> ALWAYS_INLINE void adjust_line(uint8_t* to, Source from, ptrdiff_t samples, SampleAdjust by)
{
    store_adjusted_line(FastGain::suits(by), PlaneLine<Adjust<FastGain, Source>>{{by, from}}, to, samples);
}

} // namespace vsurf::VSURF_ISA
