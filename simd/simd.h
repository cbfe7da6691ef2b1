// SPDX-License-Identifier: MIT
// The vector layer: the widest vectors of this build, the narrower ones for the end of a line, and what is written
// once for all of them.
//
//   u8<N>    N samples, one byte each, in one register
//   half<N>  N/2 samples, one 16-bit word each, in one register
//   i16<N>   the N samples of a u8<N>, widened: {even, odd}, so that both halves pair with the same chroma words
//   wide<N>  the same in the order that `widen` and `narrow` find cheapest; between them all work is elementwise
//   longs<N> N/4 sums of 32 bits, in one register
//
// Inside wide registers samples may be held in woven order: a store that spreads a sample over W bytes interleaves
// within 128-bit lanes, so its inputs are loaded with their W-th parts dealt out over the lanes and no store needs a
// shuffle across lanes. `load` and `load_chroma` take W; the stores name the W they expect; everything between is
// elementwise and need not know.
#pragma once
#include <stddef.h>
#include <stdint.h>

#define OP static inline __attribute__((always_inline))
#define MEMBER inline __attribute__((always_inline))
#define OUTLINED [[maybe_unused]] static __attribute__((noinline)) // where copies would cost more than a call
#define OUTLINED_MEMBER static __attribute__((noinline))
#define VSURF_INLINED __attribute__((always_inline)) // for lambdas

namespace vsurf::VSURF_ISA {

// Streaming stores go past the caches and want whole 64-byte lines, aligned to the register.
enum class Stores { cached, streaming };

template <int N> struct u8;
template <int N> struct half;
template <int N> struct longs;
template <int N> struct i16 {
    half<N> even, odd;
};
template <int N> struct wide {
    half<N> low, high;
};

// Pixels of a packed picture: luma, and the chroma bytes u0 v0 u1 v1 ...
template <int N> struct Yuyv {
    u8<N> y, uv;
};

} // namespace vsurf::VSURF_ISA

#if defined VSURF_SCALAR
#include "simd/scalar.h"
#elif defined __aarch64__
#include "simd/neon.h"
#else
#include "simd/x128.h"
#if defined __AVX2__
#include "simd/x256.h"
#endif
#if defined __AVX512BW__
#include "simd/x512.h"
#endif
#include "simd/x86.h"
#endif

namespace vsurf::VSURF_ISA {

#if defined VSURF_SCALAR || defined __aarch64__
constexpr int kLanes = 16;
#elif defined __AVX512BW__
constexpr int kLanes = 64;
#elif defined __AVX2__
constexpr int kLanes = 32;
#else
constexpr int kLanes = 16;
#endif

// A word operand beside a pair serves the even and the odd samples alike.
template <int N> OP i16<N> add(i16<N> a, half<N> b) { return {add(a.even, b), add(a.odd, b)}; }
template <int N> OP i16<N> sub(i16<N> a, half<N> b) { return {sub(a.even, b), sub(a.odd, b)}; }
template <int N> OP i16<N> mulhi(i16<N> a, half<N> b) { return {mulhi(a.even, b), mulhi(a.odd, b)}; }
template <int K, int N> OP i16<N> shl(i16<N> a) { return {shl<K>(a.even), shl<K>(a.odd)}; }

} // namespace vsurf::VSURF_ISA
