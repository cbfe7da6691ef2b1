// SPDX-License-Identifier: MIT
// 128-bit vectors: SSE2, and the newer byte shuffles where the build has them.
#pragma once
#include <immintrin.h>

namespace vsurf::VSURF_ISA {

OP __m128i* xmm(uint8_t* p) { return reinterpret_cast<__m128i*>(p); }
OP const __m128i* xmm(const uint8_t* p) { return reinterpret_cast<const __m128i*>(p); }

OP short as_word(int x) { return static_cast<short>(x); }

template <> struct u8<16> {
    __m128i v;
    OP u8 splat(int x) { return {_mm_set1_epi8(static_cast<char>(x))}; }
    OP u8 repeat(const int8_t* pattern16) { return {_mm_load_si128(reinterpret_cast<const __m128i*>(pattern16))}; }
};
template <> struct half<16> {
    __m128i v;
    OP half splat(int x) { return {_mm_set1_epi16(static_cast<short>(x))}; }
    OP half alternate(int x, int y) { return {_mm_set1_epi32((x & 0xffff) | y * 0x10000)}; }
    OP half repeat(int a, int b, int c, int d)
    {
        return {_mm_setr_epi16(as_word(a), as_word(b), as_word(c), as_word(d), as_word(a), as_word(b), as_word(c),
                               as_word(d))};
    }
};

OP half<16> add(half<16> a, half<16> b) { return {_mm_add_epi16(a.v, b.v)}; }
OP half<16> sub(half<16> a, half<16> b) { return {_mm_sub_epi16(a.v, b.v)}; }
OP half<16> add_sat(half<16> a, half<16> b) { return {_mm_adds_epi16(a.v, b.v)}; }
OP half<16> sub_sat_unsigned(half<16> a, half<16> b) { return {_mm_subs_epu16(a.v, b.v)}; }
OP half<16> mulhi(half<16> a, half<16> b) { return {_mm_mulhi_epi16(a.v, b.v)}; }
OP half<16> mullo(half<16> a, half<16> b) { return {_mm_mullo_epi16(a.v, b.v)}; }
OP half<16> mulhi_unsigned(half<16> a, half<16> b) { return {_mm_mulhi_epu16(a.v, b.v)}; }
OP half<16> avg(half<16> a, half<16> b) { return {_mm_avg_epu16(a.v, b.v)}; }
OP half<16> bit_or(half<16> a, half<16> b) { return {_mm_or_si128(a.v, b.v)}; }
OP half<16> least(half<16> a, half<16> b) { return {_mm_min_epi16(a.v, b.v)}; }
OP half<16> most(half<16> a, half<16> b) { return {_mm_max_epi16(a.v, b.v)}; }
template <int K> OP half<16> shl(half<16> a) { return {_mm_slli_epi16(a.v, K)}; }
template <int K> OP half<16> shr(half<16> a) { return {_mm_srli_epi16(a.v, K)}; }
OP half<16> shl(half<16> a, int count) { return {_mm_sll_epi16(a.v, _mm_cvtsi32_si128(count))}; }
OP half<16> shr(half<16> a, int count) { return {_mm_srl_epi16(a.v, _mm_cvtsi32_si128(count))}; }
template <int K> OP half<16> shr_signed(half<16> a) { return {_mm_srai_epi16(a.v, K)}; }

OP u8<16> bit_or(u8<16> a, u8<16> b) { return {_mm_or_si128(a.v, b.v)}; }
OP u8<16> bit_and(u8<16> a, u8<16> b) { return {_mm_and_si128(a.v, b.v)}; }
OP u8<16> sub(u8<16> a, u8<16> b) { return {_mm_sub_epi8(a.v, b.v)}; }
OP u8<16> avg(u8<16> a, u8<16> b) { return {_mm_avg_epu8(a.v, b.v)}; }
OP u8<16> sub_sat_unsigned(u8<16> a, u8<16> b) { return {_mm_subs_epu8(a.v, b.v)}; }
OP u8<16> bytes(half<16> a) { return {a.v}; }
OP half<16> words(u8<16> a) { return {a.v}; }

OP half<16> odds_high(u8<16> a) { return {_mm_and_si128(a.v, _mm_set1_epi16(-256))}; }
OP half<16> evens(u8<16> a) { return {_mm_and_si128(a.v, _mm_set1_epi16(255))}; }
OP i16<16> split_times4(u8<16> a)
{
#if defined __AVX2__
    return {{_mm_maddubs_epi16(a.v, _mm_set1_epi16(4))}, {_mm_maddubs_epi16(a.v, _mm_set1_epi16(4 << 8))}};
#else
    return {shr<6>(shl<8>(words(a))), shl<2>(shr<8>(words(a)))};
#endif
}

// K (a0 + a1), K (a2 + a3), ...
template <int K> OP half<16> pair_sums(u8<16> a)
{
#if defined __AVX2__
    return {_mm_maddubs_epi16(a.v, _mm_set1_epi8(K))};
#else
    return {_mm_mullo_epi16(add(evens(a), shr<8>(words(a))).v, _mm_set1_epi16(K))};
#endif
}
#if defined __AVX2__
// a0 w0 + a1 w1, ..., saturated, of samples and signed weights.
OP half<16> weighted_pairs(u8<16> a, u8<16> weights) { return {_mm_maddubs_epi16(a.v, weights.v)}; }
#endif
// (a0 + a1 + 1) >> 1, (a2 + a3 + 1) >> 1, ...
OP half<16> averages_of_pairs(u8<16> a)
{
#if defined __AVX2__
    return avg(pair_sums<1>(a), half<16>::splat(0));
#else
    return avg(evens(a), shr<8>(words(a)));
#endif
}

// Masks: bytes of all ones or of zeros.
OP u8<16> equal(u8<16> a, u8<16> b) { return {_mm_cmpeq_epi8(a.v, b.v)}; }
OP bool any(u8<16> mask) { return _mm_movemask_epi8(mask.v) != 0; }
OP bool all(u8<16> mask) { return _mm_movemask_epi8(mask.v) == 0xffff; }
OP bool all_zero(u8<16> a) { return all(equal(a, u8<16>::splat(0))); }
// Where a group of four neighbours has a sum above the limit.
OP u8<16> fours_above(u8<16> a, int limit)
{
    auto sums = _mm_madd_epi16(pair_sums<1>(a).v, _mm_set1_epi16(1));
    return {_mm_cmpgt_epi32(sums, _mm_set1_epi32(limit))};
}

// Sums of 32 bits.
template <> struct longs<16> {
    __m128i v;
};
OP longs<16> add(longs<16> a, longs<16> b) { return {_mm_add_epi32(a.v, b.v)}; }
template <int K> OP longs<16> shr_signed(longs<16> a) { return {_mm_srai_epi32(a.v, K)}; }
OP longs<16> pair_dots(half<16> a, half<16> b) { return {_mm_madd_epi16(a.v, b.v)}; } // a0 b0 + a1 b1, ...
// Saturated bytes.
OP u8<16> pack_in_order(longs<16> a, longs<16> b, longs<16> c, longs<16> d)
{
    return {_mm_packus_epi16(_mm_packs_epi32(a.v, b.v), _mm_packs_epi32(c.v, d.v))};
}

// Pixels of four bytes.
OP u8<16> equal_pixels(u8<16> a, u8<16> b) { return {_mm_cmpeq_epi32(a.v, b.v)}; }
OP u8<16> first_of_pixel_pairs(u8<16> a) { return {_mm_shuffle_epi32(a.v, 0xa0)}; } // 0 0 2 2
OP longs<16> first_bytes(u8<16> a) { return {_mm_and_si128(a.v, _mm_set1_epi32(255))}; }
// From the first twelve bytes: b g r 0 a pixel.
OP u8<16> pixels_of_triples(u8<16> a)
{
#if defined __AVX2__
    return {_mm_shuffle_epi8(a.v, _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1))};
#else
    auto sixes = _mm_unpacklo_epi64(a.v, _mm_srli_si128(a.v, 6));
    return {_mm_or_si128(_mm_and_si128(sixes, _mm_set1_epi64x(0xffffff)),
                         _mm_slli_epi64(_mm_and_si128(sixes, _mm_set1_epi64x(0xffffff000000)), 8))};
#endif
}
template <int K> OP u8<16> drop_first(u8<16> a) { return {_mm_srli_si128(a.v, K)}; }

// What the stores are made of; all of it works inside 128-bit lanes.
OP u8<16> pack(half<16> a, half<16> b) { return {_mm_packus_epi16(a.v, b.v)}; }
OP u8<16> zip_lo8(u8<16> a, u8<16> b) { return {_mm_unpacklo_epi8(a.v, b.v)}; }
OP u8<16> zip_hi8(u8<16> a, u8<16> b) { return {_mm_unpackhi_epi8(a.v, b.v)}; }
OP u8<16> zip_lo16(u8<16> a, u8<16> b) { return {_mm_unpacklo_epi16(a.v, b.v)}; }
OP u8<16> zip_hi16(u8<16> a, u8<16> b) { return {_mm_unpackhi_epi16(a.v, b.v)}; }
#if defined __AVX2__
OP u8<16> shuffle(u8<16> a, u8<16> pattern) { return {_mm_shuffle_epi8(a.v, pattern.v)}; }
OP u8<16> choose(u8<16> mask, u8<16> a, u8<16> b) { return {_mm_blendv_epi8(b.v, a.v, mask.v)}; }
#else
OP u8<16> choose(u8<16> mask, u8<16> a, u8<16> b)
{
    return {_mm_or_si128(_mm_and_si128(mask.v, a.v), _mm_andnot_si128(mask.v, b.v))};
}
#endif

OP u8<16> second_half(u8<16> a) { return {_mm_unpackhi_epi64(a.v, a.v)}; }

template <int N, int W = 1>
requires(N == 16) OP u8<N> load(const uint8_t* p) { return {_mm_loadu_si128(xmm(p))}; }
template <int N, int W = 1>
requires(N == 16) OP half<N> load_chroma(const uint8_t* p)
{
    return {_mm_unpacklo_epi8(_mm_loadl_epi64(xmm(p)), _mm_setzero_si128())};
}
// The same samples in the high bytes.
template <int N, int W = 1>
requires(N == 16) OP half<N> load_chroma_high(const uint8_t* p)
{
    return {_mm_unpacklo_epi8(_mm_setzero_si128(), _mm_loadl_epi64(xmm(p)))};
}
OP u8<16> load_first8(const uint8_t* p) { return {_mm_loadl_epi64(xmm(p))}; }
template <int N, int W = 1>
requires(N == 16) OP wide<N> load_two(const uint8_t* p)
{
    return {{_mm_loadu_si128(xmm(p))}, {_mm_loadu_si128(xmm(p + 16))}};
}

// N/2 samples at p, then N/2 at q; and back.
template <int N>
requires(N == 16) OP u8<N> load_halves(const uint8_t* p, const uint8_t* q)
{
    return {_mm_unpacklo_epi64(_mm_loadl_epi64(xmm(p)), _mm_loadl_epi64(xmm(q)))};
}
OP void put_halves(uint8_t* p, uint8_t* q, u8<16> a)
{
    _mm_storel_epi64(xmm(p), a.v);
    _mm_storel_epi64(xmm(q), _mm_unpackhi_epi64(a.v, a.v));
}

// Each right neighbour of an element of so many bytes; the last one is its own.
template <int size> OP u8<16> neighbours_to_the_end(u8<16> a)
{
    const auto last = _mm_slli_si128(_mm_cmpeq_epi8(a.v, a.v), 16 - size);
    return {_mm_or_si128(_mm_srli_si128(a.v, size), _mm_and_si128(a.v, last))};
}

template <Stores S = Stores::cached> OP void put(uint8_t* p, u8<16> a)
{
    if constexpr (S == Stores::streaming) _mm_stream_si128(xmm(p), a.v);
    else _mm_storeu_si128(xmm(p), a.v);
}
OP void put_first8(uint8_t* p, u8<16> a) { _mm_storel_epi64(xmm(p), a.v); }

// Saturated: the samples of a, then those of b.
OP u8<16> pack_in_order(half<16> a, half<16> b) { return pack(a, b); }

OP void put_pairs_but_first_eight(uint8_t* p, u8<16> lo, u8<16> hi)
{
    _mm_storel_epi64(xmm(p + 8), _mm_unpackhi_epi64(lo.v, lo.v));
    put(p + 16, hi);
}

// Each lane of a, b, c is a third of the 48 bytes of its 16 pixels.
template <Stores S> OP void put_thirds(uint8_t* p, u8<16> a, u8<16> b, u8<16> c)
{
    put<S>(p, a);
    put<S>(p + 16, b);
    put<S>(p + 32, c);
}

OP void fence_streaming() { _mm_sfence(); }

} // namespace vsurf::VSURF_ISA
