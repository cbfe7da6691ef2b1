// Planar YV12 pictures into packed surfaces.
#pragma once
#include "frame/adjust.h"
#include "frame/pack.h"
#include "load/passes.h"

namespace vsurf::VSURF_ISA {

// The samples are taken plain or adjusted; the sink says what becomes of them on the surface.
template <class Sink, class Samples> struct PlanarStep {
    static constexpr int kWidest = kLanes, kBytes = Sink::kBytes;
    static constexpr bool kStreams = !Sink::kLeavesHoles;
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
        auto y = load<N, Sink::kWeave>(at.y + x);
        auto to = at.dst + x * Sink::kBytes;
        if constexpr (Sink::kLeavesHoles && line == Line::lower) Sink::store_with_holes(to, samples, y, chroma);
        else Sink::template store<S>(to, samples, y, chroma);
    }
};

template <class Sink> OP void load_plain(const Walk& walk) { do_walk(walk, PlanarStep<Sink, Plain>{}); }

// Gains that wrap are exact, not fast: no picture looks right with them.
template <class Sink> OP void load_adjusted(const Walk& walk)
{
    const auto by = adjustments_now();
    if (CommonGain::suits(by.luma) && CommonGain::suits(by.u))
        do_walk(walk, PlanarStep<Sink, Adjusted<CommonGain>>{by});
    else do_in_order(walk, PlanarStep<Sink, Adjusted<AnyGain>>{by});
}

} // namespace vsurf::VSURF_ISA
