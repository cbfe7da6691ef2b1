// SPDX-License-Identifier: MIT
// 128-bit vectors: SSE2, and the newer byte shuffles where the build has them.
#pragma once
#include <immintrin.h>

namespace vsurf::VSURF_ISA {

#if !defined __AVX2__
constexpr int kRegister = 16;
#endif
constexpr bool kStoresPastCaches = true;

ALWAYS_INLINE __m128i* xmm(uint8_t* p) { return reinterpret_cast<__m128i*>(p); }
ALWAYS_INLINE const __m128i* xmm(const uint8_t* p) { return reinterpret_cast<const __m128i*>(p); }

ALWAYS_INLINE short as_word(int x) { return static_cast<short>(x); }

template <> struct Bytes<16> {
    __m128i v;
    static ALWAYS_INLINE Bytes splat(int x) { return {_mm_set1_epi8(static_cast<char>(x))}; }
    static ALWAYS_INLINE Bytes repeat(const int8_t* pattern16)
    {
        return {_mm_load_si128(reinterpret_cast<const __m128i*>(pattern16))};
    }
};
template <> struct Words<16> {
    __m128i v;
    static ALWAYS_INLINE Words splat(int x) { return {_mm_set1_epi16(static_cast<short>(x))}; }
    static ALWAYS_INLINE Words alternate(int x, int y) { return {_mm_set1_epi32((x & 0xffff) | y * 0x10000)}; }
    static ALWAYS_INLINE Words repeat(int a, int b, int c, int d)
    {
        return {_mm_setr_epi16(as_word(a), as_word(b), as_word(c), as_word(d), as_word(a), as_word(b), as_word(c),
                               as_word(d))};
    }
};

ALWAYS_INLINE Words<16> add(Words<16> a, Words<16> b) { return {_mm_add_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> sub(Words<16> a, Words<16> b) { return {_mm_sub_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> add_sat(Words<16> a, Words<16> b) { return {_mm_adds_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> sub_sat_unsigned(Words<16> a, Words<16> b) { return {_mm_subs_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> mulhi(Words<16> a, Words<16> b) { return {_mm_mulhi_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> mullo(Words<16> a, Words<16> b) { return {_mm_mullo_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> mulhi_unsigned(Words<16> a, Words<16> b) { return {_mm_mulhi_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> avg(Words<16> a, Words<16> b) { return {_mm_avg_epu16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> bit_or(Words<16> a, Words<16> b) { return {_mm_or_si128(a.v, b.v)}; }
ALWAYS_INLINE Words<16> min(Words<16> a, Words<16> b) { return {_mm_min_epi16(a.v, b.v)}; }
ALWAYS_INLINE Words<16> max(Words<16> a, Words<16> b) { return {_mm_max_epi16(a.v, b.v)}; }
template <int K> ALWAYS_INLINE Words<16> shl(Words<16> a) { return {_mm_slli_epi16(a.v, K)}; }
template <int K> ALWAYS_INLINE Words<16> shr(Words<16> a) { return {_mm_srli_epi16(a.v, K)}; }
ALWAYS_INLINE Words<16> shl(Words<16> a, int count) { return {_mm_sll_epi16(a.v, _mm_cvtsi32_si128(count))}; }
ALWAYS_INLINE Words<16> shr(Words<16> a, int count) { return {_mm_srl_epi16(a.v, _mm_cvtsi32_si128(count))}; }
template <int K> ALWAYS_INLINE Words<16> shr_signed(Words<16> a) { return {_mm_srai_epi16(a.v, K)}; }

ALWAYS_INLINE Bytes<16> bit_or(Bytes<16> a, Bytes<16> b) { return {_mm_or_si128(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> bit_and(Bytes<16> a, Bytes<16> b) { return {_mm_and_si128(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> sub(Bytes<16> a, Bytes<16> b) { return {_mm_sub_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> avg(Bytes<16> a, Bytes<16> b) { return {_mm_avg_epu8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> sub_sat_unsigned(Bytes<16> a, Bytes<16> b) { return {_mm_subs_epu8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> as_bytes(Words<16> a) { return {a.v}; }
ALWAYS_INLINE Words<16> as_words(Bytes<16> a) { return {a.v}; }

ALWAYS_INLINE Words<16> odds_high(Bytes<16> a) { return {_mm_and_si128(a.v, _mm_set1_epi16(-256))}; }
ALWAYS_INLINE Words<16> evens(Bytes<16> a) { return {_mm_and_si128(a.v, _mm_set1_epi16(255))}; }
ALWAYS_INLINE EvenOddWords<16> split_times4(Bytes<16> a)
{
#if defined __AVX2__
    return {{_mm_maddubs_epi16(a.v, _mm_set1_epi16(4))}, {_mm_maddubs_epi16(a.v, _mm_set1_epi16(4 << 8))}};
#else
    return {shr<6>(shl<8>(as_words(a))), shl<2>(shr<8>(as_words(a)))};
#endif
}

// K (a0 + a1), K (a2 + a3), ...
template <int K> ALWAYS_INLINE Words<16> pair_sums(Bytes<16> a)
{
#if defined __AVX2__
    return {_mm_maddubs_epi16(a.v, _mm_set1_epi8(K))};
#else
    return {_mm_mullo_epi16(add(evens(a), shr<8>(as_words(a))).v, _mm_set1_epi16(K))};
#endif
}
#if defined __AVX2__
// a0 w0 + a1 w1, ..., saturated, of samples and signed weights.
ALWAYS_INLINE Words<16> weighted_pairs(Bytes<16> a, Bytes<16> weights) { return {_mm_maddubs_epi16(a.v, weights.v)}; }
#endif
// (a0 + a1 + 1) >> 1, (a2 + a3 + 1) >> 1, ...
ALWAYS_INLINE Words<16> averages_of_pairs(Bytes<16> a)
{
#if defined __AVX2__
    return avg(pair_sums<1>(a), Words<16>::splat(0));
#else
    return avg(evens(a), shr<8>(as_words(a)));
#endif
}

// Masks: bytes of all ones or of zeros.
ALWAYS_INLINE Bytes<16> equal(Bytes<16> a, Bytes<16> b) { return {_mm_cmpeq_epi8(a.v, b.v)}; }
ALWAYS_INLINE bool any(Bytes<16> mask) { return _mm_movemask_epi8(mask.v) != 0; }
ALWAYS_INLINE bool all(Bytes<16> mask) { return _mm_movemask_epi8(mask.v) == 0xffff; }
ALWAYS_INLINE bool all_zero(Bytes<16> a) { return all(equal(a, Bytes<16>::splat(0))); }
// Where a group of four neighbours has a sum above the limit.
ALWAYS_INLINE Bytes<16> fours_above(Bytes<16> a, int limit)
{
    auto sums = _mm_madd_epi16(pair_sums<1>(a).v, _mm_set1_epi16(1));
    return {_mm_cmpgt_epi32(sums, _mm_set1_epi32(limit))};
}

// Sums of 32 bits.
template <> struct Dwords<16> {
    __m128i v;
};
ALWAYS_INLINE Dwords<16> add(Dwords<16> a, Dwords<16> b) { return {_mm_add_epi32(a.v, b.v)}; }
template <int K> ALWAYS_INLINE Dwords<16> shr_signed(Dwords<16> a) { return {_mm_srai_epi32(a.v, K)}; }
ALWAYS_INLINE Dwords<16> pair_dots(Words<16> a, Words<16> b)
{
    return {_mm_madd_epi16(a.v, b.v)};
} // a0 b0 + a1 b1, ...
// Saturated bytes.
ALWAYS_INLINE Bytes<16> pack_in_order(Dwords<16> a, Dwords<16> b, Dwords<16> c, Dwords<16> d)
{
    return {_mm_packus_epi16(_mm_packs_epi32(a.v, b.v), _mm_packs_epi32(c.v, d.v))};
}

// Pixels of four bytes.
ALWAYS_INLINE Bytes<16> first_of_pixel_pairs(Bytes<16> a) { return {_mm_shuffle_epi32(a.v, 0xa0)}; } // 0 0 2 2
ALWAYS_INLINE Dwords<16> first_bytes(Bytes<16> a) { return {_mm_and_si128(a.v, _mm_set1_epi32(255))}; }
// From the first twelve bytes: b g r 0 a pixel.
ALWAYS_INLINE Bytes<16> pixels_of_triples(Bytes<16> a)
{
#if defined __AVX2__
    return {_mm_shuffle_epi8(a.v, _mm_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1))};
#else
    auto sixes = _mm_unpacklo_epi64(a.v, _mm_srli_si128(a.v, 6));
    return {_mm_or_si128(_mm_and_si128(sixes, _mm_set1_epi64x(0xffffff)),
                         _mm_slli_epi64(_mm_and_si128(sixes, _mm_set1_epi64x(0xffffff000000)), 8))};
#endif
}
template <int K> ALWAYS_INLINE Bytes<16> drop_first(Bytes<16> a) { return {_mm_srli_si128(a.v, K)}; }

// Parts of the stores; all of them work inside 128-bit lanes.
ALWAYS_INLINE Bytes<16> pack(Words<16> a, Words<16> b) { return {_mm_packus_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> zip_lo8(Bytes<16> a, Bytes<16> b) { return {_mm_unpacklo_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> zip_hi8(Bytes<16> a, Bytes<16> b) { return {_mm_unpackhi_epi8(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> zip_lo16(Bytes<16> a, Bytes<16> b) { return {_mm_unpacklo_epi16(a.v, b.v)}; }
ALWAYS_INLINE Bytes<16> zip_hi16(Bytes<16> a, Bytes<16> b) { return {_mm_unpackhi_epi16(a.v, b.v)}; }
#if defined __AVX2__
ALWAYS_INLINE Bytes<16> shuffle(Bytes<16> a, Bytes<16> pattern) { return {_mm_shuffle_epi8(a.v, pattern.v)}; }
ALWAYS_INLINE Bytes<16> choose(Bytes<16> mask, Bytes<16> a, Bytes<16> b) { return {_mm_blendv_epi8(b.v, a.v, mask.v)}; }
#else
ALWAYS_INLINE Bytes<16> choose(Bytes<16> mask, Bytes<16> a, Bytes<16> b)
{
    return {_mm_or_si128(_mm_and_si128(mask.v, a.v), _mm_andnot_si128(mask.v, b.v))};
}
#endif

ALWAYS_INLINE Bytes<16> second_half(Bytes<16> a) { return {_mm_unpackhi_epi64(a.v, a.v)}; }

template <int N, int W = 1>
requires(N == 16) ALWAYS_INLINE Bytes<N> load(const uint8_t* p) { return {_mm_loadu_si128(xmm(p))}; }
template <int N, int W = 1>
requires(N == 16) ALWAYS_INLINE Words<N> load_chroma(const uint8_t* p)
{
    return {_mm_unpacklo_epi8(_mm_loadl_epi64(xmm(p)), _mm_setzero_si128())};
}
// The same samples in the high bytes.
template <int N, int W = 1>
requires(N == 16) ALWAYS_INLINE Words<N> load_chroma_high(const uint8_t* p)
{
    return {_mm_unpacklo_epi8(_mm_setzero_si128(), _mm_loadl_epi64(xmm(p)))};
}
ALWAYS_INLINE Bytes<16> load_first8(const uint8_t* p) { return {_mm_loadl_epi64(xmm(p))}; }
template <int N, int W = 1>
requires(N == 16) ALWAYS_INLINE LowHighWords<N> load_two(const uint8_t* p)
{
    return {{_mm_loadu_si128(xmm(p))}, {_mm_loadu_si128(xmm(p + 16))}};
}

// N/2 samples at p, then N/2 samples at q. put_halves stores a register there.
template <int N>
requires(N == 16) ALWAYS_INLINE Bytes<N> load_halves(const uint8_t* p, const uint8_t* q)
{
    return {_mm_unpacklo_epi64(_mm_loadl_epi64(xmm(p)), _mm_loadl_epi64(xmm(q)))};
}
ALWAYS_INLINE void put_halves(uint8_t* p, uint8_t* q, Bytes<16> a)
{
    _mm_storel_epi64(xmm(p), a.v);
    _mm_storel_epi64(xmm(q), _mm_unpackhi_epi64(a.v, a.v));
}

// The right neighbour of each element of `size` bytes. The last element is its own neighbour.
template <int size> ALWAYS_INLINE Bytes<16> neighbours_to_the_end(Bytes<16> a)
{
    const auto last = _mm_slli_si128(_mm_cmpeq_epi8(a.v, a.v), 16 - size);
    return {_mm_or_si128(_mm_srli_si128(a.v, size), _mm_and_si128(a.v, last))};
}

ALWAYS_INLINE void put(uint8_t* to, Bytes<16> a) { _mm_storeu_si128(xmm(to), a.v); }
ALWAYS_INLINE void put(Uncached to, Bytes<16> a) { _mm_stream_si128(xmm(to.p), a.v); }
ALWAYS_INLINE void put_first8(uint8_t* p, Bytes<16> a) { _mm_storel_epi64(xmm(p), a.v); }

// Saturated: the samples of a, then those of b.
ALWAYS_INLINE Bytes<16> pack_in_order(Words<16> a, Words<16> b) { return pack(a, b); }

ALWAYS_INLINE void put_pairs_but_first_eight(uint8_t* p, Bytes<16> lo, Bytes<16> hi)
{
    _mm_storel_epi64(xmm(p + 8), _mm_unpackhi_epi64(lo.v, lo.v));
    put(p + 16, hi);
}

// Each lane of a, b, c is a third of the 48 bytes of its 16 pixels.
template <class To> ALWAYS_INLINE void put_thirds(To to, Bytes<16> a, Bytes<16> b, Bytes<16> c)
{
    put(to, a);
    put(to + 16, b);
    put(to + 32, c);
}

// Streams a few bytes: addresses and count are multiples of 4. Of `from`, which has just been stored 16 bytes at a
// time, no piece is read that spans two of those stores.
ALWAYS_INLINE void stream_few(uint8_t* to, const uint8_t* from, ptrdiff_t count)
{
    if (reinterpret_cast<uintptr_t>(to) % 16 == 0)
        for (; count >= 16; count -= 16, to += 16, from += 16) put(Uncached{to}, load<16>(from));
    for (; count >= 4; count -= 4, to += 4, from += 4) {
        int word;
        __builtin_memcpy(&word, from, 4);
        _mm_stream_si32(reinterpret_cast<int*>(to), word);
    }
}

ALWAYS_INLINE void fence_streaming() { _mm_sfence(); }

} // namespace vsurf::VSURF_ISA
