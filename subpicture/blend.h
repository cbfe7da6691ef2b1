// SPDX-License-Identifier: MIT
// The blend of a subpicture's sample s with a picture's sample p at alpha a: ((16 - a) p + a s) >> 4.
//
// The scale of alpha ends at 16. Beyond it the results are no picture, yet they are defined: products keep their low 16
// bits, their sum saturates as a signed word, and the shift is unsigned.
#pragma once
#include "frame/adjust.h"
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

constexpr int kOpaque = 16, kAlphaBits = 4;

// For every alpha; not yet cut to a sample.
template <int N> OP half<N> blended_uncut(half<N> p, half<N> s, half<N> a)
{
    auto sum = add_sat(mullo(p, sub(half<N>::splat(kOpaque), a)), mullo(s, a));
    return shr<kAlphaBits>(sum);
}
template <int N> OP half<N> blended(half<N> p, half<N> s, half<N> a)
{
    return least(blended_uncut(p, s, a), half<N>::splat(255));
}
template <int N> OP u8<N> blended(u8<N> p, u8<N> s, u8<N> a)
{
    auto pw = widen(p), sw = widen(s), aw = widen(a);
    return narrow(wide<N>{blended_uncut(pw.low, sw.low, aw.low), blended_uncut(pw.high, sw.high, aw.high)});
}

// For alphas on the scale: both weights of each of N samples, in the order of `widen`. The blend is left in sixteenths.
#if defined __AVX2__
template <int N> struct Weights {
    u8<N> low, high; // pairs 16 - a, a

    OP Weights of(u8<N> alpha)
    {
        auto rest = sub(u8<N>::splat(kOpaque), alpha);
        return {zip_lo8(rest, alpha), zip_hi8(rest, alpha)};
    }
    OP u8<N> pairs(half<N> alpha) { return bytes(add(sub(shl<8>(alpha), alpha), half<N>::splat(kOpaque))); }
    OP Weights of(wide<N> alpha) { return {pairs(alpha.low), pairs(alpha.high)}; }
    MEMBER wide<N> blend(u8<N> p, u8<N> s) const
    {
        return {weighted_pairs(zip_lo8(p, s), low), weighted_pairs(zip_hi8(p, s), high)};
    }
};
#else
template <int N> struct Weights {
    wide<N> alpha, rest;

    OP Weights of(wide<N> alpha)
    {
        auto opaque = half<N>::splat(kOpaque);
        return {alpha, {sub(opaque, alpha.low), sub(opaque, alpha.high)}};
    }
    OP Weights of(u8<N> alpha) { return of(widen(alpha)); }
    MEMBER wide<N> blend(u8<N> p, u8<N> s) const
    {
        auto pw = widen(p), sw = widen(s);
        return {add(mullo(pw.low, rest.low), mullo(sw.low, alpha.low)),
                add(mullo(pw.high, rest.high), mullo(sw.high, alpha.high))};
    }
};
#endif

// The alpha of a pair's chroma, as a word of the two: that of its odd pixel,
struct OddAlpha {
    template <int N> OP half<N> of(half<N> pairs) { return split(bytes(pairs)).odd; }
};

// or the average of both, rounded up.
struct AverageAlpha {
    template <int N> OP half<N> of(half<N> pairs) { return averages_of_pairs(bytes(pairs)); }
};

// What is known of the alphas of kUnit pixels. Most of every subpicture is transparent.
enum class Alphas { transparent, on_scale, any };
constexpr ptrdiff_t kUnit = 2 * kLanes;

OP Alphas alphas_at(const uint8_t* p)
{
    auto first = load<kLanes>(p), second = load<kLanes>(p + kLanes);
    if (all_zero(bit_or(first, second))) return Alphas::transparent;
    auto opaque = u8<kLanes>::splat(kOpaque);
    auto beyond = bit_or(sub_sat_unsigned(first, opaque), sub_sat_unsigned(second, opaque));
    return all_zero(beyond) ? Alphas::on_scale : Alphas::any;
}

// Whether two lines have no alpha but 0; in whole blocks.
OP bool transparent(const uint8_t* upper, const uint8_t* lower, ptrdiff_t pixels)
{
    auto both_at = [=]<int N>(ptrdiff_t x) VSURF_INLINED { return bit_or(load<N>(upper + x), load<N>(lower + x)); };
    ptrdiff_t x = 0;
    for (; pixels - x >= kUnit; x += kUnit)
        if (!all_zero(bit_or(both_at.template operator()<kLanes>(x), both_at.template operator()<kLanes>(x + kLanes))))
            return false;
    for (; x < pixels; x += kBlock)
        if (!all_zero(both_at.template operator()<kBlock>(x))) return false;
    return true;
}

} // namespace vsurf::VSURF_ISA
