// SPDX-License-Identifier: MIT
// Where the samples of a new line come from: a line of a plane, or what is formed of several, adjusted afterwards.
//
// `bytes<N, W>(x)` gives N samples from x on, woven by W; `words<N, W>(x)` gives N/2 of them as words, the form in
// which chroma meets the luma of N pixels. The expression of the types tells the order of the work:
// Adjust<Gain, Average<Row>> adjusts averages.
#pragma once
#include "frame/adjust.h"

namespace vsurf::VSURF_ISA {

struct Row {
    const uint8_t* samples;

    template <int N, int W> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const { return load<N, W>(samples + x); }
    template <int N, int W> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const { return load_chroma<N, W>(samples + x); }
};

ALWAYS_INLINE Row operator+(Row row, ptrdiff_t x) { return {row.samples + x}; }

// (a + b + 1) >> 1; of a line with itself, the line.
template <class Of> struct Average {
    Of a, b;

    template <int N, int W> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        return avg(a.template bytes<N, W>(x), b.template bytes<N, W>(x));
    }
    template <int N, int W> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const
    {
        return avg(a.template words<N, W>(x), b.template words<N, W>(x));
    }
};
template <class Of> Average(Of, Of) -> Average<Of>;
template <class Of> ALWAYS_INLINE Average<Of> operator+(Average<Of> average, ptrdiff_t x)
{
    return {average.a + x, average.b + x};
}

// (5 b + 5 c - a - d) >> 3 of four lines in their order, floored, cut to a sample. At most 5 * 510 and at least -510,
// so words do.
struct FourTap {
    Row a, b, c, d;

    template <int N, int W> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        auto inner = widened_sums<5>(b.bytes<N, W>(x), c.bytes<N, W>(x));
        auto outer = widened_sums<1>(a.bytes<N, W>(x), d.bytes<N, W>(x));
        return narrow(
            LowHighWords<N>{shr_signed<3>(sub(inner.low, outer.low)), shr_signed<3>(sub(inner.high, outer.high))});
    }
    template <int N, int W> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const
    {
        auto inner = add(b.words<N, W>(x), c.words<N, W>(x)), outer = add(a.words<N, W>(x), d.words<N, W>(x));
        auto sum = shr_signed<3>(sub(add(shl<2>(inner), inner), outer));
        return min(max(sum, Words<N>::splat(0)), Words<N>::splat(255));
    }
};

template <class Gain, class Of> struct Adjust {
    SampleAdjust by;
    Of of;

    template <int N, int W> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        return adjusted<Gain>(by, of.template bytes<N, W>(x));
    }
    template <int N, int W> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const { return by(of.template words<N, W>(x)); }
};

// 1 for the first `count` of every `period` samples, else 0: those that the block before looks ahead to.
template <int period, int count> struct FirstOf {
    alignas(32) uint8_t at[32] = {};
    constexpr FirstOf()
    {
        for (int i = 0; i < 32; i++) at[i] = i % period < count;
    }
};

} // namespace vsurf::VSURF_ISA
