// SPDX-License-Identifier: MIT
// Sources: where the samples of a line come from. A source owns its pointers; it reads a line of a plane, or forms
// samples of several lines, or adjusts those of another source. The expression of the types gives the order of the
// work: Adjust<Gain, Average<Row>> adjusts averages.
#pragma once
#include "frame/adjust.h"

namespace vsurf::VSURF_ISA {

// Positions x count samples. N is the size of a register in bytes, W the weave.
//
//   kWidest         the widest register that the source is built for
//   bytes<N, W>(x)  N samples from x on
//   words<N, W>(x)  N/2 samples as words: the form in which chroma meets the luma of N pixels
//
// A source may have two more forms, where they are cheaper than combining the first two:
//
//   high_words<N, W>(x)  the words with the samples in their high bytes
//   times4<N, W>(x)      N samples as words, times 4
template <class S>
concept Source = requires(const S& source, ptrdiff_t x)
{
    {
        S::kWidest
        } -> SameAs<const int&>;
    {
        source.template bytes<16, 1>(x)
        } -> SameAs<Bytes<16>>;
    {
        source.template words<16, 1>(x)
        } -> SameAs<Words<16>>;
};

template <int N, int W, class Of> ALWAYS_INLINE EvenOddWords<N> times4(const Of& of, ptrdiff_t x)
{
    if constexpr (requires { of.template times4<N, W>(x); }) return of.template times4<N, W>(x);
    else return split_times4(of.template bytes<N, W>(x));
}

// A line of a plane.
struct Row {
    static constexpr int kWidest = kRegister;
    const uint8_t* samples;

    template <int N, int W> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const { return load<N, W>(samples + x); }
    template <int N, int W> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const { return load_chroma<N, W>(samples + x); }
    template <int N, int W> ALWAYS_INLINE Words<N> high_words(ptrdiff_t x) const
    {
        return load_chroma_high<N, W>(samples + x);
    }
};
static_assert(Source<Row>);

ALWAYS_INLINE Row operator+(Row row, ptrdiff_t x) { return {row.samples + x}; }

// The same sample throughout.
struct Constant {
    static constexpr int kWidest = kRegister;
    int sample;

    template <int N, int> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t) const { return Bytes<N>::splat(sample); }
    template <int N, int> ALWAYS_INLINE Words<N> words(ptrdiff_t) const { return Words<N>::splat(sample); }
};
static_assert(Source<Constant>);

// (a + b + 1) >> 1. The average of a line with itself is that line.
template <Source Of> struct Average {
    static constexpr int kWidest = Of::kWidest;
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
    static constexpr int kWidest = kRegister;
    Row a, b, c, d;

    // The four lines around the gap between `line` and the next one.
    static ALWAYS_INLINE FourTap below(const uint8_t* plane, ptrdiff_t pitch, ptrdiff_t line)
    {
        const uint8_t* row = plane + line * pitch;
        return {{row - pitch}, {row}, {row + pitch}, {row + 2 * pitch}};
    }
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
static_assert(Source<FourTap>);

// Adjusted samples of another source.
template <class Gain, Source Of> struct Adjust {
    static constexpr int kWidest = Gain::kWidest;
    SampleAdjust by;
    Of of;

    ALWAYS_INLINE Adjust<WrappingGain, Of> exact() const { return {by, of}; }
    template <int N, int W> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        return adjusted<Gain>(by, of.template bytes<N, W>(x));
    }
    template <int N, int W> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const
    {
        return adjusted<Gain>(by, Gain::template words<N, W>(of, x));
    }
    template <int N, int W> ALWAYS_INLINE EvenOddWords<N> times4(ptrdiff_t x) const
    {
        auto samples = Gain::split(of.template bytes<N, W>(x));
        return shl<2>(EvenOddWords<N>{adjusted<Gain>(by, samples.even), adjusted<Gain>(by, samples.odd)});
    }
};
static_assert(Source<Adjust<FastGain, Average<Row>>>);

// Sources of chroma: `of<N, W>(x)` gives the chroma of N pixels from pixel x on, for each pair of them a word of U and
// a word of V.

// The chroma of two planes.
template <Source U, Source V = U> struct PlanarChroma {
    U u;
    V v;

    ALWAYS_INLINE PlanarChroma<ExactOf<U>, ExactOf<V>> exact() const
    {
        return {VSURF_ISA::exact(u), VSURF_ISA::exact(v)};
    }
    template <int N, int W> ALWAYS_INLINE EvenOddWords<N> of(ptrdiff_t x) const
    {
        return {u.template words<N, W>(x / 2), v.template words<N, W>(x / 2)};
    }
};

// The chroma of one plane u0 v0 u1 v1 ...
struct InterleavedChroma {
    const uint8_t* samples;

    template <int N, int W> ALWAYS_INLINE EvenOddWords<N> of(ptrdiff_t x) const
    {
        return split(load<N, W>(samples + x)); // a word for each pair: woven like the words of planes
    }
};

// The luma of packed pixels y0 u0 y1 v0 ...
struct PackedLuma {
    static constexpr int kWidest = kRegister;
    const uint8_t* pixels;

    template <int N, int W> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        return load_yuyv<N, W>(pixels + 2 * x).y;
    }
    template <int N, int W> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const
    {
        return split(load<N, W>(pixels + 2 * x)).even;
    }
};
static_assert(Source<PackedLuma>);

// The chroma of packed pixels.
struct PackedChroma {
    const uint8_t* pixels;

    template <int N, int W> ALWAYS_INLINE EvenOddWords<N> of(ptrdiff_t x) const
    {
        return split(load_yuyv<N, W>(pixels + 2 * x).uv);
    }
};
// The same, adjusted. U and V have one gain.
template <class Gain> struct AdjustedPackedChroma {
    SampleAdjust by_u, by_v;
    const uint8_t* pixels;

    ALWAYS_INLINE AdjustedPackedChroma<WrappingGain> exact() const { return {by_u, by_v, pixels}; }
    template <int N, int W> ALWAYS_INLINE EvenOddWords<N> of(ptrdiff_t x) const
    {
        auto words = Gain::split(load_yuyv<N, W>(pixels + 2 * x).uv);
        return {adjusted<Gain>(by_u, words.even), adjusted<Gain>(by_v, words.odd)};
    }
};

} // namespace vsurf::VSURF_ISA
