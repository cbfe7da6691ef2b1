// SPDX-License-Identifier: MIT
// The vector layer: the widest vectors of this build, the narrower ones for the end of a line, and what is written
// once for all of them. N is the size of a register in bytes: 16, and 32 and 64 where the instruction set has them. A
// width that it does not have fails to compile.
//
//   Bytes<N>         N samples of one byte, in one register
//   Words<N>         N/2 words of 16 bits, in one register
//   Dwords<N>        N/4 words of 32 bits, in one register
//   EvenOddWords<N>  N samples widened to words: those of even and those of odd places, in two registers. The two
//                    samples of a pair stand at the same place, so that one register of chroma is used for both.
//   LowHighWords<N>  N samples widened to words in the order that `widen` and `narrow` find cheapest
//
// Inside wide registers samples may be held in woven order: a store that spreads a sample over W bytes interleaves
// within 128-bit lanes, so its inputs are loaded with their W-th parts dealt out over the lanes and no store needs a
// shuffle across lanes. Loads take W; each store states the W that it expects; everything between works on single
// elements and need not know. The end of this file lists all operations.
#pragma once
#include <stddef.h>
#include <stdint.h>

#define ALWAYS_INLINE inline __attribute__((always_inline))
#define NEVER_INLINE __attribute__((noinline))       // where copies would cost more than a call
#define VSURF_INLINED __attribute__((always_inline)) // for lambdas

namespace vsurf::VSURF_ISA {

template <class A, class B>
concept SameAs = __is_same(A, B);
template <class T> const T& instance(); // only for its type

// Where stores go past the caches. Whole cache lines must be stored there, and every register aligned to its size.
struct Uncached {
    uint8_t* p;
    friend ALWAYS_INLINE Uncached operator+(Uncached to, ptrdiff_t bytes) { return {to.p + bytes}; }
};

template <int N> struct Bytes;
template <int N> struct Words;
template <int N> struct Dwords;
template <int N> struct EvenOddWords {
    Words<N> even, odd;
};
template <int N> struct LowHighWords {
    Words<N> low, high;
};

// Pixels of a packed picture: luma, and the chroma bytes u0 v0 u1 v1 ...
template <int N> struct Yuyv {
    Bytes<N> y, uv;
};

} // namespace vsurf::VSURF_ISA

// Each set defines kRegister, the bytes of its widest register, and kStoresPastCaches: whether stores to Uncached
// differ from others.
#if defined VSURF_SCALAR
#include "simd/scalar.h"
#elif defined __aarch64__
#include "simd/neon.h"
#else
#if defined __AVX512BW__
#include "simd/x512.h"
#elif defined __AVX2__
#include "simd/x256.h"
#else
#include "simd/x128.h"
#endif
#include "simd/x86.h"
#endif
#include "simd/weights.h"

namespace vsurf::VSURF_ISA {

// Operations on a pair of registers with one register of words, which is used for both the even and the odd samples.
template <int N> ALWAYS_INLINE EvenOddWords<N> add(EvenOddWords<N> a, Words<N> b)
{
    return {add(a.even, b), add(a.odd, b)};
}
template <int N> ALWAYS_INLINE EvenOddWords<N> sub(EvenOddWords<N> a, Words<N> b)
{
    return {sub(a.even, b), sub(a.odd, b)};
}
template <int N> ALWAYS_INLINE EvenOddWords<N> mulhi(EvenOddWords<N> a, Words<N> b)
{
    return {mulhi(a.even, b), mulhi(a.odd, b)};
}
template <int K, int N> ALWAYS_INLINE EvenOddWords<N> shl(EvenOddWords<N> a) { return {shl<K>(a.even), shl<K>(a.odd)}; }

} // namespace vsurf::VSURF_ISA

// The operations. N is any width that the instruction set has, unless a line names its widths. a, b, ... are registers,
// a0, a1, ... their elements, p and q any addresses. K is a template argument, `count` a variable. `to` is a uint8_t*
// or, where kStoresPastCaches, also an Uncached. Operations marked x86 are what the
// x86 headers build the others from; the other sets do not have them.
//
// Constants
//   Bytes<N>::splat(x)             x in every byte
//   Bytes<N>::repeat(lane)         16 bytes, a Bytes<16>, in every lane
//   Bytes<N>::repeat(pattern)      x86: the same from memory at a multiple of 16
//   Words<N>::splat(x)             x in every word
//   Words<N>::alternate(x, y)      x y x y ...
//   Words<N>::repeat(a, b, c, d)   16 and 32: a b c d a b c d ...
//
// Loads
//   load<N, W>(p)                  N samples, woven by W: 1, 2 or 4
//   load_chroma<N, W>(p)           N/2 samples as words, woven like the luma of N pixels
//   load_chroma_high<N, W>(p)      the same, the samples in the high bytes
//   load_yuyv<N, W>(p)             N packed pixels, their luma and their chroma each woven by W, as Yuyv<N>
//   load_two<N, W>(p)              2N bytes as LowHighWords: `narrow` of results from these words is woven by W
//   load_halves<N>(p, q)           N/2 samples at p, then N/2 samples at q
//   load_first8(p)                 16 only: 8 samples, then zeros
//
// Stores
//   put(to, a)                     the register
//   put_halves(p, q, a)            the first half to p, the second to q
//   put_first8(p, a)               16 only: the first 8 bytes
//   store_pairs(to, a, b)          a0 b0 a1 b1 ...; woven by 2
//   store_packed_pairs(to, a, b)   the same from bytes in packed order
//   store_pairs_but_first_eight(p, a, b)
//                                  store_pairs, but bytes 0 to 7 of every 32 in memory stay
//   store_quads(to, a, b, c, d)    a0 b0 c0 d0 a1 ...; woven by 4
//   store_bgr_and<K>(to, b, g, r)  b g r K a pixel, from bytes in packed order; woven by 4
//   store_bgr(to, b, g, r)         b g r a pixel, from bytes in packed order; not woven
//   store_yuyv(to, y0, y1, u, v)   y u y v ... of words; y0 and y1 are halves of the luma, the chroma is woven by 2
//   store_first8_yuyv(to, y, u, v) 16 only: the same for 8 pixels
//   store_doubled_yuyv(to, own, between)
//                                  packed pixels of twice the width; woven by kDoubledWeave<N>
//   stream_few(p, q, count)        x86: `count` bytes from q to p past the caches; addresses and count are multiples of
//   4 fence_streaming()              all stores past the caches so far come before all later stores
//
// Arithmetic on words; results wrap unless they saturate
//   add, sub                       words; EvenOddWords and one Words; add: Dwords (16 and 32); sub, x86: bytes
//   add_sat                        words, saturated as signed ones
//   sub_sat_unsigned               words or bytes, at least 0
//   mullo                          the low 16 bits of the product
//   mulhi                          its high 16 bits, signed; also EvenOddWords and one Words. The sets do not agree on
//                                  -32768 * -32768
//   mulhi_unsigned                 the high 16 bits, unsigned
//   avg                            words or bytes: (a + b + 1) >> 1, unsigned
//   min, max                       words, signed
//   shl<K>, shr<K>                 words, zeros come in; shl also EvenOddWords
//   shr_signed<K>                  words; Dwords (16 and 32)
//   shl(a, count), shr(a, count)   x86: words
//   split_times4(a)                split, times 4
//   widened_sums<K>(a, b)          K (a + b) of bytes as LowHighWords
//   pair_sums<K>(a)                K (a0 + a1), K (a2 + a3), ... of bytes as words
//   averages_of_pairs(a)           (a0 + a1 + 1) >> 1, ... of bytes as words
//   pair_dots(a, b)                16 and 32: a0 b0 + a1 b1, ... of words, signed, as Dwords
//   weighted_pairs(a, weights)     x86, AVX2 and above: a0 w0 + a1 w1, ... of samples and signed bytes, saturated words
//   Weights<N>                     both weights of a blend: simd/weights.h
//
// Arithmetic and logic on bytes
//   abs_diff(a, b)                 |a - b|
//   bit_and, bit_or                bytes; x86: words (bit_or only)
//   shifted_left(a, count, mask), shifted_right(a, count, mask)
//                                  each byte shifted, then ANDed with the mask, which lies inside what the shift leaves
//
// Comparison; masks are bytes of all ones or of zeros
//   equal(a, b)                    a mask
//   fours_above(a, limit)          a mask: all four bytes of a group where their sum is above the limit
//   any(mask), all(mask)           whether a byte, whether every byte is set; all: 16 and 32
//   all_zero(a)                    whether every byte is 0
//   choose(mask, a, b)             a where the mask is set, else b
//
// Shuffles
//   evens_and_odds(a, b)           the even bytes of a, the odd ones of b
//   neighbours_to_the_end<size>(a) 16 only: the right neighbour of each element of `size` bytes, at the end itself
//   drop_first<K>(a)               16 only: from byte K on, then zeros
//   zip_lo16, zip_hi16             a's and b's words in turn, of the first or second halves of their lanes
//   zip_lo8, zip_hi8               x86: the same of bytes
//   first_of_pixel_pairs(a)        16 and 32: of four-byte pixels p0 p1 p2 p3: p0 p0 p2 p2
//   pixels_of_triples(a)           16 only: b g r 0 a pixel, from the first twelve bytes
//   combine(low, high)             x86, 32 only: two Bytes<16> as one Bytes<32>
//   shuffle(a, pattern)            x86, AVX2 and above: the bytes of each lane by a pattern; -1 gives zero
//   second_half(a)                 x86, 16 only: the second half twice
//
// Conversions. Packed order is what `pack` of EvenOddWords gives: in each x86 lane the eight even samples and then the
// eight odd ones, elsewhere the samples in order. The stores that take it are made to match.
//   as_bytes(a), as_words(a)       the same register by its other type
//   split(a), split_high(a)        bytes to EvenOddWords; high: each sample in the high byte of its word
//   join(a)                        EvenOddWords of 0 to 255 back to bytes
//   low_bytes(a)                   the low bytes of EvenOddWords
//   pack(a)                        EvenOddWords to bytes, saturated, in packed order
//   widen(a), widen_high(a)        bytes to LowHighWords; high: each sample in the high byte of its word
//   narrow(a)                      LowHighWords back to bytes, saturated
//   pack_in_order(a, b)            two Words to bytes, saturated: the samples of a, then those of b
//   pack_in_order(a, b, c, d)      16 and 32: four Dwords to bytes, saturated
//   first_bytes(a)                 16 and 32: the first byte of every four as Dwords
//   evens(a)                       x86 and NEON: the even half of split
//   odds_high(a)                   x86: the odd half of split_high
//   pack(a, b)                     x86: two Words to bytes, saturated, lane by lane
