// SPDX-License-Identifier: MIT
// How the two lines of a pass are walked, whatever is done to their pixels.
//
// A Step does N source pixels, kWidest of them at the most and 16 at the least: `chroma<N>(at, x)` is what both lines
// share, `luma<line, N>(at, x)` what is one line's own, `store<stores, line>(at, x, luma, chroma)` makes pixels of
// them. It stores kBytes bytes a source pixel; kStreams tells whether it stores every byte of a line, which may then be
// streamed.
#pragma once
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

enum class Line { upper, lower };

template <Stores S, Line line, int N, class Step>
ALWAYS_INLINE void one_line(const Step& step, Position at, ptrdiff_t x)
{
    auto chroma = step.template chroma<N>(at, x);
    step.template store<S, line>(at, x, step.template luma<line, N>(at, x), chroma);
}

// A line with its own chroma, between whole blocks; `x` begins a cache line where it is streamed.
template <class Step>
ALWAYS_INLINE void write_line(const Step& step, Position at, ptrdiff_t x, ptrdiff_t end, bool streamed)
{
    const ptrdiff_t whole = streamed ? x + ((end - x) & -streaming_unit(Step::kBytes, Step::kWidest)) : x;
    along<Step::kWidest, Step::kWidest>(x, whole, [=]<int N>(ptrdiff_t from) VSURF_INLINED {
        one_line<Stores::streaming, Line::upper, N>(step, at, from);
    });
    along<Step::kWidest, kBlock>(whole, end, [=]<int N>(ptrdiff_t from) VSURF_INLINED {
        one_line<Stores::cached, Line::upper, N>(step, at, from);
    });
}

// Reads both lines before it stores either: past a store the compiler would have to read again.
template <Stores S, int widest, class Step>
ALWAYS_INLINE void both_lines(const Step& step, Position upper, Position lower, ptrdiff_t x, ptrdiff_t end)
{
    along<widest, kBlock>(x, end, [=]<int N>(ptrdiff_t from) VSURF_INLINED {
        auto shared = step.template chroma<N>(upper, from);
        auto first = step.template luma<Line::upper, N>(upper, from);
        auto second = step.template luma<Line::lower, N>(lower, from);
        step.template store<S, Line::upper>(upper, from, first, shared);
        step.template store<S, Line::lower>(lower, from, second, shared);
    });
}

// A line of 2160p. What is kept of its chroma takes 12 KiB of stack at the most.
constexpr ptrdiff_t kStripPixels = 4096;

// Memory takes streamed lines best one after the other. A strip of the upper line leaves what it made of the chroma to
// the lower one.
template <class Step, class Chroma>
ALWAYS_INLINE void stream_upper(const Step& step, Position upper, ptrdiff_t x, ptrdiff_t end, Chroma* shared)
{
    constexpr int N = Step::kWidest;
    for (; x < end; x += N, shared++) {
        *shared = step.template chroma<N>(upper, x);
        auto luma = step.template luma<Line::upper, N>(upper, x);
        step.template store<Stores::streaming, Line::upper>(upper, x, luma, *shared);
    }
}
template <class Step, class Chroma>
ALWAYS_INLINE void stream_lower(const Step& step, Position lower, ptrdiff_t x, ptrdiff_t end, const Chroma* shared)
{
    constexpr int N = Step::kWidest;
    for (; x < end; x += N, shared++) {
        auto luma = step.template luma<Line::lower, N>(lower, x);
        step.template store<Stores::streaming, Line::lower>(lower, x, luma, *shared);
    }
}
template <class Step>
ALWAYS_INLINE void stream_strip(const Step& step, Position upper, Position lower, ptrdiff_t x, ptrdiff_t end)
{
    decltype(step.template chroma<Step::kWidest>(upper, x)) shared[kStripPixels / Step::kWidest];
    stream_upper(step, upper, x, end, shared);
    stream_lower(step, lower, x, end, shared);
}

// Streams the whole cache lines of a pass and tells how many pixels that were.
template <class Step>
ALWAYS_INLINE ptrdiff_t stream_cache_lines(const Step& step, Position upper, Position lower, ptrdiff_t width)
{
    const ptrdiff_t streamed = width & -streaming_unit(Step::kBytes, Step::kWidest);
    for (ptrdiff_t x = 0; x < streamed; x += kStripPixels)
        stream_strip(step, upper, lower, x, streamed - x < kStripPixels ? streamed : x + kStripPixels);
    if constexpr (whole_lines(Step::kBytes) <= kBlock && kBlock < Step::kWidest) {
        both_lines<Stores::streaming, Step::kWidest / 2>(step, upper, lower, streamed, width);
        return width;
    }
    return streamed;
}

// What shares its cache line with the bytes that follow is stored as usual.
template <class Step>
ALWAYS_INLINE void write_pass(const Step& step, Position upper, Position lower, ptrdiff_t width, bool streamed)
{
    ptrdiff_t x = 0;
    if constexpr (Step::kStreams)
        if (streamed) x = stream_cache_lines(step, upper, lower, width);
    both_lines<Stores::cached, Step::kWidest>(step, upper, lower, x, width);
}

// Block by block, in the contract's own order of stores.
template <class W, class Step> ALWAYS_INLINE void do_in_order(const W& walk, const Step& step)
{
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass) {
        Position lower = upper + walk.to_lower;
        if constexpr (W::kOrder == Order::by_block) {
            both_lines<Stores::cached, kBlock>(step, upper, lower, 0, walk.width);
        } else {
            for (ptrdiff_t x = 0; x < walk.width; x += kBlock)
                one_line<Stores::cached, Line::upper, kBlock>(step, upper, x);
            for (ptrdiff_t x = 0; x < walk.width; x += kBlock)
                one_line<Stores::cached, Line::lower, kBlock>(step, lower, x);
        }
    }
}

// In whatever order is fastest.
template <class Step> ALWAYS_INLINE void do_freely(const Walk& walk, const Step& step)
{
    const bool streamed = Step::kStreams && streams(walk);
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass)
        write_pass(step, upper, upper + walk.to_lower, walk.width, streamed);
    if (streamed) fence_streaming();
}

ALWAYS_INLINE bool order_shows(const Walk& walk) { return lines_overlap(walk) || walk.to_lower.chroma != 0; }

template <class W, class Step> ALWAYS_INLINE void do_walk(const W& walk, const Step& step)
{
    if (order_shows(walk)) do_in_order(walk, step);
    else do_freely(walk, step);
}

} // namespace vsurf::VSURF_ISA
