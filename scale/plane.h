// SPDX-License-Identifier: MIT
// Single planes, enlarged line by line.
#pragma once
#include "frame/walk.h"
#include "scale/doubled.h"

namespace vsurf::VSURF_ISA {

// A line as wide as its source. The samples are a multiple of 8.
template <class Of> struct SameWidth {
    static constexpr int kBytes = 1, kBlockSamples = 16;
    Of of;

    ALWAYS_INLINE void store_block(uint8_t* to, ptrdiff_t x) const { put(to + x, of.template bytes<16, 1>(x)); }

    template <Stores S> ALWAYS_INLINE void store(uint8_t* to, ptrdiff_t x, ptrdiff_t end) const
    {
        along<kRegister, 16>(x, end, [=, this]<int N>(ptrdiff_t at) VSURF_INLINED {
            put(VSURF_ISA::to<S>(to + at), this->of.template bytes<N, 1>(at));
        });
        if (end & 8 && x != end) {
            auto eight = of.template words<16, 1>(end - 8);
            put_first8(to + end - 8, pack_in_order(eight, eight));
        }
    }
};

// A line twice as wide, of pairs.
template <class Of> struct DoubleWidth {
    static constexpr int kBytes = 2, kBlockSamples = 8;
    Of of;

    ALWAYS_INLINE void store_block(uint8_t* to, ptrdiff_t x) const
    {
        put(to + 2 * x, in_line(of.template word_pairs<16, 1>(x)));
    }

    template <Stores S> ALWAYS_INLINE void store(uint8_t* to, ptrdiff_t x, ptrdiff_t end) const
    {
        along<kRegister, 16>(x, end, [=, this]<int N>(ptrdiff_t at) VSURF_INLINED {
            auto pairs = this->of.template byte_pairs<N, 2>(at);
            store_pairs(VSURF_ISA::to<S>(to + 2 * at), pairs.own, pairs.between);
        });
        if (end & 8 && x != end) store_block(to, end - 8);
    }
};

// Whole cache lines are streamed, a rest is stored as usual.
template <class Shape> ALWAYS_INLINE void write_line(const Shape& shape, uint8_t* to, ptrdiff_t samples, bool streamed)
{
    const ptrdiff_t whole = streamed ? samples & -(kCacheLine / Shape::kBytes) : 0;
    if (streamed) shape.template store<Stores::streaming>(to, 0, whole);
    shape.template store<Stores::cached>(to, whole, samples);
}

// Where two lines overlap their blocks alternate, and the bytes stored last stay.
template <class Upper, class Lower>
ALWAYS_INLINE void write_two_lines(const Upper& upper, const Lower& lower, uint8_t* to, ptrdiff_t pitch,
                                   ptrdiff_t samples, bool streamed)
{
    const ptrdiff_t bytes = samples * Upper::kBytes;
    if (pitch < bytes && -pitch < bytes) {
        for (ptrdiff_t x = 0; x < samples; x += Upper::kBlockSamples) {
            upper.store_block(to, x);
            lower.store_block(to + pitch, x);
        }
    } else {
        write_line(upper, to, samples, streamed);
        write_line(lower, to + pitch, samples, streamed);
    }
}

template <class Gain, class Of> struct AdjustPairs {
    SampleAdjust by;
    Of of;

    template <int N, int W> ALWAYS_INLINE Pair<Bytes<N>> byte_pairs(ptrdiff_t x) const
    {
        auto pairs = of.template byte_pairs<N, W>(x);
        return {adjusted<Gain>(by, pairs.own), adjusted<Gain>(by, pairs.between)};
    }
    template <int N, int W> ALWAYS_INLINE Pair<Words<N>> word_pairs(ptrdiff_t x) const
    {
        auto pairs = of.template word_pairs<N, W>(x);
        return {by(pairs.own), by(pairs.between)};
    }
};

} // namespace vsurf::VSURF_ISA
