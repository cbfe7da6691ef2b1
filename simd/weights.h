// SPDX-License-Identifier: MIT
// Both weights of a blend of N samples: 16 - alpha for the picture and alpha for the subpicture, with alpha from 0
// to 16. They are held in the order of `widen`, and the blend is left in sixteenths: it must still be shifted right
// by 4.
#pragma once

namespace vsurf::VSURF_ISA {

constexpr int kOpaque = 16;

#if defined __AVX2__ && !defined VSURF_SCALAR
// One multiply-add makes the sum of both products.
template <int N> struct Weights {
    Bytes<N> low, high; // pairs 16 - a, a

    static ALWAYS_INLINE Weights of(Bytes<N> alpha)
    {
        auto rest = sub(Bytes<N>::splat(kOpaque), alpha);
        return {zip_lo8(rest, alpha), zip_hi8(rest, alpha)};
    }
    static ALWAYS_INLINE Bytes<N> pairs(Words<N> alpha)
    {
        return as_bytes(add(sub(shl<8>(alpha), alpha), Words<N>::splat(kOpaque)));
    }
    static ALWAYS_INLINE Weights of(LowHighWords<N> alpha) { return {pairs(alpha.low), pairs(alpha.high)}; }
    ALWAYS_INLINE LowHighWords<N> blend(Bytes<N> picture, Bytes<N> subpicture) const
    {
        return {weighted_pairs(zip_lo8(picture, subpicture), low), weighted_pairs(zip_hi8(picture, subpicture), high)};
    }
};
#else
template <int N> struct Weights {
    LowHighWords<N> alpha, rest;

    static ALWAYS_INLINE Weights of(LowHighWords<N> alpha)
    {
        auto opaque = Words<N>::splat(kOpaque);
        return {alpha, {sub(opaque, alpha.low), sub(opaque, alpha.high)}};
    }
    static ALWAYS_INLINE Weights of(Bytes<N> alpha) { return of(widen(alpha)); }
    ALWAYS_INLINE LowHighWords<N> blend(Bytes<N> picture, Bytes<N> subpicture) const
    {
        auto p = widen(picture), s = widen(subpicture);
        return {add(mullo(p.low, rest.low), mullo(s.low, alpha.low)),
                add(mullo(p.high, rest.high), mullo(s.high, alpha.high))};
    }
};
#endif

} // namespace vsurf::VSURF_ISA
