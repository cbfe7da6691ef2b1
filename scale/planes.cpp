// SPDX-License-Identifier: MIT
// Single planes and planar YV12 pictures, enlarged plane by plane.
#include "frame/adjusted_line.h"
#include "frame/dispatch.h"
#include "frame/picture.h"
#include "scale/doubled.h"

namespace vsurf::VSURF_ISA {

constexpr int kStrip = 8; // source samples

struct PlaneLines {
    const uint8_t* src;
    uint8_t* dst;
    ptrdiff_t src_pitch, dst_pitch;
    ptrdiff_t lines; // of the source

    ALWAYS_INLINE Row row(ptrdiff_t line) const { return {src + line * src_pitch}; }
    ALWAYS_INLINE Row row_below(ptrdiff_t line) const { return row(line + 1 == lines ? line : line + 1); }
    ALWAYS_INLINE uint8_t* to(ptrdiff_t line) const { return dst + line * dst_pitch; }

    // Irregular: all strips except the last one write their last line to the line below the plane, and leave the
    // plane's own.
    ALWAYS_INLINE uint8_t* to_lower(ptrdiff_t line, bool last_strip) const
    {
        return to(2 * line + (line + 1 == lines && !last_strip ? 2 : 1));
    }
};

// All strips except the last one, line by line, where lines do not overlap.
ALWAYS_INLINE void double_lines(const PlaneLines& p, ptrdiff_t line_bytes)
{
    const Range ahead{0, line_bytes / 2 - kStrip};
    Writer writer(Target{p.dst, p.dst_pitch, 2 * p.dst_pitch, line_bytes, p.lines});
    for (ptrdiff_t i = 0; i < p.lines; i++) {
        const Doubled own{p.row(i)}, below{p.row_below(i)};
        writer.line(DoubledPlaneLine{own}, p.to(2 * i), ahead);
        writer.line(DoubledPlaneLine{Between{own, below}}, p.to_lower(i, false), ahead);
    }
}

// One strip from top to bottom.
template <class Source> ALWAYS_INLINE void double_strip(const PlaneLines& p, bool last)
{
    for (ptrdiff_t i = 0; i < p.lines; i++) {
        const Source own{p.row(i)}, below{p.row_below(i)};
        DoubledPlaneLine{own}.store_eight(p.to(2 * i), 0);
        DoubledPlaneLine{Between{own, below}}.store_eight(p.to_lower(i, last), 0);
    }
}

// A height of 1 works as 2 does, but moves each further strip back by less than it went down.
void strech_pic_2X2(PlaneEnlargement e)
{
    const ptrdiff_t strips = step_count(e.width <= kStrip ? kStrip + 1 : e.width, kStrip);
    const ptrdiff_t lines = e.height < 2 ? 2 : e.height, line_bytes = 2 * kStrip * strips, too_low = lines - e.height;
    PlaneLines p{e.src, e.dst, e.src_pitch, e.dst_pitch, lines};
    auto move_on = [&](ptrdiff_t count) VSURF_INLINED {
        p.src += count * (kStrip + too_low * p.src_pitch);
        p.dst += count * 2 * (kStrip + too_low * p.dst_pitch);
    };
    if (too_low == 0 && (p.dst_pitch >= line_bytes || -p.dst_pitch >= line_bytes)) {
        double_lines(p, line_bytes);
        move_on(strips - 1);
    } else {
        for (ptrdiff_t strip = 0; strip + 1 < strips; strip++, move_on(1)) double_strip<Doubled>(p, false);
    }
    double_strip<DoubledToTheEnd>(p, true); // does not look ahead
}

// Irregular: every plane takes `luma_gain`; 2 and 3 take the offsets of U and V.
ALWAYS_INLINE SampleAdjust adjustment_of(int plane)
{
    const auto s = current_adjustment();
    return SampleAdjust::with(s.luma_gain, plane == 2 ? s.u_offset : plane == 3 ? s.v_offset : s.luma_offset);
}

// The widths of the adjusted enlargers, in samples. First and last lines are done in blocks of 8, the rounds between
// them in blocks of 16 and one more that ends at the line's end, where that is not a whole block: it is `rest` past the
// block before.
struct Widths {
    ptrdiff_t blocks_of_8, blocks_of_16, rest;

    static ALWAYS_INLINE Widths of_plane(int width)
    {
        const int whole = width & -kBlock;
        return {whole_steps(not_negative(width), 8), whole < kBlock ? kBlock : whole, width & (kBlock - 1)};
    }
};

// Where the two adjusted enlargers differ. `own` makes a line of one source line, `between` of two. `src_step` and
// `dst_step` lead from a round to the next, and `to_copied` from the source of the last line to that of its copy.
struct SameWidth {
    static constexpr int kBytes = 1;
    static ALWAYS_INLINE auto own(SampleAdjust by, const uint8_t* from)
    {
        return PlaneLine<Adjust<FastGain, Row>>{{by, {from}}};
    }
    static ALWAYS_INLINE auto between(SampleAdjust by, const uint8_t* from, const uint8_t* below)
    {
        return PlaneLine<Adjust<FastGain, Average<Row>>>{{by, {{from}, {below}}}};
    }

    ptrdiff_t src_step, dst_step, to_copied = 0;
    ALWAYS_INLINE SameWidth(const PlaneEnlargement& e, const Widths&)
        : src_step(e.src_pitch), dst_step(2 * ptrdiff_t{e.dst_pitch})
    {
    }
};

// Irregular: steps down the source by the width, ends each round to the left of where it should where the width is no
// multiple of 16, and copies another line than the last one.
struct DoubleWidth {
    static constexpr int kBytes = 2;
    static ALWAYS_INLINE auto own(SampleAdjust by, const uint8_t* from)
    {
        return DoubledPlaneLine<AdjustPairs<FastGain, Doubled>>{{by, {{from}}}};
    }
    static ALWAYS_INLINE auto between(SampleAdjust by, const uint8_t* from, const uint8_t* below)
    {
        return DoubledPlaneLine<AdjustPairs<FastGain, Between<Doubled>>>{{by, {{{from}}, {{below}}}}};
    }

    ptrdiff_t src_step, dst_step, to_copied;
    ALWAYS_INLINE DoubleWidth(const PlaneEnlargement& e, const Widths& w)
        : src_step(e.width), dst_step(2 * (ptrdiff_t{e.dst_pitch} + w.blocks_of_16 - e.width) + w.rest),
          to_copied(w.blocks_of_8 - e.src_pitch)
    {
    }
};

// Pairs of lines, from a source line and the one below. The closing block of a line is not doubled in width: it
// continues a line of the same width, and lies on the end of a doubled one. Where two lines overlap, it comes after
// both.
template <class Shape>
ALWAYS_INLINE void write_rounds(const PlaneEnlargement& e, const Widths& w, const Shape& shape, SampleAdjust by,
                                uint8_t* to, ptrdiff_t rounds)
{
    constexpr bool doubled = Shape::kBytes == 2;
    const ptrdiff_t done = w.blocks_of_16, line_end = doubled ? done : done + w.rest;
    const Target target{to, e.dst_pitch, shape.dst_step, Shape::kBytes * line_end, rounds};
    const bool overlap = target.pair_overlaps(), closes_apart = w.rest != 0 && (doubled || overlap);
    const Range closing{done + w.rest - kBlock, done + w.rest};
    Writer writer(closes_apart ? Target::never_streamed() : target);
    const bool fast = FastGain::suits(by);
    const uint8_t* from = e.src;
    for (ptrdiff_t i = 0; i < rounds; i++, from += shape.src_step, to += shape.dst_step) {
        const uint8_t* below = from + e.src_pitch;
        uint8_t* to_lower = to + e.dst_pitch;
        const auto upper = Shape::own(by, from);
        const auto lower = Shape::between(by, from, below);
        if (overlap) Writer::blocks_in_turn<kBlock / Shape::kBytes>(upper, lower, to, to_lower, {0, done});
        else if (fast) writer.pair(upper, lower, to, to_lower, {0, line_end});
        else Writer::blocks(upper, to, {0, line_end}), Writer::blocks(lower, to_lower, {0, line_end});
        if (closes_apart) {
            const ptrdiff_t before = (Shape::kBytes - 1) * done;
            Writer::blocks(SameWidth::own(by, from), to + before, closing);
            Writer::blocks(SameWidth::between(by, from, below), to_lower + before, closing);
        }
    }
}

// Irregular: starts one line lower than `strech_pic_2X2`, so that the last source line gets lost; and writes the last
// line's copy right after it, which is the next line of a packed plane only.
template <class Shape> ALWAYS_INLINE void enlarge_adjusted(const PlaneEnlargement& e)
{
    const auto by = adjustment_of(e.plane);
    const auto w = Widths::of_plane(e.width);
    const Shape shape(e, w);
    const ptrdiff_t rounds = e.height < 2 ? 1 : e.height - 1;
    auto write_whole = [&](uint8_t* to, const uint8_t* from) VSURF_INLINED {
        store_adjusted_line(FastGain::suits(by), Shape::own(by, from), to, w.blocks_of_8);
    };
    uint8_t* const second = e.dst + Shape::kBytes * (w.blocks_of_8 - e.width) + e.dst_pitch;
    write_whole(e.dst, e.src);
    write_rounds(e, w, shape, by, second, rounds);
    const uint8_t* from = e.src + rounds * shape.src_step - e.src_pitch;
    uint8_t* to = second + rounds * shape.dst_step - e.dst_pitch;
    write_whole(to, from);
    write_whole(to + Shape::kBytes * w.blocks_of_8, from + shape.to_copied);
}

void strech_pic_2X2_adjust(PlaneEnlargement e) { enlarge_adjusted<DoubleWidth>(e); }
void strech_pic_1X2_adjust(PlaneEnlargement e) { enlarge_adjusted<SameWidth>(e); }

// The V plane follows the luma plane, the U plane follows V. Irregular: as planes 2 and 3, V takes `u_offset` and U
// takes `v_offset`.
template <class Enlarge> ALWAYS_INLINE void enlarge_planes(const Picture& p, const Enlarge& enlarge)
{
    auto plane = [&](const uint8_t* from, uint8_t* to, int halved, int number) VSURF_INLINED {
        enlarge(PlaneEnlargement{from, to, p.width >> halved, p.height >> halved, p.y_pitch >> halved,
                                 p.dst_pitch >> halved, p.info, number});
    };
    const Position start = start_of(p);
    const int luma_bytes = wrapping_mul(wrapping_mul(2, p.height), p.dst_pitch);
    uint8_t* v_plane = start.dst + luma_bytes;
    plane(start.y, start.dst, 0, 1);
    plane(start.v, v_plane, 1, 2);
    plane(start.u, v_plane + (luma_bytes >> 2), 1, 3);
}

void strech_picture_2X2_yv12_ajust(Picture p) { enlarge_planes(p, strech_pic_2X2_adjust); }
void strech_picture_1X2_yv12_ajust(Picture p) { enlarge_planes(p, strech_pic_1X2_adjust); }

} // namespace vsurf::VSURF_ISA
