// SPDX-License-Identifier: MIT
// Lines of a subpicture, and lines of samples that are kept on the stack.
#pragma once
#include "frame/adjusted_line.h"
#include "frame/picture.h"

namespace vsurf::VSURF_ISA {

struct Subpicture {
    const uint8_t *alpha, *y, *u, *v;
};
ALWAYS_INLINE Subpicture subpicture(const MIX_INFO* job)
{
    return {job->subpic_alpha, job->subpic_y, job->subpic_u, job->subpic_v};
}
ALWAYS_INLINE Subpicture operator+(Subpicture s, Distance d)
{
    return {s.alpha + d.y, s.y + d.y, s.u + d.chroma, s.v + d.chroma};
}

// The samples of a part of a line, as the surface shows them.
struct Samples {
    static constexpr ptrdiff_t kPixels = 2048; // those of two lines take 8 KiB
    alignas(64) uint8_t y[kPixels], u[kPixels / 2], v[kPixels / 2];

    template <Source From>
    ALWAYS_INLINE void adjust(From from_y, From from_u, From from_v, ptrdiff_t pixels, const Adjustments& by)
    {
        adjust_line(y, from_y, pixels, by.luma);
        adjust_line(u, from_u, pixels / 2, by.u);
        adjust_line(v, from_v, pixels / 2, by.v);
    }
};

} // namespace vsurf::VSURF_ISA
