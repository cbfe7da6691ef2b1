// SPDX-License-Identifier: MIT
// Planar pictures to YV12 surfaces: copied, adjusted, and at half width.
#include "model/planar.h"

#include <array>

namespace model {
namespace {

void copy(const Pointer& from, Pointer to, int bytes)
{
    for (int i = 0; i < bytes; ++i) to.store(i, from[i]);
}

// The destination does not advance between passes, and the source takes the destination's pitch along.
void copy_luma(Planes& planes, const Call& call)
{
    Pointer y(planes.y), dst(planes.dst);
    Counter lines(call.height);
    do {
        Counter columns(call.width);
        do {
            copy(y, dst, 16);
            copy(y.plus(call.width), dst.plus(call.dst_pitch), 16);
            y.advance(16);
            dst.advance(16);
        } while (columns.more_after(16));
        y.advance(wrap(2 * int64_t{call.y_pitch} - call.width + 2 * int64_t{call.dst_pitch} - call.width));
    } while (lines.more_after(2));
}

// As many chroma lines as the picture has luma lines.
void copy_chroma(Planes& planes, const Call& call)
{
    const int32_t luma_bytes = wrap(int64_t{call.height} * call.dst_pitch);
    Pointer u(planes.u), v(planes.v);
    Pointer dst_v = Pointer(planes.dst).plus(wrap(int64_t{luma_bytes} - 1));
    Pointer dst_u = dst_v.plus(shift_arithmetic(luma_bytes, 2));
    const int32_t src_pitch = shift_logical(call.y_pitch, 1);
    const int32_t dst_pitch = shift_logical(call.dst_pitch, 1);
    Counter lines(call.height);
    do {
        Counter columns(shift_arithmetic(call.width, 1));
        do {
            copy(u, dst_u, 8);
            copy(u.plus(src_pitch), dst_u.plus(dst_pitch), 8);
            copy(v, dst_v, 8);
            copy(v.plus(src_pitch), dst_v.plus(dst_pitch), 8);
            for (Pointer* each : {&u, &v, &dst_u, &dst_v}) each->advance(8);
        } while (columns.more_after(8));
        const int32_t src_step = shift_logical(wrap(2 * int64_t{call.y_pitch} - call.width), 1);
        const int32_t dst_step = shift_logical(wrap(2 * int64_t{call.dst_pitch} - call.width), 1);
        u.advance(src_step);
        v.advance(src_step);
        dst_u.advance(dst_step);
        dst_v.advance(dst_step);
    } while (lines.more_after(2));
}

// Source rows follow each other without regard to any pitch.
void adjust_plane(Pointer src, Pointer dst, int32_t width, int32_t lines, int32_t dst_pitch, int16_t gain,
                  int16_t offset)
{
    Counter rows(lines);
    do {
        Counter columns(width);
        do {
            std::array<uint8_t, 8> block{};
            for (int i = 0; i < 8; ++i) block[static_cast<size_t>(i)] = adjust(src[i], gain, offset);
            for (int i = 0; i < 8; ++i) dst.store(i, block[static_cast<size_t>(i)]);
            src.advance(8);
            dst.advance(8);
        } while (columns.more_after(8));
        dst.advance(wrap(int64_t{dst_pitch} - width));
    } while (rows.more_after(1));
}

// Sixteen samples are read, the odd ones kept.
void drop_even(Pointer& src, Pointer& dst, int16_t gain, int16_t offset)
{
    std::array<uint8_t, 16> block{};
    for (int i = 0; i < 16; ++i) block[static_cast<size_t>(i)] = src[i];
    for (int i = 0; i < 8; ++i) dst.store(i, adjust(block[static_cast<size_t>(2 * i + 1)], gain, offset));
    src.advance(16);
    dst.advance(8);
}

void half_luma(Planes& planes, const Call& call)
{
    Pointer src(planes.y), dst(planes.dst);
    Counter lines(call.height);
    do {
        Counter columns(call.width);
        do drop_even(src, dst, call.state.luma_gain, call.state.luma_offset);
        while (columns.more_after(16));
        src.advance(wrap(int64_t{call.y_pitch} - call.width));
        dst.advance(wrap(int64_t{call.dst_pitch} - shift_arithmetic(call.width, 1)));
    } while (lines.more_after(1));
}

void half_chroma(Pointer src, Pointer dst, const Call& call, int16_t offset)
{
    const int32_t chroma_width = shift_arithmetic(call.width, 1);
    const int32_t rest = chroma_width & 15;
    Counter lines(shift_arithmetic(call.height, 1));
    do {
        Counter columns(chroma_width - rest);
        do drop_even(src, dst, call.state.chroma_gain, offset);
        while (columns.more_after(16));
        if (rest != 0) {
            src.advance(rest - 16);
            dst.advance((rest >> 1) - 8);
            drop_even(src, dst, call.state.chroma_gain, offset);
        }
        src.advance(shift_arithmetic(call.y_pitch, 1) - chroma_width);
        dst.advance(shift_arithmetic(call.dst_pitch, 1) - shift_arithmetic(call.width, 2));
    } while (lines.more_after(1));
}

} // namespace

void loadimage_yv12(Planes& planes, const Call& call)
{
    copy_luma(planes, call);
    copy_chroma(planes, call);
}

void loadimage_yv12_ajust(Planes& planes, const Call& call)
{
    const int64_t pitch = call.dst_pitch;
    const int64_t surface = call.info->surface_height;
    const int64_t to_bottom = call.info->lines_to_bottom;
    const int32_t above = wrap(wrap(surface - to_bottom) * pitch);
    const Pointer dst(planes.dst);
    const Pointer dst_v = dst.plus(wrap(to_bottom * pitch)).plus(shift_arithmetic(above, 2));
    const Pointer dst_u = dst_v.plus(shift_arithmetic(wrap(surface * pitch), 2));
    const State& s = call.state;
    const int32_t width = shift_arithmetic(call.width, 1);
    const int32_t lines = shift_arithmetic(call.height, 1);
    const int32_t chroma_pitch = shift_arithmetic(call.dst_pitch, 1);
    adjust_plane(Pointer(planes.y), dst, call.width, call.height, call.dst_pitch, s.luma_gain, s.luma_offset);
    // Each chroma plane takes the other one's offset.
    adjust_plane(Pointer(planes.v), dst_v, width, lines, chroma_pitch, s.chroma_gain, s.u_offset);
    adjust_plane(Pointer(planes.u), dst_u, width, lines, chroma_pitch, s.chroma_gain, s.v_offset);
}

void loadimage_half_yv12_ajust(Planes& planes, const Call& call)
{
    half_luma(planes, call);
    const int32_t luma_bytes = wrap(int64_t{call.height} * call.dst_pitch);
    const int64_t chroma_pitch = shift_arithmetic(call.dst_pitch, 1);
    const Pointer dst_v = Pointer(planes.dst).plus(luma_bytes);
    const Pointer dst_u = dst_v.plus(wrap(chroma_pitch * shift_arithmetic(call.height, 1)));
    half_chroma(Pointer(planes.v), dst_v, call, call.state.v_offset);
    half_chroma(Pointer(planes.u), dst_u, call, call.state.u_offset);
}

} // namespace model
