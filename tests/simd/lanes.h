// SPDX-License-Identifier: MIT
// What works inside 128-bit lanes, and what only some instruction sets have.
#pragma once
#include "simd/trial.h"

namespace vsurf::VSURF_ISA {
namespace {

// Which byte of both operands a zip of units of `unit` bytes has at place i of a lane: the operand and its byte.
struct Zipped {
    int operand, byte;
};
constexpr Zipped zipped(int i, int unit, bool high)
{
    const int of_lane = i % 16, pair = of_lane / (2 * unit);
    return {of_lane / unit % 2, i / 16 * 16 + (high ? 8 : 0) + pair * unit + of_lane % unit};
}

template <int N> int zipped_byte(const Trial& t, int i, int unit, bool high)
{
    const Zipped from = zipped(i, unit, high);
    return t.byte(from.operand, from.byte);
}

template <int N>
constexpr Operation kZips[] = {
    OPERATION("zip_lo16",
              t.yields(zip_lo16(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return zipped_byte<N>(t, i, 2, false); })),
    OPERATION("zip_hi16",
              t.yields(zip_hi16(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return zipped_byte<N>(t, i, 2, true); })),
};

#if VSURF_TEST_LANES
template <int N>
constexpr Operation kLanes[] = {
    OPERATION("bytes_repeat", t.yields(Bytes<N>::repeat(reinterpret_cast<const int8_t*>(t.operand(0))),
                                       [&](int i) { return t.byte(0, i % 16); })),
    OPERATION("zip_lo8",
              t.yields(zip_lo8(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return zipped_byte<N>(t, i, 1, false); })),
    OPERATION("zip_hi8",
              t.yields(zip_hi8(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return zipped_byte<N>(t, i, 1, true); })),
    OPERATION("pack_lanes",
              t.yields(pack(t.words<N>(0), t.words<N>(1)), [&](int i) { return sample_of(t.low_high_word(0, i)); })),
    OPERATION("evens", t.yields(evens(t.bytes<N>(0)), [&](int i) { return t.byte(0, 2 * i); })),
    OPERATION("odds_high", t.yields(odds_high(t.bytes<N>(0)), [&](int i) { return t.byte(0, 2 * i + 1) << 8; })),
    OPERATION("words_bit_or",
              t.yields(bit_or(t.words<N>(0), t.words<N>(1)), [&](int i) { return t.word(0, i) | t.word(1, i); })),
    OPERATION("words_shl_by", t.yields(shl(t.words<N>(0), t.number() % 16),
                                       [&](int i) { return unsigned_word(t.word(0, i)) << t.number() % 16; })),
    OPERATION("words_shr_by", t.yields(shr(t.words<N>(0), t.number() % 16),
                                       [&](int i) { return unsigned_word(t.word(0, i)) >> t.number() % 16; })),
};

template <int N>
constexpr Operation kShuffles[] = {
#if defined __AVX2__
    OPERATION("bytes_sub",
              t.yields(sub(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return t.byte(0, i) - t.byte(1, i); })),
    OPERATION("shuffle", t.yields(shuffle(t.bytes<N>(0), t.bytes<N>(1)),
                                  [&](int i) {
                                      const int from = t.byte(1, i);
                                      return from >= 128 ? 0 : t.byte(0, i / 16 * 16 + from % 16);
                                  })),
    OPERATION("weighted_pairs", t.yields(weighted_pairs(t.bytes<N>(0), t.bytes<N>(1)),
                                         [&](int i) {
                                             const auto product = [&](int at) {
                                                 return t.byte(0, at) * static_cast<int8_t>(t.byte(1, at));
                                             };
                                             return clamped(product(2 * i) + product(2 * i + 1), -32768, 32767);
                                         })),
#else
    OPERATION("second_half", t.yields(second_half(t.bytes<N>(0)), [&](int i) { return t.byte(0, i % 8 + 8); })),
#endif
};

#if defined __AVX2__
template <int N>
constexpr Operation kCombined[] = {
    OPERATION("combine", t.yields(combine(t.bytes<N / 2>(0), t.bytes<N / 2>(1)),
                                  [&](int i) { return t.byte(i / (N / 2), i % (N / 2)); })),
};
#endif
#endif

} // namespace
} // namespace vsurf::VSURF_ISA
