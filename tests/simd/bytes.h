// SPDX-License-Identifier: MIT
// Samples: arithmetic, masks, and operations on neighbours.
#pragma once
#include "simd/trial.h"

namespace vsurf::VSURF_ISA {
namespace {

template <int N> Bytes<N> mask_of(const Trial& t, int which) { return equal(t.bytes<N>(which), t.bytes<N>(which + 1)); }

// A register in which as many bytes differ from 0 as the trial's number says: none, one, or as they come.
template <int N> Bytes<N> few(const Trial& t, int (&values)[N])
{
    uint8_t made[N] = {};
    for (int i = 0; i < N; i++) {
        const bool kept = t.number() % 3 == 0 || (t.number() % 3 == 1 && i == t.number() / 3 % N);
        made[i] = static_cast<uint8_t>(kept ? t.byte(0, i) : 0);
        values[i] = made[i];
    }
    Bytes<N> registered;
    __builtin_memcpy(&registered, made, N);
    return registered;
}

// Two masks: of the bytes of `few` that are 0, and of the others.
template <int N, class Judge> void judges(Trial& t, Judge judge)
{
    int values[N], zeros = 0;
    const auto zero = equal(few<N>(t, values), Bytes<N>::splat(0));
    for (const int value : values) zeros += value == 0;
    judge(zero, zeros > 0, zeros == N);
    judge(equal(zero, Bytes<N>::splat(0)), zeros < N, zeros == 0);
}

template <int N> void judges_zero(Trial& t)
{
    int values[N], zeros = 0;
    const auto bytes = few<N>(t, values);
    for (const int value : values) zeros += value == 0;
    t.yields(all_zero(bytes), zeros == N);
}

template <int N> void sums_fours(Trial& t)
{
    const int limit = t.number() % 1100; // from none to more than any sum
    t.yields(fours_above(t.bytes<N>(0), limit), [&](int i) {
        int sum = 0;
        for (int j = 0; j < 4; j++) sum += t.byte(0, i / 4 * 4 + j);
        return sum > limit ? 255 : 0;
    });
}

// The mask shows only bits that the shift leaves to a byte.
template <int N> void shifts_left(Trial& t)
{
    const int count = t.number() % 8, mask = t.byte(1, 0) & 255 << count & 255;
    t.yields(shifted_left(t.bytes<N>(0), count, mask), [&](int i) { return t.byte(0, i) << count & mask; });
}
template <int N> void shifts_right(Trial& t)
{
    const int count = t.number() % 8, mask = t.byte(1, 0) & 255 >> count;
    t.yields(shifted_right(t.bytes<N>(0), count, mask), [&](int i) { return t.byte(0, i) >> count & mask; });
}

template <int N, int K> void sums_pairs(Trial& t)
{
    t.yields(pair_sums<K>(t.bytes<N>(0)), [&](int i) { return K * (t.byte(0, 2 * i) + t.byte(0, 2 * i + 1)); });
}

template <int N>
constexpr Operation kOperationsOnBytes[] = {
    OPERATION("bytes_splat", t.yields(Bytes<N>::splat(t.byte(0, 0)), [&](int) { return t.byte(0, 0); })),
    OPERATION("bytes_bit_or",
              t.yields(bit_or(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return t.byte(0, i) | t.byte(1, i); })),
    OPERATION("bytes_bit_and",
              t.yields(bit_and(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return t.byte(0, i) & t.byte(1, i); })),
    OPERATION("bytes_avg", t.yields(avg(t.bytes<N>(0), t.bytes<N>(1)),
                                    [&](int i) { return (t.byte(0, i) + t.byte(1, i) + 1) >> 1; })),
    OPERATION("bytes_sub_sat_unsigned", t.yields(sub_sat_unsigned(t.bytes<N>(0), t.bytes<N>(1)),
                                                 [&](int i) { return sample_of(t.byte(0, i) - t.byte(1, i)); })),
    OPERATION("bytes_abs_diff", t.yields(abs_diff(t.bytes<N>(0), t.bytes<N>(1)),
                                         [&](int i) {
                                             const int difference = t.byte(0, i) - t.byte(1, i);
                                             return difference < 0 ? -difference : difference;
                                         })),
    OPERATION("as_words", t.yields(as_words(t.bytes<N>(0)), [&](int i) { return t.word(0, i); })),
    OPERATION("as_bytes", t.yields(as_bytes(t.words<N>(0)), [&](int i) { return t.byte(0, i); })),
    OPERATION("equal", t.yields(equal(t.bytes<N>(0), t.bytes<N>(1)),
                                [&](int i) { return t.byte(0, i) == t.byte(1, i) ? 255 : 0; })),
    OPERATION("choose", t.yields(choose(mask_of<N>(t, 0), t.bytes<N>(2), t.bytes<N>(3)),
                                 [&](int i) { return t.byte(0, i) == t.byte(1, i) ? t.byte(2, i) : t.byte(3, i); })),
    OPERATION("evens_and_odds",
              t.yields(evens_and_odds(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return t.byte(i % 2, i); })),
    OPERATION("any", judges<N>(t, [&](Bytes<N> mask, bool some, bool) { t.yields(any(mask), some); })),
    OPERATION("all_zero", judges_zero<N>(t)),
    OPERATION("fours_above", sums_fours<N>(t)),
    OPERATION("shifted_left", shifts_left<N>(t)),
    OPERATION("shifted_right", shifts_right<N>(t)),
    OPERATION("averages_of_pairs", t.yields(averages_of_pairs(t.bytes<N>(0)),
                                            [&](int i) { return (t.byte(0, 2 * i) + t.byte(0, 2 * i + 1) + 1) >> 1; })),
    OPERATION_OF("1", "pair_sums", sums_pairs<N, 1>(t)),
    OPERATION_OF("8", "pair_sums", sums_pairs<N, 8>(t)),
};

// The widest registers do without.
template <int N>
constexpr Operation kMasksFull[] = {
    OPERATION("all", judges<N>(t, [&](Bytes<N> mask, bool, bool every) { t.yields(all(mask), every); })),
};

template <int N, int K>
constexpr Operation kDropped[] = {
    OPERATION_OF(kNumbers[K], "drop_first",
                 t.yields(drop_first<K>(t.bytes<N>(0)), [&](int i) { return i + K < 16 ? t.byte(0, i + K) : 0; })),
};

template <int N, int size>
constexpr Operation kNeighbours[] = {
    OPERATION_OF(kNumbers[size], "neighbours_to_the_end",
                 t.yields(neighbours_to_the_end<size>(t.bytes<N>(0)),
                          [&](int i) { return t.byte(0, i + size < 16 ? i + size : i); })),
};

} // namespace
} // namespace vsurf::VSURF_ISA
