// SPDX-License-Identifier: MIT
// Lines of samples on the stack: how they get there, and what is done to them there.
#pragma once
#include "frame/sink.h"
#include "show/plan.h"

namespace vsurf::VSURF_ISA {

constexpr ptrdiff_t kPart = 2048; // pixels of a line that are kept on the stack at a time
constexpr ptrdiff_t kSlack = 128; // what the last part may have more, and what may be read and written behind it
constexpr ptrdiff_t kStrip = kPart + kSlack;
constexpr ptrdiff_t kGrid = 64; // parts begin at multiples of it, which begin cache lines where lines do

ALWAYS_INLINE ptrdiff_t chroma_columns(ptrdiff_t pixels) { return (pixels + 1) / 2; }
ALWAYS_INLINE void copy_bytes(uint8_t* to, const uint8_t* from, ptrdiff_t count)
{
    if (to != from) __builtin_memcpy(to, from, static_cast<size_t>(count));
}

// A part of a pair of lines. Its chroma is either planar, and both lines share it, or interleaved: U0 V0 U1 V1 ... Rows
// that are packed are of a packed picture as it is: every second byte is luma, the others chroma.
struct Rows {
    const uint8_t* y[2]; // the second is null where there is no second line
    const uint8_t *u, *v;
    const uint8_t* uv[2]; // where these differ, each line has chroma of its own
    bool packed = false;
};

struct Strips {
    alignas(64) uint8_t y[2][kStrip];
    alignas(64) uint8_t uv[2][kStrip];
};

// Calls `step<N>(x)` for all of the range, with the last registers moved back to its end, or `rest(x)` for single ones
// in a range that is shorter than the narrowest register.
template <class Step, class Rest> ALWAYS_INLINE void exactly(ptrdiff_t count, const Step& step, const Rest& rest)
{
    ptrdiff_t x = 0;
    for (; count - x >= kRegister; x += kRegister) step.template operator()<kRegister>(x);
    for (; x < count && count >= 16; x += 16) step.template operator()<16>(count - x < 16 ? count - 16 : x);
    if (count < 16)
        for (; x < count; x++) rest(x);
}

// a0 b0 a1 b1 ... to two lines, and back.
inline NEVER_INLINE void deinterleave(const uint8_t* from, uint8_t* a, uint8_t* b, ptrdiff_t count)
{
    exactly(
        count,
        [=]<int N>(ptrdiff_t x) VSURF_INLINED {
            auto pairs = load_yuyv<N, 1>(from + 2 * x);
            put(a + x, pairs.y), put(b + x, pairs.uv);
        },
        [=](ptrdiff_t x) VSURF_INLINED { a[x] = from[2 * x], b[x] = from[2 * x + 1]; });
}
inline NEVER_INLINE void interleave(const uint8_t* a, const uint8_t* b, uint8_t* to, ptrdiff_t count)
{
    exactly(
        count, [=]<int N>(ptrdiff_t x) VSURF_INLINED { store_pairs(to + 2 * x, load<N, 2>(a + x), load<N, 2>(b + x)); },
        [=](ptrdiff_t x) VSURF_INLINED { to[2 * x] = a[x], to[2 * x + 1] = b[x]; });
}
inline NEVER_INLINE void swap_pairs(const uint8_t* from, uint8_t* to, ptrdiff_t count)
{
    exactly(
        count,
        [=]<int N>(ptrdiff_t x) VSURF_INLINED {
            auto first = split(load<N>(from + 2 * x)), second = split(load<N>(from + 2 * x + N));
            put(to + 2 * x, join(EvenOddWords<N>{first.odd, first.even}));
            put(to + 2 * x + N, join(EvenOddWords<N>{second.odd, second.even}));
        },
        [=](ptrdiff_t x) VSURF_INLINED {
            const uint8_t first = from[2 * x];
            to[2 * x] = from[2 * x + 1], to[2 * x + 1] = first;
        });
}

// Every second byte is luma, the others chroma, which begins one byte after the luma or one or three before it.
struct PackedRun {
    bool chroma_leads; // a byte of chroma comes before the first pair
    ptrdiff_t pairs;   // of which each has a byte of both
    ptrdiff_t chroma;  // bytes of it in all

    static ALWAYS_INLINE PackedRun of(const uint8_t* luma, const uint8_t* chroma, ptrdiff_t pixels)
    {
        const bool leads = luma - chroma == 3;
        const ptrdiff_t samples = 2 * chroma_columns(pixels), left = samples - leads;
        return {leads, left < pixels ? left : pixels, samples};
    }
};
inline NEVER_INLINE void take_packed(const uint8_t* luma, const uint8_t* chroma, uint8_t* y, uint8_t* uv,
                                     ptrdiff_t pixels)
{
    const auto run = PackedRun::of(luma, chroma, pixels);
    const ptrdiff_t lead = run.chroma_leads;
    const uint8_t* c = chroma + 2 * lead;
    uv[0] = chroma[0];
    if (luma < c) deinterleave(luma, y, uv + lead, run.pairs);
    else deinterleave(c, uv + lead, y, run.pairs);
    for (ptrdiff_t x = run.pairs; x < pixels; x++) y[x] = luma[2 * x];
    for (ptrdiff_t x = run.pairs + lead; x < run.chroma; x++) uv[x] = chroma[2 * x];
}

// What is done to samples that lie in strips may go on behind their end.

template <int N> ALWAYS_INLINE Words<N> cut_to_samples(Words<N> a)
{
    return min(max(a, Words<N>::splat(0)), Words<N>::splat(255));
}
template <int N> ALWAYS_INLINE Bytes<N> join_cut(EvenOddWords<N> a)
{
    return join(EvenOddWords<N>{cut_to_samples(a.even), cut_to_samples(a.odd)});
}
// 16 (c - middle): what a multiplication by 1/4096 takes.
template <int N> ALWAYS_INLINE EvenOddWords<N> scaled(EvenOddWords<N> a, int middle)
{
    return shl<4>(sub(a, Words<N>::splat(middle)));
}
template <int N> ALWAYS_INLINE Words<N> scaled_by(Words<N> a, int by) { return mulhi(a, Words<N>::splat(by)); }

inline NEVER_INLINE void transform_luma(const Transform& by, uint8_t* y, const uint8_t* uv, ptrdiff_t pixels)
{
    constexpr int N = kRegister;
    const Transform t = by;
    for (ptrdiff_t x = 0; x < pixels; x += N) {
        auto luma = scaled(split(load<N>(y + x)), t.luma_in), chroma = scaled(split(load<N>(uv + x)), 128);
        auto added = add(add(scaled_by(chroma.even, t.yu), scaled_by(chroma.odd, t.yv)), Words<N>::splat(t.luma_out));
        put(y + x, join_cut(add(mulhi(luma, Words<N>::splat(t.yy)), added)));
    }
}
inline NEVER_INLINE void transform_chroma(const Transform& by, uint8_t* uv, ptrdiff_t bytes)
{
    constexpr int N = kRegister;
    const Transform t = by;
    auto middle = Words<N>::splat(128);
    for (ptrdiff_t x = 0; x < bytes; x += N) {
        auto c = scaled(split(load<N>(uv + x)), 128);
        auto of_v = mullo(scaled_by(c.odd, t.uv), Words<N>::splat(t.uv_sign));
        auto u = add(add(scaled_by(c.even, t.uu), of_v), middle);
        auto v = add(add(scaled_by(c.even, t.vu), scaled_by(c.odd, t.vv)), middle);
        put(uv + x, join_cut(EvenOddWords<N>{u, v}));
    }
}
inline NEVER_INLINE void average_lines(uint8_t* to, const uint8_t* other, ptrdiff_t bytes)
{
    for (ptrdiff_t x = 0; x < bytes; x += kRegister)
        put(to + x, avg(load<kRegister>(to + x), load<kRegister>(other + x)));
}

} // namespace vsurf::VSURF_ISA
