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
    template <int N> static ALWAYS_INLINE Words<N> black()
    {
        return Words<N>::splat(kBt601Limited.black << kLumaShift);
    }
    template <int N> static ALWAYS_INLINE Words<N> luma() { return Words<N>::splat(kBt601Limited.luma); }
    template <int N> static ALWAYS_INLINE Words<N> red_v() { return Words<N>::splat(kBt601Limited.red_v); }
    template <int N> static ALWAYS_INLINE Words<N> green_u() { return Words<N>::splat(kBt601Limited.green_u); }
    template <int N> static ALWAYS_INLINE Words<N> green_v() { return Words<N>::splat(kBt601Limited.green_v); }
    template <int N> static ALWAYS_INLINE Words<N> blue_u() { return Words<N>::splat(kBt601Limited.blue_u); }
};

// Any encoding, as whole registers in memory: multiplications take them from there, as they take constants. Kept as
// numbers they would be spread out anew in each step of loops that have no register left for them.
struct RgbWords {
    alignas(kRegister) uint8_t of[6][kRegister];

    ALWAYS_INLINE explicit RgbWords(const RgbEncoding& by)
    {
        const int values[6] = {by.black << kLumaShift, by.luma, by.red_v, by.green_u, by.green_v, by.blue_u};
        for (int i = 0; i < 6; i++) put(of[i], as_bytes(Words<kRegister>::splat(values[i])));
    }
};
struct AnyEncoding {
    const RgbWords* words;

    template <int N> ALWAYS_INLINE Words<N> black() const { return at<N>(0); }
    template <int N> ALWAYS_INLINE Words<N> luma() const { return at<N>(1); }
    template <int N> ALWAYS_INLINE Words<N> red_v() const { return at<N>(2); }
    template <int N> ALWAYS_INLINE Words<N> green_u() const { return at<N>(3); }
    template <int N> ALWAYS_INLINE Words<N> green_v() const { return at<N>(4); }
    template <int N> ALWAYS_INLINE Words<N> blue_u() const { return at<N>(5); }

private:
    template <int N> ALWAYS_INLINE Words<N> at(int i) const { return as_words(load<N>(words->of[i])); }
};

constexpr bool same_floors()
{
    for (int c = -128; c < 128; c++) {
        if ((c * 8 * kBt601Limited.green_u) >> 16 != (c * 25625) >> 16) return false;
        if ((c * 4 * kBt601Limited.green_v) >> 16 != (c * 2 * 26641) >> 16) return false;
    }
    return true;
}
static_assert(same_floors());

template <int N> struct ChromaTerms {
    Words<N> red, green, blue;
};

// `Encoding` is Bt601Limited or AnyEncoding.
template <class Encoding, int N> ALWAYS_INLINE ChromaTerms<N> chroma_terms(const Encoding& by, Words<N> u, Words<N> v)
{
    u = sub(shl<kUShift>(u), Words<N>::splat(128 << kUShift));
    v = sub(shl<kVShift>(v), Words<N>::splat(128 << kVShift));
    auto green = add(mulhi(u, by.template green_u<N>()), mulhi(v, by.template green_v<N>()));
    return {mulhi(v, by.template red_v<N>()), green, mulhi(u, by.template blue_u<N>())};
}

template <int N> struct Rgb {
    EvenOddWords<N> r, g, b;
};

// `luma` is shifted left by kLumaShift.
template <class Encoding, int N>
ALWAYS_INLINE Rgb<N> to_rgb(const Encoding& by, EvenOddWords<N> luma, ChromaTerms<N> chroma)
{
    auto l = mulhi(sub(luma, by.template black<N>()), by.template luma<N>());
    return {add(l, chroma.red), sub(l, chroma.green), add(l, chroma.blue)};
}

} // namespace vsurf::VSURF_ISA
