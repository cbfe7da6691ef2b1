// SPDX-License-Identifier: MIT
// Planar YV12 pictures into packed surfaces.
#pragma once
#include "frame/adjust.h"
#include "frame/pack.h"
#include "frame/passes.h"

namespace vsurf::VSURF_ISA {

// The samples are taken plain or adjusted; the sink says what becomes of them on the surface.
template <class Sink, class Samples> struct PlanarStep {
    static constexpr int kWidest = kRegister, kBytes = Sink::kBytes;
    static constexpr bool kStreams = !Sink::kLeavesHoles;
    Samples samples;
    Sink sink;

    template <int N> ALWAYS_INLINE auto chroma(Position at, ptrdiff_t x) const
    {
        if constexpr (Sink::kReadsChroma) {
            return Sink::chroma(samples.template u<N, Sink::kWeave>(at.u + x / 2),
                                samples.template v<N, Sink::kWeave>(at.v + x / 2));
        } else {
            return Sink::template chroma<N>();
        }
    }
    template <Line, int N> ALWAYS_INLINE Bytes<N> luma(Position at, ptrdiff_t x) const
    {
        return load<N, Sink::kWeave>(at.y + x);
    }
    template <Stores S, Line line, int N, class Chroma>
    ALWAYS_INLINE void store(Position at, ptrdiff_t x, Bytes<N> y, const Chroma& chroma) const
    {
        auto to = at.dst + x * Sink::kBytes;
        if constexpr (Sink::kLeavesHoles && line == Line::lower) sink.store_with_holes(to, samples, y, chroma);
        else sink.template store<S>(to, samples, y, chroma);
    }
};

} // namespace vsurf::VSURF_ISA
