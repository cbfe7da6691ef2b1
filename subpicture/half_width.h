// SPDX-License-Identifier: MIT
// Mixed YUY2 pixels at half the picture's width: of pixels and of chroma samples every second one, the odd ones.
#pragma once
#include "frame/half_width.h"
#include "subpicture/pairs.h"

namespace vsurf::VSURF_ISA {

struct OddOfPairs {
    template <class Gain, int N> static ALWAYS_INLINE Words<N> words(Bytes<N> samples)
    {
        return Gain::split(samples).odd;
    }
};

// A line with its subpicture. Two such lines share nothing, since each has a subpicture of its own. Every second pixel
// takes its own alpha, every second chroma sample that of its fourth pixel.
template <class Gain> struct MixedHalfWidthLine {
    using Unmixed = HalfWidthLine<Gain, OddOfPairs>;
    static constexpr int kBytes = Unmixed::kBytes, kGrain = Unmixed::kGrain, kWidest = Unmixed::kWidest;
    static constexpr bool kComplete = true, kEights = false;
    Unmixed picture;
    Subpicture subpicture;

    ALWAYS_INLINE MixedHalfWidthLine<WrappingGain> exact() const { return {picture.exact(), subpicture}; }
    template <class Luma, class Chroma> struct Pixels {
        Luma luma;
        Chroma chroma;
    };
    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE auto own(ptrdiff_t x) const
    {
        if constexpr (N == kUnit)
            if (alphas_at(subpicture.alpha + x) == Alphas::transparent) return unmixed<N>(x);
        return mixed<N>(x);
    }
    template <class To, class Luma, class Chroma>
    static ALWAYS_INLINE void store(To to, const Pixels<Luma, Chroma>& pixels, Nothing)
    {
        Unmixed::store(to, pixels.luma, pixels.chroma);
    }

private:
    template <int N> ALWAYS_INLINE auto unmixed(ptrdiff_t x) const
    {
        auto chroma = picture.template shared<N>(x);
        return Pixels<HalfLuma<N>, decltype(chroma)>{picture.template own<N>(x), chroma};
    }
    template <int N> ALWAYS_INLINE auto mixed(ptrdiff_t x) const
    {
        const auto& p = picture;
        const auto& s = subpicture;
        auto a = odd_luma<N>(s.alpha + x), py = odd_luma<N>(p.y + x), sy = odd_luma<N>(s.y + x);
        auto chroma_alphas = split(narrow(LowHighWords<HalfLuma<N>::kSize>{a.first, a.second})).odd;
        auto chroma = [=](const uint8_t* pc, const uint8_t* sc, SampleAdjust by) VSURF_INLINED {
            return adjusted(by, blended(odd_chroma<N>(pc + x / 2), odd_chroma<N>(sc + x / 2), chroma_alphas));
        };
        HalfLuma<N> luma{adjusted(p.by.luma, blended(py.first, sy.first, a.first)),
                         adjusted(p.by.luma, blended(py.second, sy.second, a.second))};
        auto u = chroma(p.u, s.u, p.by.u);
        return Pixels<HalfLuma<N>, HalfChroma<decltype(u)>>{luma, {u, chroma(p.v, s.v, p.by.v)}};
    }
    template <int N> static ALWAYS_INLINE Words<N> adjusted(SampleAdjust by, Words<N> samples)
    {
        return VSURF_ISA::adjusted<Gain>(by, Gain::of_words(samples));
    }
    template <int N> static ALWAYS_INLINE HalfLuma<N> odd_luma(const uint8_t* p)
    {
        constexpr int size = HalfLuma<N>::kSize;
        auto first = split(load<size>(p)).odd;
        if constexpr (N == kBlock) return {first, first};
        else return {first, split(load<size>(p + size)).odd};
    }
    template <int N> static ALWAYS_INLINE auto odd_chroma(const uint8_t* p)
    {
        if constexpr (N == kBlock) return split(load_first8(p)).odd;
        else return split(load<N / 2, 2>(p)).odd;
    }
};
static_assert(Line<MixedHalfWidthLine<FastGain>>);

// The line is passed by value: what has no address stays in registers around the stores.
template <class Line> NEVER_INLINE void write_line(Writer& writer, Line line, uint8_t* to, Range r)
{
    writer.line(line, to, r);
}

// What is rare is exact, not fast: gains that wrap, and lines that overlap.
ALWAYS_INLINE void mix_half_width(const FramePairs& pairs, const Adjustments& by)
{
    using Line = MixedHalfWidthLine<FastGain>;
    auto mixed = [=](const MixedLine<Row>& line) VSURF_INLINED {
        return Line{{line.y.samples, line.u.samples, line.v.samples, by}, line.subpicture};
    };
    const bool freely = FastGain::suits(by) && !pairs.store_order_matters();
    Writer writer(pairs.target());
    pairs.each([&](const MixedLine<Row>& upper_line, const MixedLine<Row>& lower_line) VSURF_INLINED {
        const Line upper = mixed(upper_line), lower = mixed(lower_line);
        uint8_t *to_upper = upper_line.dst, *to_lower = lower_line.dst;
        if (!freely) return Writer::blocks_in_turn(upper, lower, to_upper, to_lower, {0, pairs.width});
        each_part(pairs.width, Samples::kPixels, [&](ptrdiff_t x, ptrdiff_t pixels, bool) VSURF_INLINED {
            const Range part{x, x + pixels};
            if (transparent(upper.subpicture.alpha + x, lower.subpicture.alpha + x, pixels)) {
                writer.pair(upper.picture, lower.picture, to_upper, to_lower, part);
            } else {
                write_line(writer, upper, to_upper, part);
                write_line(writer, lower, to_lower, part);
            }
        });
    });
}

} // namespace vsurf::VSURF_ISA
