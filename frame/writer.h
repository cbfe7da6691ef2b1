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

// A line in the form that is the same for all lines. writer.cpp puts streamed lines together through it.
struct AnyLine {
    struct Kind {
        int bytes, grain, widest;
        // Streams a range of the body. Step i leaves what it made for the other line of a pair at `kept`, i times
        // `kept_step` places on.
        void (*stream)(const void* line, uint8_t* to, Range body, void* kept, ptrdiff_t kept_step);
        // The same for the other line, which takes it from there.
        void (*stream_with_kept)(const void* line, uint8_t* to, Range body, const void* kept);
        void (*store_blocks)(const void* line, uint8_t* to, Range r, ptrdiff_t line_end);
    };
    const void* line;
    const Kind* kind;
    uint8_t* to;
};

constexpr ptrdiff_t kCacheLine = 64;

class Writer {
public:
    explicit Writer(const Target& target);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    // One line, whose unit 0 goes to `to`.
    template <Line L> NEVER_INLINE void line(const L& line, uint8_t* to, Range r)
    {
        if constexpr (kStreamable<L>)
            if (streamed_) {
                const L copy = line; // only the copy has an address
                if (stream({&copy, &kKind<L>, to}, r)) return;
            }
        store_line(line, to, r);
    }

    // Two lines with the same chroma.
    template <Line Upper, Line Lower>
    NEVER_INLINE void pair(const Upper& upper, const Lower& lower, uint8_t* to_upper, uint8_t* to_lower, Range r)
    {
        if constexpr (kStreamable<Upper> && kStreamable<Lower> && !Upper::kEights) {
            if (streamed_) {
                const Upper first = upper; // only the copies have addresses
                const Lower second = lower;
                if (stream_pair({&first, &kKind<Upper>, to_upper}, {&second, &kKind<Lower>, to_lower}, r)) return;
            }
        } else if (kStreamable<Upper> && kStreamable<Lower> && streamed_) {
            line(upper, to_upper, r);
            return line(lower, to_lower, r);
        }
        store_pair(upper, lower, to_upper, to_lower, r);
    }

    // The block at x that closes each of two lines with the same chroma, where it is made otherwise than the rest.
    template <Line Upper, Line Lower>
    ALWAYS_INLINE void closing_blocks(const Upper& upper, const Lower& lower, uint8_t* to_upper, uint8_t* to_lower,
                                      ptrdiff_t x)
    {
        if (!streamed_) return store_both<kBlock>(upper, lower, to_upper, to_lower, x);
        const Upper first = upper;
        const Lower second = lower;
        stream_block({&first, &kBlockKind<Upper>, to_upper}, x);
        stream_block({&second, &kBlockKind<Lower>, to_lower}, x);
    }

    // Whether stores go past the caches, where lines allow it.
    ALWAYS_INLINE bool streams() const { return streamed_; }

    // Only units from `first` on, `count` of them, of the 16 units from x on: what is left of a line whose number of
    // units is odd, or which is shorter than a block. A line that has just been streamed may go on with them.
    template <Line L> ALWAYS_INLINE void units_of_block(const L& line, uint8_t* to, ptrdiff_t x, int first, int count)
    {
        const L copy = line; // only the copy has an address
        store_units_of_block({&copy, &kBlockKind<L>, to}, x, first, count);
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
        store_blocks<ExactOf<L>>(&line, to, r, r.end);
    }

    // Stores a line in the widest steps, by ordinary stores.
    template <Line L> static ALWAYS_INLINE void store_line(const L& line_in, uint8_t* to, Range r)
    {
        const L line = line_in;
        for (; r.end - r.from >= L::kWidest; r.from += L::kWidest)
            store_units<L::kWidest>(line, to + r.from * L::kBytes, r.from);
        if (r.from < r.end) store_exactly(line_in, to, r);
    }

    // or in small ones, which are right for every gain.
    template <Line L> static ALWAYS_INLINE void store_exactly(const L& line, uint8_t* to, Range r)
    {
        if constexpr (L::kEights) store_eights<ExactOf<L>>(&line, to, r);
        else blocks(line, to, r);
    }

private:
    template <Line L> static constexpr bool kStreamable = kStoresPastCaches&& L::kComplete;
    // Whether units may be stored again, which is faster than to store the last block of a line by itself. Planes may
    // be written where they are read.
    template <Line L> static constexpr bool kMayRepeat = requires { requires L::kMayRepeat; };
    template <Line L> using Shared = decltype(instance<L>().template shared<L::kWidest>(0));

    // The line may be another form of L.
    template <Line L> static ALWAYS_INLINE L copy_of(const void* line)
    {
        L copy;
        __builtin_memcpy(&copy, line, sizeof copy);
        return copy;
    }

    // Blocks of 16 units; a last one that is cut at the end of the range is made whole, earlier where the line ends.
    // Here as elsewhere the loop works on a copy of the line: what has no address stays in registers around the stores.
    template <Line L>
    static NEVER_INLINE void store_blocks(const void* line_in, uint8_t* to, Range r, ptrdiff_t line_end)
    {
        const L line = copy_of<L>(line_in);
        for (ptrdiff_t at = r.from; at < r.end; at += kBlock) {
            const ptrdiff_t x = at + kBlock <= line_end ? at : line_end - kBlock;
            store_units<kBlock>(line, to + x * L::kBytes, x);
        }
    }

    // Whole blocks, and the last units by eights.
    template <Line L> static NEVER_INLINE void store_eights(const void* line_in, uint8_t* to, Range r)
    {
        const L line = copy_of<L>(line_in);
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
    template <Line Upper, Line Lower>
    static ALWAYS_INLINE void store_pair(const Upper& upper_in, const Lower& lower_in, uint8_t* to_upper,
                                         uint8_t* to_lower, Range r)
    {
        const Upper upper = upper_in;
        const Lower lower = lower_in;
        const ptrdiff_t begin = r.from;
        constexpr int N = Upper::kWidest;
        for (; r.from < r.end; r.from += N) {
            if (r.end - r.from < N) {
                if (!kMayRepeat<Upper> || !kMayRepeat<Lower> || r.end - begin < N) break;
                r.from = r.end - N;
            }
            store_both<N>(upper, lower, to_upper, to_lower, r.from);
        }
        if (r.from >= r.end) return;
        blocks(upper_in, to_upper, r);
        blocks(lower_in, to_lower, r);
    }

    template <Line L>
    static NEVER_INLINE void stream_body(const void* line_in, uint8_t* to, Range body, void* kept, ptrdiff_t kept_step)
    {
        constexpr int N = L::kWidest;
        const L line = *static_cast<const L*>(line_in);
        auto* shared = static_cast<Shared<L>*>(kept);
        for (; body.from < body.end; body.from += N, shared += kept_step) {
            *shared = line.template shared<N>(body.from);
            line.store(Uncached{to + body.from * L::kBytes}, line.template own<N>(body.from), *shared);
        }
    }
    template <Line L>
    static NEVER_INLINE void stream_with_kept(const void* line_in, uint8_t* to, Range body, const void* kept)
    {
        constexpr int N = L::kWidest;
        const L line = *static_cast<const L*>(line_in);
        for (auto* shared = static_cast<const Shared<L>*>(kept); body.from < body.end; body.from += N, shared++)
            line.store(Uncached{to + body.from * L::kBytes}, line.template own<N>(body.from), *shared);
    }

    template <Line L>
    static constexpr AnyLine::Kind kKind = {
        .bytes = L::kBytes,
        .grain = L::kGrain,
        .widest = L::kWidest,
        .stream = stream_body<L>,
        .stream_with_kept = stream_with_kept<L>,
        .store_blocks = store_blocks<ExactOf<L>>,
    };

    template <Line L>
    static constexpr AnyLine::Kind kBlockKind = {
        L::kBytes, L::kGrain, kBlock, nullptr, nullptr, store_blocks<ExactOf<L>>,
    };

    void stream_block(const AnyLine& line, ptrdiff_t x) const; // of a line that is streamed
    void store_units_of_block(const AnyLine& line, ptrdiff_t x, int first, int count) const;
    // False: nothing was done, since no unit begins a cache line or the range is too short.
    bool stream(const AnyLine& line, Range r) const;
    bool stream_pair(const AnyLine& upper, const AnyLine& lower, Range r) const;

    const ptrdiff_t to_next_; // bytes from a pair of lines to the next one
    const bool aligned_;      // every line begins a cache line
    const bool streamed_;
};

} // namespace vsurf::VSURF_ISA
