// SPDX-License-Identifier: MIT
// 512-bit vectors: AVX-512 with BW, VL and VBMI. Four 128-bit lanes.
#pragma once
#include "simd/x256.h"

namespace vsurf::VSURF_ISA {

constexpr int kRegister = 64;

template <> struct Bytes<64> {
    __m512i v;
    static ALWAYS_INLINE Bytes splat(int x) { return {_mm512_set1_epi8(static_cast<char>(x))}; }
    static ALWAYS_INLINE Bytes repeat(const int8_t* pattern16)
    {
        return {_mm512_broadcast_i32x4(_mm_load_si128(reinterpret_cast<const __m128i*>(pattern16)))};
    }
};
template <> struct Words<64> {
    __m512i v;
    static ALWAYS_INLINE Words splat(int x) { return {_mm512_set1_epi16(static_cast<short>(x))}; }
    static ALWAYS_INLINE Words alternate(int x, int y) { return {_mm512_set1_epi32((x & 0xffff) | y * 0x10000)}; }
};

ALWAYS_INLINE Words<64> add(Words<64> a, Words<64> b) { return {_mm512_add_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> sub(Words<64> a, Words<64> b) { return {_mm512_sub_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> add_sat(Words<64> a, Words<64> b) { return {_mm512_adds_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> sub_sat_unsigned(Words<64> a, Words<64> b) { return {_mm512_subs_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> mulhi(Words<64> a, Words<64> b) { return {_mm512_mulhi_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> mullo(Words<64> a, Words<64> b) { return {_mm512_mullo_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> mulhi_unsigned(Words<64> a, Words<64> b) { return {_mm512_mulhi_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> avg(Words<64> a, Words<64> b) { return {_mm512_avg_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> bit_or(Words<64> a, Words<64> b) { return {_mm512_or_si512(a.v, b.v)}; }
ALWAYS_INLINE Words<64> min(Words<64> a, Words<64> b) { return {_mm512_min_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<64> max(Words<64> a, Words<64> b) { return {_mm512_max_epi16(a.v, b.v)}; }
template <int K> ALWAYS_INLINE Words<64> shl(Words<64> a) { return {_mm512_slli_epi16(a.v, K)}; }
template <int K> ALWAYS_INLINE Words<64> shr(Words<64> a) { return {_mm512_srli_epi16(a.v, K)}; }
ALWAYS_INLINE Words<64> shl(Words<64> a, int count) { return {_mm512_sll_epi16(a.v, _mm_cvtsi32_si128(count))}; }
ALWAYS_INLINE Words<64> shr(Words<64> a, int count) { return {_mm512_srl_epi16(a.v, _mm_cvtsi32_si128(count))}; }
template <int K> ALWAYS_INLINE Words<64> shr_signed(Words<64> a) { return {_mm512_srai_epi16(a.v, K)}; }

ALWAYS_INLINE Bytes<64> bit_or(Bytes<64> a, Bytes<64> b) { return {_mm512_or_si512(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> bit_and(Bytes<64> a, Bytes<64> b) { return {_mm512_and_si512(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> sub(Bytes<64> a, Bytes<64> b) { return {_mm512_sub_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> avg(Bytes<64> a, Bytes<64> b) { return {_mm512_avg_epu8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> sub_sat_unsigned(Bytes<64> a, Bytes<64> b) { return {_mm512_subs_epu8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> as_bytes(Words<64> a) { return {a.v}; }
ALWAYS_INLINE Words<64> as_words(Bytes<64> a) { return {a.v}; }

ALWAYS_INLINE Words<64> odds_high(Bytes<64> a) { return {_mm512_and_si512(a.v, _mm512_set1_epi16(-256))}; }
ALWAYS_INLINE Words<64> evens(Bytes<64> a) { return {_mm512_and_si512(a.v, _mm512_set1_epi16(255))}; }
ALWAYS_INLINE EvenOddWords<64> split_times4(Bytes<64> a)
{
    return {{_mm512_maddubs_epi16(a.v, _mm512_set1_epi16(4))}, {_mm512_maddubs_epi16(a.v, _mm512_set1_epi16(4 << 8))}};
}

template <int K> ALWAYS_INLINE Words<64> pair_sums(Bytes<64> a)
{
    return {_mm512_maddubs_epi16(a.v, _mm512_set1_epi8(K))};
}
ALWAYS_INLINE Words<64> weighted_pairs(Bytes<64> a, Bytes<64> weights)
{
    return {_mm512_maddubs_epi16(a.v, weights.v)};
}
ALWAYS_INLINE Words<64> averages_of_pairs(Bytes<64> a) { return avg(pair_sums<1>(a), Words<64>::splat(0)); }

ALWAYS_INLINE Bytes<64> equal(Bytes<64> a, Bytes<64> b) { return {_mm512_movm_epi8(_mm512_cmpeq_epi8_mask(a.v, b.v))}; }
ALWAYS_INLINE bool any(Bytes<64> mask) { return _mm512_movepi8_mask(mask.v) != 0; }
ALWAYS_INLINE bool all_zero(Bytes<64> a) { return _mm512_test_epi8_mask(a.v, a.v) == 0; }
ALWAYS_INLINE Bytes<64> fours_above(Bytes<64> a, int limit)
{
    auto sums = _mm512_madd_epi16(pair_sums<1>(a).v, _mm512_set1_epi16(1));
    return {_mm512_maskz_set1_epi32(_mm512_cmpgt_epi32_mask(sums, _mm512_set1_epi32(limit)), -1)};
}
ALWAYS_INLINE Bytes<64> choose(Bytes<64> mask, Bytes<64> a, Bytes<64> b)
{
    constexpr int first_selects_second_or_third = 0xca;
    return {_mm512_ternarylogic_epi32(mask.v, a.v, b.v, first_selects_second_or_third)};
}

ALWAYS_INLINE Bytes<64> pack(Words<64> a, Words<64> b) { return {_mm512_packus_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> zip_lo8(Bytes<64> a, Bytes<64> b) { return {_mm512_unpacklo_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> zip_hi8(Bytes<64> a, Bytes<64> b) { return {_mm512_unpackhi_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> zip_lo16(Bytes<64> a, Bytes<64> b) { return {_mm512_unpacklo_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> zip_hi16(Bytes<64> a, Bytes<64> b) { return {_mm512_unpackhi_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<64> shuffle(Bytes<64> a, Bytes<64> pattern) { return {_mm512_shuffle_epi8(a.v, pattern.v)}; }

struct alignas(64) Index64 {
    int8_t at[64] = {};
    static ALWAYS_INLINE __m512i load(const Index64& index) { return _mm512_load_si512(index.at); }
};

// Woven by W: lane l holds the parts l, l + 4, ... of the 4W parts of 16/W samples.
template <int N, int W = 1>
requires(N == 64) ALWAYS_INLINE Bytes<N> load(const uint8_t* p)
{
    auto v = _mm512_loadu_si512(p);
    if constexpr (W == 2) v = _mm512_permutexvar_epi64(_mm512_setr_epi64(0, 4, 1, 5, 2, 6, 3, 7), v);
    if constexpr (W == 4)
        v = _mm512_permutexvar_epi32(_mm512_setr_epi32(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15), v);
    return {v};
}

template <int N, int W = 1>
requires(N == 64) ALWAYS_INLINE LowHighWords<N> load_two(const uint8_t* p)
{
    if constexpr (W == 1) {
        auto first = _mm512_loadu_si512(p), second = _mm512_loadu_si512(p + N);
        return {{_mm512_shuffle_i64x2(first, second, 0x88)}, {_mm512_shuffle_i64x2(first, second, 0xdd)}};
    } else {
        auto first = load<N, W / 2>(p), second = load<N, W / 2>(p + N);
        return {as_words(first), as_words(second)};
    }
}

template <int N>
requires(N == 64) ALWAYS_INLINE Bytes<N> load_halves(const uint8_t* p, const uint8_t* q)
{
    return {_mm512_inserti64x4(_mm512_castsi256_si512(_mm256_loadu_si256(ymm(p))), _mm256_loadu_si256(ymm(q)), 1)};
}
ALWAYS_INLINE void put_halves(uint8_t* p, uint8_t* q, Bytes<64> a)
{
    put(p, Bytes<32>{_mm512_castsi512_si256(a.v)});
    put(q, Bytes<32>{_mm512_extracti64x4_epi64(a.v, 1)});
}

template <int W> struct ChromaIndex : Index64 {
    constexpr ChromaIndex()
    {
        constexpr int part = 8 / W; // chroma samples of a part
        for (int i = 0; i < 32; i++) {
            int lane = i / 8, part_of_lane = i % 8 / part;
            at[2 * i] = at[2 * i + 1] = static_cast<int8_t>((part_of_lane * 4 + lane) * part + i % part);
        }
    }
};
template <int W> ALWAYS_INLINE Words<64> load_chroma_as(const uint8_t* p, uint64_t bytes_to_fill)
{
    static constexpr ChromaIndex<W> index;
    auto samples = _mm512_castsi256_si512(_mm256_loadu_si256(ymm(p)));
    return {_mm512_maskz_permutexvar_epi8(bytes_to_fill, Index64::load(index), samples)};
}
template <int N, int W = 1>
requires(N == 64) ALWAYS_INLINE Words<N> load_chroma(const uint8_t* p)
{
    return load_chroma_as<W>(p, 0x5555555555555555);
}
template <int N, int W = 1>
requires(N == 64) ALWAYS_INLINE Words<N> load_chroma_high(const uint8_t* p)
{
    return load_chroma_as<W>(p, 0xaaaaaaaaaaaaaaaa);
}

ALWAYS_INLINE void put(uint8_t* to, Bytes<64> a) { _mm512_storeu_si512(to, a.v); }
ALWAYS_INLINE void put(Uncached to, Bytes<64> a) { _mm512_stream_si512(reinterpret_cast<__m512i*>(to.p), a.v); }

ALWAYS_INLINE Bytes<64> pack_in_order(Words<64> a, Words<64> b)
{
    return {_mm512_permutexvar_epi64(_mm512_setr_epi64(0, 2, 4, 6, 1, 3, 5, 7), pack(a, b).v)};
}
ALWAYS_INLINE void put_pairs_but_first_eight(uint8_t* p, Bytes<64> lo, Bytes<64> hi)
{
    constexpr __mmask8 all_but_first_of_four = 0xee;
    _mm512_mask_storeu_epi64(p, all_but_first_of_four, lo.v);
    _mm512_mask_storeu_epi64(p + 64, all_but_first_of_four, hi.v);
}

// Byte i of the third t of the 192 bytes is component (64 t + i) mod 3 of pixel (64 t + i) / 3, found in packed order.
template <int third> struct ThirdIndex : Index64 {
    constexpr ThirdIndex()
    {
        for (int i = 0; i < 64; i++) {
            int pixel = (64 * third + i) / 3, lane = pixel / 16, of_lane = pixel % 16;
            at[i] = static_cast<int8_t>(lane * 16 + of_lane % 2 * 8 + of_lane / 2);
        }
    }
};
constexpr uint64_t third_mask(int third, int component)
{
    uint64_t mask = 0;
    for (int i = 0; i < 64; i++) mask |= static_cast<uint64_t>((64 * third + i) % 3 == component) << i;
    return mask;
}
template <int third, class To> ALWAYS_INLINE void put_third(To to, __m512i b, __m512i g, __m512i r)
{
    static constexpr ThirdIndex<third> index;
    constexpr uint64_t of_g = third_mask(third, 1), of_r = third_mask(third, 2);
    auto from = Index64::load(index);
    auto v = _mm512_permutexvar_epi8(from, b);
    v = _mm512_mask_permutexvar_epi8(v, of_g, from, g);
    v = _mm512_mask_permutexvar_epi8(v, of_r, from, r);
    put(to + 64 * third, Bytes<64>{v});
}

// b g r a pixel; not woven.
template <class To> ALWAYS_INLINE void store_bgr(To to, Bytes<64> b, Bytes<64> g, Bytes<64> r)
{
    put_third<0>(to, b.v, g.v, r.v);
    put_third<1>(to, b.v, g.v, r.v);
    put_third<2>(to, b.v, g.v, r.v);
}

// Of every four bytes own, b, b', ... the first doubled pixel takes three of its own, the second one.
template <int part> struct DoubledIndex : Index64 {
    constexpr DoubledIndex()
    {
        for (int i = 0; i < 64; i++) {
            const int out = part * 64 + i, group = out / 8 * 4, place = out % 8;
            const bool from_own = place < 2 || place == 3 || place == 4;
            const int byte = place == 2 ? 0 : place == 4 ? 2 : place % 4;
            at[i] = static_cast<int8_t>(group + byte + (from_own ? 0 : 64));
        }
    }
};
template <class To> ALWAYS_INLINE void store_doubled_yuyv(To to, Bytes<64> own, Bytes<64> between)
{
    static constexpr DoubledIndex<0> first;
    static constexpr DoubledIndex<1> second;
    put(to, Bytes<64>{_mm512_permutex2var_epi8(own.v, Index64::load(first), between.v)});
    put(to + 64, Bytes<64>{_mm512_permutex2var_epi8(own.v, Index64::load(second), between.v)});
}

} // namespace vsurf::VSURF_ISA
