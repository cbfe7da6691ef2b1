// Planar YV12 pictures into packed surfaces.
#pragma once
#include "frame/adjust.h"
#include "frame/pack.h"
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

// N pixels of one line, or of both lines of a pass. The samples are taken plain or adjusted; the sink says what
// becomes of them on the surface.
template <class Sink, class Samples> struct PlanarStep {
    Samples samples;

    template <int N> MEMBER auto chroma(Position at, ptrdiff_t x) const
    {
        if constexpr (Sink::kReadsChroma) {
            auto u = load_chroma<N, Sink::kWeave>(at.u + x / 2), v = load_chroma<N, Sink::kWeave>(at.v + x / 2);
            return Sink::chroma(samples.u(u), samples.v(v));
        } else {
            return Sink::template chroma<N>();
        }
    }
    template <Stores S, Line line, int N, class Chroma> MEMBER void luma(Position at, ptrdiff_t x, Chroma chroma) const
    {
        Sink::template store<S, line>(at.dst + x * Sink::kBytes, samples, load<N, Sink::kWeave>(at.y + x), chroma);
    }
    template <Stores S, Line line, int N> MEMBER void one(Position at, ptrdiff_t x) const
    {
        luma<S, line, N>(at, x, chroma<N>(at, x));
    }
    template <int N> MEMBER void both(Position upper, Position lower, ptrdiff_t x) const
    {
        auto shared = chroma<N>(upper, x);
        luma<Stores::cached, Line::upper, N>(upper, x, shared);
        luma<Stores::cached, Line::lower, N>(lower, x, shared);
    }
    template <Stores S, Line line> MEMBER void span(Position at, ptrdiff_t x, ptrdiff_t end) const
    {
        along<kLanes, kBlock>(x, end, [=, *this]<int N>(ptrdiff_t from) VSURF_INLINED { one<S, line, N>(at, from); });
    }
};

// One line after the other. Whole 64-byte lines are streamed; a rest that shares its line with the bytes that follow is
// stored as usual.
template <class Sink, class Samples> OP void load_lines(const Walk& walk, PlanarStep<Sink, Samples> step, bool streamed)
{
    const ptrdiff_t whole = streamed ? walk.width & -whole_lines(Sink::kBytes) : 0;
    Position upper = walk.start;
    for (ptrdiff_t i = 0; i < 2 * walk.passes; i++) {
        Position at = i % 2 ? upper + walk.to_lower : upper;
        if constexpr (Sink::kStreams) step.template span<Stores::streaming, Line::upper>(at, 0, whole);
        if (Sink::kStreams || i % 2 == 0) step.template span<Stores::cached, Line::upper>(at, whole, walk.width);
        else step.template span<Stores::cached, Line::lower>(at, 0, walk.width);
        if (i % 2) upper = upper + walk.to_next_pass;
    }
    if (streamed) fence_streaming();
}

// Both lines of a pass side by side, their chroma terms computed once.
template <int widest, class Sink, class Samples> OP void load_passes(const Walk& walk, PlanarStep<Sink, Samples> step)
{
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass) {
        Position lower = upper + walk.to_lower;
        along<widest, kBlock>(0, walk.width, [=]<int N>(ptrdiff_t x) VSURF_INLINED {
            step.template both<N>(upper, lower, x);
        });
    }
}

template <class Sink, class Samples> OP void load_planar(const Walk& walk, PlanarStep<Sink, Samples> step)
{
    if (Sink::kStreams && streams(walk)) return load_lines(walk, step, true);
    if (!lines_overlap(walk) && walk.to_lower.chroma == 0) return load_passes<kLanes>(walk, step);
    if (walk.order == Order::by_block) return load_passes<kBlock>(walk, step);
    load_lines(walk, step, false);
}

} // namespace vsurf::VSURF_ISA
