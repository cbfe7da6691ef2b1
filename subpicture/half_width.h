// SPDX-License-Identifier: MIT
// Mixed YUY2 pixels at half the picture's width: of pixels and of chroma samples every second one, the odd ones.
#pragma once
#include "subpicture/pairs.h"

namespace vsurf::VSURF_ISA {

// The odd ones of N pixels as words: in two registers, or a block's eight in one.
template <int N> struct OddPixels {
    static constexpr int kRegister = N == kBlock ? 16 : N / 2;
    Words<kRegister> first, second;

    static ALWAYS_INLINE OddPixels of(const uint8_t* p)
    {
        auto odd = [](const uint8_t* at) VSURF_INLINED { return split(load<kRegister>(at)).odd; };
        if constexpr (N == kBlock) return {odd(p), odd(p)};
        else return {odd(p), odd(p + kRegister)};
    }
    // Every second of them, in the order of odd_chroma.
    ALWAYS_INLINE Words<kRegister> odd() const { return split(narrow(LowHighWords<kRegister>{first, second})).odd; }
};

// The odd ones of the chroma of N pixels; of a block the first four words.
template <int N> ALWAYS_INLINE auto odd_chroma(const uint8_t* p)
{
    if constexpr (N == kBlock) return split(load_first8(p)).odd;
    else return split(load<N / 2, 2>(p)).odd;
}

template <Stores S, int N, class Words> ALWAYS_INLINE void store_half(uint8_t* p, OddPixels<N> y, Words u, Words v)
{
    if constexpr (N == kBlock) store_first8_yuyv(p, y.first, u, v);
    else store_yuyv(to<S>(p), y.first, y.second, u, v);
}

// Two lines without a subpicture.
struct HalfAlone {
    static constexpr int kWidest = kUnit, kBytes = 1; // a pixel of the picture
    static constexpr bool kStreams = true;
    const uint8_t *upper, *lower, *u, *v;
    Adjustments by;

    template <class Words> struct Chroma {
        Words u, v;
    };
    template <int N> ALWAYS_INLINE auto chroma(Position, ptrdiff_t x) const
    {
        auto at = [=](const uint8_t* plane) VSURF_INLINED { return odd_chroma<N>(plane + x / 2); };
        return Chroma<decltype(at(u))>{by.u(at(u)), by.v(at(v))};
    }
    template <Line line, int N> ALWAYS_INLINE OddPixels<N> luma(Position, ptrdiff_t x) const
    {
        auto y = OddPixels<N>::of((line == Line::upper ? upper : lower) + x);
        return {by.luma(y.first), by.luma(y.second)};
    }
    template <Stores S, Line, int N, class Words>
    ALWAYS_INLINE void store(Position at, ptrdiff_t x, OddPixels<N> y, Chroma<Words> c) const
    {
        store_half<S>(at.dst + x, y, c.u, c.v);
    }
};

// A line with one.
struct HalfLine {
    MixedLine<Row> line;
    Adjustments by;

    template <Stores S, int N, class Words>
    ALWAYS_INLINE void store(ptrdiff_t x, OddPixels<N> y, Words u, Words v) const
    {
        store_half<S>(line.dst + x, OddPixels<N>{by.luma(y.first), by.luma(y.second)}, by.u(u), by.v(v));
    }
    template <Stores S, int N> ALWAYS_INLINE void alone(ptrdiff_t x) const
    {
        store<S>(x, OddPixels<N>::of(line.y.samples + x), odd_chroma<N>(line.u.samples + x / 2),
                 odd_chroma<N>(line.v.samples + x / 2));
    }
    // Every second pixel has its own alpha, every second chroma sample that of its fourth pixel.
    template <Stores S, int N> ALWAYS_INLINE void blend(ptrdiff_t x) const
    {
        const auto& over = line.subpicture;
        auto a = OddPixels<N>::of(over.alpha + x), p = OddPixels<N>::of(line.y.samples + x),
             s = OddPixels<N>::of(over.y + x);
        auto chroma = [=](const uint8_t* picture, const uint8_t* samples) VSURF_INLINED {
            return blended(odd_chroma<N>(picture + x / 2), odd_chroma<N>(samples + x / 2), a.odd());
        };
        store<S>(x, OddPixels<N>{blended(p.first, s.first, a.first), blended(p.second, s.second, a.second)},
                 chroma(line.u.samples, over.u), chroma(line.v.samples, over.v));
    }

    template <Stores S> ALWAYS_INLINE void units(ptrdiff_t x, ptrdiff_t end) const
    {
        for (; x < end; x += kUnit) {
            if (alphas_at(line.subpicture.alpha + x) == Alphas::transparent) alone<S, kUnit>(x);
            else blend<S, kUnit>(x);
        }
    }
    ALWAYS_INLINE void blocks(ptrdiff_t x, ptrdiff_t end) const
    {
        for (; x < end; x += kBlock) blend<Stores::cached, kBlock>(x);
    }
};

[[maybe_unused]] static NEVER_INLINE void mix_half_line(MixedLine<Row> line, Adjustments by, ptrdiff_t x, ptrdiff_t end,
                                                        bool streamed)
{
    const HalfLine half{line, by};
    const ptrdiff_t whole = streamed ? x + ((end - x) & -streaming_unit(HalfAlone::kBytes, kUnit)) : x;
    const ptrdiff_t units = x + ((end - x) & -kUnit);
    if (streamed) half.units<Stores::streaming>(x, whole);
    half.units<Stores::cached>(whole, units);
    half.blocks(units, end);
}

[[maybe_unused]] static NEVER_INLINE void mix_half_lines(const MixedLine<Row>& upper, const MixedLine<Row>& lower,
                                                         const Adjustments& by, ptrdiff_t width, bool streamed)
{
    each_mixed_part(width, [&](ptrdiff_t x, ptrdiff_t pixels) VSURF_INLINED {
        if (transparent(upper.subpicture.alpha + x, lower.subpicture.alpha + x, pixels)) {
            const HalfAlone alone{upper.y.samples + x, lower.y.samples + x, upper.u.samples + x / 2,
                                  upper.v.samples + x / 2, by};
            write_two_lines(alone, upper.dst + x, lower.dst + x, pixels, streamed);
        } else {
            mix_half_line(upper, by, x, x + pixels, streamed);
            mix_half_line(lower, by, x, x + pixels, streamed);
        }
    });
}

[[maybe_unused]] static NEVER_INLINE void mix_half_blocks(const MixedLine<Row>& upper, const MixedLine<Row>& lower,
                                                          const Adjustments& by, ptrdiff_t width)
{
    for (ptrdiff_t x = 0; x < width; x += kBlock) {
        HalfLine{upper, by}.blocks(x, x + kBlock);
        HalfLine{lower, by}.blocks(x, x + kBlock);
    }
}

ALWAYS_INLINE void mix_half(const FramePairs& pairs)
{
    const auto by = adjustments_now();
    const bool in_order = pairs.order_shows(), streamed = !in_order && pairs.streamed();
    pairs.each([&](const auto& upper, const auto& lower) VSURF_INLINED {
        if (in_order) mix_half_blocks(upper, lower, by, pairs.width());
        else mix_half_lines(upper, lower, by, pairs.width(), streamed);
    });
    if (streamed) fence_streaming();
}

} // namespace vsurf::VSURF_ISA
