// SPDX-License-Identifier: MIT
// Subpictures on pictures, two lines at a time: mixed lines of samples on the stack, from which the surface is written.
#pragma once
#include "frame/dispatch.h"
#include "subpicture/plane.h"
#include "subpicture/samples.h"

namespace vsurf::VSURF_ISA {

// Where the samples of a line come from, and where its pixels go.
template <Source Picture> struct MixedLine {
    Picture y, u, v;
    Subpicture subpicture;
    uint8_t* dst;
};

// Blends Y, U and V of a line into samples on the stack. They share the test of the alphas, U and V also the weights.
template <class ChromaAlpha, Source Picture, class After> struct YuvBlend {
    Blend<Picture, After> y, u, v;
    const uint8_t* alpha;

    template <Alphas known> ALWAYS_INLINE void store_unit(Samples& to, ptrdiff_t x) const
    {
        for (ptrdiff_t at = x; at < x + kUnit; at += kRegister)
            put(to.y + at, y.template bytes<kRegister>(at, load_alphas<known, PixelAlpha, kRegister>(alpha + at)));
        const auto alphas = load_alphas<known, ChromaAlpha, kRegister>(alpha + x);
        put(to.u + x / 2, u.template bytes<kRegister>(x / 2, alphas));
        put(to.v + x / 2, v.template bytes<kRegister>(x / 2, alphas));
    }
    ALWAYS_INLINE void store_block(Samples& to, ptrdiff_t x) const
    {
        put(to.y + x, y.template bytes<kBlock>(x, PixelAlpha::words<kBlock>(alpha + x)));
        const auto alphas = ChromaAlpha::eight(alpha + x);
        u.store_eight(to.u + x / 2, x / 2, alphas);
        v.store_eight(to.v + x / 2, x / 2, alphas);
    }
    static NEVER_INLINE void store_blocks(const YuvBlend& blend, Samples& to, ptrdiff_t x, ptrdiff_t end)
    {
        for (; x < end; x += kBlock) blend.store_block(to, x);
    }
    ALWAYS_INLINE void store(Samples& to, ptrdiff_t pixels, bool fast) const
    {
        ptrdiff_t x = 0;
        if (fast)
            for (; pixels - x >= kUnit; x += kUnit)
                with_alphas(alpha + x, [&]<Alphas known>() VSURF_INLINED { this->template store_unit<known>(to, x); });
        if (x < pixels) decltype(exact())::store_blocks(exact(), to, x, pixels);
    }

private:
    ALWAYS_INLINE YuvBlend<ChromaAlpha, Picture, ExactOf<After>> exact() const
    {
        return {y.exact(), u.exact(), v.exact(), alpha};
    }
};

template <class ChromaAlpha, class Picture>
NEVER_INLINE void mix_samples(const MixedLine<Picture>& line, ptrdiff_t x, ptrdiff_t pixels, const Adjustments& by,
                              Samples& to)
{
    const Subpicture from = line.subpicture + Distance{x, x / 2, 0};
    const YuvBlend<ChromaAlpha, Picture, Adjusted<FastGain>> blend{{line.y + x, from.y, {by.luma}},
                                                                   {line.u + x / 2, from.u, {by.u}},
                                                                   {line.v + x / 2, from.v, {by.v}},
                                                                   from.alpha};
    blend.store(to, pixels, FastGain::suits(by));
}

// A sink that is chosen when a mixer is called: all other code is the same for every surface. Positions are those of
// samples on the stack, and pixels are in whole blocks.
struct AnySink {
    const void* format;
    int bytes; // a pixel
    void (*line_with)(const void* format, Writer&, const Position&, ptrdiff_t pixels);
    void (*pair_with)(const void* format, Writer&, const Position& upper, const Position& lower, ptrdiff_t pixels);
    void (*blocks_in_turn_with)(const void* format, const Position& upper, const Position& lower, ptrdiff_t pixels);

    ALWAYS_INLINE void line(Writer& writer, const Position& at, ptrdiff_t pixels) const
    {
        line_with(format, writer, at, pixels);
    }
    ALWAYS_INLINE void pair(Writer& writer, const Position& upper, const Position& lower, ptrdiff_t pixels) const
    {
        pair_with(format, writer, upper, lower, pixels);
    }
    ALWAYS_INLINE void blocks_in_turn(const Position& upper, const Position& lower, ptrdiff_t pixels) const
    {
        blocks_in_turn_with(format, upper, lower, pixels);
    }
};

template <Sink Format> struct OneSink {
    static ALWAYS_INLINE auto pixels_at(const void* format, const Position& at)
    {
        return PixelLine<Format, Row, PlanarChroma<Row>>{{at.y}, {{at.u}, {at.v}}, *static_cast<const Format*>(format)};
    }
    static NEVER_INLINE void line(const void* format, Writer& writer, const Position& at, ptrdiff_t pixels)
    {
        writer.line(pixels_at(format, at), at.dst, {0, pixels});
    }
    static NEVER_INLINE void pair(const void* format, Writer& writer, const Position& upper, const Position& lower,
                                  ptrdiff_t pixels)
    {
        writer.pair(pixels_at(format, upper), pixels_at(format, lower), upper.dst, lower.dst, {0, pixels});
    }
    static NEVER_INLINE void blocks_in_turn(const void* format, const Position& upper, const Position& lower,
                                            ptrdiff_t pixels)
    {
        Writer::blocks_in_turn(pixels_at(format, upper), pixels_at(format, lower), upper.dst, lower.dst, {0, pixels});
    }
};
template <Sink Format> ALWAYS_INLINE AnySink any_sink(const Format& format)
{
    using One = OneSink<Format>;
    return {&format, Format::kBytes, One::line, One::pair, One::blocks_in_turn};
}

// Two lines without a subpicture are written as two lines with one: through samples on the stack. That costs little
// compared with the conversion to RGB.
struct ThroughSamples {
    template <class Picture>
    static ALWAYS_INLINE bool write(const MixedLine<Picture>&, const MixedLine<Picture>&, ptrdiff_t, ptrdiff_t,
                                    const Adjustments&, Writer&)
    {
        return false;
    }
};

// Two lines without a subpicture are written straight from the picture.
template <Sink Format> struct Directly {
    template <class Picture>
    static NEVER_INLINE bool write(const MixedLine<Picture>& upper, const MixedLine<Picture>& lower, ptrdiff_t x,
                                   ptrdiff_t end, const Adjustments& by, Writer& writer)
    {
        if (!FastGain::suits(by)) return false;
        using Y = Adjust<FastGain, Picture>;
        const PlanarChroma<Y> chroma{{by.u, upper.u}, {by.v, upper.v}};
        auto pixels = [=](const Picture& y) VSURF_INLINED {
            return PixelLine<Format, Y, PlanarChroma<Y>>{{by.luma, y}, chroma, {}};
        };
        writer.pair(pixels(upper.y), pixels(lower.y), upper.dst, lower.dst, {x, end});
        return true;
    }
};

template <class ChromaAlpha> struct Mixer {
    AnySink sink;
    Adjustments by;
    Writer& writer;

    ALWAYS_INLINE Position shown(const Samples& luma, const Samples& chroma, uint8_t* dst, ptrdiff_t x) const
    {
        return {luma.y, chroma.u, chroma.v, dst + x * sink.bytes};
    }
    template <class Line>
    NEVER_INLINE void unmixed(const Line& upper, const Line& lower, ptrdiff_t x, ptrdiff_t pixels) const
    {
        Samples samples, samples_lower;
        samples.adjust(upper.y + x, upper.u + x / 2, upper.v + x / 2, pixels, by);
        adjust_line(samples_lower.y, lower.y + x, pixels, by.luma);
        sink.pair(writer, shown(samples, samples, upper.dst, x), shown(samples_lower, samples, lower.dst, x), pixels);
    }
    template <class Line> NEVER_INLINE void mixed(const Line& line, ptrdiff_t x, ptrdiff_t pixels) const
    {
        Samples samples;
        mix_samples<ChromaAlpha>(line, x, pixels, by, samples);
        sink.line(writer, shown(samples, samples, line.dst, x), pixels);
    }
    template <class Line>
    NEVER_INLINE void mixed_in_turn(const Line& upper, const Line& lower, ptrdiff_t x, ptrdiff_t pixels) const
    {
        Samples samples, samples_lower;
        mix_samples<ChromaAlpha>(upper, x, pixels, by, samples);
        mix_samples<ChromaAlpha>(lower, x, pixels, by, samples_lower);
        sink.blocks_in_turn(shown(samples, samples, upper.dst, x), shown(samples_lower, samples_lower, lower.dst, x),
                            pixels);
    }

    template <class Unmixed, class Pairs> ALWAYS_INLINE void freely(const Pairs& pairs) const
    {
        pairs.each([&](const auto& upper, const auto& lower) VSURF_INLINED {
            each_part(pairs.width, Samples::kPixels, [&](ptrdiff_t x, ptrdiff_t pixels, bool) VSURF_INLINED {
                if (transparent(upper.subpicture.alpha + x, lower.subpicture.alpha + x, pixels)) {
                    if (!Unmixed::write(upper, lower, x, x + pixels, by, writer))
                        this->unmixed(upper, lower, x, pixels);
                } else {
                    this->mixed(upper, x, pixels);
                    this->mixed(lower, x, pixels);
                }
            });
        });
    }
    template <class Pairs> NEVER_INLINE void in_order(const Pairs& pairs) const
    {
        const ptrdiff_t strip = pairs.order == StoreOrder::by_strip ? kBlock : pairs.width;
        for (ptrdiff_t from = 0; from < pairs.width; from += strip)
            pairs.each([&](const auto& upper, const auto& lower) VSURF_INLINED {
                auto parts = [&](const auto& work) VSURF_INLINED {
                    each_part(strip, Samples::kPixels,
                              [&](ptrdiff_t x, ptrdiff_t pixels, bool) VSURF_INLINED { work(from + x, pixels); });
                };
                if (pairs.order == StoreOrder::by_line) {
                    parts([&](ptrdiff_t x, ptrdiff_t pixels) VSURF_INLINED { this->mixed(upper, x, pixels); });
                    parts([&](ptrdiff_t x, ptrdiff_t pixels) VSURF_INLINED { this->mixed(lower, x, pixels); });
                } else {
                    parts([&](ptrdiff_t x, ptrdiff_t pixels)
                              VSURF_INLINED { this->mixed_in_turn(upper, lower, x, pixels); });
                }
            });
    }
};

// `pairs.each(work)` calls `work(upper, lower)` for each pair of lines in their order. Where the order of stores
// matters, its lines overlap or do not share their chroma. `ChromaAlpha` is the alpha of a pair's chroma.
template <class ChromaAlpha, class Unmixed, class Pairs> ALWAYS_INLINE void mix(const Pairs& pairs, const AnySink& sink)
{
    Writer writer(pairs.target());
    const Mixer<ChromaAlpha> mixer{sink, adjustments_now(), writer};
    if (pairs.store_order_matters()) mixer.in_order(pairs);
    else mixer.template freely<Unmixed>(pairs);
}

} // namespace vsurf::VSURF_ISA
