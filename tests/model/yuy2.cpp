// SPDX-License-Identifier: MIT
// Planar pictures to YUY2 surfaces: plain, adjusted, grey, and at half width.
#include "model/planar.h"

#include <array>

namespace model {
namespace {

using Packed = std::array<uint8_t, 32>; // Y0 U0 Y1 V0 ... Y14 U7 Y15 V7

Packed pack(const Pointer& y, const Pointer& u, const Pointer& v)
{
    Packed bytes{};
    for (int k = 0; k < 8; ++k) {
        const size_t at = static_cast<size_t>(4 * k);
        bytes[at] = y[2 * k];
        bytes[at + 1] = u[k];
        bytes[at + 2] = y[2 * k + 1];
        bytes[at + 3] = v[k];
    }
    return bytes;
}

void store(Pointer dst, const Packed& bytes, int from, int to)
{
    for (int i = from; i < to; ++i) dst.store(i, bytes[static_cast<size_t>(i)]);
}

// The walk that the line-by-line loaders share: the second line of a pass goes back to the same chroma line.
// `line_bytes` is what one stated line takes at the destination, `block_bytes` what a block of 16 pixels takes.
template <class Block> void walk_lines(Planes& planes, const Call& call, int line_bytes, int block_bytes, Block block)
{
    Pointer y(planes.y), u(planes.u), v(planes.v), dst(planes.dst);
    Counter lines(call.height);
    do {
        for (int line = 0; line < 2; ++line) {
            Counter columns(call.width);
            do {
                block(y, u, v, dst);
                y.advance(16);
                u.advance(8);
                v.advance(8);
                dst.advance(block_bytes);
            } while (columns.more_after(16));
            const int32_t chroma_step = line == 0 ? -shift_arithmetic(call.width, 1)
                                                  : shift_arithmetic(wrap(int64_t{call.y_pitch} - call.width), 1);
            y.advance(wrap(int64_t{call.y_pitch} - call.width));
            u.advance(chroma_step);
            v.advance(chroma_step);
            dst.advance(wrap(int64_t{call.dst_pitch} - line_bytes));
        }
    } while (lines.more_after(2));
}

void half_block(const Pointer& y, const Pointer& u, const Pointer& v, Pointer dst, const State& s)
{
    for (int i = 0; i < 4; ++i) {
        const int at = 4 * i;
        dst.store(at, adjust(average(y[4 * i], y[4 * i + 1]), s.luma_gain, s.luma_offset));
        dst.store(at + 1, adjust(average(u[2 * i], u[2 * i + 1]), s.chroma_gain, s.u_offset));
        dst.store(at + 2, adjust(average(y[4 * i + 2], y[4 * i + 3]), s.luma_gain, s.luma_offset));
        dst.store(at + 3, adjust(average(v[2 * i], v[2 * i + 1]), s.chroma_gain, s.v_offset));
    }
}

} // namespace

void loadimage_yuy2(Planes& planes, const Call& call)
{
    Pointer y(planes.y), u(planes.u), v(planes.v), dst(planes.dst);
    Counter lines(call.height);
    do {
        Counter columns(call.width);
        do {
            store(dst, pack(y, u, v), 0, 32);
            // The second line keeps what its first four pixels of the block held.
            store(dst.plus(call.dst_pitch), pack(y.plus(call.y_pitch), u, v), 8, 32);
            y.advance(16);
            u.advance(8);
            v.advance(8);
            dst.advance(32);
        } while (columns.more_after(16));
        const int32_t chroma_step = shift_arithmetic(wrap(int64_t{call.y_pitch} - call.width), 1);
        y.advance(wrap(2 * int64_t{call.y_pitch} - call.width));
        u.advance(chroma_step);
        v.advance(chroma_step);
        dst.advance(wrap(2 * (int64_t{call.dst_pitch} - call.width)));
    } while (lines.more_after(2));
}

void loadimage_yuy2_ajust(Planes& planes, const Call& call)
{
    if (call.height <= 8 || (call.height & 1) != 0) return;
    const State s = call.state;
    auto block = [&s](const Pointer& y, const Pointer& u, const Pointer& v, Pointer dst) {
        Packed bytes = pack(y, u, v);
        for (size_t i = 0; i < 32; i += 4) {
            bytes[i] = adjust(bytes[i], s.luma_gain, s.luma_offset);
            bytes[i + 1] = adjust(bytes[i + 1], s.chroma_gain, s.u_offset);
            bytes[i + 2] = adjust(bytes[i + 2], s.luma_gain, s.luma_offset);
            bytes[i + 3] = adjust(bytes[i + 3], s.chroma_gain, s.v_offset);
        }
        store(dst, bytes, 0, 32);
    };
    walk_lines(planes, call, 2 * call.width, 32, block);
}

void loadimage_yuy2_mono_ajust(Planes& planes, const Call& call)
{
    const State s = call.state;
    walk_lines(planes, call, 2 * call.width, 32, [&s](const Pointer& y, const Pointer&, const Pointer&, Pointer dst) {
        for (int i = 0; i < 16; ++i) {
            dst.store(2 * i, adjust(y[i], s.luma_gain, s.luma_offset));
            dst.store(2 * i + 1, 128);
        }
    });
}

void loadimage_half_yuy2_ajust(Planes& planes, const Call& call)
{
    const State s = call.state;
    walk_lines(planes, call, call.width, 16, [&s](const Pointer& y, const Pointer& u, const Pointer& v, Pointer dst) {
        half_block(y, u, v, dst, s);
    });
}

} // namespace model
