// SPDX-License-Identifier: MIT
// 128-bit vectors: NEON of AArch64. The structured stores weave by themselves and packed order is sample order.
#pragma once
#include <arm_neon.h>

namespace vsurf::VSURF_ISA {

constexpr int kRegister = 16;
constexpr bool kStoresPastCaches = false;

template <> struct Bytes<16> {
    uint8x16_t v;
    static ALWAYS_INLINE Bytes splat(int x) { return {vdupq_n_u8(static_cast<uint8_t>(x))}; }
};
template <> struct Words<16> {
    int16x8_t v;
    static ALWAYS_INLINE Words splat(int x) { return {vdupq_n_s16(static_cast<int16_t>(x))}; }
    static ALWAYS_INLINE Words alternate(int x, int y)
    {
        return {vzip1q_s16(vdupq_n_s16(static_cast<int16_t>(x)), vdupq_n_s16(static_cast<int16_t>(y)))};
    }
    static ALWAYS_INLINE Words repeat(int a, int b, int c, int d)
    {
        const int16_t words[4] = {static_cast<int16_t>(a), static_cast<int16_t>(b), static_cast<int16_t>(c),
                                  static_cast<int16_t>(d)};
        auto four = vld1_s16(words);
        return {vcombine_s16(four, four)};
    }
};

ALWAYS_INLINE uint16x8_t unsigned_words(int16x8_t v) { return vreinterpretq_u16_s16(v); }
ALWAYS_INLINE int16x8_t signed_words(uint16x8_t v) { return vreinterpretq_s16_u16(v); }

template <int N> ALWAYS_INLINE Words<N> add(Words<N> a, Words<N> b) { return {vaddq_s16(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Words<N> sub(Words<N> a, Words<N> b) { return {vsubq_s16(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Words<N> add_sat(Words<N> a, Words<N> b) { return {vqaddq_s16(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Words<N> sub_sat_unsigned(Words<N> a, Words<N> b)
{
    return {signed_words(vqsubq_u16(unsigned_words(a.v), unsigned_words(b.v)))};
}
// The doubled product's high half, halved: the same floor, since -32768 never meets itself here.
template <int N> ALWAYS_INLINE Words<N> mulhi(Words<N> a, Words<N> b)
{
    return {vshrq_n_s16(vqdmulhq_s16(a.v, b.v), 1)};
}
template <int N> ALWAYS_INLINE Words<N> mulhi_unsigned(Words<N> a, Words<N> b)
{
    auto x = unsigned_words(a.v), y = unsigned_words(b.v);
    auto low = vmull_u16(vget_low_u16(x), vget_low_u16(y)), high = vmull_high_u16(x, y);
    return {signed_words(vuzp2q_u16(vreinterpretq_u16_u32(low), vreinterpretq_u16_u32(high)))};
}
template <int N> ALWAYS_INLINE Words<N> mullo(Words<N> a, Words<N> b) { return {vmulq_s16(a.v, b.v)}; }
template <int K, int N> ALWAYS_INLINE Words<N> shl(Words<N> a) { return {vshlq_n_s16(a.v, K)}; }
template <int K, int N> ALWAYS_INLINE Words<N> shr(Words<N> a)
{
    return {signed_words(vshrq_n_u16(unsigned_words(a.v), K))};
}
template <int K, int N> ALWAYS_INLINE Words<N> shr_signed(Words<N> a) { return {vshrq_n_s16(a.v, K)}; }
template <int N> ALWAYS_INLINE Words<N> avg(Words<N> a, Words<N> b)
{
    return {signed_words(vrhaddq_u16(unsigned_words(a.v), unsigned_words(b.v)))};
}
template <int N> ALWAYS_INLINE Words<N> min(Words<N> a, Words<N> b) { return {vminq_s16(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Words<N> max(Words<N> a, Words<N> b) { return {vmaxq_s16(a.v, b.v)}; }

template <int N> ALWAYS_INLINE Bytes<N> as_bytes(Words<N> a) { return {vreinterpretq_u8_s16(a.v)}; }
template <int N> ALWAYS_INLINE Words<N> as_words(Bytes<N> a) { return {vreinterpretq_s16_u8(a.v)}; }
template <int N> ALWAYS_INLINE Bytes<N> bit_or(Bytes<N> a, Bytes<N> b) { return {vorrq_u8(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Bytes<N> bit_and(Bytes<N> a, Bytes<N> b) { return {vandq_u8(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Bytes<N> avg(Bytes<N> a, Bytes<N> b) { return {vrhaddq_u8(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Bytes<N> sub_sat_unsigned(Bytes<N> a, Bytes<N> b) { return {vqsubq_u8(a.v, b.v)}; }
template <int N> ALWAYS_INLINE Bytes<N> abs_diff(Bytes<N> a, Bytes<N> b) { return {vabdq_u8(a.v, b.v)}; }

// Masks: bytes of all ones or of zeros.
template <int N> ALWAYS_INLINE Bytes<N> equal(Bytes<N> a, Bytes<N> b) { return {vceqq_u8(a.v, b.v)}; }
template <int N> ALWAYS_INLINE bool any(Bytes<N> mask) { return vmaxvq_u8(mask.v) != 0; }
template <int N> ALWAYS_INLINE bool all(Bytes<N> mask) { return vminvq_u8(mask.v) != 0; }
template <int N> ALWAYS_INLINE bool all_zero(Bytes<N> a) { return !any(a); }
template <int N> ALWAYS_INLINE Bytes<N> choose(Bytes<N> mask, Bytes<N> a, Bytes<N> b)
{
    return {vbslq_u8(mask.v, a.v, b.v)};
}
// The even bytes of a, the odd ones of b.
template <int N> ALWAYS_INLINE Bytes<N> evens_and_odds(Bytes<N> a, Bytes<N> b)
{
    return {vbslq_u8(vreinterpretq_u8_u16(vdupq_n_u16(255)), a.v, b.v)};
}
// Where a group of four neighbours has a sum above the limit.
template <int N> ALWAYS_INLINE Bytes<N> fours_above(Bytes<N> a, int limit)
{
    auto sums = vpaddlq_u16(vpaddlq_u8(a.v));
    return {vreinterpretq_u8_u32(vcgtq_u32(sums, vdupq_n_u32(static_cast<uint32_t>(limit))))};
}
// Sums of 32 bits.
template <> struct Dwords<16> {
    int32x4_t v;
};
template <int N> ALWAYS_INLINE Dwords<N> add(Dwords<N> a, Dwords<N> b) { return {vaddq_s32(a.v, b.v)}; }
template <int K, int N> ALWAYS_INLINE Dwords<N> shr_signed(Dwords<N> a) { return {vshrq_n_s32(a.v, K)}; }
// a0 b0 + a1 b1, ...
template <int N> ALWAYS_INLINE Dwords<N> pair_dots(Words<N> a, Words<N> b)
{
    return {vpaddq_s32(vmull_s16(vget_low_s16(a.v), vget_low_s16(b.v)), vmull_high_s16(a.v, b.v))};
}
// Saturated bytes.
template <int N> ALWAYS_INLINE Bytes<N> pack_in_order(Dwords<N> a, Dwords<N> b, Dwords<N> c, Dwords<N> d)
{
    auto low = vqmovn_high_s32(vqmovn_s32(a.v), b.v), high = vqmovn_high_s32(vqmovn_s32(c.v), d.v);
    return {vqmovun_high_s16(vqmovun_s16(low), high)};
}

// Pixels of four bytes.
template <int N> ALWAYS_INLINE Bytes<N> first_of_pixel_pairs(Bytes<N> a)
{
    auto pixels = vreinterpretq_u32_u8(a.v);
    return {vreinterpretq_u8_u32(vtrn1q_u32(pixels, pixels))};
}
template <int N> ALWAYS_INLINE Dwords<N> first_bytes(Bytes<N> a)
{
    return {vandq_s32(vreinterpretq_s32_u8(a.v), vdupq_n_s32(255))};
}
template <int N> ALWAYS_INLINE Bytes<N> zip_lo16(Bytes<N> a, Bytes<N> b)
{
    return as_bytes(Words<N>{vzip1q_s16(as_words(a).v, as_words(b).v)});
}
template <int N> ALWAYS_INLINE Bytes<N> zip_hi16(Bytes<N> a, Bytes<N> b)
{
    return as_bytes(Words<N>{vzip2q_s16(as_words(a).v, as_words(b).v)});
}
// From the first twelve bytes: b g r 0 a pixel.
ALWAYS_INLINE Bytes<16> pixels_of_triples(Bytes<16> a)
{
    alignas(16) static constexpr uint8_t order[16] = {0, 1, 2, 255, 3, 4, 5, 255, 6, 7, 8, 255, 9, 10, 11, 255};
    return {vqtbl1q_u8(a.v, vld1q_u8(order))};
}
template <int K> ALWAYS_INLINE Bytes<16> drop_first(Bytes<16> a) { return {vextq_u8(a.v, vdupq_n_u8(0), K)}; }

template <int N> ALWAYS_INLINE Bytes<N> shifted_left(Bytes<N> a, int count, int mask)
{
    return {vandq_u8(vshlq_u8(a.v, vdupq_n_s8(static_cast<int8_t>(count))), vdupq_n_u8(static_cast<uint8_t>(mask)))};
}
template <int N> ALWAYS_INLINE Bytes<N> shifted_right(Bytes<N> a, int count, int mask)
{
    return shifted_left(a, -count, mask);
}

template <int N> ALWAYS_INLINE Words<N> evens(Bytes<N> a)
{
    return {signed_words(vandq_u16(vreinterpretq_u16_u8(a.v), vdupq_n_u16(255)))};
}
template <int N> ALWAYS_INLINE EvenOddWords<N> split(Bytes<N> a)
{
    return {evens(a), {signed_words(vshrq_n_u16(vreinterpretq_u16_u8(a.v), 8))}};
}
template <int N> ALWAYS_INLINE EvenOddWords<N> split_times4(Bytes<N> a)
{
    auto words = split(a);
    return {shl<2>(words.even), shl<2>(words.odd)};
}
// K (a0 + a1), K (a2 + a3), ...
template <int K, int N> ALWAYS_INLINE Words<N> pair_sums(Bytes<N> a)
{
    return {signed_words(vmulq_n_u16(vpaddlq_u8(a.v), static_cast<uint16_t>(K)))};
}
// (a0 + a1 + 1) >> 1, (a2 + a3 + 1) >> 1, ...
template <int N> ALWAYS_INLINE Words<N> averages_of_pairs(Bytes<N> a)
{
    return {signed_words(vrshrq_n_u16(vpaddlq_u8(a.v), 1))};
}
// The samples in the high bytes of their words.
template <int N> ALWAYS_INLINE EvenOddWords<N> split_high(Bytes<N> a)
{
    auto words = vreinterpretq_u16_u8(a.v);
    return {{signed_words(vshlq_n_u16(words, 8))}, {signed_words(vandq_u16(words, vdupq_n_u16(0xff00)))}};
}
// The words must be samples, 0 to 255.
template <int N> ALWAYS_INLINE Bytes<N> join(EvenOddWords<N> a)
{
    return {vtrn1q_u8(vreinterpretq_u8_s16(a.even.v), vreinterpretq_u8_s16(a.odd.v))};
}
template <int N> ALWAYS_INLINE LowHighWords<N> widen(Bytes<N> a)
{
    return {{signed_words(vmovl_u8(vget_low_u8(a.v)))}, {signed_words(vmovl_high_u8(a.v))}};
}
// The samples in the high bytes of their words.
template <int N> ALWAYS_INLINE LowHighWords<N> widen_high(Bytes<N> a)
{
    return {{signed_words(vshll_n_u8(vget_low_u8(a.v), 8))}, {signed_words(vshll_high_n_u8(a.v, 8))}};
}
// Saturated.
template <int N> ALWAYS_INLINE Bytes<N> narrow(LowHighWords<N> a)
{
    return {vqmovun_high_s16(vqmovun_s16(a.low.v), a.high.v)};
}

// K (a + b)
template <int K, int N> ALWAYS_INLINE LowHighWords<N> widened_sums(Bytes<N> a, Bytes<N> b)
{
    auto low = vaddl_u8(vget_low_u8(a.v), vget_low_u8(b.v)), high = vaddl_high_u8(a.v, b.v);
    return {{signed_words(vmulq_n_u16(low, static_cast<uint16_t>(K)))},
            {signed_words(vmulq_n_u16(high, static_cast<uint16_t>(K)))}};
}

// The low bytes of the words, as samples.
template <int N> ALWAYS_INLINE Bytes<N> low_bytes(EvenOddWords<N> a) { return join(a); }

// Saturated bytes.
template <int N> ALWAYS_INLINE Bytes<N> pack(EvenOddWords<N> a)
{
    auto even = vqmovun_s16(a.even.v), odd = vqmovun_s16(a.odd.v);
    return {vcombine_u8(vzip1_u8(even, odd), vzip2_u8(even, odd))};
}

// Saturated: the samples of a, then those of b.
template <int N> ALWAYS_INLINE Bytes<N> pack_in_order(Words<N> a, Words<N> b)
{
    return {vcombine_u8(vqmovun_s16(a.v), vqmovun_s16(b.v))};
}

template <int N, int W = 1> ALWAYS_INLINE Bytes<N> load(const uint8_t* p) { return {vld1q_u8(p)}; }
template <int N, int W = 1> ALWAYS_INLINE Words<N> load_chroma(const uint8_t* p)
{
    return {signed_words(vmovl_u8(vld1_u8(p)))};
}
template <int N, int W = 1> ALWAYS_INLINE Words<N> load_chroma_high(const uint8_t* p)
{
    return {signed_words(vshll_n_u8(vld1_u8(p), 8))};
}
template <int N, int W = 1> ALWAYS_INLINE LowHighWords<N> load_two(const uint8_t* p)
{
    return {as_words(load<N>(p)), as_words(load<N>(p + N))};
}
ALWAYS_INLINE Bytes<16> load_first8(const uint8_t* p) { return {vcombine_u8(vld1_u8(p), vdup_n_u8(0))}; }
template <int N, int W = 1> ALWAYS_INLINE Yuyv<N> load_yuyv(const uint8_t* p)
{
    auto px = vld2q_u8(p);
    return {{px.val[0]}, {px.val[1]}};
}

// N/2 samples at p, then N/2 samples at q. put_halves stores a register there.
template <int N> ALWAYS_INLINE Bytes<N> load_halves(const uint8_t* p, const uint8_t* q)
{
    return {vcombine_u8(vld1_u8(p), vld1_u8(q))};
}
ALWAYS_INLINE void put_halves(uint8_t* p, uint8_t* q, Bytes<16> a)
{
    vst1_u8(p, vget_low_u8(a.v));
    vst1_u8(q, vget_high_u8(a.v));
}

// The right neighbour of each element of `size` bytes. The last element is its own neighbour.
template <int size> ALWAYS_INLINE Bytes<16> neighbours_to_the_end(Bytes<16> a)
{
    auto last = size == 1   ? vdupq_laneq_u8(a.v, 15)
                : size == 2 ? vreinterpretq_u8_u16(vdupq_laneq_u16(vreinterpretq_u16_u8(a.v), 7))
                            : vreinterpretq_u8_u32(vdupq_laneq_u32(vreinterpretq_u32_u8(a.v), 3));
    return {vextq_u8(a.v, last, size)};
}

template <int N> ALWAYS_INLINE void put(uint8_t* p, Bytes<N> a) { vst1q_u8(p, a.v); }
ALWAYS_INLINE void put_first8(uint8_t* p, Bytes<16> a) { vst1_u8(p, vget_low_u8(a.v)); }
template <int N> ALWAYS_INLINE void store_pairs(uint8_t* p, Bytes<N> a, Bytes<N> b) { vst2q_u8(p, {{a.v, b.v}}); }
template <int N> ALWAYS_INLINE void store_packed_pairs(uint8_t* p, Bytes<N> a, Bytes<N> b) { store_pairs(p, a, b); }
template <int N> ALWAYS_INLINE void store_quads(uint8_t* p, Bytes<N> a, Bytes<N> b, Bytes<N> c, Bytes<N> d)
{
    vst4q_u8(p, {{a.v, b.v, c.v, d.v}});
}
template <int N> constexpr int kDoubledWeave = 1;
ALWAYS_INLINE void store_doubled_yuyv(uint8_t* p, Bytes<16> own, Bytes<16> between)
{
    alignas(16) static constexpr uint8_t order[16] = {0, 1, 16, 3, 2, 17, 18, 19, 4, 5, 20, 7, 6, 21, 22, 23};
    auto first = vld1q_u8(order);
    put(p, Bytes<16>{vqtbl2q_u8({{own.v, between.v}}, first)});
    put(p + 16, Bytes<16>{vqtbl2q_u8({{own.v, between.v}}, vaddq_u8(first, vdupq_n_u8(8)))});
}
template <int fourth> ALWAYS_INLINE void store_bgr_and(uint8_t* p, Bytes<16> b, Bytes<16> g, Bytes<16> r)
{
    vst4q_u8(p, {{b.v, g.v, r.v, vdupq_n_u8(fourth)}});
}
ALWAYS_INLINE void store_bgr(uint8_t* p, Bytes<16> b, Bytes<16> g, Bytes<16> r) { vst3q_u8(p, {{b.v, g.v, r.v}}); }
ALWAYS_INLINE void store_pairs_but_first_eight(uint8_t* p, Bytes<16> a, Bytes<16> b)
{
    vst1_u8(p + 8, vget_high_u8(vzip1q_u8(a.v, b.v)));
    vst1q_u8(p + 16, vzip2q_u8(a.v, b.v));
}

ALWAYS_INLINE Bytes<16> yuyv(int16x8_t y, int16x8_t uv) { return join(EvenOddWords<16>{{y}, {uv}}); }
template <int N> ALWAYS_INLINE void store_yuyv(uint8_t* p, Words<N> y_first, Words<N> y_second, Words<N> u, Words<N> v)
{
    put(p, yuyv(y_first.v, vzip1q_s16(u.v, v.v)));
    put(p + 16, yuyv(y_second.v, vzip2q_s16(u.v, v.v)));
}
ALWAYS_INLINE void store_first8_yuyv(uint8_t* p, Words<16> y, Words<16> u, Words<16> v)
{
    put(p, yuyv(y.v, vzip1q_s16(u.v, v.v)));
}

ALWAYS_INLINE void put(Uncached to, Bytes<16> a) { put(to.p, a); }
ALWAYS_INLINE void stream_few(uint8_t* to, const uint8_t* from, ptrdiff_t count)
{
    __builtin_memcpy(to, from, static_cast<size_t>(count));
}
ALWAYS_INLINE void fence_streaming() {}

} // namespace vsurf::VSURF_ISA
