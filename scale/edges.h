// SPDX-License-Identifier: MIT
// New lines between two lines of a plane, interpolated along the edges of the picture.
//
// Where four neighbours of the upper line differ little from the four below them, they are averaged straight down.
// Elsewhere each sample p becomes the average of A(p + k) in the upper line and B(p - k) in the lower one, along the
// k of -2 to 2 for which a window of four such pairs, starting at p, differs least; among equals the smallest k.
#pragma once
#include "frame/blocks.h"

namespace vsurf::VSURF_ISA {

constexpr int kStraightUpTo = 32; // differences of four neighbours

// Two lines of one plane, and where the new samples go from sample `start` on. `upper<N>(x)` and `lower<N>(x)` give N
// samples.
struct OnePlane {
    static constexpr int kPixels = 1; // a sample
    const uint8_t *a, *b;
    uint8_t* to;
    ptrdiff_t start;

    template <int N> ALWAYS_INLINE Bytes<N> upper(ptrdiff_t x) const { return load<N>(a + x); }
    template <int N> ALWAYS_INLINE Bytes<N> lower(ptrdiff_t x) const { return load<N>(b + x); }
    template <int N> ALWAYS_INLINE void store(ptrdiff_t x, Bytes<N> samples) const { put(to + x - start, samples); }
};

// The same lines of both chroma planes: U in the first half of a register, V in the second.
struct BothChroma {
    static constexpr int kPixels = 2;
    OnePlane u, v;

    template <int N> ALWAYS_INLINE Bytes<N> upper(ptrdiff_t x) const { return load_halves<N>(u.a + x, v.a + x); }
    template <int N> ALWAYS_INLINE Bytes<N> lower(ptrdiff_t x) const { return load_halves<N>(u.b + x, v.b + x); }
    template <int N> ALWAYS_INLINE void store(ptrdiff_t x, Bytes<N> samples) const
    {
        put_halves(u.to + x - u.start, v.to + x - v.start, samples);
    }
};

template <int N, int k, class Lines> ALWAYS_INLINE Bytes<N> difference_along(const Lines& lines, ptrdiff_t x)
{
    return abs_diff(lines.template upper<N>(x + k), lines.template lower<N>(x - k));
}
template <int N, int k, class Lines> ALWAYS_INLINE Bytes<N> average_along(const Lines& lines, ptrdiff_t x)
{
    return avg(lines.template upper<N>(x + k), lines.template lower<N>(x - k));
}
template <int N, class Lines> ALWAYS_INLINE Bytes<N> steep_groups(const Lines& lines, ptrdiff_t x)
{
    return fours_above(difference_along<N, 0>(lines, x), kStraightUpTo);
}

template <int N> ALWAYS_INLINE EvenOddWords<N> min(EvenOddWords<N> a, EvenOddWords<N> b)
{
    return {min(a.even, b.even), min(a.odd, b.odd)};
}

// The best direction's samples. `differences<k>(i)` gives the differences along k of the N samples from the i-th on. A
// direction's cost, times 8, leaves room for its rank: the least of these sums, at most 4 * 255 * 8 + 4, shows it.
template <int N, class Lines, class Differences>
ALWAYS_INLINE Bytes<N> along_best(const Lines& lines, ptrdiff_t x, const Differences& differences)
{
    auto ranked_costs = [&]<int k>() VSURF_INLINED {
        auto sums = [&](int i) VSURF_INLINED { return pair_sums<8>(differences.template operator()<k>(i)); };
        const auto rank = Words<N>::splat(k + 2);
        return EvenOddWords<N>{add(add(sums(0), sums(2)), rank), add(add(sums(1), sums(3)), rank)};
    };
    auto best = min(ranked_costs.template operator()<-2>(), ranked_costs.template operator()<-1>());
    best = min(best, ranked_costs.template operator()<0>());
    best = min(best, ranked_costs.template operator()<1>());
    best = min(best, ranked_costs.template operator()<2>());
    const auto rank = bit_and(low_bytes(best), Bytes<N>::splat(7));

    auto samples = average_along<N, 0>(lines, x);
    auto take = [&]<int k>() VSURF_INLINED {
        samples = choose(equal(rank, Bytes<N>::splat(k + 2)), average_along<N, k>(lines, x), samples);
    };
    take.template operator()<-2>();
    take.template operator()<-1>();
    take.template operator()<1>();
    take.template operator()<2>();
    return samples;
}

// One step of N samples. Each difference is computed again for each of the four windows that it belongs to.
template <int N, class Lines> ALWAYS_INLINE void step_along_edges(const Lines& lines, ptrdiff_t x)
{
    const auto straight = average_along<N, 0>(lines, x), steep = steep_groups<N>(lines, x);
    if (!any(steep)) return lines.store(x, straight);
    auto differences = [&]<int k>(int i) VSURF_INLINED { return difference_along<N, k>(lines, x + i); };
    lines.store(x, choose(steep, along_best<N>(lines, x, differences), straight));
}

// Whole registers, kRun samples at a time. Where one group is steep, the differences of all samples are computed once,
// stored, and read for each of the four windows that they belong to.
constexpr ptrdiff_t kRun = 512;
[[maybe_unused]] static NEVER_INLINE void run_along_edges(const OnePlane& lines, ptrdiff_t x, ptrdiff_t end)
{
    constexpr int N = kRegister;
    auto seen = Bytes<N>::splat(0);
    for (ptrdiff_t at = x; at < end; at += N) {
        lines.store(at, average_along<N, 0>(lines, at));
        seen = bit_or(seen, steep_groups<N>(lines, at));
    }
    if (!any(seen)) return;

    uint8_t laid[5][kRun + 4]; // the last window ends 3 samples on
    auto lay = [&](ptrdiff_t at) VSURF_INLINED {
        put(laid[0] + (at - x), difference_along<N, -2>(lines, at));
        put(laid[1] + (at - x), difference_along<N, -1>(lines, at));
        put(laid[2] + (at - x), difference_along<N, 0>(lines, at));
        put(laid[3] + (at - x), difference_along<N, 1>(lines, at));
        put(laid[4] + (at - x), difference_along<N, 2>(lines, at));
    };
    for (ptrdiff_t at = x; at < end; at += N) lay(at);
    lay(end + 4 - N);
    for (ptrdiff_t at = x; at < end; at += N) {
        const auto steep = steep_groups<N>(lines, at);
        if (!any(steep)) continue;
        auto differences = [&]<int k>(int i) VSURF_INLINED { return load<N>(laid[k + 2] + (at - x) + i); };
        lines.store(at, choose(steep, along_best<N>(lines, at, differences), average_along<N, 0>(lines, at)));
    }
}

// Goes as far as whole registers reach, and returns how far that was.
ALWAYS_INLINE ptrdiff_t runs_along_edges(const OnePlane& lines, ptrdiff_t x, ptrdiff_t end)
{
    const ptrdiff_t whole = x + ((end - x) & -kRegister);
    for (; x < whole; x += kRun) run_along_edges(lines, x, whole - x < kRun ? whole : x + kRun);
    return whole;
}
ALWAYS_INLINE ptrdiff_t runs_along_edges(const BothChroma& lines, ptrdiff_t x, ptrdiff_t end)
{
    runs_along_edges(lines.u, x, end);
    return runs_along_edges(lines.v, x, end);
}

ALWAYS_INLINE ptrdiff_t within(ptrdiff_t x, ptrdiff_t from, ptrdiff_t to) { return x < from ? from : x > to ? to : x; }

// The pixels from `x` to `end` of a line of `width`, whose first and last block are averaged straight down.
template <class Lines>
[[maybe_unused]] static NEVER_INLINE void interpolate(const Lines& lines, ptrdiff_t x, ptrdiff_t end, ptrdiff_t width)
{
    constexpr int pixels = Lines::kPixels;
    auto straight = [&]<int N>(ptrdiff_t at)
                        VSURF_INLINED { lines.store(at / pixels, average_along<N, 0>(lines, at / pixels)); };
    auto edges = [&]<int N>(ptrdiff_t at) VSURF_INLINED { step_along_edges<N>(lines, at / pixels); };
    const ptrdiff_t first = within(kBlock, x, end), last = within(width - kBlock, x, end);
    along<kBlock, kBlock>(x, first, straight);
    const ptrdiff_t done = pixels * runs_along_edges(lines, first / pixels, last / pixels);
    along<kRegister, kBlock>(done, last, edges);
    along<kBlock, kBlock>(last, end, straight);
}

} // namespace vsurf::VSURF_ISA
