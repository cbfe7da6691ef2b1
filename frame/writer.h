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
//   a tail  of what is left.
//
// Head and tail are streamed, too, in words of four bytes: the cache line that a line shares with the next one is then
// put together in a write-combining buffer. Ordinary stores there would wait for memory, and all stores after them.
// Where every line begins a cache line nothing is shared: there what does not fill one gets ordinary stores.
#pragma once
#include "frame/blocks.h"

namespace vsurf::VSURF_ISA {

// What a line of a surface or of a plane is made of, and how it is stored. Positions x count units: pixels of the
// source, samples or bytes, as the line says.
//
//   kBytes     bytes of the surface, a unit
//   kGrain     units: every x is a multiple of it
//   kWidest    units of the widest step
//   kComplete  whether it stores every byte; lines that leave bytes as they are cannot be streamed
//   shared<N>(x)             what a line makes of N units for the other line of a pair, too: of their chroma
//   own<N>(x)                what it makes of them only for itself
//   store(to, own, shared)   stores both as N * kBytes bytes
//
// N is kWidest or a smaller power of two down to 16. Lines with kEights also have store_eight(to, x) for the last 8
// units of a line.
template <class L>
concept Line = requires(const L& line, uint8_t* to, ptrdiff_t x)
{
    requires L::kBytes >= 1 && L::kGrain >= 1 && L::kWidest >= 16;
    line.store(to, line.template own<16>(x), line.template shared<16>(x));
    {
        L::kComplete
        } -> SameAs<const bool&>;
    {
        L::kEights
        } -> SameAs<const bool&>;
};

// Which part of a line or pair of lines, in units.
struct Range {
    ptrdiff_t from, end;
};

template <int N, Line L, class To> ALWAYS_INLINE void store_units(const L& line, To to, ptrdiff_t x)
{
    auto shared = line.template shared<N>(x);
    line.store(to, line.template own<N>(x), shared);
}

// How a surface or plane is written altogether.
struct Target {
    uint8_t* first;
    ptrdiff_t to_lower, to_next_pair; // bytes from the first line of a pair to its second, and to the next pair
    ptrdiff_t line_bytes, pairs;
    ptrdiff_t multiple = 1; // lines are streamed only if they are multiples of it apart: all of them or none

    static ALWAYS_INLINE Target lines(uint8_t* first, ptrdiff_t step, ptrdiff_t line_bytes, ptrdiff_t count)
    {
        return {first, step, 2 * step, line_bytes, (count + 1) / 2};
    }
    static ALWAYS_INLINE Target never_streamed() { return {}; }

    // Whether no line overlaps another one: all steps lead the same way, by a line or more.
    ALWAYS_INLINE bool lines_apart() const
    {
        const ptrdiff_t to_upper = to_next_pair - to_lower;
        return (to_lower >= line_bytes && to_upper >= line_bytes) ||
               (to_lower <= -line_bytes && to_upper <= -line_bytes);
    }
    ALWAYS_INLINE bool pair_overlaps() const { return to_lower < line_bytes && -to_lower < line_bytes; }
    ALWAYS_INLINE size_t bytes() const { return static_cast<size_t>(line_bytes) * static_cast<size_t>(pairs) * 2; }
};

// A line in the form that is the same for all lines, for blocks that are made on the stack: writer.cpp puts the ends of
// lines together of them.
struct AnyLine {
    const void* exact; // the line, in the form that is right for every gain
    void (*store_blocks)(const void* exact, uint8_t* to, Range r, ptrdiff_t line_end);
    uint8_t* to;
    int bytes;
};

constexpr ptrdiff_t kCacheLine = 64;

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

    // Only units from `first` on, `count` of them, of the 16 units from x on: what is left of a line whose number of
    // units is odd, or which is shorter than a block. A line that has just been streamed may go on with them.
    template <Line L>
    ALWAYS_INLINE void units_of_block(const L& line, uint8_t* to, ptrdiff_t x, int first, int count) const
    {
        const auto copy = exact(line);
        store_units_of_block(any_line<L>(copy, to), x, first, count);
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
    template <Line L> static constexpr bool kStreamable = L::kComplete ? kStoresPastCaches : false;
    // Whether units may be stored again, which is faster than to store the last block of a line by itself. Planes may
    // be written where they are read.
    template <Line L> static constexpr bool kMayRepeat = requires { requires L::kMayRepeat; };

    // The units that fill cache lines.
    template <Line L> static constexpr int kFilling = kCacheLine / (L::kBytes & -L::kBytes);

    // Whether a line is streamed from where one of its units begins a cache line, and one does so.
    template <Line L> ALWAYS_INLINE bool streams_parts(const uint8_t* to, Range r) const
    {
        constexpr uintptr_t step = L::kGrain * (L::kBytes & -L::kBytes);
        return streamed_parts_ && reinterpret_cast<uintptr_t>(to) % step == 0 && r.end - r.from >= kBlock;
    }

    // Blocks of 16 units; a last one that is cut at the end of the range is made whole, earlier where the line ends.
    // What has no address, as the copy here, stays in registers around the stores.
    template <Line L>
    static NEVER_INLINE void store_blocks(const void* line_in, uint8_t* to, Range r, ptrdiff_t line_end)
    {
        const L line = *static_cast<const L*>(line_in);
        for (ptrdiff_t at = r.from; at < r.end; at += kBlock) {
            const ptrdiff_t x = at + kBlock <= line_end ? at : line_end - kBlock;
            store_units<kBlock>(line, to + x * L::kBytes, x);
        }
    }

    // Whole blocks, and the last units by eights.
    template <Line L> static NEVER_INLINE void store_eights(const void* line_in, uint8_t* to, Range r)
    {
        const L line = *static_cast<const L*>(line_in);
        for (; r.end - r.from >= kBlock; r.from += kBlock) store_units<kBlock>(line, to + r.from * L::kBytes, r.from);
        for (; r.from < r.end; r.from += 8) {
            const ptrdiff_t x = r.from + 8 <= r.end ? r.from : r.end - 8;
            line.store_eight(to + x * L::kBytes, x);
        }
    }

    // Reads both lines before it stores either: past a store the compiler would have to read again.
    template <int N, Line Upper, Line Lower, class To>
    static ALWAYS_INLINE void store_both(const Upper& upper, const Lower& lower, To to_upper, To to_lower, ptrdiff_t x)
    {
        auto shared = upper.template shared<N>(x);
        auto first = upper.template own<N>(x);
        auto second = lower.template own<N>(x);
        upper.store(to_upper + x * Upper::kBytes, first, shared);
        lower.store(to_lower + x * Lower::kBytes, second, shared);
    }

    // Both return where the rest begins.
    template <Line L> static ALWAYS_INLINE ptrdiff_t store_steps(const L& line, uint8_t* to, Range r)
    {
        constexpr int N = L::kWidest;
        const ptrdiff_t begin = r.from;
        for (; r.end - r.from >= N; r.from += N) store_units<N>(line, to + r.from * L::kBytes, r.from);
        if (r.from >= r.end) return r.end;
        if (kMayRepeat<L> && r.end - begin >= N) {
            store_units<N>(line, to + (r.end - N) * L::kBytes, r.end - N);
            return r.end;
        }
        if constexpr (L::kEights) {
            for (; r.end - r.from >= kBlock; r.from += kBlock)
                store_units<kBlock>(line, to + r.from * L::kBytes, r.from);
            for (; r.end - r.from >= 8; r.from += 8) line.store_eight(to + r.from * L::kBytes, r.from);
        }
        return r.from;
    }
    template <Line Upper, Line Lower>
    static ALWAYS_INLINE ptrdiff_t store_steps(const Upper& upper, const Lower& lower, uint8_t* to_upper,
                                               uint8_t* to_lower, Range r)
    {
        constexpr int N = Upper::kWidest;
        const ptrdiff_t begin = r.from;
        for (; r.from < r.end; r.from += N) {
            if (r.end - r.from < N) {
                if (!kMayRepeat<Upper> || !kMayRepeat<Lower> || r.end - begin < N) break;
                r.from = r.end - N;
            }
            store_both<N>(upper, lower, to_upper, to_lower, r.from);
        }
        return r.from;
    }

    // Where the widest steps of whole cache lines end: both are powers of two.
    template <Line L> static ALWAYS_INLINE ptrdiff_t end_of_steps(Range r)
    {
        constexpr int filling = kFilling<L>;
        return r.from + ((r.end - r.from) & -filling & -L::kWidest);
    }
    // Whole cache lines of lines that begin with one. Returns where the rest begins, which is stored as usual.
    template <Line L> ALWAYS_INLINE ptrdiff_t stream_cache_lines(const L& line, uint8_t* to, Range r) const
    {
        const Uncached past{to};
        for (const ptrdiff_t end = end_of_steps<L>(r); r.from < end; r.from += L::kWidest)
            store_units<L::kWidest>(line, past + r.from * L::kBytes, r.from);
        if constexpr (kFilling<L> <= kBlock)
            for (; r.end - r.from >= kBlock; r.from += kBlock)
                store_units<kBlock>(line, past + r.from * L::kBytes, r.from);
        return r.from;
    }
    // The same of two lines, one after the other: two at a time get in each other's way in the write-combining buffers.
    // The upper line keeps what it makes of the chroma for the lower one, a part at a time.
    template <Line Upper, Line Lower>
    ALWAYS_INLINE ptrdiff_t stream_cache_lines(const Upper& upper, const Lower& lower, uint8_t* to_upper,
                                               uint8_t* to_lower, Range r) const
    {
        constexpr int N = Upper::kWidest;
        const Uncached past_upper{to_upper}, past_lower{to_lower};
        decltype(upper.template shared<N>(0)) kept[kStackPart / N];
        for (const ptrdiff_t end = end_of_steps<Upper>(r); r.from < end;) {
            const ptrdiff_t from = r.from, part = end - from < kStackPart ? end : from + kStackPart;
            auto* shared = kept;
            for (ptrdiff_t x = from; x < part; x += N, shared++) {
                *shared = upper.template shared<N>(x);
                upper.store(past_upper + x * Upper::kBytes, upper.template own<N>(x), *shared);
            }
            shared = kept;
            for (; r.from < part; r.from += N, shared++)
                lower.store(past_lower + r.from * Lower::kBytes, lower.template own<N>(r.from), *shared);
        }
        if constexpr (kFilling<Upper> <= kBlock)
            for (; r.end - r.from >= kBlock; r.from += kBlock)
                store_both<kBlock>(upper, lower, past_upper, past_lower, r.from);
        return r.from;
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
    void store_units_of_block(const AnyLine& line, ptrdiff_t x, int first, int count) const;

    const bool streamed_whole_; // every line begins a cache line
    const bool streamed_parts_; // lines begin anywhere
};

} // namespace vsurf::VSURF_ISA
