// SPDX-License-Identifier: MIT
// What all x86 widths share, above all the pixel stores: written once, on the operations that work inside lanes.
#pragma once

namespace vsurf::VSURF_ISA {

template <int N> ALWAYS_INLINE EvenOddWords<N> split(Bytes<N> a) { return {evens(a), shr<8>(as_words(a))}; }
// The samples in the high bytes of their words.
template <int N> ALWAYS_INLINE EvenOddWords<N> split_high(Bytes<N> a) { return {shl<8>(as_words(a)), odds_high(a)}; }
// The words must be samples, 0 to 255.
template <int N> ALWAYS_INLINE Bytes<N> join(EvenOddWords<N> a) { return as_bytes(bit_or(a.even, shl<8>(a.odd))); }

template <int N> ALWAYS_INLINE LowHighWords<N> widen(Bytes<N> a)
{
    auto zero = Bytes<N>::splat(0);
    return {as_words(zip_lo8(a, zero)), as_words(zip_hi8(a, zero))};
}
// The samples in the high bytes of their words.
template <int N> ALWAYS_INLINE LowHighWords<N> widen_high(Bytes<N> a)
{
    auto zero = Bytes<N>::splat(0);
    return {as_words(zip_lo8(zero, a)), as_words(zip_hi8(zero, a))};
}
template <int N> ALWAYS_INLINE Bytes<N> narrow(LowHighWords<N> a) { return pack(a.low, a.high); } // saturated

// K (a + b)
template <int K, int N> ALWAYS_INLINE LowHighWords<N> widened_sums(Bytes<N> a, Bytes<N> b)
{
#if defined __AVX2__
    return {pair_sums<K>(zip_lo8(a, b)), pair_sums<K>(zip_hi8(a, b))};
#else
    auto x = widen(a), y = widen(b);
    auto k = Words<N>::splat(K);
    return {mullo(add(x.low, y.low), k), mullo(add(x.high, y.high), k)};
#endif
}

// The low bytes of the words, as samples.
template <int N> ALWAYS_INLINE Bytes<N> low_bytes(EvenOddWords<N> a)
{
    return bit_or(as_bytes(evens(as_bytes(a.even))), as_bytes(shl<8>(a.odd)));
}

template <int N> ALWAYS_INLINE Bytes<N> abs_diff(Bytes<N> a, Bytes<N> b)
{
    return bit_or(sub_sat_unsigned(a, b), sub_sat_unsigned(b, a));
}

// The even bytes of a, the odd ones of b.
template <int N> ALWAYS_INLINE Bytes<N> evens_and_odds(Bytes<N> a, Bytes<N> b)
{
    return choose(as_bytes(Words<N>::splat(255)), a, b);
}

template <int N, int W = 1> ALWAYS_INLINE Yuyv<N> load_yuyv(const uint8_t* p)
{
    auto px = load_two<N, W>(p);
    return {pack(evens(as_bytes(px.low)), evens(as_bytes(px.high))), pack(shr<8>(px.low), shr<8>(px.high))};
}

// Saturated bytes in packed order: in each lane its eight even samples, then its eight odd ones.
template <int N> ALWAYS_INLINE Bytes<N> pack(EvenOddWords<N> a) { return pack(a.even, a.odd); }

// Each byte shifted, and ANDed with `mask`, which must be inside the bits that the shift leaves to a byte.
template <int N> ALWAYS_INLINE Bytes<N> shifted_left(Bytes<N> a, int count, int mask)
{
    return bit_and(as_bytes(shl(as_words(a), count)), Bytes<N>::splat(mask));
}
template <int N> ALWAYS_INLINE Bytes<N> shifted_right(Bytes<N> a, int count, int mask)
{
    return bit_and(as_bytes(shr(as_words(a), count)), Bytes<N>::splat(mask));
}

template <class To, int N> ALWAYS_INLINE void put_pairs(To to, Bytes<N> lo, Bytes<N> hi)
{
    put(to, lo);
    put(to + N, hi);
}

// a0 b0 a1 b1 ...; woven by 2.
template <class To, int N> ALWAYS_INLINE void store_pairs(To to, Bytes<N> a, Bytes<N> b)
{
    put_pairs(to, zip_lo8(a, b), zip_hi8(a, b));
}

// The same from bytes in packed order.
template <class To, int N> ALWAYS_INLINE void store_packed_pairs(To to, Bytes<N> a, Bytes<N> b)
{
    auto even = zip_lo8(a, b), odd = zip_hi8(a, b);
    put_pairs(to, zip_lo16(even, odd), zip_hi16(even, odd));
}

// a0 b0 c0 d0 a1 ...; woven by 4.
template <class To, int N> ALWAYS_INLINE void store_quads(To to, Bytes<N> a, Bytes<N> b, Bytes<N> c, Bytes<N> d)
{
    auto ab_lo = zip_lo8(a, b), ab_hi = zip_hi8(a, b), cd_lo = zip_lo8(c, d), cd_hi = zip_hi8(c, d);
    put_pairs(to, zip_lo16(ab_lo, cd_lo), zip_hi16(ab_lo, cd_lo));
    put_pairs(to + 2 * N, zip_lo16(ab_hi, cd_hi), zip_hi16(ab_hi, cd_hi));
}

// b g r and a constant byte a pixel, from bytes in packed order; woven by 4.
template <int fourth, class To, int N> ALWAYS_INLINE void store_bgr_and(To to, Bytes<N> b, Bytes<N> g, Bytes<N> r)
{
#if defined __AVX2__
    alignas(16) static constexpr int8_t order[16] = {0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15};
    alignas(16) static constexpr int8_t low[16] = {0, -1, 8, -1, 1, -1, 9, -1, 2, -1, 10, -1, 3, -1, 11, -1};
    alignas(16) static constexpr int8_t high[16] = {4, -1, 12, -1, 5, -1, 13, -1, 6, -1, 14, -1, 7, -1, 15, -1};
    b = shuffle(b, Bytes<N>::repeat(order));
    g = shuffle(g, Bytes<N>::repeat(order));
    auto bg0 = zip_lo8(b, g), bg1 = zip_hi8(b, g);
    auto r0 = shuffle(r, Bytes<N>::repeat(low)), r1 = shuffle(r, Bytes<N>::repeat(high));
    if constexpr (fourth != 0) {
        auto constant = as_bytes(Words<N>::splat(fourth * 256));
        r0 = bit_or(r0, constant), r1 = bit_or(r1, constant);
    }
#else
    auto constant = Bytes<N>::splat(fourth);
    auto bg_even = zip_lo8(b, g), bg_odd = zip_hi8(b, g), r_even = zip_lo8(r, constant), r_odd = zip_hi8(r, constant);
    auto bg0 = zip_lo16(bg_even, bg_odd), bg1 = zip_hi16(bg_even, bg_odd);
    auto r0 = zip_lo16(r_even, r_odd), r1 = zip_hi16(r_even, r_odd);
#endif
    put_pairs(to, zip_lo16(bg0, r0), zip_hi16(bg0, r0));
    put_pairs(to + 2 * N, zip_lo16(bg1, r1), zip_hi16(bg1, r1));
}

#if defined __AVX2__
// Byte i of the third t of a lane's 48 bytes is component (16 t + i) mod 3, and 16 = 1 mod 3: so for every i each
// component is wanted by exactly one third, and one shuffle a component is enough for all three.
struct ThirdsPattern {
    alignas(16) int8_t at[16] = {};
    constexpr ThirdsPattern(int component)
    {
        for (int i = 0; i < 16; i++) {
            int third = (component - i % 3 + 3) % 3, pixel = (16 * third + i) / 3;
            at[i] = static_cast<int8_t>(pixel % 2 * 8 + pixel / 2); // packed order
        }
    }
};
struct ThirdsMask {
    alignas(16) int8_t at[16] = {};
    constexpr ThirdsMask(int residue)
    {
        for (int i = 0; i < 16; i++) at[i] = i % 3 == residue ? -1 : 0;
    }
};

// b g r a pixel, exactly 3N bytes, from bytes in packed order; not woven.
template <class To, int N> ALWAYS_INLINE void store_bgr(To to, Bytes<N> b, Bytes<N> g, Bytes<N> r)
{
    static constexpr ThirdsPattern of_b{0}, of_g{1}, of_r{2};
    static constexpr ThirdsMask first{0}, second{1};
    auto sb = shuffle(b, Bytes<N>::repeat(of_b.at)), sg = shuffle(g, Bytes<N>::repeat(of_g.at)),
         sr = shuffle(r, Bytes<N>::repeat(of_r.at));
    auto m0 = Bytes<N>::repeat(first.at), m1 = Bytes<N>::repeat(second.at);
    put_thirds(to, choose(m0, sb, choose(m1, sg, sr)), choose(m0, sg, choose(m1, sr, sb)),
               choose(m0, sr, choose(m1, sb, sg)));
}
#else
// Without a byte shuffle: eight-byte pixel pairs b g r 0 b g r 0 are closed up by shifts, four pixels to 12 bytes, and
// the four twelves overlap into 48.
ALWAYS_INLINE __m128i close_up(__m128i four_pixels)
{
    const auto first = _mm_set1_epi64x(0xffffff), second = _mm_set1_epi64x(0xffffff000000);
    auto six = _mm_or_si128(_mm_and_si128(four_pixels, first),
                            _mm_and_si128(_mm_srli_epi64(four_pixels, 8), second)); // 6 bytes and 2 zeros, twice
    auto low = _mm_move_epi64(six);
    return _mm_or_si128(low, _mm_slli_si128(_mm_srli_si128(six, 8), 6));
}

template <class To> ALWAYS_INLINE void store_bgr(To to, Bytes<16> b, Bytes<16> g, Bytes<16> r)
{
    auto zero = Bytes<16>::splat(0);
    auto bg_even = zip_lo8(b, g), bg_odd = zip_hi8(b, g), r_even = zip_lo8(r, zero), r_odd = zip_hi8(r, zero);
    auto bg0 = zip_lo16(bg_even, bg_odd), bg1 = zip_hi16(bg_even, bg_odd);
    auto r0 = zip_lo16(r_even, r_odd), r1 = zip_hi16(r_even, r_odd);
    auto a = close_up(zip_lo16(bg0, r0).v), c = close_up(zip_hi16(bg0, r0).v);
    auto d = close_up(zip_lo16(bg1, r1).v), e = close_up(zip_hi16(bg1, r1).v);
    put_thirds(to, Bytes<16>{_mm_or_si128(a, _mm_slli_si128(c, 12))},
               Bytes<16>{_mm_or_si128(_mm_srli_si128(c, 4), _mm_slli_si128(d, 8))},
               Bytes<16>{_mm_or_si128(_mm_srli_si128(d, 8), _mm_slli_si128(e, 4))});
}
#endif

// y0 u0 y1 v0 ... from one luma word a pixel, of the first and the second half of the pixels, and one word of each
// chroma a pair of them, the chroma woven by 2. All words must be samples, 0 to 255.
template <class To, int N>
ALWAYS_INLINE void store_yuyv(To to, Words<N> y_first, Words<N> y_second, Words<N> u, Words<N> v)
{
    auto uv_first = as_words(zip_lo16(as_bytes(u), as_bytes(v))),
         uv_second = as_words(zip_hi16(as_bytes(u), as_bytes(v)));
    put_pairs(to, join(EvenOddWords<N>{y_first, uv_first}), join(EvenOddWords<N>{y_second, uv_second}));
}
template <class To> ALWAYS_INLINE void store_first8_yuyv(To to, Words<16> y, Words<16> u, Words<16> v)
{
    put(to, join(EvenOddWords<16>{y, as_words(zip_lo16(as_bytes(u), as_bytes(v)))}));
}

// Packed pixels of twice the width, from N bytes of packed pixels and what goes between their samples: of y0 u0 y1 v0,
// y0 u0 ya v0 and y1 ub yb vb. Woven by kDoubledWeave.
template <int N> constexpr int kDoubledWeave = N == 32 ? 2 : 1;
#if defined __AVX2__
template <class To, int N>
requires(N < 64) ALWAYS_INLINE void store_doubled_yuyv(To to, Bytes<N> own, Bytes<N> between)
{
    alignas(16) static constexpr int8_t own_lo[16] = {0, 1, -1, 3, 2, -1, -1, -1, 4, 5, -1, 7, 6, -1, -1, -1};
    alignas(16) static constexpr int8_t between_lo[16] = {-1, -1, 0, -1, -1, 1, 2, 3, -1, -1, 4, -1, -1, 5, 6, 7};
    alignas(16) static constexpr int8_t own_hi[16] = {8, 9, -1, 11, 10, -1, -1, -1, 12, 13, -1, 15, 14, -1, -1, -1};
    alignas(16) static constexpr int8_t between_hi[16] = {-1, -1, 8, -1, -1, 9, 10, 11, -1, -1, 12, -1, -1, 13, 14, 15};
    auto merged = [=](const int8_t* from_own, const int8_t* from_between) VSURF_INLINED {
        return bit_or(shuffle(own, Bytes<N>::repeat(from_own)), shuffle(between, Bytes<N>::repeat(from_between)));
    };
    put_pairs(to, merged(own_lo, between_lo), merged(own_hi, between_hi));
}
#else
template <class To, int N> ALWAYS_INLINE void store_doubled_yuyv(To to, Bytes<N> own, Bytes<N> between)
{
    auto luma = join(EvenOddWords<N>{evens(own), evens(between)});    // y0 ya y1 yb
    auto uv = pack(shr<8>(as_words(own)), shr<8>(as_words(between))); // u0 v0 ..., in the second half ub vb ...
    auto chroma = zip_lo16(uv, second_half(uv));                      // u0 v0 ub vb
    put_pairs(to, zip_lo8(luma, chroma), zip_hi8(luma, chroma));
}
#endif

// Pairs, woven by 2. In memory bytes 0 to 7 of every 32 stay as they are.
template <int N> ALWAYS_INLINE void store_pairs_but_first_eight(uint8_t* p, Bytes<N> a, Bytes<N> b)
{
    put_pairs_but_first_eight(p, zip_lo8(a, b), zip_hi8(a, b));
}

} // namespace vsurf::VSURF_ISA
