// SPDX-License-Identifier: MIT
// The block rule: which blocks of which lines a loader handles, and in which order.
//
// A line is handled in blocks of 16 pixels and a picture in passes of two lines; both counters are lowered first and
// go on while no borrow occurred and something is left, so each handles at least one and the last block is always
// whole. The pointers advance by the stated width, not by the blocks done, hence a width that is not a multiple of 16
// makes the following lines drift.
#pragma once
#include "frame/stores.h"
#include "frame/streaming.h"
#include "simd/simd.h"

namespace vsurf::VSURF_ISA {

constexpr int kBlock = 16;

// 32-bit arithmetic that wraps.
ALWAYS_INLINE int product(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) * static_cast<unsigned>(b));
}
ALWAYS_INLINE int difference(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}
ALWAYS_INLINE int logical_half(int x) { return static_cast<int>(static_cast<unsigned>(x) >> 1); }

ALWAYS_INLINE ptrdiff_t rounds(int count, unsigned unit)
{
    auto left = static_cast<unsigned>(count);
    return left <= unit ? 1 : static_cast<ptrdiff_t>((left - 1) / unit) + 1;
}

struct Position {
    const uint8_t *y, *u, *v;
    uint8_t* dst;
};
struct Distance {
    ptrdiff_t y, chroma, dst;
};

ALWAYS_INLINE Position operator+(Position a, Distance d)
{
    return {a.y + d.y, a.u + d.chroma, a.v + d.chroma, a.dst + d.dst};
}

// Who comes first where the two lines of a pass overlap: the lower block before the upper line's next one, or the
// whole upper line before the lower one. The bytes stored last stay.
enum class Order { by_block, by_line };

struct Walk {
    Position start;
    Distance to_lower, to_next_pass; // from an upper line to its lower one and to the next upper one
    ptrdiff_t width;                 // in whole blocks
    ptrdiff_t passes;
    ptrdiff_t line_bytes; // of the destination
};
struct BlockwiseWalk : Walk {
    static constexpr Order kOrder = Order::by_block;
};
struct LinewiseWalk : Walk {
    static constexpr Order kOrder = Order::by_line;
};

struct Picture {
    Position start;
    int width, height, y_pitch, dst_pitch;
};

// The pointers are moved once a pass: the lower line lies straight below the upper one.
ALWAYS_INLINE BlockwiseWalk walk_by_pass(const Picture& p, int bytes)
{
    const ptrdiff_t width = rounds(p.width, kBlock) * kBlock, drift = width - p.width;
    const ptrdiff_t y = p.y_pitch, dst = p.dst_pitch, chroma = width / 2 + ((y - p.width) >> 1);
    return {{
        .start = p.start,
        .to_lower = {y, 0, dst},
        .to_next_pass = {2 * y + drift, chroma, 2 * dst + bytes * drift},
        .width = width,
        .passes = rounds(p.height, 2),
        .line_bytes = width * bytes,
    }};
}

// The pointers are moved after each line, so the drift sets in at the lower line, and the chroma steps back there by
// half the stated width.
ALWAYS_INLINE LinewiseWalk walk_by_line(const Picture& p, int bytes)
{
    const ptrdiff_t width = rounds(p.width, kBlock) * kBlock, drift = width - p.width;
    const ptrdiff_t y = p.y_pitch + drift, dst = p.dst_pitch + bytes * drift;
    const ptrdiff_t chroma_drift = width / 2 - (p.width >> 1), chroma = width / 2 + ((y - width) >> 1);
    return {{
        .start = p.start,
        .to_lower = {y, chroma_drift, dst},
        .to_next_pass = {2 * y, chroma_drift + chroma, 2 * dst},
        .width = width,
        .passes = rounds(p.height, 2),
        .line_bytes = width * bytes,
    }};
}

// Packed pictures: nothing drifts, and the source's pitch counts pixels. A block has 16 units, of `bytes` bytes each at
// the destination; at least one block of two lines is done, also of a negative size.
ALWAYS_INLINE BlockwiseWalk walk_packed(const Picture& p, int units, int bytes)
{
    auto done = [](int size, unsigned step) VSURF_INLINED { return rounds(size < 0 ? 0 : size, step); };
    const ptrdiff_t width = done(units, kBlock) * kBlock, y = 2 * ptrdiff_t{p.y_pitch}, dst = p.dst_pitch;
    return {{
        .start = p.start,
        .to_lower = {y, 0, dst},
        .to_next_pass = {2 * y, 0, 2 * dst},
        .width = width,
        .passes = done(p.height, 2),
        .line_bytes = width * bytes,
    }};
}

ALWAYS_INLINE bool lines_overlap(const Walk& w)
{
    return w.to_lower.dst < w.line_bytes && -w.to_lower.dst < w.line_bytes;
}

constexpr ptrdiff_t kCacheLine = 64;

ALWAYS_INLINE size_t streaming_from() { return __atomic_load_n(&streaming_threshold, __ATOMIC_RELAXED); }

ALWAYS_INLINE bool streams(const Walk& w)
{
    auto misaligned = reinterpret_cast<uintptr_t>(w.start.dst) | static_cast<uintptr_t>(w.to_lower.dst) |
                      static_cast<uintptr_t>(w.to_next_pass.dst);
    return misaligned % kCacheLine == 0 && !lines_overlap(w) &&
           static_cast<size_t>(w.line_bytes) * static_cast<size_t>(w.passes) * 2 >= streaming_from();
}

ALWAYS_INLINE bool streams(const uint8_t* dst, ptrdiff_t pitch, ptrdiff_t line_bytes, ptrdiff_t lines)
{
    auto misaligned = reinterpret_cast<uintptr_t>(dst) | static_cast<uintptr_t>(pitch);
    const bool apart = pitch >= line_bytes || -pitch >= line_bytes;
    return misaligned % kCacheLine == 0 && apart && static_cast<size_t>(line_bytes * lines) >= streaming_from();
}

// How many pixels fill whole cache lines: 64 bytes over their common divisor with a pixel's bytes.
constexpr ptrdiff_t whole_lines(int bytes) { return kCacheLine / (bytes & -bytes); }
constexpr ptrdiff_t streaming_unit(int bytes, ptrdiff_t widest = kRegister)
{
    return whole_lines(bytes) > widest ? whole_lines(bytes) : widest;
}

// The widest steps first, then at most one step of each narrower width: no byte past the last block is touched.
template <int widest, int narrowest, class Step> ALWAYS_INLINE void along(ptrdiff_t x, ptrdiff_t end, const Step& step)
{
    for (; end - x >= widest; x += widest) step.template operator()<widest>(x);
    if constexpr (widest > narrowest) along<widest / 2, narrowest>(x, end, step);
}

} // namespace vsurf::VSURF_ISA
