// SPDX-License-Identifier: MIT
// Packed YUY2 pictures, enlarged both ways. Every line has chroma of its own, interpolated like its luma.
//
// Positions count the source's bytes: of every two the even one is luma. Its right neighbour is two bytes further, that
// of a chroma byte four.
#include "frame/dispatch.h"
#include "frame/packed_bytes.h"
#include "scale/adjusted.h"
#include "scale/doubled.h"

namespace vsurf::VSURF_ISA {

// N bytes, with those of the next luma and those of the next chroma samples.
template <int N> ALWAYS_INLINE Pair<Bytes<N>> packed_pair(Bytes<N> own, Bytes<N> next_luma, Bytes<N> next_chroma)
{
    return {own, evens_and_odds(avg(own, next_luma), avg(own, next_chroma))};
}

// Packed pixels, and where their chroma looks ahead, which may differ,
struct PackedDoubled {
    static constexpr int kWidest = kRegister;
    const uint8_t *own, *ahead;

    template <int N, int W> ALWAYS_INLINE Pair<Bytes<N>> byte_pairs(ptrdiff_t x) const
    {
        return packed_pair(load<N, W>(own + x), load<N, W>(own + x + 2), load<N, W>(ahead + x + 4));
    }
};

// or the end of a line, where the last samples are their own neighbours.
struct PackedToTheEnd {
    static constexpr int kWidest = kBlock;
    const uint8_t* own;

    template <int N, int W> ALWAYS_INLINE Pair<Bytes<N>> byte_pairs(ptrdiff_t x) const
    {
        auto bytes = load<N, W>(own + x);
        return packed_pair(bytes, neighbours_to_the_end<2>(bytes), neighbours_to_the_end<4>(bytes));
    }
};

template <class Of> struct DoubledPackedLine {
    static constexpr int kBytes = 2, kGrain = 4, kWidest = Of::kWidest;
    static constexpr bool kComplete = true, kEights = false;
    Of of;

    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Pair<Bytes<N>> own(ptrdiff_t x) const
    {
        return of.template byte_pairs<N, kDoubledWeave<N>>(x);
    }
    template <class To, int N> ALWAYS_INLINE void store(To to, const Pair<Bytes<N>>& pixels, Nothing) const
    {
        store_doubled_yuyv(to, pixels.own, pixels.between);
    }
};
template <class Of> DoubledPackedLine(Of) -> DoubledPackedLine<Of>;
static_assert(Line<DoubledPackedLine<PackedDoubled>> && Line<DoubledPackedLine<Between<PackedToTheEnd>>>);

// A doubled line, and what goes between it and the one below.
[[maybe_unused]] static NEVER_INLINE void write_larger(Writer& writer, PackedDoubled own, PackedDoubled below,
                                                       uint8_t* upper, uint8_t* lower, ptrdiff_t bytes, bool last)
{
    const ptrdiff_t ahead = last ? bytes - kBlock : bytes;
    writer.pair(DoubledPackedLine{own}, DoubledPackedLine{Between{own, below}}, upper, lower, {0, ahead});
    if (!last) return;
    const PackedToTheEnd end{own.own}, end_below{below.own};
    writer.closing_blocks(DoubledPackedLine{end}, DoubledPackedLine{Between{end, end_below}}, upper, lower, ahead);
}

// Adjusts a line once, and once more as the 16 pixels before look ahead to it. Irregular: there V takes U's offset and
// U takes V's.
[[maybe_unused]] static NEVER_INLINE void adjust_packed_line(const uint8_t* from, ptrdiff_t size, uint8_t* own,
                                                             uint8_t* ahead, const Adjustments& by)
{
    auto adjust_with = [=]<class Gain>(Gain) VSURF_INLINED {
        static constexpr FirstOf<16, 2> crossing; // of 16 chroma bytes a U and a V
        const AdjustedBytes<Gain> adjust{by};
        const int u = by.u.lifted_offset, v = by.v.lifted_offset;
        along<Gain::kWidest, kBlock>(0, size, [=]<int N>(ptrdiff_t x) VSURF_INLINED {
            auto bytes = load<N>(from + x);
            auto luma = adjust.luma(bytes);
            auto crossed = mullo(load_chroma<N>(crossing.at + (x & kBlock) / 2), Words<N>::alternate(v - u, u - v));
            auto offsets = add(Words<N>::alternate(u, v), crossed);
            put(own + x, join(EvenOddWords<N>{luma, adjust.chroma(bytes)}));
            put(ahead + x, join(EvenOddWords<N>{luma, adjust.chroma(bytes, offsets)}));
        });
    };
    if (FastGain::suits(by)) adjust_with(FastGain{});
    else adjust_with(WrappingGain{});
}

struct PackedPicture {
    static constexpr int kTwoBlocks = 2 * kBlock; // bytes of 16 pixels
    const uint8_t* src;
    uint8_t* dst;
    ptrdiff_t src_pitch, dst_pitch;
    ptrdiff_t line_bytes; // of the source, 16 pixels at a time: at least the first 16 look ahead, the last do not
    int height;           // even

    static ALWAYS_INLINE PackedPicture to_enlarge(const PackedEnlargement& e)
    {
        const ptrdiff_t whole = whole_steps(e.line_bytes <= kTwoBlocks ? kTwoBlocks + 1 : e.line_bytes, kTwoBlocks);
        return {static_cast<const uint8_t*>(e.src),
                static_cast<uint8_t*>(e.dst),
                e.line_bytes,
                e.dst_pitch,
                whole,
                e.height & ~1};
    }
    ALWAYS_INLINE Target target() const { return {dst, dst_pitch, 2 * dst_pitch, 2 * line_bytes, height}; }
    ALWAYS_INLINE int below(int line) const { return line + 1 < height ? line + 1 : line; }

    ALWAYS_INLINE void enlarge() const
    {
        auto source = [this](int i) VSURF_INLINED {
            const uint8_t* at = this->src + i * this->src_pitch;
            return PackedDoubled{at, at};
        };
        Writer writer(target());
        uint8_t* to = dst;
        for (int i = 0; i < height; i++, to += 2 * dst_pitch)
            write_larger(writer, source(i), source(below(i)), to, to + dst_pitch, line_bytes, true);
    }

    ALWAYS_INLINE void enlarge_adjusted(const Adjustments& by) const
    {
        uint8_t own[2][kStackPart + kTwoBlocks], ahead[2][kStackPart + kTwoBlocks]; // 16 KiB
        Writer writer(target());
        each_part(line_bytes, kStackPart, [&](ptrdiff_t x, ptrdiff_t size, bool last) VSURF_INLINED {
            const ptrdiff_t taken = last ? size : size + kTwoBlocks;
            auto take = [&](int i) VSURF_INLINED {
                adjust_packed_line(src + i * src_pitch + x, taken, own[i & 1], ahead[i & 1], by);
            };
            auto source = [&](int i) VSURF_INLINED { return PackedDoubled{own[i & 1], ahead[i & 1]}; };
            take(0);
            uint8_t* to = dst + 2 * x;
            for (int i = 0; i < height; i++, to += 2 * dst_pitch) {
                if (below(i) != i) take(below(i));
                write_larger(writer, source(i), source(below(i)), to, to + dst_pitch, size, last);
            }
        });
    }
};

// Irregular: the plain form refuses heights below 16, the adjusted one those below 8; with planar pictures it is the
// other way round.
void yuy2_strech_picture_2X2_yuy2(PackedEnlargement e)
{
    if (e.height >= 16) PackedPicture::to_enlarge(e).enlarge();
}
void yuy2_strech_picture_2X2_yuy2_ajust(PackedEnlargement e)
{
    if (e.height >= 8) PackedPicture::to_enlarge(e).enlarge_adjusted(adjustments_now());
}

} // namespace vsurf::VSURF_ISA
