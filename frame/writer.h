// SPDX-License-Identifier: MIT
// The writer: lines on their way to memory. No other file knows about store policies, alignment, cache lines or fences.
//
// A display surface is written and not read, and a player goes from surface to surface, so the lines that it writes are
// cold. An ordinary store to a cold cache line reads it first; streaming stores of the whole cache line do not. A cache
// line that gets both kinds costs several times either. Lines of a surface begin and end anywhere, so a streamed line
// has
//
//   a head  up to the first unit that begins a cache line,
//   a body  of whole cache lines, streamed from registers in the widest steps, and
//   a rest.
//
// Head and rest are streamed, too, in words of four bytes: the cache line that a line shares with the next one is then
// put together in a write-combining buffer. Ordinary stores there would wait for memory, and all stores after them.
// Where every line begins a cache line nothing is shared: there what does not fill one gets ordinary stores.
#pragma once
#include "frame/writer_steps.h"

namespace vsurf::VSURF_ISA {

// A line in the form that is the same for all lines, for blocks that are made on the stack: writer.cpp puts the ends of
// lines together of them.
struct AnyLine {
    const void* exact; // the line, in the form that is right for every gain
    void (*store_blocks)(const void* exact, uint8_t* to, Range r, ptrdiff_t line_end);
    uint8_t* to;
    int bytes;
};

class Writer {
public:
    explicit Writer(const Target& target);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    // One line, whose unit 0 goes to `to`.
    template <Line L> ALWAYS_INLINE void line(const L& line, uint8_t* to, Range r) const
    {
        if constexpr (kStreamable<L>) {
            if (streamed_whole_) r.from = stream_cache_lines(line, to, r);
            else if (streams_parts<L>(to, r)) return stream_parts(line, to, r);
        }
        r.from = store_steps(line, to, r);
        if (r.from < r.end) store_few(line, to, r);
    }

    // Two lines with the same chroma.
    template <Line Upper, Line Lower>
    ALWAYS_INLINE void pair(const Upper& upper, const Lower& lower, uint8_t* to_upper, uint8_t* to_lower, Range r) const
    {
        if constexpr (kStreamable<Upper> && kStreamable<Lower>) {
            if (streamed_whole_) {
                r.from = stream_cache_lines(upper, lower, to_upper, to_lower, r);
            } else if (streams_parts<Upper>(to_upper, r) && streams_parts<Lower>(to_lower, r)) {
                stream_parts(upper, to_upper, r);
                return stream_parts(lower, to_lower, r);
            }
        }
        r.from = store_steps(upper, lower, to_upper, to_lower, r);
        if (r.from >= r.end) return;
        store_few(upper, to_upper, r);
        store_few(lower, to_lower, r);
    }

    // The block at x that closes each of two lines with the same chroma, where it is made otherwise than the rest.
    template <Line Upper, Line Lower>
    ALWAYS_INLINE void closing_blocks(const Upper& upper, const Lower& lower, uint8_t* to_upper, uint8_t* to_lower,
                                      ptrdiff_t x) const
    {
        if constexpr (kStreamable<Upper> && kStreamable<Lower>) {
            constexpr bool whole = kBlock % kFilling<Upper> == 0;
            const Range r{x, x + kBlock};
            if (whole && streamed_whole_)
                return store_both<kBlock>(upper, lower, Uncached{to_upper}, Uncached{to_lower}, x);
            if (streams_parts<Upper>(to_upper, r) && streams_parts<Lower>(to_lower, r)) {
                stream_block(upper, to_upper, x);
                return stream_block(lower, to_lower, x);
            }
        }
        store_both<kBlock>(upper, lower, to_upper, to_lower, x);
    }

    // Whether stores go past the caches, where lines allow it.
    ALWAYS_INLINE bool streams() const { return streamed_whole_ || streamed_parts_; }

    // The first units of the block at 0: a line that is shorter than a block.
    template <Line L> ALWAYS_INLINE void units_of_block(const L& line, uint8_t* to, int count) const
    {
        const auto copy = exact(line);
        store_units_of_block(any_line<L>(copy, to), count);
    }

    // A few bytes that have just been made: what is left of a line whose number of units is odd.
    ALWAYS_INLINE void few(uint8_t* to, const uint8_t* from, int count) const
    {
        if (streamed_parts_) stream_few(to, from, count);
        else
            for (int i = 0; i < count; i++) to[i] = from[i];
    }

    // Two lines that overlap or have chroma of their own: a block of the one and a block of the other in turn. Blocks
    // are of 16 units, or of 8 of lines with kEights.
    template <int block = kBlock, Line Upper, Line Lower>
    static ALWAYS_INLINE void blocks_in_turn(const Upper& upper, const Lower& lower, uint8_t* to_upper,
                                             uint8_t* to_lower, Range r)
    {
        for (ptrdiff_t x = r.from; x < r.end; x += block) {
            store_exactly(upper, to_upper, {x, x + block});
            store_exactly(lower, to_lower, {x, x + block});
        }
    }

    // Stores a line block after block, by ordinary stores.
    template <Line L> static ALWAYS_INLINE void blocks(const L& line, uint8_t* to, Range r)
    {
        const auto copy = exact(line); // only the copy has an address
        store_blocks<ExactOf<L>>(&copy, to, r, r.end);
    }

    // Stores a line in the widest steps, by ordinary stores.
    template <Line L> static ALWAYS_INLINE void store_line(const L& line, uint8_t* to, Range r)
    {
        r.from = store_steps(line, to, r);
        if (r.from < r.end) store_exactly(line, to, r);
    }

    // or in small ones, which are right for every gain.
    template <Line L> static ALWAYS_INLINE void store_exactly(const L& line, uint8_t* to, Range r)
    {
        const auto copy = exact(line);
        if constexpr (L::kEights) store_eights<ExactOf<L>>(&copy, to, r);
        else store_blocks<ExactOf<L>>(&copy, to, r, r.end);
    }

private:
    // Whether a line is streamed from where one of its units begins a cache line, and one does so.
    template <Line L> ALWAYS_INLINE bool streams_parts(const uint8_t* to, Range r) const
    {
        constexpr uintptr_t step = L::kGrain * (L::kBytes & -L::kBytes);
        return streamed_parts_ && reinterpret_cast<uintptr_t>(to) % step == 0 && r.end - r.from >= kBlock;
    }

    template <Line L, class Exact> static ALWAYS_INLINE AnyLine any_line(const Exact& exact, uint8_t* to)
    {
        return {&exact, store_blocks<Exact>, to, L::kBytes};
    }
    // A line from where one of its units begins a cache line, and what comes before and after.
    template <Line L> static ALWAYS_INLINE void stream_parts(const L& line, uint8_t* to, Range r)
    {
        const L copy = line; // only the copy has an address
        stream_parts_of(&copy, to, r);
    }
    template <Line L> static NEVER_INLINE void stream_parts_of(const L* line_in, uint8_t* to, Range r)
    {
        const L line = *line_in;
        const auto exact_copy = exact(line);
        const AnyLine any = any_line<L>(exact_copy, to);
        const Uncached past{to};
        const Range body = stream_head(any, r, L::kWidest);
        for (ptrdiff_t x = body.from; x < body.end; x += L::kWidest)
            store_units<L::kWidest>(line, past + x * L::kBytes, x);
        store_rest(any, {body.end, r.end}, true);
    }
    template <Line L> static ALWAYS_INLINE void stream_block(const L& line, uint8_t* to, ptrdiff_t x)
    {
        const auto copy = exact(line);
        store_rest(any_line<L>(copy, to), {x, x + kBlock}, true);
    }
    // What the steps leave of a line. Lines that are shorter than a block are stored by eights.
    template <Line L> static ALWAYS_INLINE void store_few(const L& line, uint8_t* to, Range r)
    {
        if (L::kEights && r.end < kBlock) return store_exactly(line, to, r);
        const auto copy = exact(line);
        store_rest(any_line<L>(copy, to), r, false);
    }
    // Returns what the widest steps can do from where a unit begins a cache line.
    static Range stream_head(const AnyLine& line, Range r, int widest);
    static void store_rest(const AnyLine& line, Range r, bool streamed);
    void store_units_of_block(const AnyLine& line, int count) const;

    const bool streamed_whole_; // every line begins a cache line
    const bool streamed_parts_; // lines begin anywhere
};

} // namespace vsurf::VSURF_ISA
