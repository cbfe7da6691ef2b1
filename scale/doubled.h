// SPDX-License-Identifier: MIT
// Lines doubled in width: between every two samples their average, rounded up.
#pragma once
#include "scale/rows.h"

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

// `byte_pairs<N, W>` doubles N samples, `word_pairs<N, W>` N/2 of them as words. A sample's neighbour is read one on,
// from a row that may have samples of its own there;
struct Doubled {
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

// or, in the last 16 pixels of a line, the last sample is its own neighbour.
struct DoubledToTheEnd {
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

// Two doubled lines' average.
template <class Of> struct Between {
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

// Ordinary blocks, at least one, look ahead, and a closing one does not.
ALWAYS_INLINE ptrdiff_t doubled_blocks(int width)
{
    return rounds(width < 2 * kBlock ? 2 * kBlock : width, kBlock) * kBlock;
}

// Doubled pixels as YUY2: each source pixel becomes a pair that shares one doubled chroma sample.
template <int N> struct DoubledChroma {
    Bytes<N> u, v;
};
template <int N> ALWAYS_INLINE Bytes<N> in_line(Pair<Words<N>> samples)
{
    return join(EvenOddWords<N>{samples.own, samples.between});
}

// Two lines that share their chroma: a doubled line, and what goes between it and the one below.
template <int widest, class Samples> struct DoubledStep {
    static constexpr int kWidest = widest, kBytes = 4, kWeave = 4;
    static constexpr bool kStreams = true;
    Between<Samples> y, u, v;

    template <int N> ALWAYS_INLINE DoubledChroma<N> chroma(Position, ptrdiff_t x) const
    {
        return {in_line(u.template word_pairs<N, kWeave>(x / 2)), in_line(v.template word_pairs<N, kWeave>(x / 2))};
    }
    template <Line line, int N> ALWAYS_INLINE Pair<Bytes<N>> luma(Position, ptrdiff_t x) const
    {
        if constexpr (line == Line::upper) return y.a.template byte_pairs<N, kWeave>(x);
        else return y.template byte_pairs<N, kWeave>(x);
    }
    template <Stores S, Line, int N>
    ALWAYS_INLINE void store(Position at, ptrdiff_t x, Pair<Bytes<N>> luma, DoubledChroma<N> c) const
    {
        store_quads(to<S>(at.dst + x * kBytes), luma.own, c.u, luma.between, c.v);
    }
};

} // namespace vsurf::VSURF_ISA
