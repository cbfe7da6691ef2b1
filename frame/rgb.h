// SPDX-License-Identifier: MIT
// YUV to RGB: BT.601 studio range in 16-bit fixed point.
//
//   L = 1.164 (Y - 16),  R = L + 1.596 (V - 128),  G = L - 0.391 (U - 128) - 0.813 (V - 128),  B = L + 2.018 (U - 128)
//
// Every product is floored by itself; the sums lie within -364 and 536, so 16-bit addition neither wraps nor needs an
// order, and the stores saturate them to bytes.
#pragma once
#include "simd/simd.h"

namespace vsurf::VSURF_ISA {

// The coefficients in 1/65536 of their shifted operand. The contract shifts U by 0 and V by 1 for green; one shift a
// plane serves both of its terms with coefficients that give the same floor for every sample, as asserted below.
constexpr int kLuma = 19071, kRedV = 26149, kGreenU = 3204, kGreenV = 13321, kBlueU = 16532;
constexpr int kLumaShift = 2, kUShift = 3, kVShift = 2;

constexpr bool same_floors()
{
    for (int c = -128; c < 128; c++) {
        if ((c * 8 * kGreenU) >> 16 != (c * 25625) >> 16) return false;
        if ((c * 4 * kGreenV) >> 16 != (c * 2 * 26641) >> 16) return false;
    }
    return true;
}
static_assert(same_floors());

template <int N> struct ChromaTerms {
    Words<N> red, green, blue;
};

template <int N> ALWAYS_INLINE ChromaTerms<N> chroma_terms(Words<N> u, Words<N> v)
{
    u = sub(shl<kUShift>(u), Words<N>::splat(128 << kUShift));
    v = sub(shl<kVShift>(v), Words<N>::splat(128 << kVShift));
    auto term = [](Words<N> c, int k) VSURF_INLINED { return mulhi(c, Words<N>::splat(k)); };
    return {term(v, kRedV), add(term(u, kGreenU), term(v, kGreenV)), term(u, kBlueU)};
}

template <int N> struct Rgb {
    EvenOddWords<N> r, g, b;
};

// `luma` is shifted left by kLumaShift.
template <int N> ALWAYS_INLINE Rgb<N> to_rgb(EvenOddWords<N> luma, ChromaTerms<N> chroma)
{
    auto l = mulhi(sub(luma, Words<N>::splat(16 << kLumaShift)), Words<N>::splat(kLuma));
    return {add(l, chroma.red), sub(l, chroma.green), add(l, chroma.blue)};
}

} // namespace vsurf::VSURF_ISA
