// SPDX-License-Identifier: MIT
// The blend of a subpicture's sample s with a picture's sample p at alpha a: ((16 - a) p + a s) >> 4.
//
// The scale of alpha ends at 16. Beyond it the results are no picture, yet they are defined: products keep their low 16
// bits, their sum saturates as a signed word, and the shift is unsigned.
#pragma once
#include "frame/adjust.h"
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

constexpr int kAlphaBits = 4;

// For every alpha; not yet cut to a sample.
template <int N> ALWAYS_INLINE Words<N> blended_uncut(Words<N> p, Words<N> s, Words<N> a)
{
    auto sum = add_sat(mullo(p, sub(Words<N>::splat(kOpaque), a)), mullo(s, a));
    return shr<kAlphaBits>(sum);
}
template <int N> ALWAYS_INLINE Words<N> blended(Words<N> p, Words<N> s, Words<N> a)
{
    return min(blended_uncut(p, s, a), Words<N>::splat(255));
}
template <int N> ALWAYS_INLINE Bytes<N> blended(Bytes<N> p, Bytes<N> s, Bytes<N> a)
{
    auto pw = widen(p), sw = widen(s), aw = widen(a);
    return narrow(LowHighWords<N>{blended_uncut(pw.low, sw.low, aw.low), blended_uncut(pw.high, sw.high, aw.high)});
}

// The alpha of a pair's chroma, as a word of the two: that of its odd pixel,
struct OddAlpha {
    template <int N> static ALWAYS_INLINE Words<N> of(Words<N> pairs) { return split(as_bytes(pairs)).odd; }
};

// or the average of both, rounded up.
struct AverageAlpha {
    template <int N> static ALWAYS_INLINE Words<N> of(Words<N> pairs) { return averages_of_pairs(as_bytes(pairs)); }
};

// What is known of the alphas of kUnit pixels. Most of every subpicture is transparent.
enum class Alphas { transparent, on_scale, any };
constexpr ptrdiff_t kUnit = 2 * kRegister;

ALWAYS_INLINE Alphas alphas_at(const uint8_t* p)
{
    auto first = load<kRegister>(p), second = load<kRegister>(p + kRegister);
    if (all_zero(bit_or(first, second))) return Alphas::transparent;
    auto opaque = Bytes<kRegister>::splat(kOpaque);
    auto beyond = bit_or(sub_sat_unsigned(first, opaque), sub_sat_unsigned(second, opaque));
    return all_zero(beyond) ? Alphas::on_scale : Alphas::any;
}

// Whether two lines have no alpha but 0; in whole blocks.
ALWAYS_INLINE bool transparent(const uint8_t* upper, const uint8_t* lower, ptrdiff_t pixels)
{
    auto both_at = [=]<int N>(ptrdiff_t x) VSURF_INLINED { return bit_or(load<N>(upper + x), load<N>(lower + x)); };
    ptrdiff_t x = 0;
    for (; pixels - x >= kUnit; x += kUnit)
        if (!all_zero(bit_or(both_at.template operator()<kRegister>(x),
                             both_at.template operator()<kRegister>(x + kRegister))))
            return false;
    for (; x < pixels; x += kBlock)
        if (!all_zero(both_at.template operator()<kBlock>(x))) return false;
    return true;
}

} // namespace vsurf::VSURF_ISA
