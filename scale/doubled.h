// Lines doubled in width: between every two samples their average, rounded up.
#pragma once
#include "scale/rows.h"

namespace vsurf::VSURF_ISA {

// A sample and what goes between it and its right neighbour.
template <class Samples> struct Pair {
    Samples own, between;
};
template <class Samples> OP Pair<Samples> pair_of(Samples own, Samples next) { return {own, avg(own, next)}; }
template <class Samples> OP Pair<Samples> avg(Pair<Samples> a, Pair<Samples> b)
{
    return {avg(a.own, b.own), avg(a.between, b.between)};
}

// `byte_pairs<N, W>` doubles N samples, `doubled_words<N, W>` N/2 samples into N bytes. A sample's neighbour is read
// from `ahead`, one sample on, which must be readable;
template <class Of, class Ahead = Of> struct Doubled {
    Of of;
    Ahead ahead;

    template <int N, int W> MEMBER Pair<u8<N>> byte_pairs(ptrdiff_t x) const
    {
        return pair_of(of.template bytes<N, W>(x), ahead.template bytes<N, W>(x + 1));
    }
    template <int N, int W> MEMBER Pair<half<N>> word_pairs(ptrdiff_t x) const
    {
        return pair_of(of.template words<N, W>(x), ahead.template words<N, W>(x + 1));
    }
};

// or, in the last 16 pixels of a line, the last sample is its own neighbour.
template <class Of> struct DoubledToTheEnd {
    Of of;

    template <int N, int W> MEMBER Pair<u8<N>> byte_pairs(ptrdiff_t x) const
    {
        auto samples = of.template bytes<N, W>(x);
        return pair_of(samples, neighbours_to_the_end<1>(samples));
    }
    template <int N, int W> MEMBER Pair<half<N>> word_pairs(ptrdiff_t x) const
    {
        auto samples = of.template words<N, W>(x);
        return pair_of(samples, words(neighbours_to_the_end<2>(bytes(samples))));
    }
};

// Two doubled lines' average.
template <class Of> struct Between {
    Of a, b;

    template <int N, int W> MEMBER Pair<u8<N>> byte_pairs(ptrdiff_t x) const
    {
        return avg(a.template byte_pairs<N, W>(x), b.template byte_pairs<N, W>(x));
    }
    template <int N, int W> MEMBER Pair<half<N>> word_pairs(ptrdiff_t x) const
    {
        return avg(a.template word_pairs<N, W>(x), b.template word_pairs<N, W>(x));
    }
};
template <class Of> Between(Of, Of) -> Between<Of>;

// Ordinary blocks, at least one, look ahead, and a closing one does not.
OP ptrdiff_t doubled_blocks(int width) { return rounds(width < 2 * kBlock ? 2 * kBlock : width, kBlock) * kBlock; }

// Doubled pixels as YUY2: each source pixel becomes a pair that shares one doubled chroma sample.
template <int N> struct DoubledChroma {
    u8<N> u, v;
};
template <Stores S, int N> OP void store_doubled(uint8_t* p, Pair<u8<N>> luma, DoubledChroma<N> c)
{
    store_quads<S>(p, luma.own, c.u, luma.between, c.v);
}
template <int N> OP u8<N> in_line(Pair<half<N>> samples) { return join(i16<N>{samples.own, samples.between}); }

// Two lines that share their chroma, of one doubled line above another.
template <int widest, class Luma, class Chroma> struct DoubledStep {
    static constexpr int kWidest = widest, kBytes = 4, kWeave = 4;
    static constexpr bool kStreams = true;
    Luma upper, below;
    Between<Chroma> u, v;

    template <int N> MEMBER DoubledChroma<N> chroma(Position, ptrdiff_t x) const
    {
        return {in_line(u.template word_pairs<N, kWeave>(x / 2)), in_line(v.template word_pairs<N, kWeave>(x / 2))};
    }
    template <Line line, int N> MEMBER Pair<u8<N>> luma(Position, ptrdiff_t x) const
    {
        if constexpr (line == Line::upper) return upper.template byte_pairs<N, kWeave>(x);
        else return Between{upper, below}.template byte_pairs<N, kWeave>(x);
    }
    template <Stores S, Line, int N>
    MEMBER void store(Position at, ptrdiff_t x, Pair<u8<N>> luma, DoubledChroma<N> c) const
    {
        store_doubled<S>(at.dst + x * kBytes, luma, c);
    }
};

} // namespace vsurf::VSURF_ISA
