// SPDX-License-Identifier: MIT
// Subpictures on pictures, two lines at a time: mixed lines of samples on the stack, from which the surface is written.
//
// `PairAlpha` is the alpha of a pair's chroma, and a writer shows the samples on the surface.
#pragma once
#include "frame/dispatch.h"
#include "load/planar.h"
#include "scale/adjusted.h"
#include "scale/rows.h"
#include "subpicture/plane.h"

namespace vsurf::VSURF_ISA {

struct Subpicture {
    const uint8_t *alpha, *y, *u, *v;
};

// Where the samples of a line come from, and where its pixels go.
template <class Source> struct MixedLine {
    Source y, u, v;
    Subpicture subpicture;
    uint8_t* dst;
};

// Source pixels that are mixed at a time: what is kept of two lines takes 8 KiB.
constexpr ptrdiff_t kMixedPixels = 2048;

struct Samples {
    alignas(64) uint8_t y[kMixedPixels], u[kMixedPixels / 2], v[kMixedPixels / 2];
    ALWAYS_INLINE Position shown_at(uint8_t* dst) const { return {y, u, v, dst}; }
};

template <class PairAlpha, class Source>
[[maybe_unused]] static NEVER_INLINE void mix_samples(const MixedLine<Source>& line, ptrdiff_t x, ptrdiff_t pixels,
                                                      const Adjustments& by, Samples& to)
{
    const auto& over = line.subpicture;
    const uint8_t* alpha = over.alpha + x;
    with_gain(by, [&](auto gain) VSURF_INLINED {
        using After = AdjustedBy<decltype(gain)>;
        const YuvLine<Source, PairAlpha, After> mixed{
            {line.y + x, over.y + x, alpha, to.y, {by.luma}},
            {line.u + x / 2, over.u + x / 2, alpha, to.u, {by.u}},
            {line.v + x / 2, over.v + x / 2, alpha, to.v, {by.v}},
            alpha,
        };
        blend_line(mixed, pixels, 0);
    });
}

// The picture's alone, of two lines that share their chroma.
template <class Source>
ALWAYS_INLINE void adjust_samples(const MixedLine<Source>& upper, const MixedLine<Source>& lower, ptrdiff_t x,
                                  ptrdiff_t pixels, const Adjustments& by, Samples& to, Samples& to_lower)
{
    adjust_line(to.y, upper.y + x, pixels, by.luma);
    adjust_line(to_lower.y, lower.y + x, pixels, by.luma);
    adjust_line(to.u, upper.u + x / 2, pixels / 2, by.u);
    adjust_line(to.v, upper.v + x / 2, pixels / 2, by.v);
}

// Writes lines of samples, in whole blocks.
template <class Sink> struct Writer {
    static ALWAYS_INLINE PlanarStep<Sink, Plain> step(const void* sink)
    {
        return {{}, *static_cast<const Sink*>(sink)};
    }

    // Two lines that share the upper one's chroma.
    static NEVER_INLINE void pair(const void* sink, Position upper, Position lower, ptrdiff_t pixels, bool streamed)
    {
        write_pass(step(sink), upper, lower, pixels, streamed);
    }
    static NEVER_INLINE void line(const void* sink, Position at, ptrdiff_t x, ptrdiff_t end, bool streamed)
    {
        write_line(step(sink), at, x, end, streamed);
    }
};

// One of them, chosen when a mixer is called: all else is the same code for every surface.
struct AnyWriter {
    const void* sink;
    int bytes; // a pixel
    void (*pair_with)(const void*, Position, Position, ptrdiff_t, bool);
    void (*line_with)(const void*, Position, ptrdiff_t, ptrdiff_t, bool);

    template <class Sink> static ALWAYS_INLINE AnyWriter of(const Sink& sink)
    {
        return {&sink, Sink::kBytes, Writer<Sink>::pair, Writer<Sink>::line};
    }
    ALWAYS_INLINE void pair(Position upper, Position lower, ptrdiff_t pixels, bool streamed) const
    {
        pair_with(sink, upper, lower, pixels, streamed);
    }
    ALWAYS_INLINE void line(Position at, ptrdiff_t x, ptrdiff_t end, bool streamed) const
    {
        line_with(sink, at, x, end, streamed);
    }
};

// Which pixels of a picture follow each other; it shows where lines overlap.
enum class MixOrder { block_by_block, line_by_line, strip_by_strip };

// Calls `work(x, pixels)` for the parts of a line.
template <class Work> ALWAYS_INLINE void each_mixed_part(ptrdiff_t width, const Work& work)
{
    for (ptrdiff_t x = 0; x < width; x += kMixedPixels) work(x, width - x < kMixedPixels ? width - x : kMixedPixels);
}

// How two lines without a subpicture are written: through samples, too, which costs little beside RGB,
struct ThroughSamples {
    template <class Line, class Mixer>
    static ALWAYS_INLINE void write(const Mixer& mixer, const Line& upper, const Line& lower, ptrdiff_t x,
                                    ptrdiff_t pixels)
    {
        mixer.adjusted(upper, lower, x, pixels);
    }
};

// or at once.
template <class Sink> struct Directly {
    template <class Source>
    static NEVER_INLINE void write_adjusted(MixedLine<Source> upper, MixedLine<Source> lower, ptrdiff_t x,
                                            ptrdiff_t pixels, Adjustments by, bool streamed)
    {
        using From = Adjust<CommonGain, Source>;
        const SourcesStep<Sink, kRegister, From, From, From> step{
            {by.luma, upper.y + x}, {by.luma, lower.y + x}, {by.u, upper.u + x / 2}, {by.v, upper.v + x / 2}, {}};
        const ptrdiff_t at = x * Sink::kBytes;
        write_two_lines(step, upper.dst + at, lower.dst + at, pixels, streamed);
    }
    template <class Line, class Mixer>
    static ALWAYS_INLINE void write(const Mixer& mixer, const Line& upper, const Line& lower, ptrdiff_t x,
                                    ptrdiff_t pixels)
    {
        if (CommonGain::suits(mixer.by)) write_adjusted(upper, lower, x, pixels, mixer.by, mixer.streamed);
        else mixer.adjusted(upper, lower, x, pixels);
    }
};

template <class PairAlpha, class Alone> struct Mixer {
    AnyWriter writer;
    Adjustments by;
    bool streamed;

    template <class Line>
    ALWAYS_INLINE void adjusted(const Line& upper, const Line& lower, ptrdiff_t x, ptrdiff_t pixels) const
    {
        Samples samples, samples_lower;
        adjust_samples(upper, lower, x, pixels, by, samples, samples_lower);
        writer.pair(samples.shown_at(upper.dst + x * writer.bytes),
                    samples_lower.shown_at(lower.dst + x * writer.bytes), pixels, streamed);
    }
    template <class Line> ALWAYS_INLINE void mixed(const Line& line, ptrdiff_t x, ptrdiff_t pixels) const
    {
        Samples samples;
        mix_samples<PairAlpha>(line, x, pixels, by, samples);
        writer.line(samples.shown_at(line.dst + x * writer.bytes), 0, pixels, streamed);
    }

    template <class Line> ALWAYS_INLINE void two_lines(const Line& upper, const Line& lower, ptrdiff_t width) const
    {
        each_mixed_part(width, [&](ptrdiff_t x, ptrdiff_t pixels) VSURF_INLINED {
            if (transparent(upper.subpicture.alpha + x, lower.subpicture.alpha + x, pixels)) {
                Alone::write(*this, upper, lower, x, pixels);
            } else {
                mixed(upper, x, pixels);
                mixed(lower, x, pixels);
            }
        });
    }

    template <class Line>
    ALWAYS_INLINE void block_by_block(const Line& upper, const Line& lower, ptrdiff_t from, ptrdiff_t end) const
    {
        Samples samples, samples_lower;
        each_mixed_part(end - from, [&](ptrdiff_t part, ptrdiff_t pixels) VSURF_INLINED {
            const ptrdiff_t x = from + part;
            mix_samples<PairAlpha>(upper, x, pixels, by, samples);
            mix_samples<PairAlpha>(lower, x, pixels, by, samples_lower);
            for (ptrdiff_t block = 0; block < pixels; block += kBlock) {
                writer.line(samples.shown_at(upper.dst + x * writer.bytes), block, block + kBlock, false);
                writer.line(samples_lower.shown_at(lower.dst + x * writer.bytes), block, block + kBlock, false);
            }
        });
    }

    template <class Line> ALWAYS_INLINE void one_line(const Line& line, ptrdiff_t width) const
    {
        each_mixed_part(width, [&](ptrdiff_t x, ptrdiff_t pixels) VSURF_INLINED { this->mixed(line, x, pixels); });
    }

    template <class Pairs> ALWAYS_INLINE void in_order(const Pairs& pairs, ptrdiff_t width) const
    {
        const ptrdiff_t strip = Pairs::kOrder == MixOrder::strip_by_strip ? kBlock : width;
        for (ptrdiff_t x = 0; x < width; x += strip)
            pairs.each([&](const auto& upper, const auto& lower) VSURF_INLINED {
                if constexpr (Pairs::kOrder == MixOrder::line_by_line) {
                    this->one_line(upper, width);
                    this->one_line(lower, width);
                } else {
                    this->block_by_block(upper, lower, x, x + strip);
                }
            });
    }
};

// `pairs.each(work)` calls `work(upper, lower)` for each pair of lines in their order. Where pairs.order_shows(), its
// lines overlap or do not share their chroma.
template <class PairAlpha, class Alone, class Pairs> ALWAYS_INLINE void mix(const Pairs& pairs, const AnyWriter& writer)
{
    const bool in_order = pairs.order_shows();
    const Mixer<PairAlpha, Alone> mixer{writer, adjustments_now(), !in_order && pairs.streamed()};
    if (in_order) return mixer.in_order(pairs, pairs.width());
    pairs.each([&](const auto& upper, const auto& lower)
                   VSURF_INLINED { mixer.two_lines(upper, lower, pairs.width()); });
    if (mixer.streamed) fence_streaming();
}

} // namespace vsurf::VSURF_ISA
