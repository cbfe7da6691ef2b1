// SPDX-License-Identifier: MIT
// Sums of 32 bits, and pixels of four bytes.
#pragma once
#include "simd/trial.h"

namespace vsurf::VSURF_ISA {
namespace {

// Of four products no sum of two overflows unless all four words are the least one.
template <int N> Words<N> above_least(const Trial& t, int which)
{
    return max(t.words<N>(which), Words<N>::splat(-32767));
}

template <int N> void repeats(Trial& t)
{
    const auto of_four = [&](int i) { return t.word(0, i % 4); };
    t.yields(Words<N>::repeat(of_four(0), of_four(1), of_four(2), of_four(3)), of_four);
}

template <int N, int K> void shifts(Trial& t)
{
    t.yields(shr_signed<K>(t.dwords<N>(0)), [&](int i) { return t.dword(0, i) >> K; });
}

template <int N>
constexpr Operation kOperationsOnDwords[] = {
    OPERATION("words_repeat", repeats<N>(t)),
    OPERATION("dwords_add", t.yields(add(t.dwords<N>(0), t.dwords<N>(1)),
                                     [&](int i) {
                                         return static_cast<uint32_t>(t.dword(0, i)) +
                                                static_cast<uint32_t>(t.dword(1, i));
                                     })),
    OPERATION_OF("1", "dwords_shr_signed", shifts<N, 1>(t)),
    OPERATION_OF("10", "dwords_shr_signed", shifts<N, 10>(t)),
    OPERATION("pair_dots", t.yields(pair_dots(above_least<N>(t, 0), t.words<N>(1)),
                                    [&](int i) {
                                        const auto product = [&](int at) {
                                            return clamped(t.word(0, at), -32767, 32767) * t.word(1, at);
                                        };
                                        return product(2 * i) + product(2 * i + 1);
                                    })),
    OPERATION("pack_in_order_dwords",
              t.yields(pack_in_order(t.dwords<N>(0), t.dwords<N>(1), t.dwords<N>(2), t.dwords<N>(3)),
                       [&](int i) { return sample_of(t.dword(i / (N / 4), i % (N / 4))); })),
    OPERATION("first_bytes", t.yields(first_bytes(t.bytes<N>(0)), [&](int i) { return t.byte(0, 4 * i); })),
    OPERATION("first_of_pixel_pairs",
              t.yields(first_of_pixel_pairs(t.bytes<N>(0)), [&](int i) { return t.byte(0, i / 8 * 8 + i % 4); })),
};

} // namespace
} // namespace vsurf::VSURF_ISA
