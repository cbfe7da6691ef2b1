// SPDX-License-Identifier: MIT
// Packed YUY2 pictures, enlarged both ways. Every line has chroma of its own, interpolated like its luma.
//
// Steps count the source's bytes: of every two the even one is luma. Its right neighbour lies two bytes on, that of a
// chroma byte four.
#include "load/packed.h"
#include "frame/dispatch.h"
#include "scale/rows.h"

namespace vsurf::VSURF_ISA {

// N bytes of packed pixels, and of what goes between their samples.
template <int N> struct DoubledPacked {
    Bytes<N> own, between;
};
template <int N> ALWAYS_INLINE DoubledPacked<N> avg(DoubledPacked<N> a, DoubledPacked<N> b)
{
    return {avg(a.own, b.own), avg(a.between, b.between)};
}

// N bytes, those with the next luma bytes, and those with the next chroma bytes.
template <int N> ALWAYS_INLINE DoubledPacked<N> doubled(Bytes<N> own, Bytes<N> next_luma, Bytes<N> next_chroma)
{
    return {own, evens_and_odds(avg(own, next_luma), avg(own, next_chroma))};
}

// A line of packed pixels, and where its chroma looks ahead, which may differ;
struct PackedLine {
    const uint8_t *own, *ahead;
    template <int N> ALWAYS_INLINE DoubledPacked<N> pixels(ptrdiff_t x) const
    {
        constexpr int weave = kDoubledWeave<N>;
        return doubled(load<N, weave>(own + x), load<N, weave>(own + x + 2), load<N, weave>(ahead + x + 4));
    }
};
// or its end, where the last samples are their own neighbours.
struct PackedEnd {
    const uint8_t* own;
    template <int N> ALWAYS_INLINE DoubledPacked<N> pixels(ptrdiff_t x) const
    {
        auto bytes = load<N>(own + x);
        return doubled(bytes, neighbours_to_the_end<2>(bytes), neighbours_to_the_end<4>(bytes));
    }
};

// A doubled line and what goes between it and the one below. They share nothing.
template <int widest, class Pixels> struct PackedDoubledStep {
    static constexpr int kWidest = widest, kBytes = 2;
    static constexpr bool kStreams = true;
    Pixels own, below;

    struct Nothing {};
    template <int N> ALWAYS_INLINE Nothing chroma(Position, ptrdiff_t) const { return {}; }
    template <Line line, int N> ALWAYS_INLINE DoubledPacked<N> luma(Position, ptrdiff_t x) const
    {
        auto pixels = own.template pixels<N>(x);
        if constexpr (line == Line::upper) return pixels;
        else return avg(pixels, below.template pixels<N>(x));
    }
    template <Stores S, Line, int N>
    ALWAYS_INLINE void store(Position at, ptrdiff_t x, const DoubledPacked<N>& d, Nothing) const
    {
        store_doubled_yuyv(to<S>(at.dst + x * kBytes), d.own, d.between);
    }
};

constexpr int kStrip = 2 * kBlock; // bytes of 16 pixels

[[maybe_unused]] static NEVER_INLINE void write_doubled(PackedLine own, PackedLine below, uint8_t* upper,
                                                        uint8_t* lower, ptrdiff_t bytes, bool last, bool streamed)
{
    const ptrdiff_t ahead = last ? bytes - kStrip : bytes;
    const PackedDoubledStep<kRegister, PackedLine> step{own, below};
    write_two_lines(step, upper, lower, ahead, streamed);
    if (!last) return;
    const PackedDoubledStep<kBlock, PackedEnd> closing{{own.own}, {below.own}};
    write_last_blocks(step, upper, lower, ahead, bytes - kBlock, streamed);
    write_last_blocks(closing, upper, lower, bytes - kBlock, bytes, streamed);
}

// A line adjusted once, and once more as the 16 pixels before look ahead to it. Irregular: there U's offset serves V
// and V's serves U.
template <class Gain> struct AdjustedLine : AdjustedBytes<Gain> {
    template <int N> ALWAYS_INLINE Words<N> chroma_ahead(Bytes<N> bytes, ptrdiff_t x) const
    {
        static constexpr FirstOf<16, 2> crossing; // of 16 chroma bytes a U and a V
        const int u = this->by.u.lifted_offset, v = this->by.v.lifted_offset;
        auto more = mullo(load_chroma<N>(crossing.at + (x & kBlock) / 2), Words<N>::alternate(v - u, u - v));
        return SampleAdjust::offset(Gain::scale(this->by.u, Gain::split(bytes).odd),
                                    add(Words<N>::alternate(u, v), more));
    }
    ALWAYS_INLINE void take(const uint8_t* from, ptrdiff_t size, uint8_t* own, uint8_t* ahead) const
    {
        along<Gain::kWidest, kBlock>(0, size, [=, this]<int N>(ptrdiff_t x) VSURF_INLINED {
            auto bytes = load<N>(from + x);
            auto luma = this->luma(bytes);
            put(own + x, join(EvenOddWords<N>{luma, this->chroma(bytes)}));
            put(ahead + x, join(EvenOddWords<N>{luma, this->chroma_ahead(bytes, x)}));
        });
    }
};

[[maybe_unused]] static NEVER_INLINE void adjust_packed_line(const uint8_t* from, ptrdiff_t size, uint8_t* own,
                                                             uint8_t* ahead, const Adjustments& by)
{
    if (CommonGain::suits(by)) AdjustedLine<CommonGain>{{by}}.take(from, size, own, ahead);
    else AdjustedLine<AnyGain>{{by}}.take(from, size, own, ahead);
}

struct PackedEnlargement {
    const uint8_t* src;
    uint8_t* dst;
    ptrdiff_t src_pitch, dst_pitch;
    ptrdiff_t line_bytes; // of the source, in whole strips: at least one looks ahead, and the last one does not
    int height;           // even
    bool streamed;

    static ALWAYS_INLINE PackedEnlargement of(void* src, void* dst, int line_bytes, int height, int dst_pitch)
    {
        auto to = static_cast<uint8_t*>(dst);
        const ptrdiff_t whole = rounds(line_bytes <= kStrip ? kStrip + 1 : line_bytes, kStrip) * kStrip;
        const int even = height & ~1;
        return {static_cast<const uint8_t*>(src),
                to,
                line_bytes,
                dst_pitch,
                whole,
                even,
                streams(to, dst_pitch, 2 * whole, 2 * ptrdiff_t{even})};
    }
    ALWAYS_INLINE int below(int line) const { return line + 1 < height ? line + 1 : line; }

    ALWAYS_INLINE void from_picture() const
    {
        auto packed_line = [this](int i) VSURF_INLINED {
            const uint8_t* at = this->src + i * this->src_pitch;
            return PackedLine{at, at};
        };
        uint8_t* to = dst;
        for (int i = 0; i < height; i++, to += 2 * dst_pitch)
            write_doubled(packed_line(i), packed_line(below(i)), to, to + dst_pitch, line_bytes, true, streamed);
        if (streamed) fence_streaming();
    }

    ALWAYS_INLINE void from_adjusted(const Adjustments& by) const
    {
        constexpr ptrdiff_t part = 4096; // bytes; 16 KiB of stack
        uint8_t own[2][part + kStrip], ahead[2][part + kStrip];
        each_part<part>(line_bytes, [&](ptrdiff_t x, ptrdiff_t size, bool last) VSURF_INLINED {
            auto take = [&](int i) VSURF_INLINED {
                adjust_packed_line(src + i * src_pitch + x, last ? size : size + kStrip, own[i & 1], ahead[i & 1], by);
            };
            auto taken = [&](int i) VSURF_INLINED { return PackedLine{own[i & 1], ahead[i & 1]}; };
            take(0);
            uint8_t* to = dst + 2 * x;
            for (int i = 0; i < height; i++, to += 2 * dst_pitch) {
                if (below(i) != i) take(below(i));
                write_doubled(taken(i), taken(below(i)), to, to + dst_pitch, size, last, streamed);
            }
        });
        if (streamed) fence_streaming();
    }
};

// Irregular: the plain form refuses heights below 16, the adjusted one those below 8; with planar pictures it is the
// other way round.
void yuy2_strech_picture_2X2_yuy2(void* src, void*, void*, void* dst, int line_bytes, int height, int dst_pitch)
{
    if (height >= 16) PackedEnlargement::of(src, dst, line_bytes, height, dst_pitch).from_picture();
}

void yuy2_strech_picture_2X2_yuy2_ajust(void* src, void*, void*, void* dst, int line_bytes, int height, int dst_pitch,
                                        ajust_contrast_info*)
{
    if (height >= 8) PackedEnlargement::of(src, dst, line_bytes, height, dst_pitch).from_adjusted(adjustments_now());
}

} // namespace vsurf::VSURF_ISA
