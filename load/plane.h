// SPDX-License-Identifier: MIT
// Lines of single planes: copied, adjusted, or halved in width.
#pragma once
#include "frame/adjust.h"
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

struct Plane {
    const uint8_t* src;
    uint8_t* dst;
    ptrdiff_t src_step, dst_step; // from a line to the next
    ptrdiff_t lines;
};

ALWAYS_INLINE bool streams(const Plane& p, size_t destination_bytes)
{
    auto misaligned = reinterpret_cast<uintptr_t>(p.dst) | static_cast<uintptr_t>(p.dst_step);
    return misaligned % kCacheLine == 0 && destination_bytes >= streaming_from();
}

// `line.template store<S>(dst, src, x, end)` stores the bytes x to end of a line of `width` bytes.
template <class Line> ALWAYS_INLINE void each_line(Plane p, ptrdiff_t width, bool streamed, const Line& line)
{
    const ptrdiff_t whole = width & -kCacheLine;
    for (ptrdiff_t i = 0; i < p.lines; i++, p.src += p.src_step, p.dst += p.dst_step) {
        if (streamed) line.template store<Stores::streaming>(p.dst, p.src, 0, whole);
        line.template store<Stores::cached>(p.dst, p.src, streamed ? whole : 0, width);
    }
    if (streamed) fence_streaming();
}

// In whole blocks of 8 bytes.
template <class Gain> struct AdjustLine {
    SampleAdjust adjust;
    template <int N> ALWAYS_INLINE Bytes<N> of(Bytes<N> samples) const { return adjusted<Gain>(adjust, samples); }
    template <Stores S> ALWAYS_INLINE void store(uint8_t* dst, const uint8_t* src, ptrdiff_t x, ptrdiff_t end) const
    {
        along<kRegister, 16>(x, end, [=, this]<int N>(ptrdiff_t at) VSURF_INLINED {
            put(to<S>(dst + at), this->of(load<N>(src + at)));
        });
        if (end & 8 && x != end) put_first8(dst + end - 8, of(load_first8(src + end - 8)));
    }
};

// Every second sample, the odd ones, adjusted; x and end count destination bytes.
struct HalveLine {
    SampleAdjust adjust;
    template <int N> ALWAYS_INLINE Words<N> of(const uint8_t* src) const { return adjust(split(load<N>(src)).odd); }
    ALWAYS_INLINE void block(uint8_t* dst, const uint8_t* src) const
    {
        auto eight = of<16>(src);
        put_first8(dst, pack_in_order(eight, eight));
    }
    template <Stores S> ALWAYS_INLINE void store(uint8_t* dst, const uint8_t* src, ptrdiff_t x, ptrdiff_t end) const
    {
        along<kRegister, 16>(x, end, [=, this]<int N>(ptrdiff_t at) VSURF_INLINED {
            put(to<S>(dst + at),
                pack_in_order(this->template of<N>(src + 2 * at), this->template of<N>(src + 2 * at + N)));
        });
        if (end & 8 && x != end) block(dst + end - 8, src + 2 * end - 16);
    }
};

} // namespace vsurf::VSURF_ISA
