// Packed YUY2 pictures, enlarged both ways. Every line has chroma of its own, interpolated like its luma.
//
// Steps count the source's bytes: of every two the even one is luma. Its right neighbour lies two bytes on, that of a
// chroma byte four.
#include "load/packed.h"
#include "frame/dispatch.h"
#include "scale/rows.h"

namespace vsurf::VSURF_ISA {

// N bytes of packed pixels, and of what goes between their samples.
template <int N> struct Doubled {
    u8<N> own, between;
};
template <int N> OP Doubled<N> avg(Doubled<N> a, Doubled<N> b)
{
    return {avg(a.own, b.own), avg(a.between, b.between)};
}

// N bytes, those with the next luma bytes, and those with the next chroma bytes.
template <int N> struct Neighbourhood {
    u8<N> own, next_luma, next_chroma;
};
struct Ahead {
    template <int N> OP Neighbourhood<N> of(const uint8_t* p)
    {
        constexpr int weave = kDoubledWeave<N>;
        return {load<N, weave>(p), load<N, weave>(p + 2), load<N, weave>(p + 4)};
    }
    OP bool crosses(ptrdiff_t x) { return (x & 16) != 0; }
};
// The last samples of a line are their own neighbours.
struct ToTheEnd {
    template <int N> OP Neighbourhood<N> of(const uint8_t* p)
    {
        auto own = load<N>(p);
        return {own, neighbours_to_the_end<2>(own), neighbours_to_the_end<4>(own)};
    }
    OP bool crosses(ptrdiff_t) { return false; }
};

// The samples are taken plain,
struct PlainPixels {
    template <int N> MEMBER Doubled<N> doubled(const Neighbourhood<N>& n, bool) const
    {
        return {n.own, evens_and_odds(avg(n.own, n.next_luma), avg(n.own, n.next_chroma))};
    }
};

// or adjusted. Irregular: what looks ahead into the next 16 pixels takes U's offset for V and V's for U.
template <class Gain> struct AdjustedPixels : AdjustedBytes<Gain> {
    template <int N> MEMBER half<N> next_chroma(u8<N> bytes, bool crosses) const
    {
        static constexpr LastOf<16, 2> crossing; // a U and a V
        const int u = this->by.u.lifted_offset, v = this->by.v.lifted_offset;
        const uint8_t* exchanged = crossing.at + (N < 32 && crosses ? 8 : 0);
        auto more = mullo(load_chroma<N, kDoubledWeave<N>>(exchanged), half<N>::alternate(v - u, u - v));
        return SampleAdjust::offset(Gain::scale(this->by.u, Gain::split(bytes).odd),
                                    add(half<N>::alternate(u, v), more));
    }
    template <int N> MEMBER Doubled<N> doubled(const Neighbourhood<N>& n, bool crosses) const
    {
        auto luma = this->luma(n.own), chroma = this->chroma(n.own);
        return {join(i16<N>{luma, chroma}),
                join(i16<N>{avg(luma, this->luma(n.next_luma)), avg(chroma, next_chroma(n.next_chroma, crosses))})};
    }
};

// A doubled line and what goes between it and the one below. They share nothing.
template <int widest, class Reach, class Pixels> struct PackedDoubledStep {
    static constexpr int kWidest = widest, kBytes = 2;
    static constexpr bool kStreams = true;
    Pixels pixels;
    const uint8_t *own, *below;

    struct Nothing {};
    template <int N> MEMBER Nothing chroma(Position, ptrdiff_t) const { return {}; }
    template <Line line, int N> MEMBER Doubled<N> luma(Position, ptrdiff_t x) const
    {
        auto doubled = [=, this](const uint8_t* p) VSURF_INLINED {
            return this->pixels.doubled(Reach::template of<N>(p + x), Reach::crosses(x));
        };
        if constexpr (line == Line::upper) return doubled(own);
        else return avg(doubled(own), doubled(below));
    }
    template <Stores S, Line, int N> MEMBER void store(Position at, ptrdiff_t x, const Doubled<N>& d, Nothing) const
    {
        store_doubled_yuyv<S>(at.dst + x * kBytes, d.own, d.between);
    }
};

struct PackedPicture {
    const uint8_t* src;
    uint8_t* dst;
    int line_bytes, height, dst_pitch;
};

template <int widest, class Pixels> OP void double_packed(const PackedPicture& p, const Pixels& pixels)
{
    constexpr int strip = 2 * kBlock; // bytes; at least one looks ahead, and the last one does not
    const ptrdiff_t width = rounds(p.line_bytes <= strip ? strip + 1 : p.line_bytes, strip) * strip,
                    pitch = p.dst_pitch;
    const int height = p.height & ~1;
    const bool streamed = streams(p.dst, pitch, 2 * width, 2 * ptrdiff_t{height});
    uint8_t* to = p.dst;
    for (int i = 0; i < height; i++, to += 2 * pitch) {
        const uint8_t* own = p.src + ptrdiff_t{i} * p.line_bytes;
        const uint8_t* below = i + 1 < height ? own + p.line_bytes : own;
        const PackedDoubledStep<widest, Ahead, Pixels> step{pixels, own, below};
        const PackedDoubledStep<kBlock, ToTheEnd, Pixels> closing{pixels, own, below};
        write_two_lines(step, to, to + pitch, width - strip, streamed);
        write_last_blocks(step, to, to + pitch, width - strip, width - kBlock, streamed);
        write_last_blocks(closing, to, to + pitch, width - kBlock, width, streamed);
    }
    if (streamed) fence_streaming();
}

OP PackedPicture packed_picture(void* src, void* dst, int line_bytes, int height, int dst_pitch)
{
    return {static_cast<const uint8_t*>(src), static_cast<uint8_t*>(dst), line_bytes, height, dst_pitch};
}

// Irregular: the plain form refuses heights below 16, the adjusted one those below 8; with planar pictures it is the
// other way round.
void yuy2_strech_picture_2X2_yuy2(void* src, void*, void*, void* dst, int line_bytes, int height, int dst_pitch)
{
    if (height < 16) return;
    double_packed<kLanes>(packed_picture(src, dst, line_bytes, height, dst_pitch), PlainPixels{});
}

void yuy2_strech_picture_2X2_yuy2_ajust(void* src, void*, void*, void* dst, int line_bytes, int height, int dst_pitch,
                                        ajust_contrast_info*)
{
    if (height < 8) return;
    const auto by = adjustments_now();
    const auto picture = packed_picture(src, dst, line_bytes, height, dst_pitch);
    with_gain(by, [&]<class Gain>(Gain)
                      VSURF_INLINED { double_packed<kWidestFor<Gain>>(picture, AdjustedPixels<Gain>{{by}}); });
}

} // namespace vsurf::VSURF_ISA
