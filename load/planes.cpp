// SPDX-License-Identifier: MIT
// Planar YV12 pictures into YV12 surfaces.
#include "load/copy.h"
#include "load/loader.h"
#include "load/plane.h"

namespace vsurf::VSURF_ISA {

// Rows are read `width` rounded up to 8 apart, whatever the source pitch.
ALWAYS_INLINE void adjust_plane(const uint8_t* src, uint8_t* dst, int width, int lines, int dst_pitch,
                                SampleAdjust adjust)
{
    const ptrdiff_t bytes = rounds(width, 8) * 8;
    Plane plane{src, dst, bytes, dst_pitch + bytes - width, rounds(lines, 1)};
    const bool streamed = streams(plane, static_cast<size_t>(bytes * plane.lines));
    if (CommonGain::suits(adjust)) each_line(plane, bytes, streamed, AdjustLine<CommonGain>{adjust});
    else each_line(plane, bytes, streamed, AdjustLine<AnyGain>{adjust});
}

// Irregular: the V plane takes `u_offset` and the U plane `v_offset`.
LOADER_EXPORT(loadimage_yv12_ajust)
{
    const auto by = adjustments_now();
    const Picture p = PICTURE;
    const int below = info->lines_to_bottom, above = difference(info->surface_height, below);
    uint8_t* v_plane = p.start.dst + product(below, dst_pitch) + (product(above, dst_pitch) >> 2);
    uint8_t* u_plane = v_plane + (product(info->surface_height, dst_pitch) >> 2);
    adjust_plane(p.start.y, p.start.dst, width, height, dst_pitch, by.luma);
    adjust_plane(p.start.v, v_plane, width >> 1, height >> 1, dst_pitch >> 1, by.u);
    adjust_plane(p.start.u, u_plane, width >> 1, height >> 1, dst_pitch >> 1, by.v);
}

// Lines in passes of two, from one plane to another.
struct LinePairs {
    const uint8_t* src;
    uint8_t* dst;
    ptrdiff_t src_lower, dst_lower, src_pass, dst_pass;
    ptrdiff_t passes, bytes;

    ALWAYS_INLINE ptrdiff_t src_of(ptrdiff_t line) const { return line / 2 * src_pass + (line % 2 ? src_lower : 0); }
    ALWAYS_INLINE ptrdiff_t dst_of(ptrdiff_t line) const { return line / 2 * dst_pass + (line % 2 ? dst_lower : 0); }
    ALWAYS_INLINE void copy(ptrdiff_t line, bool streamed) const
    {
        copy_bytes(dst + dst_of(line), src + src_of(line), bytes, streamed);
    }
    template <int size> ALWAYS_INLINE void copy_block(ptrdiff_t pass, ptrdiff_t x) const
    {
        __builtin_memcpy(dst + dst_of(2 * pass) + x, src + src_of(2 * pass) + x, size);
        __builtin_memcpy(dst + dst_of(2 * pass + 1) + x, src + src_of(2 * pass + 1) + x, size);
    }
};

// The destination moves on by a line's bytes a pass, so its upper lines lie end to end, and its lower ones do so
// `dst_lower` further on. Where that is no less than a line, every byte that both reach belongs to a later upper line.
ALWAYS_INLINE void copy_luma(const LinePairs& p, bool streamed)
{
    if (p.dst_lower < p.bytes) {
        for (ptrdiff_t pass = 0; pass < p.passes; pass++)
            for (ptrdiff_t x = 0; x < p.bytes; x += 16) p.copy_block<16>(pass, x);
        return;
    }
    const ptrdiff_t replaced = p.passes - (p.dst_lower + p.bytes - 1) / p.bytes; // lower lines, wholly
    for (ptrdiff_t pass = replaced < 0 ? 0 : replaced; pass < p.passes; pass++) p.copy(2 * pass + 1, streamed);
    for (ptrdiff_t pass = 0; pass < p.passes; pass++) p.copy(2 * pass, streamed);
}

// The two planes overlap, since each gets twice its lines. Where their lines fall onto the same grid, the V plane's,
// stored later, replace all U lines that they reach.
ALWAYS_INLINE void copy_chroma(const LinePairs& u, const LinePairs& v, bool streamed)
{
    const ptrdiff_t between = u.dst - v.dst, pitch = v.dst_lower;
    if (pitch < v.bytes || v.dst_pass != 2 * pitch || between < pitch || between % pitch != 0) {
        for (ptrdiff_t pass = 0; pass < v.passes; pass++)
            for (ptrdiff_t x = 0; x < v.bytes; x += 8) u.copy_block<8>(pass, x), v.copy_block<8>(pass, x);
        return;
    }
    const ptrdiff_t lines = 2 * v.passes, replaced = lines - between / pitch;
    for (ptrdiff_t line = replaced < 0 ? 0 : replaced; line < lines; line++) u.copy(line, streamed);
    for (ptrdiff_t line = 0; line < lines; line++) v.copy(line, streamed);
}

// Irregular: the second luma line is taken `width` after the first, the luma source also advances by the destination's
// pitch and the luma destination not by its own; the chroma loop copies twice the chroma lines; and the chroma planes
// start one byte early.
LOADER_EXPORT(loadimage_yv12)
{
    const Picture p = PICTURE;
    const ptrdiff_t bytes = rounds(width, 16) * 16, passes = rounds(height, 2);
    const ptrdiff_t rest = 2 * ptrdiff_t{y_pitch} - width, dst_rest = 2 * ptrdiff_t{dst_pitch} - width;
    const bool streamed = static_cast<size_t>(bytes * passes) * 2 >= streaming_from();
    const LinePairs luma{
        .src = p.start.y,
        .dst = p.start.dst,
        .src_lower = width,
        .dst_lower = dst_pitch,
        .src_pass = bytes + rest + dst_rest,
        .dst_pass = bytes,
        .passes = passes,
        .bytes = bytes,
    };
    copy_luma(luma, streamed);

    const ptrdiff_t chroma_bytes = rounds(width >> 1, 8) * 8;
    const int size = product(height, dst_pitch);
    auto plane = [&](const uint8_t* from, uint8_t* to) VSURF_INLINED {
        return LinePairs{
            .src = from,
            .dst = to,
            .src_lower = logical_half(y_pitch),
            .dst_lower = logical_half(dst_pitch),
            .src_pass = chroma_bytes + logical_half(difference(product(2, y_pitch), width)),
            .dst_pass = chroma_bytes + logical_half(difference(product(2, dst_pitch), width)),
            .passes = passes,
            .bytes = chroma_bytes,
        };
    };
    uint8_t* v_plane = p.start.dst + size - 1;
    copy_chroma(plane(p.start.u, v_plane + (size >> 2)), plane(p.start.v, v_plane), streamed);
    if (streamed) fence_streaming();
}

} // namespace vsurf::VSURF_ISA
