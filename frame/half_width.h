// SPDX-License-Identifier: MIT
// Lines of YUY2 pixels at half the width of a planar picture: two samples of the picture become one.
#pragma once
#include "frame/adjust.h"
#include "frame/writer.h"

namespace vsurf::VSURF_ISA {

constexpr int kHalfWidthBytes = 1; // of the surface for each pixel of the picture

// The luma samples that N pixels become, as words: in two registers, or for one block eight words in one register.
template <int N> struct HalfLuma {
    static constexpr int kSize = N == kBlock ? 16 : N / 2;
    Words<kSize> first, second;
};

// The chroma samples that N pixels become, as words: for one block four of U and four of V.
template <class Words> struct HalfChroma {
    Words u, v;
};

// x counts pixels of the picture. `Reduce::words<Gain>(bytes)` makes one sample of two neighbours.
template <class Gain, class Reduce> struct HalfWidthLine {
    static constexpr int kBytes = kHalfWidthBytes, kGrain = 4, kWidest = 2 * Gain::kWidest;
    static constexpr bool kComplete = true, kEights = false, kMayRepeat = true;
    const uint8_t *y, *u, *v;
    Adjustments by;

    ALWAYS_INLINE HalfWidthLine<WrappingGain, Reduce> exact() const { return {y, u, v, by}; }
    template <int N> ALWAYS_INLINE auto shared(ptrdiff_t x) const
    {
        auto samples = [x](const uint8_t* plane, SampleAdjust how) VSURF_INLINED {
            if constexpr (N == kBlock) return reduced(how, load_first8(plane + x / 2));
            else return reduced(how, load<N / 2, 2>(plane + x / 2));
        };
        return HalfChroma<decltype(samples(u, by.u))>{samples(u, by.u), samples(v, by.v)};
    }
    template <int N> ALWAYS_INLINE HalfLuma<N> own(ptrdiff_t x) const
    {
        constexpr int size = HalfLuma<N>::kSize;
        auto first = reduced(by.luma, load<size>(y + x));
        if constexpr (N == kBlock) return {first, first};
        else return {first, reduced(by.luma, load<size>(y + x + size))};
    }
    template <class To, int N, class Chroma>
    static ALWAYS_INLINE void store(To to, const HalfLuma<N>& luma, const Chroma& chroma)
    {
        if constexpr (N == kBlock) store_first8_yuyv(to, luma.first, chroma.u, chroma.v);
        else store_yuyv(to, luma.first, luma.second, chroma.u, chroma.v);
    }

private:
    template <int N> static ALWAYS_INLINE Words<N> reduced(SampleAdjust how, Bytes<N> samples)
    {
        return adjusted<Gain>(how, Reduce::template words<Gain>(samples));
    }
};

} // namespace vsurf::VSURF_ISA
