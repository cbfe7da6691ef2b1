// Planar YV12 pictures into packed surfaces.
#pragma once
#include "frame/adjust.h"
#include "frame/pack.h"
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

// A line of 2160p; its chroma terms take 12 KiB of stack.
constexpr int kStripPixels = 4096;

// N pixels of one line, or of both lines of a pass. The samples are taken plain or adjusted; the sink says what
// becomes of them on the surface.
template <class Sink, class Samples> struct PlanarStep {
    Samples samples;

    template <int N> MEMBER auto chroma(Position at, ptrdiff_t x) const
    {
        if constexpr (Sink::kReadsChroma) {
            return Sink::chroma(samples.template u<N, Sink::kWeave>(at.u + x / 2),
                                samples.template v<N, Sink::kWeave>(at.v + x / 2));
        } else {
            return Sink::template chroma<N>();
        }
    }
    template <Stores S, Line line, int N, class Chroma> MEMBER void luma(Position at, ptrdiff_t x, Chroma chroma) const
    {
        Sink::template store<S, line>(at.dst + x * Sink::kBytes, samples, load<N, Sink::kWeave>(at.y + x), chroma);
    }
    template <Line line, int N> MEMBER void one(Position at, ptrdiff_t x) const
    {
        luma<Stores::cached, line, N>(at, x, chroma<N>(at, x));
    }
    template <int N> MEMBER void both(Position upper, Position lower, ptrdiff_t x) const
    {
        auto shared = chroma<N>(upper, x);
        luma<Stores::cached, Line::upper, N>(upper, x, shared);
        luma<Stores::cached, Line::lower, N>(lower, x, shared);
    }
    template <int widest> MEMBER void both(Position upper, Position lower, ptrdiff_t x, ptrdiff_t end) const
    {
        along<widest, kBlock>(x, end, [=, this]<int N>(ptrdiff_t at) VSURF_INLINED {
            this->template both<N>(upper, lower, at);
        });
    }
};

// Memory takes streamed lines best one after the other. A strip of the upper line leaves what it made of the chroma to the
// lower one.
template <class Sink, class Samples>
OP void stream_strip(PlanarStep<Sink, Samples> step, Position upper, Position lower, ptrdiff_t x, ptrdiff_t end)
{
    constexpr int kSteps = kStripPixels / kLanes;
    decltype(step.template chroma<kLanes>(upper, x)) shared[kSteps];
    for (ptrdiff_t i = 0; x + i * kLanes < end; i++) {
        shared[i] = step.template chroma<kLanes>(upper, x + i * kLanes);
        step.template luma<Stores::streaming, Line::upper, kLanes>(upper, x + i * kLanes, shared[i]);
    }
    for (ptrdiff_t i = 0; x + i * kLanes < end; i++)
        step.template luma<Stores::streaming, Line::lower, kLanes>(lower, x + i * kLanes, shared[i]);
}

// Only whole cache lines are streamed; a rest that shares its line with the bytes that follow is stored as usual.
template <class Sink, class Samples> OP void load_streamed(const Walk& walk, PlanarStep<Sink, Samples> step)
{
    constexpr ptrdiff_t unit = whole_lines(Sink::kBytes) > kLanes ? whole_lines(Sink::kBytes) : kLanes;
    const ptrdiff_t streamed = walk.width & -unit;
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass) {
        Position lower = upper + walk.to_lower;
        for (ptrdiff_t x = 0; x < streamed; x += kStripPixels)
            stream_strip(step, upper, lower, x, streamed - x < kStripPixels ? streamed : x + kStripPixels);
        step.template both<kLanes>(upper, lower, streamed, walk.width);
    }
    fence_streaming();
}

// Both lines of a pass side by side, their chroma terms computed once.
template <int widest, class Sink, class Samples> OP void load_passes(const Walk& walk, PlanarStep<Sink, Samples> step)
{
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass)
        step.template both<widest>(upper, upper + walk.to_lower, 0, walk.width);
}

// In the contract's own order of stores: block by block,
template <class Sink, class Samples> OP void load_in_order(const Walk& walk, PlanarStep<Sink, Samples> step)
{
    if (walk.order == Order::by_block) return load_passes<kBlock>(walk, step);
    // or line by line.
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass) {
        Position lower = upper + walk.to_lower;
        for (ptrdiff_t x = 0; x < walk.width; x += kBlock) step.template one<Line::upper, kBlock>(upper, x);
        for (ptrdiff_t x = 0; x < walk.width; x += kBlock) step.template one<Line::lower, kBlock>(lower, x);
    }
}

template <class Sink, class Samples> OP void load_planar(const Walk& walk, PlanarStep<Sink, Samples> step)
{
    if (lines_overlap(walk) || walk.to_lower.chroma != 0) return load_in_order(walk, step);
    if constexpr (Sink::kStreams)
        if (streams(walk)) return load_streamed(walk, step);
    load_passes<kLanes>(walk, step);
}

template <class Sink> OP void load_plain(const Walk& walk) { load_planar(walk, PlanarStep<Sink, Plain>{}); }

// Gains that wrap are exact, not fast: no picture looks right with them.
template <class Sink> OP void load_adjusted(const Walk& walk)
{
    const auto by = adjustments_now();
    const bool common = CommonGain::suits(by.luma) && CommonGain::suits(by.u);
    if (common) load_planar(walk, PlanarStep<Sink, Adjusted<CommonGain>>{by});
    else load_in_order(walk, PlanarStep<Sink, Adjusted<AnyGain>>{by});
}

} // namespace vsurf::VSURF_ISA
