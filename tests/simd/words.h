// SPDX-License-Identifier: MIT
// Words by themselves, and as pairs of registers.
#pragma once
#include "simd/trial.h"

namespace vsurf::VSURF_ISA {
namespace {

// The product of the least word with itself is the one that no operation needs to get right.
constexpr int but_least(int word) { return word == -32768 ? -32767 : word; }

template <int N> Words<N> but_least(const Trial& t, int which)
{
    return max(t.words<N>(which), Words<N>::splat(-32767));
}

template <int N>
constexpr Operation kOperationsOnWords[] = {
    OPERATION("words_splat", t.yields(Words<N>::splat(t.word(0, 0)), [&](int) { return t.word(0, 0); })),
    OPERATION("words_alternate",
              t.yields(Words<N>::alternate(t.word(0, 0), t.word(0, 1)), [&](int i) { return t.word(0, i % 2); })),
    OPERATION("words_add",
              t.yields(add(t.words<N>(0), t.words<N>(1)), [&](int i) { return t.word(0, i) + t.word(1, i); })),
    OPERATION("words_sub",
              t.yields(sub(t.words<N>(0), t.words<N>(1)), [&](int i) { return t.word(0, i) - t.word(1, i); })),
    OPERATION("words_add_sat", t.yields(add_sat(t.words<N>(0), t.words<N>(1)),
                                        [&](int i) { return clamped(t.word(0, i) + t.word(1, i), -32768, 32767); })),
    OPERATION(
        "words_sub_sat_unsigned",
        t.yields(sub_sat_unsigned(t.words<N>(0), t.words<N>(1)),
                 [&](int i) { return clamped(unsigned_word(t.word(0, i)) - unsigned_word(t.word(1, i)), 0, 65535); })),
    OPERATION("words_mulhi", t.yields(mulhi(but_least<N>(t, 0), t.words<N>(1)),
                                      [&](int i) { return but_least(t.word(0, i)) * t.word(1, i) >> 16; })),
    OPERATION("words_mulhi_unsigned", t.yields(mulhi_unsigned(t.words<N>(0), t.words<N>(1)),
                                               [&](int i) {
                                                   const auto a = static_cast<uint32_t>(unsigned_word(t.word(0, i)));
                                                   return a * static_cast<uint32_t>(unsigned_word(t.word(1, i))) >> 16;
                                               })),
    OPERATION("words_mullo",
              t.yields(mullo(t.words<N>(0), t.words<N>(1)), [&](int i) { return t.word(0, i) * t.word(1, i); })),
    OPERATION("words_avg",
              t.yields(avg(t.words<N>(0), t.words<N>(1)),
                       [&](int i) { return (unsigned_word(t.word(0, i)) + unsigned_word(t.word(1, i)) + 1) >> 1; })),
    OPERATION("words_min", t.yields(min(t.words<N>(0), t.words<N>(1)),
                                    [&](int i) { return t.word(0, i) < t.word(1, i) ? t.word(0, i) : t.word(1, i); })),
    OPERATION("words_max", t.yields(max(t.words<N>(0), t.words<N>(1)),
                                    [&](int i) { return t.word(0, i) > t.word(1, i) ? t.word(0, i) : t.word(1, i); })),
};

template <int N, int K>
constexpr Operation kShiftsOfWords[] = {
    OPERATION_OF(kNumbers[K], "words_shl",
                 t.yields(shl<K>(t.words<N>(0)), [&](int i) { return unsigned_word(t.word(0, i)) << K; })),
    OPERATION_OF(kNumbers[K], "words_shr",
                 t.yields(shr<K>(t.words<N>(0)), [&](int i) { return unsigned_word(t.word(0, i)) >> K; })),
    OPERATION_OF(kNumbers[K], "words_shr_signed",
                 t.yields(shr_signed<K>(t.words<N>(0)), [&](int i) { return t.word(0, i) >> K; })),
    OPERATION_OF(kNumbers[K], "pairs_shl",
                 t.yields(shl<K>(t.even_odd<N>(0)), [&](int i) { return unsigned_word(t.even_odd_word(0, i)) << K; })),
};

// A single register with a pair is used for both.
template <int N>
constexpr Operation kOperationsOnPairs[] = {
    OPERATION("pairs_add", t.yields(add(t.even_odd<N>(0), t.words<N>(2)),
                                    [&](int i) { return t.even_odd_word(0, i) + t.word(2, i / 2); })),
    OPERATION("pairs_sub", t.yields(sub(t.even_odd<N>(0), t.words<N>(2)),
                                    [&](int i) { return t.even_odd_word(0, i) - t.word(2, i / 2); })),
    OPERATION("pairs_mulhi",
              t.yields(mulhi(t.even_odd<N>(0), but_least<N>(t, 2)),
                       [&](int i) { return t.even_odd_word(0, i) * but_least(t.word(2, i / 2)) >> 16; })),
};

} // namespace
} // namespace vsurf::VSURF_ISA
