// SPDX-License-Identifier: MIT
// Samples that are adjusted before they are interpolated: each once, into lines on the stack.
#pragma once
#include "scale/plane.h"

namespace vsurf::VSURF_ISA {

template <class Source>
[[maybe_unused]] static NEVER_INLINE void adjust_line(uint8_t* to, Source from, ptrdiff_t samples, SampleAdjust by)
{
    auto adjust = [=](auto gain) VSURF_INLINED {
        const SameWidth<Adjust<decltype(gain), Source>> line{{by, from}};
        line.template store<Stores::cached>(to, 0, samples);
    };
    if (CommonGain::suits(by)) adjust(CommonGain{});
    else adjust(AnyGain{});
}

// What others look ahead to: of every 8 samples the first takes another offset.
struct AdjustAhead {
    SampleAdjust by, ahead; // with the same gain
    Row of;

    template <int N> static ALWAYS_INLINE Words<N> offsets(SampleAdjust by, SampleAdjust ahead)
    {
        static constexpr FirstOf<8, 1> crossing;
        auto more = Words<N>::splat(ahead.lifted_offset - by.lifted_offset);
        return add(Words<N>::splat(by.lifted_offset), mullo(load_chroma<N>(crossing.at), more));
    }
    template <int N, int> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const
    {
        return SampleAdjust::offset(by.scale(of.words<N, 1>(x)), offsets<N>(by, ahead));
    }
    template <int N, int> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        return pack_in_order(words<N, 1>(x), words<N, 1>(x + N / 2));
    }
};
[[maybe_unused]] static NEVER_INLINE void adjust_line_ahead(uint8_t* to, const uint8_t* from, ptrdiff_t samples,
                                                            SampleAdjust by, SampleAdjust ahead)
{
    SameWidth<AdjustAhead>{{by, ahead, {from}}}.store<Stores::cached>(to, 0, samples);
}

} // namespace vsurf::VSURF_ISA
