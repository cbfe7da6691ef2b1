// SPDX-License-Identifier: MIT
// The layer without intrinsics, on the compiler's portable vectors: what an unknown processor runs. The compiler turns
// them into what the target has, or into operations on single words.
#pragma once

namespace vsurf::VSURF_ISA {

constexpr int kRegister = 16;
constexpr bool kStoresPastCaches = false;

typedef uint8_t Bytes16 __attribute__((vector_size(16)));
typedef uint8_t Bytes8 __attribute__((vector_size(8)));
typedef int16_t Words8 __attribute__((vector_size(16)));
typedef uint16_t UnsignedWords8 __attribute__((vector_size(16)));
typedef uint32_t UnsignedDwords8 __attribute__((vector_size(32)));
typedef int32_t Dwords8 __attribute__((vector_size(32)));
typedef int32_t Dwords4 __attribute__((vector_size(16)));

template <> struct Bytes<16> {
    Bytes16 v;
    static ALWAYS_INLINE Bytes splat(int x) { return {Bytes16{} + static_cast<uint8_t>(x)}; }
};
template <> struct Words<16> {
    Words8 v;
    static ALWAYS_INLINE Words splat(int x) { return {Words8{} + static_cast<int16_t>(x)}; }
    static ALWAYS_INLINE Words alternate(int x, int y)
    {
        return {__builtin_shufflevector(splat(x).v, splat(y).v, 0, 8, 1, 9, 2, 10, 3, 11)};
    }
    static ALWAYS_INLINE Words repeat(int a, int b, int c, int d)
    {
        return {__builtin_shufflevector(alternate(a, b).v, alternate(c, d).v, 0, 1, 8, 9, 0, 1, 8, 9)};
    }
};

constexpr bool kLittleEndian = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;

ALWAYS_INLINE Words8 to_words(Dwords8 v) { return __builtin_convertvector(v, Words8); }
ALWAYS_INLINE Dwords8 to_dwords(Words8 v) { return __builtin_convertvector(v, Dwords8); }
ALWAYS_INLINE UnsignedWords8 unsigned_words(Words8 v) { return (UnsignedWords8)v; }
template <class V> ALWAYS_INLINE V at_least(V v, V low) { return v < low ? low : v; }
template <class V> ALWAYS_INLINE V at_most(V v, V high) { return v > high ? high : v; }

// Words wrap, as unsigned ones do by definition.
template <int N> ALWAYS_INLINE Words<N> add(Words<N> a, Words<N> b)
{
    return {(Words8)(unsigned_words(a.v) + unsigned_words(b.v))};
}
template <int N> ALWAYS_INLINE Words<N> sub(Words<N> a, Words<N> b)
{
    return {(Words8)(unsigned_words(a.v) - unsigned_words(b.v))};
}
template <int N> ALWAYS_INLINE Words<N> mullo(Words<N> a, Words<N> b)
{
    return {(Words8)(unsigned_words(a.v) * unsigned_words(b.v))};
}
template <int N> ALWAYS_INLINE Words<N> add_sat(Words<N> a, Words<N> b)
{
    auto sum = to_dwords(a.v) + to_dwords(b.v);
    return {to_words(at_least(at_most(sum, Dwords8{} + 32767), Dwords8{} - 32768))};
}
template <int N> ALWAYS_INLINE Words<N> sub_sat_unsigned(Words<N> a, Words<N> b)
{
    auto minuend = unsigned_words(a.v), subtrahend = unsigned_words(b.v);
    return {(Words8)(at_least(minuend, subtrahend) - subtrahend)};
}
template <int N> ALWAYS_INLINE Words<N> mulhi(Words<N> a, Words<N> b)
{
    return {to_words((to_dwords(a.v) * to_dwords(b.v)) >> 16)};
}
template <int N> ALWAYS_INLINE Words<N> mulhi_unsigned(Words<N> a, Words<N> b)
{
    auto long_of = [](Words<N> x)
                       VSURF_INLINED { return __builtin_convertvector(unsigned_words(x.v), UnsignedDwords8); };
    return {(Words8) __builtin_convertvector((long_of(a) * long_of(b)) >> 16, UnsignedWords8)};
}
template <int K, int N> ALWAYS_INLINE Words<N> shl(Words<N> a) { return {(Words8)(unsigned_words(a.v) << K)}; }
template <int K, int N> ALWAYS_INLINE Words<N> shr(Words<N> a) { return {(Words8)(unsigned_words(a.v) >> K)}; }
template <int K, int N> ALWAYS_INLINE Words<N> shr_signed(Words<N> a) { return {a.v >> K}; }
template <int N> ALWAYS_INLINE Words<N> min(Words<N> a, Words<N> b) { return {at_most(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Words<N> max(Words<N> a, Words<N> b) { return {at_least(a.v, b.v)}; }

template <int N> ALWAYS_INLINE Bytes<N> as_bytes(Words<N> a) { return {(Bytes16)a.v}; }
template <int N> ALWAYS_INLINE Words<N> as_words(Bytes<N> a) { return {(Words8)a.v}; }
template <int N> ALWAYS_INLINE Bytes<N> bit_or(Bytes<N> a, Bytes<N> b) { return {a.v | b.v}; }
template <int N> ALWAYS_INLINE Bytes<N> bit_and(Bytes<N> a, Bytes<N> b) { return {a.v & b.v}; }
// Rounded up.
template <int N> ALWAYS_INLINE Bytes<N> avg(Bytes<N> a, Bytes<N> b) { return {(a.v | b.v) - ((a.v ^ b.v) >> 1)}; }
template <int N> ALWAYS_INLINE Bytes<N> sub_sat_unsigned(Bytes<N> a, Bytes<N> b) { return {at_least(a.v, b.v) - b.v}; }
template <int N> ALWAYS_INLINE Words<N> avg(Words<N> a, Words<N> b)
{
    auto x = unsigned_words(a.v), y = unsigned_words(b.v);
    return {(Words8)((x | y) - ((x ^ y) >> 1))};
}
template <int N> ALWAYS_INLINE Bytes<N> abs_diff(Bytes<N> a, Bytes<N> b)
{
    return {at_least(a.v, b.v) - at_most(a.v, b.v)};
}

// Masks: bytes of all ones or of zeros.
template <int N> ALWAYS_INLINE Bytes<N> equal(Bytes<N> a, Bytes<N> b) { return {(Bytes16)(a.v == b.v)}; }
template <int N> ALWAYS_INLINE Bytes<N> choose(Bytes<N> mask, Bytes<N> a, Bytes<N> b)
{
    return {(mask.v & a.v) | (~mask.v & b.v)};
}
template <int N> ALWAYS_INLINE bool any(Bytes<N> mask)
{
    uint64_t halves[2];
    __builtin_memcpy(halves, &mask, 16);
    return (halves[0] | halves[1]) != 0;
}
template <int N> ALWAYS_INLINE bool all_zero(Bytes<N> a) { return !any(a); }
template <int N> ALWAYS_INLINE bool all(Bytes<N> mask)
{
    uint64_t halves[2];
    __builtin_memcpy(halves, &mask, 16);
    return (halves[0] & halves[1]) == UINT64_MAX;
}
// Sums of 32 bits.
template <> struct Dwords<16> {
    Dwords4 v;
};
template <int N> ALWAYS_INLINE Dwords<N> add(Dwords<N> a, Dwords<N> b) { return {a.v + b.v}; }
template <int K, int N> ALWAYS_INLINE Dwords<N> shr_signed(Dwords<N> a) { return {a.v >> K}; }
// a0 b0 + a1 b1, ...
template <int N> ALWAYS_INLINE Dwords<N> pair_dots(Words<N> a, Words<N> b)
{
    auto products = to_dwords(a.v) * to_dwords(b.v);
    return {__builtin_shufflevector(products, products, 0, 2, 4, 6) +
            __builtin_shufflevector(products, products, 1, 3, 5, 7)};
}

// Pixels of four bytes.
template <int N> ALWAYS_INLINE Bytes<N> first_of_pixel_pairs(Bytes<N> a)
{
    auto pixels = (Dwords4)a.v;
    return {(Bytes16)__builtin_shufflevector(pixels, pixels, 0, 0, 2, 2)};
}
template <int N> ALWAYS_INLINE Dwords<N> first_bytes(Bytes<N> a)
{
    auto first = __builtin_shufflevector(a.v, a.v, 0, 4, 8, 12);
    return {__builtin_convertvector(first, Dwords4)};
}
// From the first twelve bytes: b g r 0 a pixel.
ALWAYS_INLINE Bytes<16> pixels_of_triples(Bytes<16> a)
{
    return {__builtin_shufflevector(a.v, Bytes16{}, 0, 1, 2, 16, 3, 4, 5, 16, 6, 7, 8, 16, 9, 10, 11, 16)};
}
template <int K> ALWAYS_INLINE Bytes<16> drop_first(Bytes<16> a)
{
    Bytes<16> rest{};
    __builtin_memcpy(&rest, reinterpret_cast<const uint8_t*>(&a) + K, 16 - K);
    return rest;
}

template <int N> ALWAYS_INLINE Bytes<N> shifted_left(Bytes<N> a, int count, int mask)
{
    return {(a.v << static_cast<uint8_t>(count)) & static_cast<uint8_t>(mask)};
}
template <int N> ALWAYS_INLINE Bytes<N> shifted_right(Bytes<N> a, int count, int mask)
{
    return {(a.v >> static_cast<uint8_t>(count)) & static_cast<uint8_t>(mask)};
}

template <int N> ALWAYS_INLINE EvenOddWords<N> split(Bytes<N> a)
{
    auto words = (UnsignedWords8)a.v;
    Words<N> low{(Words8)(words & 255)}, high{(Words8)(words >> 8)};
    return kLittleEndian ? EvenOddWords<N>{low, high} : EvenOddWords<N>{high, low};
}
template <int N> ALWAYS_INLINE EvenOddWords<N> split_times4(Bytes<N> a)
{
    auto words = split(a);
    return {shl<2>(words.even), shl<2>(words.odd)};
}
// K (a0 + a1), K (a2 + a3), ...
template <int K, int N> ALWAYS_INLINE Words<N> pair_sums(Bytes<N> a)
{
    auto words = split(a);
    return {(words.even.v + words.odd.v) * static_cast<int16_t>(K)};
}
// Where a group of four neighbours has a sum above the limit.
template <int N> ALWAYS_INLINE Bytes<N> fours_above(Bytes<N> a, int limit)
{
    auto sums = __builtin_convertvector(pair_sums<1>(a).v, Dwords8);
    auto fours = __builtin_shufflevector(sums, sums, 0, 2, 4, 6) + __builtin_shufflevector(sums, sums, 1, 3, 5, 7);
    return {(Bytes16)(fours > limit)};
}
// (a0 + a1 + 1) >> 1, (a2 + a3 + 1) >> 1, ...
template <int N> ALWAYS_INLINE Words<N> averages_of_pairs(Bytes<N> a)
{
    auto words = split(a);
    return {(words.even.v + words.odd.v + 1) >> 1};
}
// The samples in the high bytes of their words.
template <int N> ALWAYS_INLINE EvenOddWords<N> split_high(Bytes<N> a)
{
    auto words = split(a);
    return {shl<8>(words.even), shl<8>(words.odd)};
}
// The words must be samples, 0 to 255.
template <int N> ALWAYS_INLINE Bytes<N> join(EvenOddWords<N> a)
{
    auto low = kLittleEndian ? a.even : a.odd, high = kLittleEndian ? a.odd : a.even;
    return {(Bytes16)(low.v | shl<8>(high).v)};
}
// The low bytes of the words, as samples.
template <int N> ALWAYS_INLINE Bytes<N> low_bytes(EvenOddWords<N> a)
{
    return join(EvenOddWords<N>{{a.even.v & 255}, {a.odd.v & 255}});
}
template <int N> ALWAYS_INLINE Words<N> to_samples(Words<N> a)
{
    return {at_most(at_least(a.v, Words8{}), Words8{} + 255)};
}

template <int N> ALWAYS_INLINE LowHighWords<N> widen(Bytes<N> a)
{
    auto low = __builtin_shufflevector(a.v, a.v, 0, 1, 2, 3, 4, 5, 6, 7),
         high = __builtin_shufflevector(a.v, a.v, 8, 9, 10, 11, 12, 13, 14, 15);
    return {{__builtin_convertvector(low, Words8)}, {__builtin_convertvector(high, Words8)}};
}
// The samples in the high bytes of their words.
template <int N> ALWAYS_INLINE LowHighWords<N> widen_high(Bytes<N> a)
{
    auto words = widen(a);
    return {shl<8>(words.low), shl<8>(words.high)};
}
// K (a + b)
template <int K, int N> ALWAYS_INLINE LowHighWords<N> widened_sums(Bytes<N> a, Bytes<N> b)
{
    auto x = widen(a), y = widen(b);
    auto k = Words<N>::splat(K);
    return {mullo(add(x.low, y.low), k), mullo(add(x.high, y.high), k)};
}

// Saturated bytes; packed order is sample order here.
template <int N> ALWAYS_INLINE Bytes<N> pack(EvenOddWords<N> a)
{
    return join(EvenOddWords<N>{to_samples(a.even), to_samples(a.odd)});
}
// Saturated: the samples of a, then those of b.
template <int N> ALWAYS_INLINE Bytes<N> pack_in_order(Words<N> a, Words<N> b)
{
    auto first = __builtin_convertvector(to_samples(a).v, Bytes8),
         second = __builtin_convertvector(to_samples(b).v, Bytes8);
    return {__builtin_shufflevector(first, second, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15)};
}
ALWAYS_INLINE Words8 to_words(Dwords4 a, Dwords4 b) // saturated
{
    auto both = __builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7);
    return to_words(at_least(at_most(both, Dwords8{} + 32767), Dwords8{} - 32768));
}
template <int N> ALWAYS_INLINE Bytes<N> pack_in_order(Dwords<N> a, Dwords<N> b, Dwords<N> c, Dwords<N> d)
{
    return pack_in_order(Words<N>{to_words(a.v, b.v)}, Words<N>{to_words(c.v, d.v)});
}

// Saturated.
template <int N> ALWAYS_INLINE Bytes<N> narrow(LowHighWords<N> a) { return pack_in_order(a.low, a.high); }

ALWAYS_INLINE Bytes16 zip_lo8(Bytes16 a, Bytes16 b)
{
    return __builtin_shufflevector(a, b, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
}
ALWAYS_INLINE Bytes16 zip_hi8(Bytes16 a, Bytes16 b)
{
    return __builtin_shufflevector(a, b, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
}
ALWAYS_INLINE Bytes16 zip_lo16(Bytes16 a, Bytes16 b)
{
    return (Bytes16)__builtin_shufflevector((Words8)a, (Words8)b, 0, 8, 1, 9, 2, 10, 3, 11);
}
ALWAYS_INLINE Bytes16 zip_hi16(Bytes16 a, Bytes16 b)
{
    return (Bytes16)__builtin_shufflevector((Words8)a, (Words8)b, 4, 12, 5, 13, 6, 14, 7, 15);
}
template <int N> ALWAYS_INLINE Bytes<N> zip_lo16(Bytes<N> a, Bytes<N> b) { return {zip_lo16(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Bytes<N> zip_hi16(Bytes<N> a, Bytes<N> b) { return {zip_hi16(a.v, b.v)}; }

template <int N, int W = 1> ALWAYS_INLINE Bytes<N> load(const uint8_t* p)
{
    Bytes<N> a;
    __builtin_memcpy(&a, p, N);
    return a;
}
template <int N, int W = 1> ALWAYS_INLINE LowHighWords<N> load_two(const uint8_t* p)
{
    return {as_words(load<N>(p)), as_words(load<N>(p + N))};
}
ALWAYS_INLINE Bytes<16> load_first8(const uint8_t* p)
{
    Bytes<16> a{};
    __builtin_memcpy(&a, p, 8);
    return a;
}
template <int N, int W = 1> ALWAYS_INLINE Yuyv<N> load_yuyv(const uint8_t* p)
{
    auto a = load<N>(p).v, b = load<N>(p + 16).v;
    return {{__builtin_shufflevector(a, b, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30)},
            {__builtin_shufflevector(a, b, 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31)}};
}

// N/2 samples at p, then N/2 samples at q. put_halves stores a register there.
template <int N> ALWAYS_INLINE Bytes<N> load_halves(const uint8_t* p, const uint8_t* q)
{
    Bytes<N> a;
    __builtin_memcpy(&a, p, 8);
    __builtin_memcpy(reinterpret_cast<uint8_t*>(&a) + 8, q, 8);
    return a;
}
ALWAYS_INLINE void put_halves(uint8_t* p, uint8_t* q, Bytes<16> a)
{
    __builtin_memcpy(p, &a, 8);
    __builtin_memcpy(q, reinterpret_cast<const uint8_t*>(&a) + 8, 8);
}

// The right neighbour of each element of `size` bytes. The last element is its own neighbour.
template <int size> ALWAYS_INLINE Bytes<16> neighbours_to_the_end(Bytes<16> a)
{
    Bytes<16> moved = a;
    __builtin_memcpy(&moved, reinterpret_cast<const uint8_t*>(&a) + size, static_cast<size_t>(16 - size));
    return moved;
}

// The even bytes of a, the odd ones of b.
template <int N> ALWAYS_INLINE Bytes<N> evens_and_odds(Bytes<N> a, Bytes<N> b)
{
    return {__builtin_shufflevector(a.v, b.v, 0, 17, 2, 19, 4, 21, 6, 23, 8, 25, 10, 27, 12, 29, 14, 31)};
}

template <int N, int W = 1> ALWAYS_INLINE Words<N> load_chroma(const uint8_t* p)
{
    Bytes8 samples;
    __builtin_memcpy(&samples, p, 8);
    return {__builtin_convertvector(samples, Words8)};
}

template <int N, int W = 1> ALWAYS_INLINE Words<N> load_chroma_high(const uint8_t* p)
{
    return shl<8>(load_chroma<N, W>(p));
}

template <int N> ALWAYS_INLINE void put(uint8_t* p, Bytes<N> a) { __builtin_memcpy(p, &a, N); }
ALWAYS_INLINE void put_first8(uint8_t* p, Bytes<16> a) { __builtin_memcpy(p, &a, 8); }

template <int N> ALWAYS_INLINE void store_pairs(uint8_t* p, Bytes<N> a, Bytes<N> b)
{
    put(p, Bytes<N>{zip_lo8(a.v, b.v)});
    put(p + 16, Bytes<N>{zip_hi8(a.v, b.v)});
}
template <int N> ALWAYS_INLINE void store_packed_pairs(uint8_t* p, Bytes<N> a, Bytes<N> b) { store_pairs(p, a, b); }
// Pairs. In memory bytes 0 to 7 of every 32 stay as they are.
ALWAYS_INLINE void store_pairs_but_first_eight(uint8_t* p, Bytes<16> a, Bytes<16> b)
{
    auto lo = zip_lo8(a.v, b.v);
    __builtin_memcpy(p + 8, reinterpret_cast<const uint8_t*>(&lo) + 8, 8);
    put(p + 16, Bytes<16>{zip_hi8(a.v, b.v)});
}

ALWAYS_INLINE void store_yuyv_register(uint8_t* p, Words<16> y, Bytes16 uv)
{
    put(p, join(EvenOddWords<16>{y, {(Words8)uv}}));
}
// y0 u0 y1 v0 ... from one luma word a pixel and one word of each chroma a pair of them.
ALWAYS_INLINE void store_yuyv(uint8_t* p, Words<16> y_first, Words<16> y_second, Words<16> u, Words<16> v)
{
    store_yuyv_register(p, y_first, zip_lo16((Bytes16)u.v, (Bytes16)v.v));
    store_yuyv_register(p + 16, y_second, zip_hi16((Bytes16)u.v, (Bytes16)v.v));
}
ALWAYS_INLINE void store_first8_yuyv(uint8_t* p, Words<16> y, Words<16> u, Words<16> v)
{
    store_yuyv_register(p, y, zip_lo16((Bytes16)u.v, (Bytes16)v.v));
}

struct FourByFour {
    Bytes16 of[4];
}; // a0 b0 c0 d0 a1 ...
ALWAYS_INLINE FourByFour quads(Bytes16 a, Bytes16 b, Bytes16 c, Bytes16 d)
{
    auto ab0 = zip_lo8(a, b), ab1 = zip_hi8(a, b), cd0 = zip_lo8(c, d), cd1 = zip_hi8(c, d);
    return {{zip_lo16(ab0, cd0), zip_hi16(ab0, cd0), zip_lo16(ab1, cd1), zip_hi16(ab1, cd1)}};
}
template <int N> ALWAYS_INLINE void store_quads(uint8_t* p, Bytes<N> a, Bytes<N> b, Bytes<N> c, Bytes<N> d)
{
    auto pixels = quads(a.v, b.v, c.v, d.v);
    __builtin_memcpy(p, &pixels, sizeof pixels);
}

template <int N> constexpr int kDoubledWeave = 1;
ALWAYS_INLINE void store_doubled_yuyv(uint8_t* p, Bytes<16> own, Bytes<16> between)
{
    auto a = own.v, b = between.v;
    put(p, Bytes<16>{__builtin_shufflevector(a, b, 0, 1, 16, 3, 2, 17, 18, 19, 4, 5, 20, 7, 6, 21, 22, 23)});
    put(p + 16, Bytes<16>{__builtin_shufflevector(a, b, 8, 9, 24, 11, 10, 25, 26, 27, 12, 13, 28, 15, 14, 29, 30, 31)});
}
template <int fourth> ALWAYS_INLINE void store_bgr_and(uint8_t* p, Bytes<16> b, Bytes<16> g, Bytes<16> r)
{
    auto pixels = quads(b.v, g.v, r.v, Bytes<16>::splat(fourth).v);
    __builtin_memcpy(p, &pixels, sizeof pixels);
}
// Each pixel's fourth byte is overwritten by the next one; the last pixel has none.
ALWAYS_INLINE void store_bgr(uint8_t* p, Bytes<16> b, Bytes<16> g, Bytes<16> r)
{
    auto pixels = quads(b.v, g.v, r.v, Bytes16{});
    auto from = reinterpret_cast<const uint8_t*>(&pixels);
    for (int i = 0; i < 15; i++) __builtin_memcpy(p + 3 * i, from + 4 * i, 4);
    __builtin_memcpy(p + 45, from + 60, 3);
}

ALWAYS_INLINE void put(Uncached to, Bytes<16> a) { put(to.p, a); }
ALWAYS_INLINE void stream_few(uint8_t* to, const uint8_t* from, ptrdiff_t count)
{
    __builtin_memcpy(to, from, static_cast<size_t>(count));
}
ALWAYS_INLINE void fence_streaming() {}

} // namespace vsurf::VSURF_ISA
