// SPDX-License-Identifier: MIT
// Lines doubled in width: between every two samples their average, rounded up.
#pragma once
#include "frame/sink.h"

namespace vsurf::VSURF_ISA {

// A sample and what goes between it and its right neighbour.
template <class Samples> struct Pair {
    Samples own, between;
};
template <class Samples> ALWAYS_INLINE Pair<Samples> pair_of(Samples own, Samples next)
{
    return {own, avg(own, next)};
}
template <class Samples> ALWAYS_INLINE Pair<Samples> avg(Pair<Samples> a, Pair<Samples> b)
{
    return {avg(a.own, b.own), avg(a.between, b.between)};
}

// Sources of pairs: `byte_pairs<N, W>(x)` doubles N samples, `word_pairs<N, W>(x)` N/2 of them as words.

// A sample's neighbour is read one place on, in a row that may have samples of its own there.
struct DoubledAhead {
    static constexpr int kWidest = kRegister;
    Row row, ahead;

    template <int N, int W> ALWAYS_INLINE Pair<Bytes<N>> byte_pairs(ptrdiff_t x) const
    {
        return pair_of(row.bytes<N, W>(x), ahead.bytes<N, W>(x + 1));
    }
    template <int N, int W> ALWAYS_INLINE Pair<Words<N>> word_pairs(ptrdiff_t x) const
    {
        return pair_of(row.words<N, W>(x), ahead.words<N, W>(x + 1));
    }
};

// A sample's neighbour is read one place on, in the row itself.
struct Doubled {
    static constexpr int kWidest = kRegister;
    Row row;

    template <int N, int W> ALWAYS_INLINE Pair<Bytes<N>> byte_pairs(ptrdiff_t x) const
    {
        return DoubledAhead{row, row}.byte_pairs<N, W>(x);
    }
    template <int N, int W> ALWAYS_INLINE Pair<Words<N>> word_pairs(ptrdiff_t x) const
    {
        return DoubledAhead{row, row}.word_pairs<N, W>(x);
    }
};

// The end of a line: nothing is read beyond it, and the last sample is its own neighbour.
struct DoubledToTheEnd {
    static constexpr int kWidest = kBlock;
    Row row;

    template <int N, int W> ALWAYS_INLINE Pair<Bytes<N>> byte_pairs(ptrdiff_t x) const
    {
        auto samples = row.bytes<N, W>(x);
        return pair_of(samples, neighbours_to_the_end<1>(samples));
    }
    template <int N, int W> ALWAYS_INLINE Pair<Words<N>> word_pairs(ptrdiff_t x) const
    {
        auto samples = row.words<N, W>(x);
        return pair_of(samples, as_words(neighbours_to_the_end<2>(as_bytes(samples))));
    }
};

// The average of two doubled lines.
template <class Of> struct Between {
    static constexpr int kWidest = Of::kWidest;
    Of a, b;

    template <int N, int W> ALWAYS_INLINE Pair<Bytes<N>> byte_pairs(ptrdiff_t x) const
    {
        return avg(a.template byte_pairs<N, W>(x), b.template byte_pairs<N, W>(x));
    }
    template <int N, int W> ALWAYS_INLINE Pair<Words<N>> word_pairs(ptrdiff_t x) const
    {
        return avg(a.template word_pairs<N, W>(x), b.template word_pairs<N, W>(x));
    }
};
template <class Of> Between(Of, Of) -> Between<Of>;

template <class Gain, class Of> struct AdjustPairs {
    static constexpr int kWidest = Gain::kWidest;
    SampleAdjust by;
    Of of;

    ALWAYS_INLINE AdjustPairs<WrappingGain, Of> exact() const { return {by, of}; }
    template <int N, int W> ALWAYS_INLINE Pair<Bytes<N>> byte_pairs(ptrdiff_t x) const
    {
        auto pairs = of.template byte_pairs<N, W>(x);
        return {adjusted<Gain>(by, pairs.own), adjusted<Gain>(by, pairs.between)};
    }
    template <int N, int W> ALWAYS_INLINE Pair<Words<N>> word_pairs(ptrdiff_t x) const
    {
        auto pairs = of.template word_pairs<N, W>(x);
        return {adjusted<Gain>(by, Gain::of_words(pairs.own)), adjusted<Gain>(by, Gain::of_words(pairs.between))};
    }
};

template <int N> ALWAYS_INLINE Bytes<N> in_line(Pair<Words<N>> samples)
{
    return join(EvenOddWords<N>{samples.own, samples.between});
}

// Pixels of twice the width as YUY2; x counts pixels of the source. Each becomes a pair that shares one doubled chroma
// sample.
template <int N> struct DoubledChroma {
    Bytes<N> u, v;
};
template <class Y, class U, class V> struct DoubledPixelLine {
    static constexpr int kBytes = 4, kGrain = 2, kWidest = Y::kWidest, kWeave = 4;
    static constexpr bool kComplete = true, kEights = false;
    Y y;
    U u;
    V v;

    template <int N> ALWAYS_INLINE DoubledChroma<N> shared(ptrdiff_t x) const
    {
        return {in_line(u.template word_pairs<N, kWeave>(x / 2)), in_line(v.template word_pairs<N, kWeave>(x / 2))};
    }
    template <int N> ALWAYS_INLINE Pair<Bytes<N>> own(ptrdiff_t x) const { return y.template byte_pairs<N, kWeave>(x); }
    template <class To, int N>
    ALWAYS_INLINE void store(To to, const Pair<Bytes<N>>& luma, const DoubledChroma<N>& chroma) const
    {
        store_quads(to, luma.own, chroma.u, luma.between, chroma.v);
    }
};
template <class Y, class U, class V> DoubledPixelLine(Y, U, V) -> DoubledPixelLine<Y, U, V>;
static_assert(Line<DoubledPixelLine<Doubled, DoubledToTheEnd, Between<DoubledAhead>>>);

// Samples of a plane of twice the width; x counts samples of the source.
template <class Of> struct DoubledPlaneLine {
    static constexpr int kBytes = 2, kGrain = 1, kWidest = Of::kWidest;
    static constexpr bool kComplete = true, kEights = true, kMayRepeat = true;
    Of of;

    ALWAYS_INLINE DoubledPlaneLine<ExactOf<Of>> exact() const { return {VSURF_ISA::exact(of)}; }
    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Pair<Bytes<N>> own(ptrdiff_t x) const { return of.template byte_pairs<N, 2>(x); }
    template <class To, int N> ALWAYS_INLINE void store(To to, const Pair<Bytes<N>>& samples, Nothing) const
    {
        store_pairs(to, samples.own, samples.between);
    }
    ALWAYS_INLINE void store_eight(uint8_t* to, ptrdiff_t x) const
    {
        put(to, in_line(of.template word_pairs<16, 1>(x)));
    }
};
template <class Of> DoubledPlaneLine(Of) -> DoubledPlaneLine<Of>;
static_assert(Line<DoubledPlaneLine<AdjustPairs<FastGain, Between<Doubled>>>>);

} // namespace vsurf::VSURF_ISA
