// SPDX-License-Identifier: MIT
// Sinks: the formats of surfaces, and lines that consist of sources and a sink.
#pragma once
#include "frame/rgb.h"
#include "frame/source.h"
#include "frame/writer.h"

namespace vsurf::VSURF_ISA {

// A format of packed pixels.
//
//   kBytes     bytes a pixel
//   kWeave     the weave that its stores expect
//   kComplete  whether every byte is stored
//   chroma(uv)               what it computes from the chroma of N pixels
//   luma<N>(source, x)       the luma of N pixels in the form that it takes
//   store(to, luma, chroma)  stores N pixels
//
// Only what depends on values of the sink is not static.
template <class S>
concept Sink = requires(const S& sink, EvenOddWords<16> uv, const Row& y, uint8_t* to)
{
    requires S::kBytes >= 1 && (S::kWeave == 1 || S::kWeave == 2 || S::kWeave == 4);
    {
        S::kComplete
        } -> SameAs<const bool&>;
    sink.store(to, S::template luma<16>(y, 0), sink.chroma(uv));
};

// Pixels made of red, green and blue. `put` of a format stores N of them from three registers of bytes in packed order.
template <class Format, class Encoding = Bt601Limited> struct RgbSink : Format, Encoding {
    static constexpr bool kComplete = true;
    template <int N> ALWAYS_INLINE ChromaTerms<N> chroma(EvenOddWords<N> uv) const
    {
        return chroma_terms<Encoding>(*this, uv.even, uv.odd);
    }
    template <int N, class Y> static ALWAYS_INLINE EvenOddWords<N> luma(const Y& y, ptrdiff_t x)
    {
        return times4<N, Format::kWeave>(y, x);
    }
    template <class To, int N>
    ALWAYS_INLINE void store(To to, const EvenOddWords<N>& luma, const ChromaTerms<N>& chroma) const
    {
        auto px = to_rgb<Encoding>(*this, luma, chroma);
        this->put(to, pack(px.b), pack(px.g), pack(px.r));
    }
};

template <int fourth> struct BgrAnd {
    static constexpr int kBytes = 4, kWeave = 4;
    template <class To, int N> static ALWAYS_INLINE void put(To to, Bytes<N> b, Bytes<N> g, Bytes<N> r)
    {
        store_bgr_and<fourth>(to, b, g, r);
    }
};
using Bgr0 = BgrAnd<0>;

struct Bgr {
    static constexpr int kBytes = 3, kWeave = 1;
    template <class To, int N> static ALWAYS_INLINE void put(To to, Bytes<N> b, Bytes<N> g, Bytes<N> r)
    {
        store_bgr(to, b, g, r);
    }
};

// Red comes first.
template <class Format> struct RedFirst : Format {
    template <class To, int N> static ALWAYS_INLINE void put(To to, Bytes<N> b, Bytes<N> g, Bytes<N> r)
    {
        Format::put(to, r, g, b);
    }
};

// Pixels of 16 bits: (R & red) << 8 | (G & green) << green_shift | (B & blue) >> blue_shift. The layout is no template
// argument: that costs a register or two and saves three copies of all code that writes such pixels.
struct Rgb16Format {
    static constexpr int kBytes = 2, kWeave = 2;
    int red, green_shift, green_high, green_low, blue_shift, blue_low; // masks of the word's two bytes

    static constexpr Rgb16Format with(int red, int green, int green_shift, int blue, int blue_shift)
    {
        const int green_word = green << green_shift;
        return {red, green_shift, green_word >> 8, green_word & 255, blue_shift, blue >> blue_shift};
    }
    template <int N> ALWAYS_INLINE Bytes<N> low(Bytes<N> b, Bytes<N> g) const
    {
        return bit_or(shifted_left(g, green_shift, green_low), shifted_right(b, blue_shift, blue_low));
    }
    template <int N> ALWAYS_INLINE Bytes<N> high(Bytes<N> g, Bytes<N> r) const
    {
        return bit_or(bit_and(r, Bytes<N>::splat(red)), shifted_right(g, 8 - green_shift, green_high));
    }
    template <class To, int N> ALWAYS_INLINE void put(To to, Bytes<N> b, Bytes<N> g, Bytes<N> r) const
    {
        store_packed_pairs(to, low(b, g), high(g, r));
    }
};
inline constexpr Rgb16Format kRgb16Formats[] = {
    Rgb16Format::with(0xf8, 0xfc, 3, 0xf8, 3), // 5-6-5
    Rgb16Format::with(0xf8, 0xf8, 3, 0xf8, 2), // 5-5-5; bit 0 is the zero bit
    Rgb16Format::with(0xfc, 0xfc, 2, 0xf0, 4), // 6-6-4
    Rgb16Format::with(0xfc, 0xf8, 2, 0xf8, 3), // 6-5-5
};

using Rgb32 = RgbSink<Bgr0>;
using Rgb24 = RgbSink<Bgr>;
using Rgb16 = RgbSink<Rgb16Format>;

// Calls `work` with the sink of the layout; layouts beyond the four write nothing.
template <class Work> ALWAYS_INLINE void with_rgb16_sink(int layout, const Work& work)
{
    if (layout >= 0 && layout <= 3) work(Rgb16{{kRgb16Formats[layout]}, {}});
}

struct Yuy2 {
    static constexpr int kBytes = 2, kWeave = 2;
    static constexpr bool kComplete = true;
    template <int N> static ALWAYS_INLINE Bytes<N> chroma(EvenOddWords<N> uv) { return join(uv); }
    template <int N, class Y> static ALWAYS_INLINE Bytes<N> luma(const Y& y, ptrdiff_t x)
    {
        return y.template bytes<N, kWeave>(x);
    }
    template <class To, int N> static ALWAYS_INLINE void store(To to, Bytes<N> y, Bytes<N> uv)
    {
        store_pairs(to, y, uv);
    }
};
struct Uyvy : Yuy2 {
    template <class To, int N> static ALWAYS_INLINE void store(To to, Bytes<N> y, Bytes<N> uv)
    {
        store_pairs(to, uv, y);
    }
};

// YUY2 that leaves pixels 0 to 3 of every block as they are.
struct Yuy2WithHoles : Yuy2 {
    static constexpr bool kComplete = false;
    template <int N> static ALWAYS_INLINE void store(uint8_t* to, Bytes<N> y, Bytes<N> uv)
    {
        store_pairs_but_first_eight(to, y, uv);
    }
};
static_assert(Sink<Rgb32> && Sink<Rgb24> && Sink<Rgb16> && Sink<Yuy2> && Sink<Yuy2WithHoles>);

// Pixels of a surface; x counts pixels. Two of them share their chroma.
template <Sink Format, Source Y, class Chroma> struct PixelLine {
    static constexpr int kBytes = Format::kBytes, kGrain = 2, kWidest = Y::kWidest;
    static constexpr bool kComplete = Format::kComplete, kEights = false, kMayRepeat = true;
    Y y;
    Chroma uv;
    Format format;

    ALWAYS_INLINE PixelLine<Format, ExactOf<Y>, ExactOf<Chroma>> exact() const
    {
        return {VSURF_ISA::exact(y), VSURF_ISA::exact(uv), format};
    }
    template <int N> ALWAYS_INLINE auto shared(ptrdiff_t x) const
    {
        return format.chroma(uv.template of<N, Format::kWeave>(x));
    }
    template <int N> ALWAYS_INLINE auto own(ptrdiff_t x) const { return Format::template luma<N>(y, x); }
    template <class To, class Luma, class Uv> ALWAYS_INLINE void store(To to, const Luma& luma, const Uv& chroma) const
    {
        format.store(to, luma, chroma);
    }
};
static_assert(Line<PixelLine<Rgb32, Row, PlanarChroma<Row>>>);

// What a line shares that shares nothing.
struct Nothing {};

// Pairs of samples, a0 b0 a1 b1 ...; x counts pairs.
struct PairLine {
    static constexpr int kBytes = 2, kGrain = 1, kWidest = kRegister;
    static constexpr bool kComplete = true, kEights = false, kMayRepeat = true;
    template <int N> struct Pair {
        Bytes<N> a, b;
    };
    Row a, b;

    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Pair<N> own(ptrdiff_t x) const { return {a.bytes<N, 2>(x), b.bytes<N, 2>(x)}; }
    template <class To, int N> ALWAYS_INLINE void store(To to, const Pair<N>& pair, Nothing) const
    {
        store_pairs(to, pair.a, pair.b);
    }
};
static_assert(Line<PairLine>);

// Samples of a plane; x counts samples.
template <Source Of> struct PlaneLine {
    static constexpr int kBytes = 1, kGrain = 1, kWidest = Of::kWidest;
    static constexpr bool kComplete = true, kEights = true;
    Of of;

    ALWAYS_INLINE PlaneLine<ExactOf<Of>> exact() const { return {VSURF_ISA::exact(of)}; }
    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Bytes<N> own(ptrdiff_t x) const { return of.template bytes<N, 1>(x); }
    template <class To, int N> ALWAYS_INLINE void store(To to, Bytes<N> samples, Nothing) const { put(to, samples); }
    ALWAYS_INLINE void store_eight(uint8_t* to, ptrdiff_t x) const
    {
        auto eight = of.template words<16, 1>(x);
        put_first8(to, pack_in_order(eight, eight));
    }
};
template <class Of> PlaneLine(Of) -> PlaneLine<Of>;
static_assert(Line<PlaneLine<Row>>);

} // namespace vsurf::VSURF_ISA
