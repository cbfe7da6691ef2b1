// SPDX-License-Identifier: MIT
// Samples that are adjusted before they are interpolated: each once, into a line on the stack, and those that others
// look ahead to once more.
#pragma once
#include "frame/adjusted_line.h"

namespace vsurf::VSURF_ISA {

// 1 for the first `count` of every `period` samples, else 0: those that the block before looks ahead to.
template <int period, int count> struct FirstOf {
    alignas(32) uint8_t at[32] = {};
    constexpr FirstOf()
    {
        for (int i = 0; i < 32; i++) at[i] = i % period < count;
    }
};

// Samples as the block before looks ahead to them: of every 8 the first takes another offset.
struct AdjustAhead {
    static constexpr int kWidest = kRegister;
    SampleAdjust by, ahead; // have the same gain
    Row of;

    template <int N> static ALWAYS_INLINE Words<N> offsets(SampleAdjust by, SampleAdjust ahead)
    {
        static constexpr FirstOf<8, 1> crossing;
        auto more = Words<N>::splat(ahead.lifted_offset - by.lifted_offset);
        return add(Words<N>::splat(by.lifted_offset), mullo(load_chroma<N>(crossing.at), more));
    }
    template <int N, int> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const
    {
        return SampleAdjust::offset(WrappingGain::scale(by, of.words<N, 1>(x)), offsets<N>(by, ahead));
    }
    template <int N, int> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        return pack_in_order(words<N, 1>(x), words<N, 1>(x + N / 2));
    }
};
static_assert(Source<AdjustAhead>);

[[maybe_unused]] static NEVER_INLINE void adjust_line_ahead(uint8_t* to, Row from, ptrdiff_t samples, SampleAdjust by,
                                                            SampleAdjust ahead)
{
    Writer::store_line(PlaneLine<AdjustAhead>{{by, ahead, from}}, to, {0, samples});
}

} // namespace vsurf::VSURF_ISA
