// SPDX-License-Identifier: MIT
// YUV to RGB in 16-bit fixed point. BT.601 studio range is
//
//   L = 1.164 (Y - 16),  R = L + 1.596 (V - 128),  G = L - 0.391 (U - 128) - 0.813 (V - 128),  B = L + 2.018 (U - 128)
//
// and other encodings differ in the coefficients and in the luma of black. Every product is floored by itself; the sums
// lie within -400 and 600, so 16-bit addition neither wraps nor needs an order, and the stores saturate them to bytes.
#pragma once
#include "frame/encoding.h"
#include "simd/simd.h"

namespace vsurf::VSURF_ISA {

constexpr int kLumaShift = 2, kUShift = 3, kVShift = 2;

// The contract's encoding, as constants. It shifts U by 0 and V by 1 for green; one shift a plane serves both of its
// terms with coefficients that give the same floor for every sample, as asserted below.
struct Bt601Limited {
    static constexpr int black = kBt601Limited.black, luma = kBt601Limited.luma, red_v = kBt601Limited.red_v,
                         green_u = kBt601Limited.green_u, green_v = kBt601Limited.green_v,
                         blue_u = kBt601Limited.blue_u;
};

constexpr bool same_floors()
{
    for (int c = -128; c < 128; c++) {
        if ((c * 8 * Bt601Limited::green_u) >> 16 != (c * 25625) >> 16) return false;
        if ((c * 4 * Bt601Limited::green_v) >> 16 != (c * 2 * 26641) >> 16) return false;
    }
    return true;
}
static_assert(same_floors());

template <int N> struct ChromaTerms {
    Words<N> red, green, blue;
};

// `Encoding` is Bt601Limited or, with values in place of constants, RgbEncoding.
template <class Encoding, int N> ALWAYS_INLINE ChromaTerms<N> chroma_terms(const Encoding& by, Words<N> u, Words<N> v)
{
    u = sub(shl<kUShift>(u), Words<N>::splat(128 << kUShift));
    v = sub(shl<kVShift>(v), Words<N>::splat(128 << kVShift));
    auto term = [](Words<N> c, int k) VSURF_INLINED { return mulhi(c, Words<N>::splat(k)); };
    return {term(v, by.red_v), add(term(u, by.green_u), term(v, by.green_v)), term(u, by.blue_u)};
}

template <int N> struct Rgb {
    EvenOddWords<N> r, g, b;
};

// `luma` is shifted left by kLumaShift.
template <class Encoding, int N>
ALWAYS_INLINE Rgb<N> to_rgb(const Encoding& by, EvenOddWords<N> luma, ChromaTerms<N> chroma)
{
    auto l = mulhi(sub(luma, Words<N>::splat(by.black << kLumaShift)), Words<N>::splat(by.luma));
    return {add(l, chroma.red), sub(l, chroma.green), add(l, chroma.blue)};
}

} // namespace vsurf::VSURF_ISA
