// How the two lines of a pass are walked, whatever is done to their pixels.
//
// A Step does N source pixels, kWidest of them at the most and 16 at the least: `chroma<N>(at, x)` is what both lines
// share, `luma<stores, line, N>(at, x, chroma)` finishes and stores one of them. It stores kBytes bytes a source pixel;
// kStreams tells whether it stores every byte of a line, which may then be streamed.
#pragma once
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

enum class Line { upper, lower };

template <Line line, int N, class Step> OP void one_line(const Step& step, Position at, ptrdiff_t x)
{
    step.template luma<Stores::cached, line, N>(at, x, step.template chroma<N>(at, x));
}

template <int widest, class Step>
OP void both_lines(const Step& step, Position upper, Position lower, ptrdiff_t x, ptrdiff_t end)
{
    along<widest, kBlock>(x, end, [=]<int N>(ptrdiff_t from) VSURF_INLINED {
        auto shared = step.template chroma<N>(upper, from);
        step.template luma<Stores::cached, Line::upper, N>(upper, from, shared);
        step.template luma<Stores::cached, Line::lower, N>(lower, from, shared);
    });
}

// A line of 2160p. What is kept of its chroma takes 12 KiB of stack at the most.
constexpr ptrdiff_t kStripPixels = 4096;

// Memory takes streamed lines best one after the other. A strip of the upper line leaves what it made of the chroma to
// the lower one.
template <class Step> OP void stream_strip(const Step& step, Position upper, Position lower, ptrdiff_t x, ptrdiff_t end)
{
    constexpr int N = Step::kWidest;
    decltype(step.template chroma<N>(upper, x)) shared[kStripPixels / N];
    for (ptrdiff_t i = 0; x + i * N < end; i++) {
        shared[i] = step.template chroma<N>(upper, x + i * N);
        step.template luma<Stores::streaming, Line::upper, N>(upper, x + i * N, shared[i]);
    }
    for (ptrdiff_t i = 0; x + i * N < end; i++)
        step.template luma<Stores::streaming, Line::lower, N>(lower, x + i * N, shared[i]);
}

// Only whole cache lines are streamed; a rest that shares its line with the bytes that follow is stored as usual.
template <class Step> OP void stream_passes(const Walk& walk, const Step& step)
{
    constexpr ptrdiff_t whole = whole_lines(Step::kBytes), unit = whole > Step::kWidest ? whole : Step::kWidest;
    const ptrdiff_t streamed = walk.width & -unit;
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass) {
        Position lower = upper + walk.to_lower;
        for (ptrdiff_t x = 0; x < streamed; x += kStripPixels)
            stream_strip(step, upper, lower, x, streamed - x < kStripPixels ? streamed : x + kStripPixels);
        both_lines<Step::kWidest>(step, upper, lower, streamed, walk.width);
    }
    fence_streaming();
}

template <int widest, class Step> OP void do_passes(const Walk& walk, const Step& step)
{
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass)
        both_lines<widest>(step, upper, upper + walk.to_lower, 0, walk.width);
}

template <class Step> OP void do_lines(const Walk& walk, const Step& step)
{
    Position upper = walk.start;
    for (ptrdiff_t pass = 0; pass < walk.passes; pass++, upper = upper + walk.to_next_pass) {
        Position lower = upper + walk.to_lower;
        for (ptrdiff_t x = 0; x < walk.width; x += kBlock) one_line<Line::upper, kBlock>(step, upper, x);
        for (ptrdiff_t x = 0; x < walk.width; x += kBlock) one_line<Line::lower, kBlock>(step, lower, x);
    }
}

// Block by block, in the contract's own order of stores.
template <class Step> OP void do_in_order(const Walk& walk, const Step& step)
{
    if (walk.order == Order::by_block) do_passes<kBlock>(walk, step);
    else do_lines(walk, step);
}

template <class Step> OP void do_walk(const Walk& walk, const Step& step)
{
    if (lines_overlap(walk) || walk.to_lower.chroma != 0) return do_in_order(walk, step);
    if constexpr (Step::kStreams)
        if (streams(walk)) return stream_passes(walk, step);
    do_passes<Step::kWidest>(walk, step);
}

} // namespace vsurf::VSURF_ISA
