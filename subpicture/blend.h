// SPDX-License-Identifier: MIT
// The blend of a subpicture's sample s with a picture's sample p at alpha a: ((16 - a) p + a s) >> 4.
//
// The scale of alpha ends at 16. Beyond it the results give no usable picture, but they are defined: products keep
// their low 16 bits, their sum saturates as a signed word, and the shift is unsigned.
#pragma once
#include "frame/blocks.h"

namespace vsurf::VSURF_ISA {

constexpr int kAlphaBits = 4;

// The blend for every alpha, not yet cut to a sample.
template <int N> ALWAYS_INLINE Words<N> blended_uncut(Words<N> p, Words<N> s, Words<N> a)
{
    auto sum = add_sat(mullo(p, sub(Words<N>::splat(kOpaque), a)), mullo(s, a));
    return shr<kAlphaBits>(sum);
}
template <int N> ALWAYS_INLINE Words<N> blended(Words<N> p, Words<N> s, Words<N> a)
{
    return min(blended_uncut(p, s, a), Words<N>::splat(255));
}
template <int N> ALWAYS_INLINE Bytes<N> blended(Bytes<N> p, Bytes<N> s, LowHighWords<N> a)
{
    auto pw = widen(p), sw = widen(s);
    return narrow(LowHighWords<N>{blended_uncut(pw.low, sw.low, a.low), blended_uncut(pw.high, sw.high, a.high)});
}

// What is known of the alphas of kUnit pixels. Most of every subpicture is transparent.
enum class Alphas { transparent, on_scale, any };
constexpr int kUnit = 2 * kRegister;

ALWAYS_INLINE Alphas alphas_at(const uint8_t* p)
{
    auto first = load<kRegister>(p), second = load<kRegister>(p + kRegister);
    if (all_zero(bit_or(first, second))) return Alphas::transparent;
    auto opaque = Bytes<kRegister>::splat(kOpaque);
    auto beyond = bit_or(sub_sat_unsigned(first, opaque), sub_sat_unsigned(second, opaque));
    return all_zero(beyond) ? Alphas::on_scale : Alphas::any;
}
template <class Work> ALWAYS_INLINE auto with_alphas(const uint8_t* p, const Work& work)
{
    const auto alphas = alphas_at(p);
    if (alphas == Alphas::transparent) return work.template operator()<Alphas::transparent>();
    if (alphas == Alphas::on_scale) return work.template operator()<Alphas::on_scale>();
    return work.template operator()<Alphas::any>();
}

// Whether all alphas of two lines are 0. `pixels` is in whole blocks.
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

// The alphas of N luma samples: one for each pixel.
struct PixelAlpha {
    static constexpr int kPixels = 1; // a sample
    template <int N> static ALWAYS_INLINE LowHighWords<N> words(const uint8_t* p) { return widen(load<N>(p)); }
    template <int N> static ALWAYS_INLINE Weights<N> weights(const uint8_t* p) { return Weights<N>::of(load<N>(p)); }
    static ALWAYS_INLINE Words<16> eight(const uint8_t* p) { return load_chroma<16>(p); }
};

// The alphas of N chroma samples: one for each pair of pixels. `Of::pairs` makes one alpha of two.
template <class Of> struct PairAlpha {
    static constexpr int kPixels = 2;
    template <int N> static ALWAYS_INLINE LowHighWords<N> words(const uint8_t* p)
    {
        auto alphas = load_two<N>(p);
        return {Of::pairs(as_bytes(alphas.low)), Of::pairs(as_bytes(alphas.high))};
    }
    template <int N> static ALWAYS_INLINE Weights<N> weights(const uint8_t* p) { return Weights<N>::of(words<N>(p)); }
    static ALWAYS_INLINE Words<16> eight(const uint8_t* p) { return Of::pairs(load<16>(p)); }
};
// A pair takes the alpha of its odd pixel.
struct OddAlpha : PairAlpha<OddAlpha> {
    template <int N> static ALWAYS_INLINE Words<N> pairs(Bytes<N> alphas) { return split(alphas).odd; }
};
// A pair takes the average of both alphas, rounded up.
struct AverageAlpha : PairAlpha<AverageAlpha> {
    template <int N> static ALWAYS_INLINE Words<N> pairs(Bytes<N> alphas) { return averages_of_pairs(alphas); }
};

} // namespace vsurf::VSURF_ISA
