// SPDX-License-Identifier: MIT
// How sizes become counts of blocks. A counter is lowered by a step, and goes on while the subtraction gave no borrow
// and something is left. So there is at least one step, and the last one is done whole.
#pragma once
#include "simd/simd.h"

namespace vsurf::VSURF_ISA {

constexpr int kBlock = 16; // pixels of a line that are handled together

// 32-bit arithmetic. Products and differences wrap.
ALWAYS_INLINE int wrapping_mul(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) * static_cast<unsigned>(b));
}
ALWAYS_INLINE int wrapping_sub(int a, int b)
{
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}
ALWAYS_INLINE int logical_half(int x) { return static_cast<int>(static_cast<unsigned>(x) >> 1); }

// The steps of `unit` that a counter takes, and the units in all of them.
ALWAYS_INLINE ptrdiff_t step_count(int count, unsigned unit)
{
    auto left = static_cast<unsigned>(count);
    return left <= unit ? 1 : static_cast<ptrdiff_t>((left - 1) / unit) + 1;
}
ALWAYS_INLINE ptrdiff_t whole_steps(int count, int unit)
{
    return step_count(count, static_cast<unsigned>(unit)) * unit;
}

ALWAYS_INLINE int not_negative(int x) { return x < 0 ? 0 : x; }

// The lines of a job: that counter is lowered after a line, and goes on while it is above 0.
ALWAYS_INLINE ptrdiff_t at_least_one(int height) { return height < 1 ? 1 : height; }

// What is rare is exact, not fast: blocks that are stored one by one take the form of a line or source that is right
// for every gain, which has the same members. What adjusts nothing is right as it is.
template <class T> ALWAYS_INLINE auto exact(const T& x)
{
    if constexpr (requires { x.exact(); }) return x.exact();
    else return x;
}
template <class T> using ExactOf = decltype(exact(instance<T>()));

// Calls `step<N>(x)` for the widest steps first, then for at most one step of each narrower width.
template <int widest, int narrowest, class Step> ALWAYS_INLINE void along(ptrdiff_t x, ptrdiff_t end, const Step& step)
{
    for (; end - x >= widest; x += widest) step.template operator()<widest>(x);
    if constexpr (widest > narrowest) along<widest / 2, narrowest>(x, end, step);
}

constexpr ptrdiff_t kStackPart = 4096; // pixels or bytes of a line that are kept on the stack at a time

// Calls `work(x, size, last)` for the parts of a line, of which only the last one may be smaller.
template <class Work> ALWAYS_INLINE void each_part(ptrdiff_t line, ptrdiff_t part, const Work& work)
{
    for (ptrdiff_t x = 0; x < line; x += part) {
        const bool last = line - x <= part;
        work(x, last ? line - x : part, last);
    }
}

} // namespace vsurf::VSURF_ISA
