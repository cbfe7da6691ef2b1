// SPDX-License-Identifier: MIT
// 256-bit vectors: AVX2. Two 128-bit lanes.
#pragma once
#include "simd/x128.h"

namespace vsurf::VSURF_ISA {

OP __m256i* ymm(uint8_t* p) { return reinterpret_cast<__m256i*>(p); }
OP const __m256i* ymm(const uint8_t* p) { return reinterpret_cast<const __m256i*>(p); }

template <> struct u8<32> {
    __m256i v;
    OP u8 splat(int x) { return {_mm256_set1_epi8(static_cast<char>(x))}; }
    OP u8 repeat(const int8_t* pattern16)
    {
        return {_mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(pattern16)))};
    }
};
template <> struct half<32> {
    __m256i v;
    OP half splat(int x) { return {_mm256_set1_epi16(static_cast<short>(x))}; }
    OP half alternate(int x, int y) { return {_mm256_set1_epi32((x & 0xffff) | y * 0x10000)}; }
    OP half repeat(int a, int b, int c, int d) { return {_mm256_broadcastq_epi64(half<16>::repeat(a, b, c, d).v)}; }
};

OP u8<32> combine(u8<16> low, u8<16> high)
{
    return {_mm256_inserti128_si256(_mm256_castsi128_si256(low.v), high.v, 1)};
}

OP half<32> add(half<32> a, half<32> b) { return {_mm256_add_epi16(a.v, b.v)}; }
OP half<32> sub(half<32> a, half<32> b) { return {_mm256_sub_epi16(a.v, b.v)}; }
OP half<32> add_sat(half<32> a, half<32> b) { return {_mm256_adds_epi16(a.v, b.v)}; }
OP half<32> sub_sat_unsigned(half<32> a, half<32> b) { return {_mm256_subs_epu16(a.v, b.v)}; }
OP half<32> mulhi(half<32> a, half<32> b) { return {_mm256_mulhi_epi16(a.v, b.v)}; }
OP half<32> mullo(half<32> a, half<32> b) { return {_mm256_mullo_epi16(a.v, b.v)}; }
OP half<32> mulhi_unsigned(half<32> a, half<32> b) { return {_mm256_mulhi_epu16(a.v, b.v)}; }
OP half<32> avg(half<32> a, half<32> b) { return {_mm256_avg_epu16(a.v, b.v)}; }
OP half<32> bit_or(half<32> a, half<32> b) { return {_mm256_or_si256(a.v, b.v)}; }
OP half<32> least(half<32> a, half<32> b) { return {_mm256_min_epi16(a.v, b.v)}; }
OP half<32> most(half<32> a, half<32> b) { return {_mm256_max_epi16(a.v, b.v)}; }
template <int K> OP half<32> shl(half<32> a) { return {_mm256_slli_epi16(a.v, K)}; }
template <int K> OP half<32> shr(half<32> a) { return {_mm256_srli_epi16(a.v, K)}; }
OP half<32> shl(half<32> a, int count) { return {_mm256_sll_epi16(a.v, _mm_cvtsi32_si128(count))}; }
OP half<32> shr(half<32> a, int count) { return {_mm256_srl_epi16(a.v, _mm_cvtsi32_si128(count))}; }
template <int K> OP half<32> shr_signed(half<32> a) { return {_mm256_srai_epi16(a.v, K)}; }

OP u8<32> bit_or(u8<32> a, u8<32> b) { return {_mm256_or_si256(a.v, b.v)}; }
OP u8<32> bit_and(u8<32> a, u8<32> b) { return {_mm256_and_si256(a.v, b.v)}; }
OP u8<32> sub(u8<32> a, u8<32> b) { return {_mm256_sub_epi8(a.v, b.v)}; }
OP u8<32> avg(u8<32> a, u8<32> b) { return {_mm256_avg_epu8(a.v, b.v)}; }
OP u8<32> sub_sat_unsigned(u8<32> a, u8<32> b) { return {_mm256_subs_epu8(a.v, b.v)}; }
OP u8<32> bytes(half<32> a) { return {a.v}; }
OP half<32> words(u8<32> a) { return {a.v}; }

OP half<32> odds_high(u8<32> a) { return {_mm256_and_si256(a.v, _mm256_set1_epi16(-256))}; }
OP half<32> evens(u8<32> a) { return {_mm256_and_si256(a.v, _mm256_set1_epi16(255))}; }
OP i16<32> split_times4(u8<32> a)
{
    return {{_mm256_maddubs_epi16(a.v, _mm256_set1_epi16(4))}, {_mm256_maddubs_epi16(a.v, _mm256_set1_epi16(4 << 8))}};
}

template <int K> OP half<32> pair_sums(u8<32> a) { return {_mm256_maddubs_epi16(a.v, _mm256_set1_epi8(K))}; }
OP half<32> weighted_pairs(u8<32> a, u8<32> weights) { return {_mm256_maddubs_epi16(a.v, weights.v)}; }
OP half<32> averages_of_pairs(u8<32> a) { return avg(pair_sums<1>(a), half<32>::splat(0)); }

OP u8<32> equal(u8<32> a, u8<32> b) { return {_mm256_cmpeq_epi8(a.v, b.v)}; }
OP bool any(u8<32> mask) { return _mm256_movemask_epi8(mask.v) != 0; }
OP bool all(u8<32> mask) { return _mm256_movemask_epi8(mask.v) == -1; }
OP bool all_zero(u8<32> a) { return _mm256_testz_si256(a.v, a.v) != 0; }
OP u8<32> fours_above(u8<32> a, int limit)
{
    auto sums = _mm256_madd_epi16(pair_sums<1>(a).v, _mm256_set1_epi16(1));
    return {_mm256_cmpgt_epi32(sums, _mm256_set1_epi32(limit))};
}

template <> struct longs<32> {
    __m256i v;
};
OP longs<32> add(longs<32> a, longs<32> b) { return {_mm256_add_epi32(a.v, b.v)}; }
template <int K> OP longs<32> shr_signed(longs<32> a) { return {_mm256_srai_epi32(a.v, K)}; }
OP longs<32> pair_dots(half<32> a, half<32> b) { return {_mm256_madd_epi16(a.v, b.v)}; }
OP u8<32> pack_in_order(longs<32> a, longs<32> b, longs<32> c, longs<32> d)
{
    auto lanes = _mm256_packus_epi16(_mm256_packs_epi32(a.v, b.v), _mm256_packs_epi32(c.v, d.v));
    return {_mm256_permutevar8x32_epi32(lanes, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7))};
}

OP u8<32> equal_pixels(u8<32> a, u8<32> b) { return {_mm256_cmpeq_epi32(a.v, b.v)}; }
OP u8<32> first_of_pixel_pairs(u8<32> a) { return {_mm256_shuffle_epi32(a.v, 0xa0)}; }
OP longs<32> first_bytes(u8<32> a) { return {_mm256_and_si256(a.v, _mm256_set1_epi32(255))}; }

OP u8<32> pack(half<32> a, half<32> b) { return {_mm256_packus_epi16(a.v, b.v)}; }
OP u8<32> zip_lo8(u8<32> a, u8<32> b) { return {_mm256_unpacklo_epi8(a.v, b.v)}; }
OP u8<32> zip_hi8(u8<32> a, u8<32> b) { return {_mm256_unpackhi_epi8(a.v, b.v)}; }
OP u8<32> zip_lo16(u8<32> a, u8<32> b) { return {_mm256_unpacklo_epi16(a.v, b.v)}; }
OP u8<32> zip_hi16(u8<32> a, u8<32> b) { return {_mm256_unpackhi_epi16(a.v, b.v)}; }
OP u8<32> shuffle(u8<32> a, u8<32> pattern) { return {_mm256_shuffle_epi8(a.v, pattern.v)}; }
OP u8<32> choose(u8<32> mask, u8<32> a, u8<32> b) { return {_mm256_blendv_epi8(b.v, a.v, mask.v)}; }

// Woven by W: lane l holds the parts l, l + 2, ... of the 2W parts of 16/W samples.
template <int N, int W = 1>
requires(N == 32) OP u8<N> load(const uint8_t* p)
{
    auto v = _mm256_loadu_si256(ymm(p));
    if constexpr (W == 2) v = _mm256_permute4x64_epi64(v, 0xd8);
    if constexpr (W == 4) v = _mm256_permutevar8x32_epi32(v, _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7));
    return {v};
}

// 2N bytes of which every two make a sample, in two registers whose `pack` is woven by W.
template <int N, int W = 1>
requires(N == 32) OP wide<N> load_two(const uint8_t* p)
{
    if constexpr (W == 1) {
        auto lanes = [p](int first) VSURF_INLINED {
            auto low = _mm256_castsi128_si256(_mm_loadu_si128(xmm(p + first)));
            return half<N>{_mm256_inserti128_si256(low, _mm_loadu_si128(xmm(p + first + 32)), 1)};
        };
        return {lanes(0), lanes(16)};
    } else {
        auto first = load<N, W / 2>(p), second = load<N, W / 2>(p + N);
        return {words(first), words(second)};
    }
}

template <int N>
requires(N == 32) OP u8<N> load_halves(const uint8_t* p, const uint8_t* q)
{
    return {_mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(xmm(p))), _mm_loadu_si128(xmm(q)), 1)};
}
OP void put_halves(uint8_t* p, uint8_t* q, u8<32> a)
{
    put(p, u8<16>{_mm256_castsi256_si128(a.v)});
    put(q, u8<16>{_mm256_extracti128_si256(a.v, 1)});
}

// The woven words of the 16 samples at p: with -1 for a byte that becomes zero, either byte of a word may hold its
// sample.
template <int W, bool high> struct ChromaPattern {
    alignas(32) int8_t at[32] = {};
    constexpr ChromaPattern()
    {
        constexpr int part = 8 / W; // chroma samples of a part
        for (int i = 0; i < 16; i++) {
            int lane = i / 8, part_of_lane = i % 8 / part;
            at[2 * i + high] = static_cast<int8_t>((part_of_lane * 2 + lane) * part + i % part);
            at[2 * i + !high] = -1;
        }
    }
};
template <int W, bool high> OP half<32> load_chroma_as(const uint8_t* p)
{
    static constexpr ChromaPattern<W, high> pattern;
    auto both = _mm256_broadcastsi128_si256(_mm_loadu_si128(xmm(p)));
    return {_mm256_shuffle_epi8(both, _mm256_load_si256(reinterpret_cast<const __m256i*>(pattern.at)))};
}
template <int N, int W = 1>
requires(N == 32) OP half<N> load_chroma(const uint8_t* p) { return load_chroma_as<W, false>(p); }
template <int N, int W = 1>
requires(N == 32) OP half<N> load_chroma_high(const uint8_t* p) { return load_chroma_as<W, true>(p); }

template <Stores S = Stores::cached> OP void put(uint8_t* p, u8<32> a)
{
    if constexpr (S == Stores::streaming) _mm256_stream_si256(ymm(p), a.v);
    else _mm256_storeu_si256(ymm(p), a.v);
}

OP u8<32> pack_in_order(half<32> a, half<32> b) { return {_mm256_permute4x64_epi64(pack(a, b).v, 0xd8)}; }
OP void put_pairs_but_first_eight(uint8_t* p, u8<32> lo, u8<32> hi)
{
    put_pairs_but_first_eight(p, {_mm256_castsi256_si128(lo.v)}, {_mm256_extracti128_si256(lo.v, 1)});
    put_pairs_but_first_eight(p + 32, {_mm256_castsi256_si128(hi.v)}, {_mm256_extracti128_si256(hi.v, 1)});
}

// Each lane of a, b, c is a third of the 48 bytes of its 16 pixels.
template <Stores S> OP void put_thirds(uint8_t* p, u8<32> a, u8<32> b, u8<32> c)
{
    put<S>(p, u8<32>{_mm256_permute2x128_si256(a.v, b.v, 0x20)});
    put<S>(p + 32, u8<32>{_mm256_blend_epi32(c.v, a.v, 0xf0)});
    put<S>(p + 64, u8<32>{_mm256_permute2x128_si256(b.v, c.v, 0x31)});
}

} // namespace vsurf::VSURF_ISA
