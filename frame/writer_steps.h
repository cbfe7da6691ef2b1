// SPDX-License-Identifier: MIT
// The steps of the writer: units of one line or of two, by ordinary stores or past the caches.
#pragma once
#include "frame/line.h"

namespace vsurf::VSURF_ISA {

constexpr ptrdiff_t kCacheLine = 64;

template <Line L> constexpr bool kStreamable = L::kComplete ? kStoresPastCaches : false;
// Whether units may be stored again, which is faster than to store the last block of a line by itself. Planes may
// be written where they are read.
template <Line L> constexpr bool kMayRepeat = requires { requires L::kMayRepeat; };

// The units that fill cache lines.
template <Line L> constexpr int kFilling = kCacheLine / (L::kBytes & -L::kBytes);

// Blocks of 16 units; a last one that is cut at the end of the range is made whole, earlier where the line ends.
// What has no address, as the copy here, stays in registers around the stores.
template <Line L> NEVER_INLINE void store_blocks(const void* line_in, uint8_t* to, Range r, ptrdiff_t line_end)
{
    const L line = *static_cast<const L*>(line_in);
    for (ptrdiff_t at = r.from; at < r.end; at += kBlock) {
        const ptrdiff_t x = at + kBlock <= line_end ? at : line_end - kBlock;
        store_units<kBlock>(line, to + x * L::kBytes, x);
    }
}

// Whole blocks, and the last units by eights.
template <Line L> NEVER_INLINE void store_eights(const void* line_in, uint8_t* to, Range r)
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
ALWAYS_INLINE void store_both(const Upper& upper, const Lower& lower, To to_upper, To to_lower, ptrdiff_t x)
{
    auto shared = upper.template shared<N>(x);
    auto first = upper.template own<N>(x);
    auto second = lower.template own<N>(x);
    upper.store(to_upper + x * Upper::kBytes, first, shared);
    lower.store(to_lower + x * Lower::kBytes, second, shared);
}

// Both return where the rest begins.
template <Line L> ALWAYS_INLINE ptrdiff_t store_steps(const L& line, uint8_t* to, Range r)
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
        for (; r.end - r.from >= kBlock; r.from += kBlock) store_units<kBlock>(line, to + r.from * L::kBytes, r.from);
        for (; r.end - r.from >= 8; r.from += 8) line.store_eight(to + r.from * L::kBytes, r.from);
    }
    return r.from;
}
template <Line Upper, Line Lower>
ALWAYS_INLINE ptrdiff_t store_steps(const Upper& upper, const Lower& lower, uint8_t* to_upper, uint8_t* to_lower,
                                    Range r)
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
template <Line L> ALWAYS_INLINE ptrdiff_t end_of_steps(Range r)
{
    constexpr int filling = kFilling<L>;
    return r.from + ((r.end - r.from) & -filling & -L::kWidest);
}
// Whole cache lines of lines that begin with one. Returns where the rest begins, which is stored as usual.
template <Line L> ALWAYS_INLINE ptrdiff_t stream_cache_lines(const L& line, uint8_t* to, Range r)
{
    const Uncached past{to};
    for (const ptrdiff_t end = end_of_steps<L>(r); r.from < end; r.from += L::kWidest)
        store_units<L::kWidest>(line, past + r.from * L::kBytes, r.from);
    if constexpr (kFilling<L> <= kBlock)
        for (; r.end - r.from >= kBlock; r.from += kBlock) store_units<kBlock>(line, past + r.from * L::kBytes, r.from);
    return r.from;
}
// The same of two lines, one after the other: two at a time get in each other's way in the write-combining buffers.
// The upper line keeps what it makes of the chroma for the lower one, a part at a time.
template <Line Upper, Line Lower>
ALWAYS_INLINE ptrdiff_t stream_cache_lines(const Upper& upper, const Lower& lower, uint8_t* to_upper, uint8_t* to_lower,
                                           Range r)
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

} // namespace vsurf::VSURF_ISA
