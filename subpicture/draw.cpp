// SPDX-License-Identifier: MIT
// Subpictures without a picture. Where they are transparent they have the key colour.
#include "frame/dispatch.h"
#include "subpicture/samples.h"

namespace vsurf::VSURF_ISA {

// Irregular: alphas from 128 on, negative as signed bytes, give black, and the key's bytes are written in reverse.
template <class Format> struct Keyed : Format {
    uint32_t key;

    template <class To, int N> ALWAYS_INLINE void put(To to, Bytes<N> alpha, Bytes<N> b, Bytes<N> g, Bytes<N> r) const
    {
        auto zero = Bytes<N>::splat(0);
        auto transparent = equal(alpha, zero), shown = equal(sub_sat_unsigned(alpha, Bytes<N>::splat(127)), zero);
        auto keyed = [=, this](Bytes<N> colour, int byte) VSURF_INLINED {
            return choose(transparent, Bytes<N>::splat(static_cast<int>(this->key >> byte * 8)),
                          bit_and(shown, colour));
        };
        Format::put(to, keyed(b, 2), keyed(g, 1), keyed(r, 0));
    }
};

// 16-bit pixels take the key's low word as it stands, and every other alpha shows the colour.
template <> struct Keyed<Rgb16Format> : Rgb16Format {
    uint32_t key;

    template <class To, int N> ALWAYS_INLINE void put(To to, Bytes<N> alpha, Bytes<N> b, Bytes<N> g, Bytes<N> r) const
    {
        auto transparent = equal(alpha, Bytes<N>::splat(0));
        store_packed_pairs(to, choose(transparent, Bytes<N>::splat(static_cast<int>(key)), low(b, g)),
                           choose(transparent, Bytes<N>::splat(static_cast<int>(key >> 8)), high(g, r)));
    }
};

// Pixels of a surface; x counts pixels. Lines are drawn one by one, so nothing is shared.
template <class Format> struct DrawnLine {
    static constexpr int kBytes = Format::kBytes, kGrain = 2, kWidest = kRegister;
    static constexpr bool kComplete = true, kEights = false;
    Subpicture from;
    Format format;

    template <int N> struct Pixels {
        EvenOddWords<N> luma;
        ChromaTerms<N> chroma;
        Bytes<N> alpha;
    };
    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Pixels<N> own(ptrdiff_t x) const
    {
        constexpr int W = Format::kWeave;
        return {split_times4(load<N, W>(from.y + x)),
                chroma_terms(Bt601Limited{}, load_chroma<N, W>(from.u + x / 2), load_chroma<N, W>(from.v + x / 2)),
                pack(split(load<N, W>(from.alpha + x)))};
    }
    template <class To, int N> ALWAYS_INLINE void store(To to, const Pixels<N>& pixels, Nothing) const
    {
        auto px = to_rgb(Bt601Limited{}, pixels.luma, pixels.chroma);
        format.put(to, pixels.alpha, pack(px.b), pack(px.g), pack(px.r));
    }
};
static_assert(Line<DrawnLine<Keyed<Bgr>>>);

template <class Format>
[[maybe_unused]] static NEVER_INLINE void draw_line(const void* format, Writer& writer, const Subpicture& from,
                                                    uint8_t* to, ptrdiff_t pixels)
{
    writer.line(DrawnLine<Format>{from, *static_cast<const Format*>(format)}, to, {0, pixels});
}

// A format that is chosen when a drawer is called: all other code is the same for every surface.
struct AnyFormat {
    const void* format;
    int bytes; // a pixel
    void (*draw_line)(const void* format, Writer&, const Subpicture& from, uint8_t* to, ptrdiff_t pixels);

    template <class Format>
    explicit AnyFormat(const Format& f) : format(&f), bytes(Format::kBytes), draw_line(VSURF_ISA::draw_line<Format>)
    {
    }
};

// Irregular: the picture's pitch is the length of a line, in which the planes are packed; the width is not read.
template <bool adjusted> [[maybe_unused]] static NEVER_INLINE void draw(const MIX_INFO* job, const AnyFormat& to)
{
    const ptrdiff_t width = whole_steps(job->picture_pitch, kBlock), lines = at_least_one(job->height);
    const ptrdiff_t step = to.bytes * (width - job->picture_pitch) + job->surface_pitch;
    const auto by = adjustments_now();
    Writer writer(Target::lines(job->surface, step, width * to.bytes, lines));
    for (ptrdiff_t i = 0; i < lines; i++)
        each_part(width, Samples::kPixels, [&](ptrdiff_t x, ptrdiff_t pixels, bool) VSURF_INLINED {
            const ptrdiff_t at = i * width + x;
            Subpicture from = subpicture(job) + Distance{at, at / 2, 0};
            Samples samples;
            if constexpr (adjusted) {
                samples.adjust(Row{from.y}, Row{from.u}, Row{from.v}, pixels, by);
                from = {from.alpha, samples.y, samples.u, samples.v};
            }
            to.draw_line(to.format, writer, from, job->surface + i * step + x * to.bytes, pixels);
        });
}

template <bool adjusted> ALWAYS_INLINE void draw_rgb32(Job job)
{
    draw<adjusted>(job, AnyFormat(Keyed<Bgr0>{{}, job->color_key}));
}
template <bool adjusted> ALWAYS_INLINE void draw_rgb24(Job job)
{
    draw<adjusted>(job, AnyFormat(Keyed<Bgr>{{}, job->color_key}));
}
template <bool adjusted> ALWAYS_INLINE void draw_rgb16(Job job)
{
    with_rgb16_sink(job->contrast_info->rgb16_layout, [=](Rgb16 sink) VSURF_INLINED {
        draw<adjusted>(job, AnyFormat(Keyed<Rgb16Format>{sink, job->color_key}));
    });
}

void load_subpicture_yuy2_rgb32(Job job) { draw_rgb32<false>(job); }
void load_subpicture_yuy2_rgb24(Job job) { draw_rgb24<false>(job); }
void load_subpicture_yuy2_rgb16(Job job) { draw_rgb16<false>(job); }
void load_subpicture_yuy2_rgb32_ajust(Job job) { draw_rgb32<true>(job); }
void load_subpicture_yuy2_rgb24_ajust(Job job) { draw_rgb24<true>(job); }
void load_subpicture_yuy2_rgb16_ajust(Job job) { draw_rgb16<true>(job); }

} // namespace vsurf::VSURF_ISA
