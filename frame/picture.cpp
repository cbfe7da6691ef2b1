// SPDX-License-Identifier: MIT
// How pictures are walked through, once for all lines.
#include "frame/picture.h"

namespace vsurf::VSURF_ISA {

Walk walk_by_pass(const Picture& p, int bytes)
{
    const ptrdiff_t width = whole_steps(p.width, kBlock), drift = width - p.width;
    const ptrdiff_t y = p.y_pitch, dst = p.dst_pitch, chroma = width / 2 + ((y - p.width) >> 1);
    return {
        .start = start_of(p),
        .to_lower = {y, 0, dst},
        .to_next_pass = {2 * y + drift, chroma, 2 * dst + bytes * drift},
        .width = width,
        .passes = step_count(p.height, 2),
        .line_bytes = width * bytes,
    };
}

Walk walk_by_line(const Picture& p, int bytes)
{
    const ptrdiff_t width = whole_steps(p.width, kBlock), drift = width - p.width;
    const ptrdiff_t y = p.y_pitch + drift, dst = p.dst_pitch + bytes * drift;
    const ptrdiff_t chroma_drift = width / 2 - (p.width >> 1), chroma = width / 2 + ((y - width) >> 1);
    return {
        .start = start_of(p),
        .to_lower = {y, chroma_drift, dst},
        .to_next_pass = {2 * y, chroma_drift + chroma, 2 * dst},
        .width = width,
        .passes = step_count(p.height, 2),
        .line_bytes = width * bytes,
        .order = StoreOrder::by_line,
    };
}

Walk walk_packed(const Picture& p, int units, int bytes)
{
    const ptrdiff_t width = whole_steps(not_negative(units), kBlock);
    const ptrdiff_t src = 2 * ptrdiff_t{p.y_pitch}, dst = p.dst_pitch;
    const Position start = start_of(p);
    return {
        .start = {start.y, start.y, start.y, start.dst},
        .to_lower = {src, 0, dst},
        .to_next_pass = {2 * src, 2 * src, 2 * dst},
        .width = width,
        .passes = step_count(not_negative(p.height), 2),
        .line_bytes = width * bytes,
    };
}

static void write_in_order(const Walk& walk, const AnyLines& lines)
{
    const ptrdiff_t step = walk.order == StoreOrder::by_block ? kBlock : walk.width;
    walk.each([&](const Position& upper, const Position& lower) VSURF_INLINED {
        for (ptrdiff_t x = 0; x < walk.width; x += step) {
            lines.blocks(lines.lines, false, upper, {x, x + step});
            lines.blocks(lines.lines, true, lower, {x, x + step});
        }
    });
}

void write_picture(const Walk& walk, bool exactly, const AnyLines& lines)
{
    if (exactly || walk.store_order_matters()) return write_in_order(walk, lines);
    lines.pairs(lines.lines, walk);
}

} // namespace vsurf::VSURF_ISA
