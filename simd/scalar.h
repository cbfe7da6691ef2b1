// SPDX-License-Identifier: MIT
// The layer without intrinsics, on the compiler's portable vectors: what an unknown processor runs. The compiler lowers
// them to whatever the target has, single words at the least.
#pragma once

namespace vsurf::VSURF_ISA {

typedef uint8_t Bytes16 __attribute__((vector_size(16)));
typedef uint8_t Bytes8 __attribute__((vector_size(8)));
typedef int16_t Words8 __attribute__((vector_size(16)));
typedef uint16_t UnsignedWords8 __attribute__((vector_size(16)));
typedef uint32_t UnsignedLongs8 __attribute__((vector_size(32)));
typedef int32_t Longs8 __attribute__((vector_size(32)));
typedef int32_t Longs4 __attribute__((vector_size(16)));

template <int N> struct u8 {
    Bytes16 v;
    OP u8 splat(int x) { return {Bytes16{} + static_cast<uint8_t>(x)}; }
};
template <int N> struct half {
    Words8 v;
    OP half splat(int x) { return {Words8{} + static_cast<int16_t>(x)}; }
    OP half alternate(int x, int y)
    {
        return {__builtin_shufflevector(splat(x).v, splat(y).v, 0, 8, 1, 9, 2, 10, 3, 11)};
    }
    OP half repeat(int a, int b, int c, int d)
    {
        return {__builtin_shufflevector(alternate(a, b).v, alternate(c, d).v, 0, 1, 8, 9, 0, 1, 8, 9)};
    }
};

constexpr bool kLittleEndian = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;

OP Words8 to_words(Longs8 v) { return __builtin_convertvector(v, Words8); }
OP Longs8 to_longs(Words8 v) { return __builtin_convertvector(v, Longs8); }
OP UnsignedWords8 unsigned_words(Words8 v) { return (UnsignedWords8)v; }
template <class V> OP V at_least(V v, V low) { return v < low ? low : v; }
template <class V> OP V at_most(V v, V high) { return v > high ? high : v; }

// Words wrap, as unsigned ones do by definition.
template <int N> OP half<N> add(half<N> a, half<N> b) { return {(Words8)(unsigned_words(a.v) + unsigned_words(b.v))}; }
template <int N> OP half<N> sub(half<N> a, half<N> b) { return {(Words8)(unsigned_words(a.v) - unsigned_words(b.v))}; }
template <int N> OP half<N> mullo(half<N> a, half<N> b)
{
    return {(Words8)(unsigned_words(a.v) * unsigned_words(b.v))};
}
template <int N> OP half<N> add_sat(half<N> a, half<N> b)
{
    auto sum = to_longs(a.v) + to_longs(b.v);
    return {to_words(at_least(at_most(sum, Longs8{} + 32767), Longs8{} - 32768))};
}
template <int N> OP half<N> sub_sat_unsigned(half<N> a, half<N> b)
{
    auto minuend = unsigned_words(a.v), subtrahend = unsigned_words(b.v);
    return {(Words8)(at_least(minuend, subtrahend) - subtrahend)};
}
template <int N> OP half<N> mulhi(half<N> a, half<N> b) { return {to_words((to_longs(a.v) * to_longs(b.v)) >> 16)}; }
template <int N> OP half<N> mulhi_unsigned(half<N> a, half<N> b)
{
    auto long_of = [](half<N> x) VSURF_INLINED { return __builtin_convertvector(unsigned_words(x.v), UnsignedLongs8); };
    return {(Words8) __builtin_convertvector((long_of(a) * long_of(b)) >> 16, UnsignedWords8)};
}
template <int K, int N> OP half<N> shl(half<N> a) { return {(Words8)(unsigned_words(a.v) << K)}; }
template <int K, int N> OP half<N> shr(half<N> a) { return {(Words8)(unsigned_words(a.v) >> K)}; }
template <int K, int N> OP half<N> shr_signed(half<N> a) { return {a.v >> K}; }
template <int N> OP half<N> least(half<N> a, half<N> b) { return {at_most(a.v, b.v)}; }
template <int N> OP half<N> most(half<N> a, half<N> b) { return {at_least(a.v, b.v)}; }

template <int N> OP u8<N> bytes(half<N> a) { return {(Bytes16)a.v}; }
template <int N> OP half<N> words(u8<N> a) { return {(Words8)a.v}; }
template <int N> OP u8<N> bit_or(u8<N> a, u8<N> b) { return {a.v | b.v}; }
template <int N> OP u8<N> bit_and(u8<N> a, u8<N> b) { return {a.v & b.v}; }
// Rounded up.
template <int N> OP u8<N> avg(u8<N> a, u8<N> b) { return {(a.v | b.v) - ((a.v ^ b.v) >> 1)}; }
template <int N> OP u8<N> sub_sat_unsigned(u8<N> a, u8<N> b) { return {at_least(a.v, b.v) - b.v}; }
template <int N> OP half<N> avg(half<N> a, half<N> b)
{
    auto x = unsigned_words(a.v), y = unsigned_words(b.v);
    return {(Words8)((x | y) - ((x ^ y) >> 1))};
}
template <int N> OP u8<N> abs_diff(u8<N> a, u8<N> b) { return {at_least(a.v, b.v) - at_most(a.v, b.v)}; }

// Masks: bytes of all ones or of zeros.
template <int N> OP u8<N> equal(u8<N> a, u8<N> b) { return {(Bytes16)(a.v == b.v)}; }
template <int N> OP u8<N> choose(u8<N> mask, u8<N> a, u8<N> b) { return {(mask.v & a.v) | (~mask.v & b.v)}; }
template <int N> OP bool any(u8<N> mask)
{
    uint64_t halves[2];
    __builtin_memcpy(halves, &mask, 16);
    return (halves[0] | halves[1]) != 0;
}
template <int N> OP bool all_zero(u8<N> a) { return !any(a); }
template <int N> OP bool all(u8<N> mask)
{
    uint64_t halves[2];
    __builtin_memcpy(halves, &mask, 16);
    return (halves[0] & halves[1]) == UINT64_MAX;
}
// Sums of 32 bits.
template <int N> struct longs {
    Longs4 v;
};
template <int N> OP longs<N> add(longs<N> a, longs<N> b) { return {a.v + b.v}; }
template <int K, int N> OP longs<N> shr_signed(longs<N> a) { return {a.v >> K}; }
// a0 b0 + a1 b1, ...
template <int N> OP longs<N> pair_dots(half<N> a, half<N> b)
{
    auto products = to_longs(a.v) * to_longs(b.v);
    return {__builtin_shufflevector(products, products, 0, 2, 4, 6) +
            __builtin_shufflevector(products, products, 1, 3, 5, 7)};
}

// Pixels of four bytes.
template <int N> OP u8<N> equal_pixels(u8<N> a, u8<N> b) { return {(Bytes16)((Longs4)a.v == (Longs4)b.v)}; }
template <int N> OP u8<N> first_of_pixel_pairs(u8<N> a)
{
    auto pixels = (Longs4)a.v;
    return {(Bytes16)__builtin_shufflevector(pixels, pixels, 0, 0, 2, 2)};
}
template <int N> OP longs<N> first_bytes(u8<N> a)
{
    auto first = __builtin_shufflevector(a.v, a.v, 0, 4, 8, 12);
    return {__builtin_convertvector(first, Longs4)};
}
// From the first twelve bytes: b g r 0 a pixel.
OP u8<16> pixels_of_triples(u8<16> a)
{
    return {__builtin_shufflevector(a.v, Bytes16{}, 0, 1, 2, 16, 3, 4, 5, 16, 6, 7, 8, 16, 9, 10, 11, 16)};
}
template <int K> OP u8<16> drop_first(u8<16> a)
{
    u8<16> rest{};
    __builtin_memcpy(&rest, reinterpret_cast<const uint8_t*>(&a) + K, 16 - K);
    return rest;
}

template <int N> OP u8<N> shifted_left(u8<N> a, int count, int mask)
{
    return {(a.v << static_cast<uint8_t>(count)) & static_cast<uint8_t>(mask)};
}
template <int N> OP u8<N> shifted_right(u8<N> a, int count, int mask)
{
    return {(a.v >> static_cast<uint8_t>(count)) & static_cast<uint8_t>(mask)};
}

template <int N> OP i16<N> split(u8<N> a)
{
    auto words = (UnsignedWords8)a.v;
    half<N> low{(Words8)(words & 255)}, high{(Words8)(words >> 8)};
    return kLittleEndian ? i16<N>{low, high} : i16<N>{high, low};
}
template <int N> OP i16<N> split_times4(u8<N> a)
{
    auto words = split(a);
    return {shl<2>(words.even), shl<2>(words.odd)};
}
// K (a0 + a1), K (a2 + a3), ...
template <int K, int N> OP half<N> pair_sums(u8<N> a)
{
    auto words = split(a);
    return {(words.even.v + words.odd.v) * static_cast<int16_t>(K)};
}
// Where a group of four neighbours has a sum above the limit.
template <int N> OP u8<N> fours_above(u8<N> a, int limit)
{
    auto sums = __builtin_convertvector(pair_sums<1>(a).v, Longs8);
    auto fours = __builtin_shufflevector(sums, sums, 0, 2, 4, 6) + __builtin_shufflevector(sums, sums, 1, 3, 5, 7);
    return {(Bytes16)(fours > limit)};
}
// (a0 + a1 + 1) >> 1, (a2 + a3 + 1) >> 1, ...
template <int N> OP half<N> averages_of_pairs(u8<N> a)
{
    auto words = split(a);
    return {(words.even.v + words.odd.v + 1) >> 1};
}
// The samples in the high bytes of their words.
template <int N> OP i16<N> split_high(u8<N> a)
{
    auto words = split(a);
    return {shl<8>(words.even), shl<8>(words.odd)};
}
// The words must be samples, 0 to 255.
template <int N> OP u8<N> join(i16<N> a)
{
    auto low = kLittleEndian ? a.even : a.odd, high = kLittleEndian ? a.odd : a.even;
    return {(Bytes16)(low.v | shl<8>(high).v)};
}
// The low bytes of the words, as samples.
template <int N> OP u8<N> low_bytes(i16<N> a) { return join(i16<N>{{a.even.v & 255}, {a.odd.v & 255}}); }
template <int N> OP half<N> to_samples(half<N> a) { return {at_most(at_least(a.v, Words8{}), Words8{} + 255)}; }

template <int N> OP wide<N> widen(u8<N> a)
{
    auto low = __builtin_shufflevector(a.v, a.v, 0, 1, 2, 3, 4, 5, 6, 7),
         high = __builtin_shufflevector(a.v, a.v, 8, 9, 10, 11, 12, 13, 14, 15);
    return {{__builtin_convertvector(low, Words8)}, {__builtin_convertvector(high, Words8)}};
}
// The samples in the high bytes of their words.
template <int N> OP wide<N> widen_high(u8<N> a)
{
    auto words = widen(a);
    return {shl<8>(words.low), shl<8>(words.high)};
}
// K (a + b)
template <int K, int N> OP wide<N> widened_sums(u8<N> a, u8<N> b)
{
    auto x = widen(a), y = widen(b);
    auto k = half<N>::splat(K);
    return {mullo(add(x.low, y.low), k), mullo(add(x.high, y.high), k)};
}

// Saturated bytes; packed order is sample order here.
template <int N> OP u8<N> pack(i16<N> a) { return join(i16<N>{to_samples(a.even), to_samples(a.odd)}); }
// Saturated: the samples of a, then those of b.
template <int N> OP u8<N> pack_in_order(half<N> a, half<N> b)
{
    auto first = __builtin_convertvector(to_samples(a).v, Bytes8),
         second = __builtin_convertvector(to_samples(b).v, Bytes8);
    return {__builtin_shufflevector(first, second, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15)};
}
OP Words8 to_words(Longs4 a, Longs4 b) // saturated
{
    auto both = __builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7);
    return to_words(at_least(at_most(both, Longs8{} + 32767), Longs8{} - 32768));
}
template <int N> OP u8<N> pack_in_order(longs<N> a, longs<N> b, longs<N> c, longs<N> d)
{
    return pack_in_order(half<N>{to_words(a.v, b.v)}, half<N>{to_words(c.v, d.v)});
}

// Saturated.
template <int N> OP u8<N> narrow(wide<N> a) { return pack_in_order(a.low, a.high); }

OP Bytes16 zip_lo8(Bytes16 a, Bytes16 b)
{
    return __builtin_shufflevector(a, b, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
}
OP Bytes16 zip_hi8(Bytes16 a, Bytes16 b)
{
    return __builtin_shufflevector(a, b, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
}
OP Bytes16 zip_lo16(Bytes16 a, Bytes16 b)
{
    return (Bytes16)__builtin_shufflevector((Words8)a, (Words8)b, 0, 8, 1, 9, 2, 10, 3, 11);
}
OP Bytes16 zip_hi16(Bytes16 a, Bytes16 b)
{
    return (Bytes16)__builtin_shufflevector((Words8)a, (Words8)b, 4, 12, 5, 13, 6, 14, 7, 15);
}
template <int N> OP u8<N> zip_lo16(u8<N> a, u8<N> b) { return {zip_lo16(a.v, b.v)}; }
template <int N> OP u8<N> zip_hi16(u8<N> a, u8<N> b) { return {zip_hi16(a.v, b.v)}; }

template <int N, int W = 1> OP u8<N> load(const uint8_t* p)
{
    u8<N> a;
    __builtin_memcpy(&a, p, N);
    return a;
}
template <int N, int W = 1> OP wide<N> load_two(const uint8_t* p) { return {words(load<N>(p)), words(load<N>(p + N))}; }
OP u8<16> load_first8(const uint8_t* p)
{
    u8<16> a{};
    __builtin_memcpy(&a, p, 8);
    return a;
}
template <int N, int W = 1> OP Yuyv<N> load_yuyv(const uint8_t* p)
{
    auto a = load<N>(p).v, b = load<N>(p + 16).v;
    return {{__builtin_shufflevector(a, b, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30)},
            {__builtin_shufflevector(a, b, 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31)}};
}

// N/2 samples at p, then N/2 at q; and back.
template <int N> OP u8<N> load_halves(const uint8_t* p, const uint8_t* q)
{
    u8<N> a;
    __builtin_memcpy(&a, p, 8);
    __builtin_memcpy(reinterpret_cast<uint8_t*>(&a) + 8, q, 8);
    return a;
}
OP void put_halves(uint8_t* p, uint8_t* q, u8<16> a)
{
    __builtin_memcpy(p, &a, 8);
    __builtin_memcpy(q, reinterpret_cast<const uint8_t*>(&a) + 8, 8);
}

// Each right neighbour of an element of so many bytes; the last one is its own.
template <int size> OP u8<16> neighbours_to_the_end(u8<16> a)
{
    u8<16> moved = a;
    __builtin_memcpy(&moved, reinterpret_cast<const uint8_t*>(&a) + size, static_cast<size_t>(16 - size));
    return moved;
}

// The even bytes of a, the odd ones of b.
template <int N> OP u8<N> evens_and_odds(u8<N> a, u8<N> b)
{
    return {__builtin_shufflevector(a.v, b.v, 0, 17, 2, 19, 4, 21, 6, 23, 8, 25, 10, 27, 12, 29, 14, 31)};
}

template <int N, int W = 1> OP half<N> load_chroma(const uint8_t* p)
{
    Bytes8 samples;
    __builtin_memcpy(&samples, p, 8);
    return {__builtin_convertvector(samples, Words8)};
}

template <int N, int W = 1> OP half<N> load_chroma_high(const uint8_t* p) { return shl<8>(load_chroma<N, W>(p)); }

template <Stores S = Stores::cached, int N> OP void put(uint8_t* p, u8<N> a) { __builtin_memcpy(p, &a, N); }
OP void put_first8(uint8_t* p, u8<16> a) { __builtin_memcpy(p, &a, 8); }

template <Stores S, int N> OP void store_pairs(uint8_t* p, u8<N> a, u8<N> b)
{
    put(p, u8<N>{zip_lo8(a.v, b.v)});
    put(p + 16, u8<N>{zip_hi8(a.v, b.v)});
}
template <Stores S, int N> OP void store_packed_pairs(uint8_t* p, u8<N> a, u8<N> b) { store_pairs<S>(p, a, b); }
// Pairs of which bytes 0 to 7 of every 32 stay as they are in memory.
OP void store_pairs_but_first_eight(uint8_t* p, u8<16> a, u8<16> b)
{
    auto lo = zip_lo8(a.v, b.v);
    __builtin_memcpy(p + 8, reinterpret_cast<const uint8_t*>(&lo) + 8, 8);
    put(p + 16, u8<16>{zip_hi8(a.v, b.v)});
}

OP void store_yuyv_register(uint8_t* p, half<16> y, Bytes16 uv) { put(p, join(i16<16>{y, {(Words8)uv}})); }
// y0 u0 y1 v0 ... from one luma word a pixel and one word of each chroma a pair of them.
template <Stores S> OP void store_yuyv(uint8_t* p, half<16> y_first, half<16> y_second, half<16> u, half<16> v)
{
    store_yuyv_register(p, y_first, zip_lo16((Bytes16)u.v, (Bytes16)v.v));
    store_yuyv_register(p + 16, y_second, zip_hi16((Bytes16)u.v, (Bytes16)v.v));
}
OP void store_first8_yuyv(uint8_t* p, half<16> y, half<16> u, half<16> v)
{
    store_yuyv_register(p, y, zip_lo16((Bytes16)u.v, (Bytes16)v.v));
}

struct FourByFour {
    Bytes16 of[4];
}; // a0 b0 c0 d0 a1 ...
OP FourByFour quads(Bytes16 a, Bytes16 b, Bytes16 c, Bytes16 d)
{
    auto ab0 = zip_lo8(a, b), ab1 = zip_hi8(a, b), cd0 = zip_lo8(c, d), cd1 = zip_hi8(c, d);
    return {{zip_lo16(ab0, cd0), zip_hi16(ab0, cd0), zip_lo16(ab1, cd1), zip_hi16(ab1, cd1)}};
}
template <Stores S, int N> OP void store_quads(uint8_t* p, u8<N> a, u8<N> b, u8<N> c, u8<N> d)
{
    auto pixels = quads(a.v, b.v, c.v, d.v);
    __builtin_memcpy(p, &pixels, sizeof pixels);
}

template <int N> constexpr int kDoubledWeave = 1;
template <Stores S> OP void store_doubled_yuyv(uint8_t* p, u8<16> own, u8<16> between)
{
    auto a = own.v, b = between.v;
    put(p, u8<16>{__builtin_shufflevector(a, b, 0, 1, 16, 3, 2, 17, 18, 19, 4, 5, 20, 7, 6, 21, 22, 23)});
    put(p + 16, u8<16>{__builtin_shufflevector(a, b, 8, 9, 24, 11, 10, 25, 26, 27, 12, 13, 28, 15, 14, 29, 30, 31)});
}
template <Stores S> OP void store_bgr0(uint8_t* p, u8<16> b, u8<16> g, u8<16> r)
{
    auto pixels = quads(b.v, g.v, r.v, Bytes16{});
    __builtin_memcpy(p, &pixels, sizeof pixels);
}
// Each pixel's fourth byte is overwritten by the next one; the last pixel has none.
template <Stores S> OP void store_bgr(uint8_t* p, u8<16> b, u8<16> g, u8<16> r)
{
    auto pixels = quads(b.v, g.v, r.v, Bytes16{});
    auto from = reinterpret_cast<const uint8_t*>(&pixels);
    for (int i = 0; i < 15; i++) __builtin_memcpy(p + 3 * i, from + 4 * i, 4);
    __builtin_memcpy(p + 45, from + 60, 3);
}

OP void fence_streaming() {}

} // namespace vsurf::VSURF_ISA
