// SPDX-License-Identifier: MIT
// Lines of packed YUY2 pixels as bytes, of which every second one is luma. Nothing is unpacked on the way from YUY2 to
// YUY2.
#pragma once
#include "frame/adjust.h"
#include "frame/writer.h"

namespace vsurf::VSURF_ISA {

// The luma or the chroma of N bytes as words, as they are.
struct PlainBytes {
    static constexpr int kWidest = kRegister;
    template <int N> ALWAYS_INLINE Words<N> luma(Bytes<N> bytes) const { return split(bytes).even; }
    template <int N> ALWAYS_INLINE Words<N> chroma(Bytes<N> bytes) const { return split(bytes).odd; }
};

// The same, adjusted. U and V have one gain.
template <class Gain> struct AdjustedBytes {
    static constexpr int kWidest = Gain::kWidest;
    Adjustments by;

    ALWAYS_INLINE AdjustedBytes<WrappingGain> exact() const { return {by}; }
    template <int N> ALWAYS_INLINE Words<N> luma(Bytes<N> bytes) const
    {
        return adjusted<Gain>(by.luma, Gain::split(bytes).even);
    }
    template <int N> ALWAYS_INLINE Words<N> chroma(Bytes<N> bytes) const
    {
        return chroma(bytes, Words<N>::alternate(by.u.lifted_offset, by.v.lifted_offset));
    }
    template <int N> ALWAYS_INLINE Words<N> chroma(Bytes<N> bytes, Words<N> lifted_offsets) const
    {
        return SampleAdjust::offset(Gain::scale(by.u, Gain::split(bytes).odd), lifted_offsets);
    }
};

// Luma of one line of pixels, chroma of the same or another one; x counts bytes.
template <class Samples> struct PackedLine {
    static constexpr int kBytes = 1, kGrain = 4, kWidest = Samples::kWidest;
    static constexpr bool kComplete = true, kEights = false;
    const uint8_t *luma_of, *chroma_of;
    Samples samples;

    ALWAYS_INLINE PackedLine<ExactOf<Samples>> exact() const { return {luma_of, chroma_of, VSURF_ISA::exact(samples)}; }
    template <int N> ALWAYS_INLINE Words<N> shared(ptrdiff_t x) const { return samples.chroma(load<N>(chroma_of + x)); }
    template <int N> ALWAYS_INLINE Words<N> own(ptrdiff_t x) const { return samples.luma(load<N>(luma_of + x)); }
    template <class To, int N> static ALWAYS_INLINE void store(To to, Words<N> luma, Words<N> chroma)
    {
        put(to, join(EvenOddWords<N>{luma, chroma}));
    }
};
static_assert(Line<PackedLine<AdjustedBytes<FastGain>>>);

} // namespace vsurf::VSURF_ISA
