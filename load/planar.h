// Planar YV12 pictures into packed surfaces.
#pragma once
#include "frame/adjust.h"
#include "frame/pack.h"
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

// N pixels of one line, or of both lines of a pass. The samples are taken plain or adjusted; the sink says what
// becomes of them on the surface.
template <class Sink, class Samples> struct PlanarStep {
    using Surface = Sink;
    Samples samples;

    template <int N> MEMBER auto chroma(Position at, ptrdiff_t x) const
    {
        if constexpr (!Sink::kReadsChroma) return Sink::template chroma<N>();
        else return read_chroma<N>(at, x);
    }
    template <int N> MEMBER auto read_chroma(Position at, ptrdiff_t x) const
    {
        auto u = load_chroma<N, Sink::kWeave>(at.u + x / 2), v = load_chroma<N, Sink::kWeave>(at.v + x / 2);
        return Sink::chroma(samples.u(u), samples.v(v));
    }
    template <Stores S, Line line, int N, class Chroma> MEMBER void luma(Position at, ptrdiff_t x, Chroma chroma) const
    {
        Sink::template store<S, line>(at.dst + x * Sink::kBytes, samples, load<N, Sink::kWeave>(at.y + x), chroma);
    }
    template <Stores S, Line line, int N> MEMBER void one(Position at, ptrdiff_t x) const
    {
        luma<S, line, N>(at, x, chroma<N>(at, x));
    }
    template <Stores S, int N> MEMBER void both(Position upper, Position lower, ptrdiff_t x) const
    {
        auto shared = chroma<N>(upper, x);
        luma<S, Line::upper, N>(upper, x, shared);
        luma<S, Line::lower, N>(lower, x, shared);
    }
};

template <Stores S, Line line, class Step> OP void one_line(const Step& step, Position at, ptrdiff_t x, ptrdiff_t end)
{
    along<kLanes, kBlock>(x, end, [&]<int N>(ptrdiff_t x_of_step) VSURF_INLINED {
        step.template one<S, line, N>(at, x_of_step);
    });
}

// Whole 64-byte lines are streamed; a rest that shares its line with the next bytes is stored as usual.
template <Line line, class Step> OP void stream_line(const Step& step, Position at, ptrdiff_t width)
{
    ptrdiff_t streamed = width & -whole_lines(Step::Surface::kBytes);
    one_line<Stores::streaming, line>(step, at, 0, streamed);
    one_line<Stores::cached, line>(step, at, streamed, width);
}

template <class Step> OP void load_planar(const Walk& walk, const Step& step)
{
    Position upper = walk.start;
    const bool streamed = streams(walk), overlapping = lines_overlap(walk);
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass) {
        Position lower = upper + walk.to_lower;
        if (streamed) {
            stream_line<Line::upper>(step, upper, walk.width);
            stream_line<Line::lower>(step, lower, walk.width);
        } else if (overlapping && walk.order == Order::by_block) {
            for (ptrdiff_t x = 0; x < walk.width; x += kBlock)
                step.template both<Stores::cached, kBlock>(upper, lower, x);
        } else if (overlapping || walk.to_lower.chroma) {
            one_line<Stores::cached, Line::upper>(step, upper, 0, walk.width);
            one_line<Stores::cached, Line::lower>(step, lower, 0, walk.width);
        } else {
            along<kLanes, kBlock>(0, walk.width, [&]<int N>(ptrdiff_t x) VSURF_INLINED {
                step.template both<Stores::cached, N>(upper, lower, x);
            });
        }
    }
    if (streamed) fence_streaming();
}

} // namespace vsurf::VSURF_ISA
