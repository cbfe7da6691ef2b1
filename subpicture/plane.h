// SPDX-License-Identifier: MIT
// Lines of planes under lines of a subpicture. They count pixels, which each have an alpha, and do kUnit of them at
// once: without the subpicture (`alone`), with alphas on the scale (`on_scale`), or, in blocks down to 8 samples, with
// whatever alphas there are (`exact`).
#pragma once
#include "scale/source.h"
#include "subpicture/blend.h"

namespace vsurf::VSURF_ISA {

// What the blended samples go through; they come in sixteenths from alphas on the scale. Nothing,
struct AsTheyAre {
    static constexpr bool kAlwaysExact = false;
    template <int N> ALWAYS_INLINE Bytes<N> operator()(Bytes<N> samples) const { return samples; }
    template <int N> ALWAYS_INLINE Bytes<N> sixteenths(LowHighWords<N> x) const
    {
        return narrow(LowHighWords<N>{shr<kAlphaBits>(x.low), shr<kAlphaBits>(x.high)});
    }
};

// the adjustment by a common gain, where 16 x * 64 gain >> 16 is the product >> 6,
template <class Gain> struct AdjustedBy {
    static constexpr bool kAlwaysExact = false;
    static_assert(CommonGain::kHighest * 64 <= 65535);
    SampleAdjust by;

    template <int N> ALWAYS_INLINE Bytes<N> operator()(Bytes<N> samples) const { return adjusted<Gain>(by, samples); }
    template <int N> ALWAYS_INLINE Words<N> sixteenths(Words<N> x) const
    {
        auto whole = as_words(bit_and(as_bytes(x), as_bytes(Words<N>::splat(-1 << kAlphaBits))));
        return by.offset_uncut(mulhi_unsigned(whole, Words<N>::splat(by.gain * 64)));
    }
    template <int N> ALWAYS_INLINE Bytes<N> sixteenths(LowHighWords<N> x) const
    {
        return narrow(LowHighWords<N>{sixteenths(x.low), sixteenths(x.high)});
    }
};

// or by any other.
template <> struct AdjustedBy<AnyGain> {
    static constexpr bool kAlwaysExact = true;
    SampleAdjust by;
    template <int N> ALWAYS_INLINE Bytes<N> operator()(Bytes<N> samples) const
    {
        return adjusted<AnyGain>(by, samples);
    }
};

template <class Source, class AfterBlend> struct LumaLine {
    using After = AfterBlend;
    static constexpr int kPixels = 1; // a sample
    Source picture;
    const uint8_t *over, *alpha;
    uint8_t* dst;
    After after;

    template <Stores S, class Work> ALWAYS_INLINE void each_register(ptrdiff_t x, const Work& work) const
    {
        put(to<S>(dst + x), work(x));
        put(to<S>(dst + x + kRegister), work(x + kRegister));
    }
    template <Stores S> ALWAYS_INLINE void alone(ptrdiff_t x) const
    {
        each_register<S>(x,
                         [&](ptrdiff_t at) VSURF_INLINED { return after(picture.template bytes<kRegister, 1>(at)); });
    }
    template <Stores S> ALWAYS_INLINE void on_scale(ptrdiff_t x) const
    {
        each_register<S>(x, [&](ptrdiff_t at) VSURF_INLINED {
            const auto weights = Weights<kRegister>::of(load<kRegister>(alpha + at));
            return after.sixteenths(
                weights.blend(picture.template bytes<kRegister, 1>(at), load<kRegister>(over + at)));
        });
    }
    ALWAYS_INLINE void exact(ptrdiff_t x, ptrdiff_t end) const
    {
        for (; end - x >= 16; x += 16) {
            auto p = picture.template bytes<16, 1>(x);
            put(dst + x, after(blended(p, load<16>(over + x), load<16>(alpha + x))));
        }
        if (x == end) return;
        auto p = picture.template words<16, 1>(x);
        auto eight = blended(p, load_chroma<16>(over + x), load_chroma<16>(alpha + x));
        put_first8(dst + x, after(pack_in_order(eight, eight)));
    }
};

template <class PairAlpha> ALWAYS_INLINE Weights<kRegister> pair_weights(const uint8_t* alpha)
{
    auto pairs = load_two<kRegister>(alpha);
    return Weights<kRegister>::of(LowHighWords<kRegister>{PairAlpha::of(pairs.low), PairAlpha::of(pairs.high)});
}

template <class Source, class PairAlpha, class AfterBlend> struct ChromaLine {
    using After = AfterBlend;
    static constexpr int kPixels = 2;
    Source picture;
    const uint8_t *over, *alpha;
    uint8_t* dst;
    After after;

    template <Stores S> ALWAYS_INLINE void alone(ptrdiff_t x) const
    {
        put(to<S>(dst + x / 2), after(picture.template bytes<kRegister, 1>(x / 2)));
    }
    template <Stores S> ALWAYS_INLINE void on_scale(ptrdiff_t x, const Weights<kRegister>& weights) const
    {
        auto p = picture.template bytes<kRegister, 1>(x / 2);
        put(to<S>(dst + x / 2), after.sixteenths(weights.blend(p, load<kRegister>(over + x / 2))));
    }
    template <Stores S> ALWAYS_INLINE void on_scale(ptrdiff_t x) const
    {
        on_scale<S>(x, pair_weights<PairAlpha>(alpha + x));
    }
    ALWAYS_INLINE void exact(ptrdiff_t x, ptrdiff_t end) const
    {
        for (; x < end; x += 16) {
            auto a = PairAlpha::of(as_words(load<16>(alpha + x)));
            auto eight = blended(picture.template words<16, 1>(x / 2), load_chroma<16>(over + x / 2), a);
            put_first8(dst + x / 2, after(pack_in_order(eight, eight)));
        }
    }
};

// All of a line.
template <class Source, class PairAlpha, class AfterBlend> struct YuvLine {
    using After = AfterBlend;
    LumaLine<Source, After> y;
    ChromaLine<Source, PairAlpha, After> u, v;
    const uint8_t* alpha;

    template <Stores S> ALWAYS_INLINE void alone(ptrdiff_t x) const
    {
        y.template alone<S>(x);
        u.template alone<S>(x);
        v.template alone<S>(x);
    }
    template <Stores S> ALWAYS_INLINE void on_scale(ptrdiff_t x) const
    {
        y.template on_scale<S>(x);
        const auto weights = pair_weights<PairAlpha>(alpha + x);
        u.template on_scale<S>(x, weights);
        v.template on_scale<S>(x, weights);
    }
    ALWAYS_INLINE void exact(ptrdiff_t x, ptrdiff_t end) const
    {
        y.exact(x, end);
        u.exact(x, end);
        v.exact(x, end);
    }
};

// By value: what has no address stays in registers around the stores.
template <class Line> [[maybe_unused]] static NEVER_INLINE void blend_exactly(Line line, ptrdiff_t x, ptrdiff_t end)
{
    line.exact(x, end);
}

template <Stores S, class Line> ALWAYS_INLINE void blend_units(Line line, ptrdiff_t x, ptrdiff_t end)
{
    for (; x < end; x += kUnit) {
        const auto alphas = alphas_at(line.alpha + x);
        if (alphas == Alphas::transparent) line.template alone<S>(x);
        else if (alphas == Alphas::on_scale) line.template on_scale<S>(x);
        else blend_exactly(line, x, x + kUnit);
    }
}

// The first `streamed` pixels, whole units, are streamed. Beyond the last unit no difference is made between alphas.
template <class Line> ALWAYS_INLINE void blend_line(Line line, ptrdiff_t pixels, ptrdiff_t streamed)
{
    if constexpr (Line::After::kAlwaysExact) {
        blend_exactly(line, 0, pixels);
    } else {
        const ptrdiff_t units = pixels & -kUnit;
        if (streamed) blend_units<Stores::streaming>(line, 0, streamed);
        blend_units<Stores::cached>(line, streamed, units);
        if (units < pixels) blend_exactly(line, units, pixels);
    }
}

} // namespace vsurf::VSURF_ISA
