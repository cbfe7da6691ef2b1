// SPDX-License-Identifier: MIT
// Lines, and the surface or plane that they go to.
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

// Where all lines of a surface or plane are.
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

} // namespace vsurf::VSURF_ISA
