// SPDX-License-Identifier: MIT
// 256-bit vectors: AVX2. Two 128-bit lanes.
#pragma once
#include "simd/x128.h"

namespace vsurf::VSURF_ISA {

#if !defined __AVX512BW__
constexpr int kRegister = 32;
#endif

ALWAYS_INLINE __m256i* ymm(uint8_t* p) { return reinterpret_cast<__m256i*>(p); }
ALWAYS_INLINE const __m256i* ymm(const uint8_t* p) { return reinterpret_cast<const __m256i*>(p); }

template <> struct Bytes<32> {
    __m256i v;
    static ALWAYS_INLINE Bytes splat(int x) { return {_mm256_set1_epi8(static_cast<char>(x))}; }
    static ALWAYS_INLINE Bytes repeat(const int8_t* pattern16)
    {
        return {_mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(pattern16)))};
    }
};
template <> struct Words<32> {
    __m256i v;
    static ALWAYS_INLINE Words splat(int x) { return {_mm256_set1_epi16(static_cast<short>(x))}; }
    static ALWAYS_INLINE Words alternate(int x, int y) { return {_mm256_set1_epi32((x & 0xffff) | y * 0x10000)}; }
    static ALWAYS_INLINE Words repeat(int a, int b, int c, int d)
    {
        return {_mm256_broadcastq_epi64(Words<16>::repeat(a, b, c, d).v)};
    }
};

ALWAYS_INLINE Bytes<32> combine(Bytes<16> low, Bytes<16> high)
{
    return {_mm256_inserti128_si256(_mm256_castsi128_si256(low.v), high.v, 1)};
}

ALWAYS_INLINE Words<32> add(Words<32> a, Words<32> b) { return {_mm256_add_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> sub(Words<32> a, Words<32> b) { return {_mm256_sub_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> add_sat(Words<32> a, Words<32> b) { return {_mm256_adds_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> sub_sat_unsigned(Words<32> a, Words<32> b) { return {_mm256_subs_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> mulhi(Words<32> a, Words<32> b) { return {_mm256_mulhi_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> mullo(Words<32> a, Words<32> b) { return {_mm256_mullo_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> mulhi_unsigned(Words<32> a, Words<32> b) { return {_mm256_mulhi_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> avg(Words<32> a, Words<32> b) { return {_mm256_avg_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> bit_or(Words<32> a, Words<32> b) { return {_mm256_or_si256(a.v, b.v)}; }
ALWAYS_INLINE Words<32> min(Words<32> a, Words<32> b) { return {_mm256_min_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<32> max(Words<32> a, Words<32> b) { return {_mm256_max_epi16(a.v, b.v)}; }
template <int K> ALWAYS_INLINE Words<32> shl(Words<32> a) { return {_mm256_slli_epi16(a.v, K)}; }
template <int K> ALWAYS_INLINE Words<32> shr(Words<32> a) { return {_mm256_srli_epi16(a.v, K)}; }
ALWAYS_INLINE Words<32> shl(Words<32> a, int count) { return {_mm256_sll_epi16(a.v, _mm_cvtsi32_si128(count))}; }
ALWAYS_INLINE Words<32> shr(Words<32> a, int count) { return {_mm256_srl_epi16(a.v, _mm_cvtsi32_si128(count))}; }
template <int K> ALWAYS_INLINE Words<32> shr_signed(Words<32> a) { return {_mm256_srai_epi16(a.v, K)}; }

ALWAYS_INLINE Bytes<32> bit_or(Bytes<32> a, Bytes<32> b) { return {_mm256_or_si256(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> bit_and(Bytes<32> a, Bytes<32> b) { return {_mm256_and_si256(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> sub(Bytes<32> a, Bytes<32> b) { return {_mm256_sub_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> avg(Bytes<32> a, Bytes<32> b) { return {_mm256_avg_epu8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> sub_sat_unsigned(Bytes<32> a, Bytes<32> b) { return {_mm256_subs_epu8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> as_bytes(Words<32> a) { return {a.v}; }
ALWAYS_INLINE Words<32> as_words(Bytes<32> a) { return {a.v}; }

ALWAYS_INLINE Words<32> odds_high(Bytes<32> a) { return {_mm256_and_si256(a.v, _mm256_set1_epi16(-256))}; }
ALWAYS_INLINE Words<32> evens(Bytes<32> a) { return {_mm256_and_si256(a.v, _mm256_set1_epi16(255))}; }
ALWAYS_INLINE EvenOddWords<32> split_times4(Bytes<32> a)
{
    return {{_mm256_maddubs_epi16(a.v, _mm256_set1_epi16(4))}, {_mm256_maddubs_epi16(a.v, _mm256_set1_epi16(4 << 8))}};
}

template <int K> ALWAYS_INLINE Words<32> pair_sums(Bytes<32> a)
{
    return {_mm256_maddubs_epi16(a.v, _mm256_set1_epi8(K))};
}
ALWAYS_INLINE Words<32> weighted_pairs(Bytes<32> a, Bytes<32> weights)
{
    return {_mm256_maddubs_epi16(a.v, weights.v)};
}
ALWAYS_INLINE Words<32> averages_of_pairs(Bytes<32> a) { return avg(pair_sums<1>(a), Words<32>::splat(0)); }

ALWAYS_INLINE Bytes<32> equal(Bytes<32> a, Bytes<32> b) { return {_mm256_cmpeq_epi8(a.v, b.v)}; }
ALWAYS_INLINE bool any(Bytes<32> mask) { return _mm256_movemask_epi8(mask.v) != 0; }
ALWAYS_INLINE bool all(Bytes<32> mask) { return _mm256_movemask_epi8(mask.v) == -1; }
ALWAYS_INLINE bool all_zero(Bytes<32> a) { return _mm256_testz_si256(a.v, a.v) != 0; }
ALWAYS_INLINE Bytes<32> fours_above(Bytes<32> a, int limit)
{
    auto sums = _mm256_madd_epi16(pair_sums<1>(a).v, _mm256_set1_epi16(1));
    return {_mm256_cmpgt_epi32(sums, _mm256_set1_epi32(limit))};
}

template <> struct Dwords<32> {
    __m256i v;
};
ALWAYS_INLINE Dwords<32> add(Dwords<32> a, Dwords<32> b) { return {_mm256_add_epi32(a.v, b.v)}; }
template <int K> ALWAYS_INLINE Dwords<32> shr_signed(Dwords<32> a) { return {_mm256_srai_epi32(a.v, K)}; }
ALWAYS_INLINE Dwords<32> pair_dots(Words<32> a, Words<32> b) { return {_mm256_madd_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> pack_in_order(Dwords<32> a, Dwords<32> b, Dwords<32> c, Dwords<32> d)
{
    auto lanes = _mm256_packus_epi16(_mm256_packs_epi32(a.v, b.v), _mm256_packs_epi32(c.v, d.v));
    return {_mm256_permutevar8x32_epi32(lanes, _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7))};
}

ALWAYS_INLINE Bytes<32> first_of_pixel_pairs(Bytes<32> a) { return {_mm256_shuffle_epi32(a.v, 0xa0)}; }
ALWAYS_INLINE Dwords<32> first_bytes(Bytes<32> a) { return {_mm256_and_si256(a.v, _mm256_set1_epi32(255))}; }

ALWAYS_INLINE Bytes<32> pack(Words<32> a, Words<32> b) { return {_mm256_packus_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> zip_lo8(Bytes<32> a, Bytes<32> b) { return {_mm256_unpacklo_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> zip_hi8(Bytes<32> a, Bytes<32> b) { return {_mm256_unpackhi_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> zip_lo16(Bytes<32> a, Bytes<32> b) { return {_mm256_unpacklo_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> zip_hi16(Bytes<32> a, Bytes<32> b) { return {_mm256_unpackhi_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<32> shuffle(Bytes<32> a, Bytes<32> pattern) { return {_mm256_shuffle_epi8(a.v, pattern.v)}; }
ALWAYS_INLINE Bytes<32> choose(Bytes<32> mask, Bytes<32> a, Bytes<32> b)
{
    return {_mm256_blendv_epi8(b.v, a.v, mask.v)};
}

// Woven by W: lane l holds the parts l, l + 2, ... of the 2W parts of 16/W samples.
template <int N, int W = 1>
requires(N == 32) ALWAYS_INLINE Bytes<N> load(const uint8_t* p)
{
    auto v = _mm256_loadu_si256(ymm(p));
    if constexpr (W == 2) v = _mm256_permute4x64_epi64(v, 0xd8);
    if constexpr (W == 4) v = _mm256_permutevar8x32_epi32(v, _mm256_setr_epi32(0, 2, 4, 6, 1, 3, 5, 7));
    return {v};
}

// 2N bytes of which every two make a sample, in two registers whose `pack` is woven by W.
template <int N, int W = 1>
requires(N == 32) ALWAYS_INLINE LowHighWords<N> load_two(const uint8_t* p)
{
    if constexpr (W == 1) {
        auto lanes = [p](int first) VSURF_INLINED {
            auto low = _mm256_castsi128_si256(_mm_loadu_si128(xmm(p + first)));
            return Words<N>{_mm256_inserti128_si256(low, _mm_loadu_si128(xmm(p + first + 32)), 1)};
        };
        return {lanes(0), lanes(16)};
    } else {
        auto first = load<N, W / 2>(p), second = load<N, W / 2>(p + N);
        return {as_words(first), as_words(second)};
    }
}

template <int N>
requires(N == 32) ALWAYS_INLINE Bytes<N> load_halves(const uint8_t* p, const uint8_t* q)
{
    return {_mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(xmm(p))), _mm_loadu_si128(xmm(q)), 1)};
}
ALWAYS_INLINE void put_halves(uint8_t* p, uint8_t* q, Bytes<32> a)
{
    put(p, Bytes<16>{_mm256_castsi256_si128(a.v)});
    put(q, Bytes<16>{_mm256_extracti128_si256(a.v, 1)});
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
template <int W, bool high> ALWAYS_INLINE Words<32> load_chroma_as(const uint8_t* p)
{
    static constexpr ChromaPattern<W, high> pattern;
    auto both = _mm256_broadcastsi128_si256(_mm_loadu_si128(xmm(p)));
    return {_mm256_shuffle_epi8(both, _mm256_load_si256(reinterpret_cast<const __m256i*>(pattern.at)))};
}
template <int N, int W = 1>
requires(N == 32) ALWAYS_INLINE Words<N> load_chroma(const uint8_t* p) { return load_chroma_as<W, false>(p); }
template <int N, int W = 1>
requires(N == 32) ALWAYS_INLINE Words<N> load_chroma_high(const uint8_t* p) { return load_chroma_as<W, true>(p); }

ALWAYS_INLINE void put(uint8_t* to, Bytes<32> a) { _mm256_storeu_si256(ymm(to), a.v); }
ALWAYS_INLINE void put(Uncached to, Bytes<32> a) { _mm256_stream_si256(ymm(to.p), a.v); }

ALWAYS_INLINE Bytes<32> pack_in_order(Words<32> a, Words<32> b)
{
    return {_mm256_permute4x64_epi64(pack(a, b).v, 0xd8)};
}
ALWAYS_INLINE void put_pairs_but_first_eight(uint8_t* p, Bytes<32> lo, Bytes<32> hi)
{
    put_pairs_but_first_eight(p, {_mm256_castsi256_si128(lo.v)}, {_mm256_extracti128_si256(lo.v, 1)});
    put_pairs_but_first_eight(p + 32, {_mm256_castsi256_si128(hi.v)}, {_mm256_extracti128_si256(hi.v, 1)});
}

// Each lane of a, b, c is a third of the 48 bytes of its 16 pixels.
template <class To> ALWAYS_INLINE void put_thirds(To to, Bytes<32> a, Bytes<32> b, Bytes<32> c)
{
    put(to, Bytes<32>{_mm256_permute2x128_si256(a.v, b.v, 0x20)});
    put(to + 32, Bytes<32>{_mm256_blend_epi32(c.v, a.v, 0xf0)});
    put(to + 64, Bytes<32>{_mm256_permute2x128_si256(b.v, c.v, 0x31)});
}

} // namespace vsurf::VSURF_ISA
