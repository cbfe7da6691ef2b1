// SPDX-License-Identifier: MIT
// Subpictures by themselves, in the key colour where they are transparent.
#include "frame/dispatch.h"
#include "frame/pack.h"
#include "scale/adjusted.h"
#include "subpicture/lines.h"

namespace vsurf::VSURF_ISA {

// Irregular: alphas from 128 on, negative as signed bytes, give black, and the key's bytes are written in reverse.
template <class Sink> struct Keyed {
    static constexpr int kBytes = Sink::kBytes, kWeave = Sink::kWeave;
    uint32_t key;

    template <Stores S, int N>
    ALWAYS_INLINE void put(uint8_t* p, Bytes<N> alpha, Bytes<N> b, Bytes<N> g, Bytes<N> r) const
    {
        auto zero = Bytes<N>::splat(0);
        auto transparent = equal(alpha, zero), shown = equal(sub_sat_unsigned(alpha, Bytes<N>::splat(127)), zero);
        auto keyed = [=, this](Bytes<N> colour, int byte) VSURF_INLINED {
            return choose(transparent, Bytes<N>::splat(static_cast<int>(this->key >> byte * 8)),
                          bit_and(shown, colour));
        };
        Sink::template put<S>(p, keyed(b, 2), keyed(g, 1), keyed(r, 0));
    }
};

// 16-bit pixels take the key's low word as it stands, and every other alpha shows the colour.
struct KeyedWords {
    static constexpr int kBytes = Word::kBytes, kWeave = Word::kWeave;
    uint32_t key;
    Word word;

    template <Stores S, int N>
    ALWAYS_INLINE void put(uint8_t* p, Bytes<N> alpha, Bytes<N> b, Bytes<N> g, Bytes<N> r) const
    {
        auto transparent = equal(alpha, Bytes<N>::splat(0));
        auto low = choose(transparent, Bytes<N>::splat(static_cast<int>(key)), word.low(b, g));
        auto high = choose(transparent, Bytes<N>::splat(static_cast<int>(key >> 8)), word.high(g, r));
        store_packed_pairs(to<S>(p), low, high);
    }
};

struct Drawing {
    const uint8_t *alpha, *y, *u, *v;
};

template <Stores S, int N, class Pixels>
ALWAYS_INLINE void draw_pixels(const Pixels& pixels, const Drawing& from, ptrdiff_t x, uint8_t* to)
{
    constexpr int W = Pixels::kWeave;
    auto terms = chroma_terms(load_chroma<N, W>(from.u + x / 2), load_chroma<N, W>(from.v + x / 2));
    auto px = to_rgb(split_times4(load<N, W>(from.y + x)), terms);
    auto alpha = pack(split(load<N, W>(from.alpha + x)));
    pixels.template put<S>(to + x * Pixels::kBytes, alpha, pack(px.b), pack(px.g), pack(px.r));
}

template <class Pixels>
[[maybe_unused]] static NEVER_INLINE void draw_part(Pixels pixels, Drawing from, ptrdiff_t width, uint8_t* to,
                                                    bool streamed)
{
    const ptrdiff_t whole = streamed ? width & -streaming_unit(Pixels::kBytes) : 0;
    for (ptrdiff_t x = 0; x < whole; x += kRegister) draw_pixels<Stores::streaming, kRegister>(pixels, from, x, to);
    along<kRegister, kBlock>(
        whole, width, [=]<int N>(ptrdiff_t x) VSURF_INLINED { draw_pixels<Stores::cached, N>(pixels, from, x, to); });
}

// The samples as they are, or once they are adjusted.
struct Unadjusted {
    template <class Work> ALWAYS_INLINE void prepare(const Drawing& from, ptrdiff_t, const Work& work) const
    {
        work(from);
    }
};
struct AdjustedFirst {
    Adjustments by;
    template <class Work> ALWAYS_INLINE void prepare(const Drawing& from, ptrdiff_t width, const Work& work) const
    {
        uint8_t y[kStripPixels], u[kStripPixels / 2], v[kStripPixels / 2];
        adjust_line(y, Row{from.y}, width, by.luma);
        adjust_line(u, Row{from.u}, width / 2, by.u);
        adjust_line(v, Row{from.v}, width / 2, by.v);
        work(Drawing{from.alpha, y, u, v});
    }
};

// Irregular: the picture's pitch is the length of a line, in which the planes are packed; the width is not read.
template <class Pixels, class Samples>
ALWAYS_INLINE void draw(const MIX_INFO* job, const Pixels& pixels, const Samples& samples)
{
    const ptrdiff_t width = rounds(job->picture_pitch, kBlock) * kBlock, lines = at_least_one(job->height);
    const ptrdiff_t step = Pixels::kBytes * (width - job->picture_pitch) + job->surface_pitch;
    const bool streamed = streams(job->surface, step, width * Pixels::kBytes, lines);
    for (ptrdiff_t i = 0; i < lines; i++)
        for (ptrdiff_t x = 0; x < width; x += kStripPixels) {
            const ptrdiff_t part = width - x < kStripPixels ? width - x : kStripPixels, at = i * width + x;
            const Drawing from{job->subpic_alpha + at, job->subpic_y + at, job->subpic_u + at / 2,
                               job->subpic_v + at / 2};
            samples.prepare(from, part, [=](const Drawing& prepared) VSURF_INLINED {
                draw_part(pixels, prepared, part, job->surface + i * step + x * Pixels::kBytes, streamed);
            });
        }
    if (streamed) fence_streaming();
}

template <class Format, class Samples> ALWAYS_INLINE void draw_bytes(const MIX_INFO* job, const Samples& samples)
{
    draw(job, Keyed<Format>{job->color_key}, samples);
}
template <class Samples> ALWAYS_INLINE void draw_words(const MIX_INFO* job, const Samples& samples)
{
    with_rgb16_sink(job->contrast_info->rgb16_layout, [&](Rgb16 sink) VSURF_INLINED {
        draw(job, KeyedWords{job->color_key, sink}, samples);
    });
}

void load_subpicture_yuy2_rgb32(MIX_INFO* job) { draw_bytes<Bgr0>(job, Unadjusted{}); }
void load_subpicture_yuy2_rgb24(MIX_INFO* job) { draw_bytes<Bgr>(job, Unadjusted{}); }
void load_subpicture_yuy2_rgb16(MIX_INFO* job) { draw_words(job, Unadjusted{}); }
void load_subpicture_yuy2_rgb32_ajust(MIX_INFO* job) { draw_bytes<Bgr0>(job, AdjustedFirst{adjustments_now()}); }
void load_subpicture_yuy2_rgb24_ajust(MIX_INFO* job) { draw_bytes<Bgr>(job, AdjustedFirst{adjustments_now()}); }
void load_subpicture_yuy2_rgb16_ajust(MIX_INFO* job) { draw_words(job, AdjustedFirst{adjustments_now()}); }

} // namespace vsurf::VSURF_ISA
