// SPDX-License-Identifier: MIT
// Sinks: what becomes of a block's luma and chroma on the surface. Each tells its bytes a pixel, the weave that its
// stores expect, what it makes of the chroma, and how it stores the pixels of one line.
#pragma once
#include "frame/rgb.h"

namespace vsurf::VSURF_ISA {

// Formats are put from bytes in packed order.
template <class Format> struct RgbSink : Format {
    static constexpr bool kReadsChroma = true, kLeavesHoles = false;
    template <int N> static ALWAYS_INLINE ChromaTerms<N> chroma(Words<N> u, Words<N> v) { return chroma_terms(u, v); }
    template <Stores S, class Samples, int N>
    ALWAYS_INLINE void store(uint8_t* p, const Samples& samples, Bytes<N> y, const ChromaTerms<N>& chroma) const
    {
        auto px = to_rgb(samples.luma_times4(y), chroma);
        Format::template put<S>(p, pack(px.b), pack(px.g), pack(px.r));
    }
};

struct Bgr0 {
    static constexpr int kBytes = 4, kWeave = 4;
    template <Stores S, int N> static ALWAYS_INLINE void put(uint8_t* p, Bytes<N> b, Bytes<N> g, Bytes<N> r)
    {
        store_bgr0(to<S>(p), b, g, r);
    }
};

struct Bgr {
    static constexpr int kBytes = 3, kWeave = 1;
    template <Stores S, int N> static ALWAYS_INLINE void put(uint8_t* p, Bytes<N> b, Bytes<N> g, Bytes<N> r)
    {
        store_bgr(to<S>(p), b, g, r);
    }
};

// The word is (R & red) << 8 | (G & green) << green_shift | (B & blue) >> blue_shift. The layout is no template
// argument: it costs a register or two, and saves three copies of all that writes words.
struct WordLayout {
    int red, green_shift, green_high, green_low, blue_shift, blue_low; // masks of the word's two bytes

    static constexpr WordLayout of(int red, int green, int green_shift, int blue, int blue_shift)
    {
        const int green_word = green << green_shift;
        return {red, green_shift, green_word >> 8, green_word & 255, blue_shift, blue >> blue_shift};
    }
};
inline constexpr WordLayout kWordLayouts[] = {
    WordLayout::of(0xf8, 0xfc, 3, 0xf8, 3), // 5-6-5
    WordLayout::of(0xf8, 0xf8, 3, 0xf8, 2), // 5-5-5; bit 0 is the zero bit
    WordLayout::of(0xfc, 0xfc, 2, 0xf0, 4), // 6-6-4
    WordLayout::of(0xfc, 0xf8, 2, 0xf8, 3), // 6-5-5
};

struct Word {
    static constexpr int kBytes = 2, kWeave = 2;
    WordLayout layout;

    template <int N> ALWAYS_INLINE Bytes<N> low(Bytes<N> b, Bytes<N> g) const
    {
        return bit_or(shifted_left(g, layout.green_shift, layout.green_low),
                      shifted_right(b, layout.blue_shift, layout.blue_low));
    }
    template <int N> ALWAYS_INLINE Bytes<N> high(Bytes<N> g, Bytes<N> r) const
    {
        return bit_or(bit_and(r, Bytes<N>::splat(layout.red)),
                      shifted_right(g, 8 - layout.green_shift, layout.green_high));
    }
    template <Stores S, int N> ALWAYS_INLINE void put(uint8_t* p, Bytes<N> b, Bytes<N> g, Bytes<N> r) const
    {
        store_packed_pairs(to<S>(p), low(b, g), high(g, r));
    }
};

using Rgb32 = RgbSink<Bgr0>;
using Rgb24 = RgbSink<Bgr>;
using Rgb16 = RgbSink<Word>;

// Calls `work` with the sink of the layout; layouts beyond the four write nothing.
template <class Work> ALWAYS_INLINE void with_rgb16_sink(int layout, const Work& work)
{
    if (layout >= 0 && layout <= 3) work(Rgb16{{kWordLayouts[layout]}});
}

struct Yuy2 {
    static constexpr int kBytes = 2, kWeave = 2;
    static constexpr bool kReadsChroma = true, kLeavesHoles = false;
    template <int N> static ALWAYS_INLINE Bytes<N> chroma(Words<N> u, Words<N> v)
    {
        return join(EvenOddWords<N>{u, v});
    }
    template <Stores S, class Samples, int N>
    static ALWAYS_INLINE void store(uint8_t* p, const Samples& samples, Bytes<N> y, Bytes<N> uv)
    {
        store_pairs(to<S>(p), samples.luma(y), uv);
    }
};

struct GreyYuy2 : Yuy2 {
    static constexpr bool kReadsChroma = false;
    template <int N> static ALWAYS_INLINE Bytes<N> chroma() { return Bytes<N>::splat(128); }
};

// Leaves pixels 0 to 3 of every lower block as they are.
struct Yuy2WithHoles : Yuy2 {
    static constexpr bool kLeavesHoles = true;
    template <class Samples, int N>
    static ALWAYS_INLINE void store_with_holes(uint8_t* p, const Samples& samples, Bytes<N> y, Bytes<N> uv)
    {
        store_pairs_but_first_eight(p, samples.luma(y), uv);
    }
};

} // namespace vsurf::VSURF_ISA
