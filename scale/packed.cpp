// Packed YUY2 pictures, enlarged both ways. Every line has chroma of its own, interpolated like its luma.
#include "load/loader.h"
#include "scale/doubled.h"

namespace vsurf::VSURF_ISA {

template <int N> struct DoubledPixels {
    Pair<u8<N>> luma;
    DoubledChroma<N> chroma;
};
template <int N> OP DoubledPixels<N> avg(const DoubledPixels<N>& a, const DoubledPixels<N>& b)
{
    return {avg(a.luma, b.luma), {avg(a.chroma.u, b.chroma.u), avg(a.chroma.v, b.chroma.v)}};
}
template <int N> OP DoubledChroma<N> doubled_chroma(i16<N> uv, i16<N> next)
{
    return {in_line(pair_of(uv.even, next.even)), in_line(pair_of(uv.odd, next.odd))};
}

// Doubles the pixels at p: a neighbour is the next pixel's luma, the next pair's chroma,
template <class Samples> struct LookingAhead {
    Samples samples;

    template <int N> MEMBER DoubledPixels<N> pixels(const uint8_t* p) const
    {
        auto here = load_yuyv<N, 4>(p);
        auto luma_ahead = load_yuyv<N, 4>(p + 2).y, uv_ahead = load_yuyv<N, 4>(p + 4).uv;
        return {pair_of(samples.luma(here.y), samples.luma(luma_ahead)),
                doubled_chroma(samples.u_and_v(here.uv), samples.u_and_v_ahead(uv_ahead))};
    }
};
// or, in the last block of a line, the last one itself.
template <class Samples> struct ToTheEnd {
    Samples samples;

    template <int N> MEMBER DoubledPixels<N> pixels(const uint8_t* p) const
    {
        auto here = load_yuyv<N, 4>(p);
        auto luma = samples.luma(here.y);
        auto uv = samples.u_and_v(here.uv);
        return {pair_of(luma, neighbours_to_the_end(luma)),
                doubled_chroma(uv, i16<N>{neighbours_to_the_end(uv.even), neighbours_to_the_end(uv.odd)})};
    }
};

// A doubled line and what goes between it and the one below. They share nothing.
template <int widest, class Doubling> struct PackedDoubledStep {
    static constexpr int kWidest = widest, kBytes = 4;
    static constexpr bool kStreams = true;
    Doubling doubling;
    const uint8_t *own, *below;

    struct Nothing {};
    template <int N> MEMBER Nothing chroma(Position, ptrdiff_t) const { return {}; }
    template <Line line, int N> MEMBER DoubledPixels<N> luma(Position, ptrdiff_t x) const
    {
        auto pixels = doubling.template pixels<N>(own + 2 * x);
        if constexpr (line == Line::upper) return pixels;
        else return avg(pixels, doubling.template pixels<N>(below + 2 * x));
    }
    template <Stores S, Line, int N>
    MEMBER void store(Position at, ptrdiff_t x, const DoubledPixels<N>& pixels, Nothing) const
    {
        store_doubled<S>(at.dst + x * kBytes, pixels.luma, pixels.chroma);
    }
};

struct PackedPicture {
    const uint8_t* src;
    uint8_t* dst;
    int line_bytes, height, dst_pitch;
};

template <int widest, class Samples> OP void double_packed(const PackedPicture& p, const Samples& samples)
{
    const ptrdiff_t width = doubled_blocks(p.line_bytes >> 1), pitch = p.dst_pitch, ordinary = width - kBlock;
    const int height = p.height & ~1;
    const bool streamed = streams(p.dst, pitch, 4 * width, 2 * ptrdiff_t{height});
    uint8_t* to = p.dst;
    for (int i = 0; i < height; i++, to += 2 * pitch) {
        const uint8_t* own = p.src + ptrdiff_t{i} * p.line_bytes;
        const uint8_t* below = i + 1 < height ? own + p.line_bytes : own;
        const PackedDoubledStep<widest, LookingAhead<Samples>> step{{samples}, own, below};
        const PackedDoubledStep<kBlock, ToTheEnd<Samples>> closing{{samples}, own, below};
        write_two_lines(step, to, to + pitch, ordinary, streamed);
        write_last_block(closing, to, to + pitch, ordinary, streamed);
    }
    if (streamed) fence_streaming();
}

OP PackedPicture packed_picture(void* src, void* dst, int line_bytes, int height, int dst_pitch)
{
    return {static_cast<const uint8_t*>(src), static_cast<uint8_t*>(dst), line_bytes, height, dst_pitch};
}

struct PlainAhead : Plain {
    template <int N> MEMBER i16<N> u_and_v_ahead(u8<N> uv) const { return u_and_v(uv); }
};

// Irregular: what looks ahead into the next 16 pixels takes U's offset for V and V's for U.
template <class Gain> struct AdjustedAhead : Adjusted<Gain> {
    template <int N> MEMBER i16<N> u_and_v_ahead(u8<N> uv) const
    {
        auto words = Gain::split(uv);
        const auto &u = this->by.u, &v = this->by.v;
        return {SampleAdjust::offset(Gain::scale(u, words.even), offsets_ahead<N, 4>(u, v)),
                SampleAdjust::offset(Gain::scale(v, words.odd), offsets_ahead<N, 4>(v, u))};
    }
};

// Irregular: the plain form refuses heights below 16, the adjusted one those below 8; with planar pictures it is the
// other way round.
void yuy2_strech_picture_2X2_yuy2(void* src, void*, void*, void* dst, int line_bytes, int height, int dst_pitch)
{
    if (height < 16) return;
    double_packed<kLanes>(packed_picture(src, dst, line_bytes, height, dst_pitch), PlainAhead{});
}

void yuy2_strech_picture_2X2_yuy2_ajust(void* src, void*, void*, void* dst, int line_bytes, int height, int dst_pitch,
                                        ajust_contrast_info*)
{
    if (height < 8) return;
    const auto by = adjustments_now();
    const auto picture = packed_picture(src, dst, line_bytes, height, dst_pitch);
    with_gain(by, [&]<class Gain>(Gain)
                      VSURF_INLINED { double_packed<kWidestFor<Gain>>(picture, AdjustedAhead<Gain>{{by}}); });
}

} // namespace vsurf::VSURF_ISA
