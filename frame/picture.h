// SPDX-License-Identifier: MIT
// Pictures: which lines make a pair, in which order pairs follow each other, and how the pointers move.
//
// A line is handled in blocks of 16 pixels and a picture in passes of two lines. The pointers advance by the stated
// width, not by the blocks done: a width that is not a multiple of 16 makes the following lines drift.
#pragma once
#include "frame/calls.h"
#include "frame/sink.h"

namespace vsurf::VSURF_ISA {

// Where the samples of a line are and where its pixels go. A packed picture's chroma is where its pixels are: at u and
// v.
struct Position {
    const uint8_t *y, *u, *v;
    uint8_t* dst;
};
struct Distance {
    ptrdiff_t y, chroma, dst; // in bytes
};

ALWAYS_INLINE Position operator+(Position a, Distance d)
{
    return {a.y + d.y, a.u + d.chroma, a.v + d.chroma, a.dst + d.dst};
}

// The contract's order of stores. It shows where lines overlap: the bytes stored last stay.
//
//   by_block  a block of the upper line, the block of the lower one, the next block of the upper line, and so on
//   by_line   the whole upper line, then the whole lower one
//   by_strip  the first block of every line of the picture, then the second block of every line, and so on
enum class StoreOrder { by_block, by_line, by_strip };

struct Walk {
    Position start;
    Distance to_lower, to_next_pass; // from an upper line to its lower one and to the next upper one
    ptrdiff_t width;                 // units, in whole blocks
    ptrdiff_t passes;
    ptrdiff_t line_bytes; // of the destination
    StoreOrder order = StoreOrder::by_block;

    ALWAYS_INLINE Target target() const { return {start.dst, to_lower.dst, to_next_pass.dst, line_bytes, passes}; }
    ALWAYS_INLINE bool store_order_matters() const { return target().pair_overlaps() || to_lower.chroma != 0; }

    // Calls `work(upper, lower)` with the positions of each pass.
    template <class Work> ALWAYS_INLINE void each(const Work& work) const
    {
        Position at = start;
        for (ptrdiff_t pass = 0; pass < passes; pass++, at = at + to_next_pass) work(at, at + to_lower);
    }
};

ALWAYS_INLINE Position start_of(const Picture& p)
{
    auto samples = [](const void* plane) VSURF_INLINED { return static_cast<const uint8_t*>(plane); };
    return {samples(p.y), samples(p.u), samples(p.v), static_cast<uint8_t*>(p.dst)};
}

// The pointers are moved once a pass: the lower line lies straight below the upper one.
Walk walk_by_pass(const Picture& p, int bytes);

// The pointers are moved after each line, so the drift sets in at the lower line, and the chroma steps back there by
// half the stated width.
Walk walk_by_line(const Picture& p, int bytes);

// Packed pictures: nothing drifts, the source's pitch counts pixels, and both lines of a pass take the upper one's
// chroma. A line has `units` of `bytes` bytes at the destination; negative sizes count as 0.
Walk walk_packed(const Picture& p, int units, int bytes);

// Lines of a picture, as the code sees them that is the same for all. `pairs` writes all pairs of lines in whatever
// order is fastest; `blocks` stores a part of the upper or the lower line at a position, for any gain.
struct AnyLines {
    const void* lines;
    void (*pairs)(const void* lines, const Walk& walk);
    void (*blocks)(const void* lines, bool lower, const Position& at, Range r);
};

// What is rare is written block by block: lines that have to be made exactly, and those whose order of stores matters.
void write_picture(const Walk& walk, bool exactly, const AnyLines& lines);

// `upper_at(position)` and `lower_at(position)` make the lines of a pass.
template <class UpperAt, class LowerAt> struct LinesAt {
    UpperAt upper_at;
    LowerAt lower_at;
    static NEVER_INLINE void pairs(const void* lines, const Walk& walk_in)
    {
        const LinesAt of = *static_cast<const LinesAt*>(lines);
        const Walk walk = walk_in;
        const Writer writer(walk.target());
        walk.each([&](const Position& upper, const Position& lower) VSURF_INLINED {
            writer.pair(of.upper_at(upper), of.lower_at(lower), upper.dst, lower.dst, {0, walk.width});
        });
    }
    static NEVER_INLINE void blocks(const void* lines, bool lower, const Position& at, Range r)
    {
        const auto& of = *static_cast<const LinesAt*>(lines);
        if (!SameAs<UpperAt, LowerAt> && lower) Writer::blocks(of.lower_at(at), at.dst, r);
        else Writer::blocks(of.upper_at(at), at.dst, r);
    }
    ALWAYS_INLINE void write(const Walk& walk, bool exactly) const
    {
        write_picture(walk, exactly, {this, pairs, blocks});
    }
};

template <class UpperAt, class LowerAt>
ALWAYS_INLINE void write_picture(const Walk& walk, const UpperAt& upper_at, const LowerAt& lower_at)
{
    LinesAt<UpperAt, LowerAt>{upper_at, lower_at}.write(walk, false);
}
template <class LineAt> ALWAYS_INLINE void write_picture(const Walk& walk, const LineAt& line_at)
{
    write_picture(walk, line_at, line_at);
}

// `lines(adjustments)` makes what makes the lines, with the fast gain.
template <class Lines> ALWAYS_INLINE void write_adjusted(const Walk& walk, const Lines& lines)
{
    const auto by = adjustments_now();
    const auto line_at = lines(by);
    LinesAt<decltype(line_at), decltype(line_at)>{line_at, line_at}.write(walk, !FastGain::suits(by));
}

} // namespace vsurf::VSURF_ISA
