// SPDX-License-Identifier: MIT
// Planar YV12 pictures into YV12 surfaces.
#include "frame/adjusted_line.h"
#include "frame/dispatch.h"
#include "frame/picture.h"

namespace vsurf::VSURF_ISA {

// Rows are read `width` rounded up to 8 apart, whatever the source pitch.
static NEVER_INLINE void adjust_plane(const uint8_t* src, uint8_t* dst, int width, int lines, int dst_pitch,
                                      SampleAdjust adjust)
{
    const ptrdiff_t bytes = whole_steps(width, 8), step = dst_pitch + bytes - width, count = step_count(lines, 1);
    Writer writer(Target::lines(dst, step, bytes, count));
    for (ptrdiff_t i = 0; i < count; i++)
        write_adjusted_line(writer, adjust, PlaneLine<Adjust<FastGain, Row>>{{adjust, {src + i * bytes}}},
                            dst + i * step, {0, bytes});
}

// Irregular: the V plane takes `u_offset` and the U plane `v_offset`.
void loadimage_yv12_ajust(Picture p)
{
    const auto by = adjustments_now();
    const Position at = start_of(p);
    const int below = p.info->lines_to_bottom, above = wrapping_sub(p.info->surface_height, below);
    uint8_t* v_plane = at.dst + wrapping_mul(below, p.dst_pitch) + (wrapping_mul(above, p.dst_pitch) >> 2);
    uint8_t* u_plane = v_plane + (wrapping_mul(p.info->surface_height, p.dst_pitch) >> 2);
    adjust_plane(at.y, at.dst, p.width, p.height, p.dst_pitch, by.luma);
    adjust_plane(at.v, v_plane, p.width >> 1, p.height >> 1, p.dst_pitch >> 1, by.u);
    adjust_plane(at.u, u_plane, p.width >> 1, p.height >> 1, p.dst_pitch >> 1, by.v);
}

// Lines in passes of two, copied from one plane to another.
struct CopiedPlane {
    const uint8_t* src;
    uint8_t* dst;
    ptrdiff_t src_lower, dst_lower, src_pass, dst_pass;
    ptrdiff_t passes, bytes;

    ALWAYS_INLINE const uint8_t* from(ptrdiff_t line) const
    {
        return src + line / 2 * src_pass + (line % 2 ? src_lower : 0);
    }
    ALWAYS_INLINE uint8_t* to(ptrdiff_t line) const { return dst + line / 2 * dst_pass + (line % 2 ? dst_lower : 0); }

    // Lines `first`, `first` + `by`, ..., which are `step` apart.
    NEVER_INLINE void copy(ptrdiff_t first, ptrdiff_t by, ptrdiff_t step) const
    {
        if (first < 0) first = 0;
        Writer writer(Target::lines(to(first), step, bytes, 2 * passes / by));
        for (ptrdiff_t line = first; line < 2 * passes; line += by)
            writer.line(PlaneLine<Row>{{from(line)}}, to(line), {0, bytes});
    }
    template <int size> ALWAYS_INLINE void copy_block(ptrdiff_t pass, ptrdiff_t x) const
    {
        __builtin_memcpy(to(2 * pass) + x, from(2 * pass) + x, size);
        __builtin_memcpy(to(2 * pass + 1) + x, from(2 * pass + 1) + x, size);
    }
};

// The destination moves on by a line's bytes a pass, so its upper lines lie end to end, and its lower ones do so
// `dst_lower` further on. Where that is no less than a line, every byte that both reach belongs to a later upper line:
// lower lines that are completely replaced are not stored.
ALWAYS_INLINE void copy_luma(const CopiedPlane& p)
{
    if (p.dst_lower < p.bytes) {
        for (ptrdiff_t pass = 0; pass < p.passes; pass++)
            for (ptrdiff_t x = 0; x < p.bytes; x += 16) p.copy_block<16>(pass, x);
        return;
    }
    const ptrdiff_t replaced = p.passes - (p.dst_lower + p.bytes - 1) / p.bytes;
    p.copy(replaced < 0 ? 1 : 2 * replaced + 1, 2, p.bytes);
    p.copy(0, 2, p.bytes);
}

// The two planes overlap, since each gets twice its lines. Where their lines fall onto the same grid, the V plane's,
// stored later, replace all U lines that they reach.
ALWAYS_INLINE void copy_chroma(const CopiedPlane& u, const CopiedPlane& v)
{
    const ptrdiff_t between = u.dst - v.dst, pitch = v.dst_lower;
    if (pitch < v.bytes || v.dst_pass != 2 * pitch || between < pitch || between % pitch != 0) {
        for (ptrdiff_t pass = 0; pass < v.passes; pass++)
            for (ptrdiff_t x = 0; x < v.bytes; x += 8) u.copy_block<8>(pass, x), v.copy_block<8>(pass, x);
        return;
    }
    u.copy(2 * v.passes - between / pitch, 1, pitch);
    v.copy(0, 1, pitch);
}

// Irregular: the second luma line is taken `width` after the first, the luma source also advances by the destination's
// pitch and the luma destination not by its own; the chroma loop copies twice the chroma lines; and the chroma planes
// start one byte early.
void loadimage_yv12(Picture p)
{
    const Position at = start_of(p);
    const ptrdiff_t bytes = whole_steps(p.width, 16), passes = step_count(p.height, 2);
    const ptrdiff_t rest = 2 * ptrdiff_t{p.y_pitch} - p.width, dst_rest = 2 * ptrdiff_t{p.dst_pitch} - p.width;
    copy_luma({
        .src = at.y,
        .dst = at.dst,
        .src_lower = p.width,
        .dst_lower = p.dst_pitch,
        .src_pass = bytes + rest + dst_rest,
        .dst_pass = bytes,
        .passes = passes,
        .bytes = bytes,
    });

    const ptrdiff_t chroma_bytes = whole_steps(p.width >> 1, 8);
    auto chroma_rest = [&](int pitch)
                           VSURF_INLINED { return logical_half(wrapping_sub(wrapping_mul(2, pitch), p.width)); };
    auto plane = [&](const uint8_t* from, uint8_t* to) VSURF_INLINED {
        return CopiedPlane{
            .src = from,
            .dst = to,
            .src_lower = logical_half(p.y_pitch),
            .dst_lower = logical_half(p.dst_pitch),
            .src_pass = chroma_bytes + chroma_rest(p.y_pitch),
            .dst_pass = chroma_bytes + chroma_rest(p.dst_pitch),
            .passes = passes,
            .bytes = chroma_bytes,
        };
    };
    const int size = wrapping_mul(p.height, p.dst_pitch);
    uint8_t* v_plane = at.dst + size - 1;
    copy_chroma(plane(at.u, v_plane + (size >> 2)), plane(at.v, v_plane));
}

} // namespace vsurf::VSURF_ISA
