// SPDX-License-Identifier: MIT
// The lines of an enlarged picture, written two at a time.
#pragma once
#include "frame/pack.h"
#include "frame/passes.h"
#include "scale/source.h"

namespace vsurf::VSURF_ISA {

// Pixels of a line that are kept on the stack at a time.
constexpr ptrdiff_t kPart = kStripPixels;

// Calls `work(x, size, last)` for the parts of a line, of which only the last one may be smaller.
template <ptrdiff_t part, class Work> ALWAYS_INLINE void each_part(ptrdiff_t line, const Work& work)
{
    for (ptrdiff_t x = 0; x < line; x += part) {
        const bool last = line - x <= part;
        work(x, last ? line - x : part, last);
    }
}

// `width` in source pixels, whole blocks of 16.
template <class Step>
ALWAYS_INLINE void write_two_lines(const Step& step, uint8_t* upper, uint8_t* lower, ptrdiff_t width, bool streamed)
{
    const Position first{nullptr, nullptr, nullptr, upper}, second{nullptr, nullptr, nullptr, lower};
    write_pass(step, first, second, width, streamed);
}

// The last blocks of both lines, which end a cache line where they are streamed.
template <class Step>
ALWAYS_INLINE void write_last_blocks(const Step& step, uint8_t* upper, uint8_t* lower, ptrdiff_t x, ptrdiff_t end,
                                     bool streamed)
{
    const Position first{nullptr, nullptr, nullptr, upper}, second{nullptr, nullptr, nullptr, lower};
    if (streamed) both_lines<Stores::streaming, kBlock>(step, first, second, x, end);
    else both_lines<Stores::cached, kBlock>(step, first, second, x, end);
}

// Two lines that share their chroma, each from sources of its own.
template <class Sink, int widest, class Upper, class Lower, class Chroma> struct SourcesStep {
    static constexpr int kWidest = widest, kBytes = Sink::kBytes;
    static constexpr bool kStreams = widest == kRegister; // narrower steps are for what is rare
    Upper upper;
    Lower lower;
    Chroma u, v;
    Sink sink;

    template <int N> ALWAYS_INLINE auto chroma(Position, ptrdiff_t x) const
    {
        return Sink::chroma(u.template words<N, Sink::kWeave>(x / 2), v.template words<N, Sink::kWeave>(x / 2));
    }
    template <Line line, int N> ALWAYS_INLINE Bytes<N> luma(Position, ptrdiff_t x) const
    {
        if constexpr (line == Line::upper) return upper.template bytes<N, Sink::kWeave>(x);
        else return lower.template bytes<N, Sink::kWeave>(x);
    }
    template <Stores S, Line, int N, class C>
    ALWAYS_INLINE void store(Position at, ptrdiff_t x, Bytes<N> y, const C& c) const
    {
        sink.template store<S>(at.dst + x * kBytes, Plain{}, y, c);
    }
};

} // namespace vsurf::VSURF_ISA
