// SPDX-License-Identifier: MIT
// Packed YUY2 pictures into packed surfaces. The second line of a pass keeps its luma and takes the first one's chroma.
#pragma once
#include "frame/adjust.h"
#include "frame/pack.h"
#include "frame/passes.h"

namespace vsurf::VSURF_ISA {

// The samples are taken plain or adjusted; the sink says what becomes of them on the surface.
template <class Sink, class Samples> struct PackedStep {
    static constexpr int kWidest = kRegister, kBytes = Sink::kBytes;
    static constexpr bool kStreams = true;
    Samples samples;
    Sink sink;

    template <int N> ALWAYS_INLINE auto chroma(Position at, ptrdiff_t x) const
    {
        auto words = samples.u_and_v(load_yuyv<N, Sink::kWeave>(at.y + 2 * x).uv);
        return Sink::chroma(words.even, words.odd);
    }
    template <Line, int N> ALWAYS_INLINE Bytes<N> luma(Position at, ptrdiff_t x) const
    {
        return load_yuyv<N, Sink::kWeave>(at.y + 2 * x).y;
    }
    template <Stores S, Line, int N, class Chroma>
    ALWAYS_INLINE void store(Position at, ptrdiff_t x, Bytes<N> y, const Chroma& chroma) const
    {
        sink.template store<S>(at.dst + x * Sink::kBytes, samples, y, chroma);
    }
};

// Onto YUY2 nothing has to be unpacked: steps count bytes, of which every second one is luma.
struct PlainBytes {
    template <int N> ALWAYS_INLINE Words<N> luma(Bytes<N> bytes) const { return split(bytes).even; }
    template <int N> ALWAYS_INLINE Words<N> chroma(Bytes<N> bytes) const { return split(bytes).odd; }
};
template <class Gain> struct AdjustedBytes {
    Adjustments by;

    template <int N> ALWAYS_INLINE Words<N> luma(Bytes<N> bytes) const
    {
        return by.luma.offset(Gain::scale(by.luma, Gain::split(bytes).even));
    }
    template <int N> ALWAYS_INLINE Words<N> chroma(Bytes<N> bytes) const
    {
        return SampleAdjust::offset(Gain::scale(by.u, Gain::split(bytes).odd), // U and V have one gain
                                    Words<N>::alternate(by.u.lifted_offset, by.v.lifted_offset));
    }
};

template <class Bytes> struct PackedBytesStep {
    static constexpr int kWidest = kRegister, kBytes = 1;
    static constexpr bool kStreams = true;
    Bytes bytes;

    template <int N> ALWAYS_INLINE Words<N> chroma(Position at, ptrdiff_t x) const
    {
        return bytes.chroma(load<N>(at.y + x));
    }
    template <Line, int N> ALWAYS_INLINE Words<N> luma(Position at, ptrdiff_t x) const
    {
        return bytes.luma(load<N>(at.y + x));
    }
    template <Stores S, Line, int N>
    ALWAYS_INLINE void store(Position at, ptrdiff_t x, Words<N> luma, Words<N> chroma) const
    {
        put(to<S>(at.dst + x), join(EvenOddWords<N>{luma, chroma}));
    }
};

} // namespace vsurf::VSURF_ISA
