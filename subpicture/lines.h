// SPDX-License-Identifier: MIT
// Lines of a surface that are drawn one by one.
#pragma once
#include "frame/walk.h"

namespace vsurf::VSURF_ISA {

struct SurfaceLines {
    uint8_t* first;
    ptrdiff_t step, count, width; // from line to line in bytes; pixels in whole blocks
};

// Such counters are lowered after a line and go on while above 0.
ALWAYS_INLINE ptrdiff_t at_least_one(int height) { return height < 1 ? 1 : height; }

// Calls `draw<stores, N>(line, x, to)` for every N pixels of `bytes` bytes each.
template <int bytes, class Draw> ALWAYS_INLINE void draw_lines(SurfaceLines lines, const Draw& draw)
{
    const bool streamed = streams(lines.first, lines.step, lines.width * bytes, lines.count);
    const ptrdiff_t whole = streamed ? lines.width & -streaming_unit(bytes) : 0;
    uint8_t* to = lines.first;
    for (ptrdiff_t i = 0; i < lines.count; i++, to += lines.step) {
        along<kRegister, kBlock>(0, whole, [=]<int N>(ptrdiff_t x) VSURF_INLINED {
            draw.template operator()<Stores::streaming, N>(i, x, to + x * bytes);
        });
        along<kRegister, kBlock>(whole, lines.width, [=]<int N>(ptrdiff_t x) VSURF_INLINED {
            draw.template operator()<Stores::cached, N>(i, x, to + x * bytes);
        });
    }
    if (streamed) fence_streaming();
}

} // namespace vsurf::VSURF_ISA
