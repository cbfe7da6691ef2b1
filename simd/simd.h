// SPDX-License-Identifier: MIT
// The vector layer: the widest vectors of this build, the narrower ones for the end of a line, and what is written
// once for all of them. N is the size of a register in bytes: 16, and 32 and 64 where the instruction set has them. A
// width that it does not have fails to compile.
//
//   Bytes<N>         N samples of one byte, in one register
//   Words<N>         N/2 words of 16 bits, in one register
//   Dwords<N>        N/4 words of 32 bits, in one register
//   EvenOddWords<N>  N samples widened to words: those of even and those of odd places, in two registers. The two
//                    samples of a pair stand at the same place, so that one register of chroma serves both.
//   LowHighWords<N>  N samples widened to words in the order that `widen` and `narrow` find cheapest
//
// Inside wide registers samples may be held in woven order: a store that spreads a sample over W bytes interleaves
// within 128-bit lanes, so its inputs are loaded with their W-th parts dealt out over the lanes and no store needs a
// shuffle across lanes. Loads take W; each store states the W that it expects; everything between works on single
// elements and need not know.
#pragma once
#include <stddef.h>
#include <stdint.h>

#define ALWAYS_INLINE inline __attribute__((always_inline))
#define NEVER_INLINE __attribute__((noinline))       // where copies would cost more than a call
#define VSURF_INLINED __attribute__((always_inline)) // for lambdas

namespace vsurf::VSURF_ISA {

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

// A word operand beside a pair serves the even and the odd samples alike.
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
