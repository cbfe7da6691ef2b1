// SPDX-License-Identifier: MIT
// Single planes and planar YV12 pictures, enlarged plane by plane.
#include "load/loader.h"
#include "scale/plane.h"

namespace vsurf::VSURF_ISA {

constexpr int kStrip = 8; // source samples

struct PlaneLines {
    const uint8_t* src;
    uint8_t* dst;
    ptrdiff_t src_pitch, dst_pitch;
    ptrdiff_t lines; // of the source

    ALWAYS_INLINE Row row(ptrdiff_t line) const { return {src + line * src_pitch}; }
    ALWAYS_INLINE uint8_t* to(ptrdiff_t line) const { return dst + line * dst_pitch; }
};

// Irregular: ordinary strips write their last line to the line below the plane, and leave the plane's own.
ALWAYS_INLINE void double_ordinary(const PlaneLines& p, ptrdiff_t samples, bool streamed)
{
    for (ptrdiff_t i = 0; i < p.lines; i++) {
        const bool last = i + 1 == p.lines;
        const Row own = p.row(i), below = p.row(last ? i : i + 1);
        const Doubled doubled{own, own};
        write_line(DoubleWidth<Doubled>{doubled}, p.to(2 * i), samples, streamed);
        write_line(DoubleWidth<Between<Doubled>>{{doubled, {below, below}}}, p.to(2 * i + 1 + last), samples, streamed);
    }
}

ALWAYS_INLINE void double_last_strip(const PlaneLines& p)
{
    for (ptrdiff_t i = 0; i < p.lines; i++) {
        const DoubledToTheEnd own{p.row(i)}, below{p.row(i + 1 == p.lines ? i : i + 1)};
        put(p.to(2 * i), in_line(own.word_pairs<16, 1>(0)));
        put(p.to(2 * i + 1), in_line(Between{own, below}.word_pairs<16, 1>(0)));
    }
}

// A height of 1 works as 2 does, but moves each further strip back by less than it went down.
void strech_pic_2X2(unsigned char* src, unsigned char* dst, int width, int height, int src_pitch, int dst_pitch)
{
    const ptrdiff_t strips = rounds(width <= kStrip ? kStrip + 1 : width, kStrip), lines = height < 2 ? 2 : height;
    const ptrdiff_t line_bytes = 2 * kStrip * strips, too_low = lines - height;
    PlaneLines p{src, dst, src_pitch, dst_pitch, lines};
    auto move_on = [&](ptrdiff_t count) VSURF_INLINED {
        p.src += count * (kStrip + too_low * src_pitch);
        p.dst += count * 2 * (kStrip + too_low * dst_pitch);
    };
    if (too_low == 0 && (dst_pitch >= line_bytes || -ptrdiff_t{dst_pitch} >= line_bytes)) {
        const bool streamed = streams(dst, dst_pitch, line_bytes, 2 * lines);
        double_ordinary(p, kStrip * (strips - 1), streamed);
        if (streamed) fence_streaming();
        move_on(strips - 1);
    } else {
        for (ptrdiff_t strip = 0; strip + 1 < strips; strip++, move_on(1)) double_ordinary(p, kStrip, false);
    }
    double_last_strip(p);
}

// Irregular: every plane takes `luma_gain`; 2 and 3 take the offsets of U and V.
ALWAYS_INLINE SampleAdjust adjustment_of(int plane)
{
    const auto s = current_adjustment();
    return SampleAdjust::of(s.luma_gain, plane == 2 ? s.u_offset : plane == 3 ? s.v_offset : s.luma_offset);
}

// The sizes of the adjusted enlargers. First and last lines are done in blocks of 8, the rounds between them in blocks
// of 16 and one more that ends at the line's end, where that is no whole block: it lies `rest` past the block before.
struct Rounds {
    ptrdiff_t width, blocks_of_8, blocks_of_16, rest, count;

    static ALWAYS_INLINE Rounds of(int width, int height)
    {
        const int whole = width & ~15;
        return {width, rounds(width < 0 ? 0 : width, 8) * 8, whole < 16 ? 16 : whole, width & 15,
                height < 2 ? 1 : height - 1};
    }
};

// The closing block is not doubled.
template <class Gain>
ALWAYS_INLINE void write_closing(uint8_t* to, ptrdiff_t dst_pitch, const uint8_t* src, ptrdiff_t src_pitch,
                                 SampleAdjust by)
{
    const Row own{src}, below{src + src_pitch};
    put(to, Adjust<Gain, Row>{by, own}.template bytes<16, 1>(0));
    put(to + dst_pitch, Adjust<Gain, Average<Row>>{by, {own, below}}.template bytes<16, 1>(0));
}

// Irregular: starts one line lower than `strech_pic_2X2`, so that the last source line gets lost; steps down the source
// by the width; ends each round to the left of where it should where the width is no multiple of 16; and writes the
// last line's copy right after it, which is the next line of a packed plane alone.
template <class Gain>
ALWAYS_INLINE void double_adjusted(PlaneLines p, const Rounds& rounds, SampleAdjust by, bool streamed)
{
    using One = AdjustPairs<Gain, Doubled>;
    using Two = AdjustPairs<Gain, Between<Doubled>>;
    auto doubled = [](const uint8_t* from) VSURF_INLINED { return Doubled{{from}, {from}}; };
    auto write_whole = [&](uint8_t* to, const uint8_t* from) VSURF_INLINED {
        write_line(DoubleWidth<One>{{by, doubled(from)}}, to, rounds.blocks_of_8, false);
    };
    const ptrdiff_t done = rounds.blocks_of_16, behind = done - 16 + rounds.rest;
    const uint8_t* from = p.src;
    uint8_t* to = p.dst;
    write_whole(to, from);
    to += 2 * rounds.blocks_of_8 + p.dst_pitch - 2 * rounds.width;
    for (ptrdiff_t i = 0; i < rounds.count; i++, from += rounds.width) {
        const DoubleWidth<One> upper{{by, doubled(from)}};
        const DoubleWidth<Two> lower{{by, {doubled(from), doubled(from + p.src_pitch)}}};
        write_two_lines(upper, lower, to, p.dst_pitch, done, streamed);
        if (rounds.rest) write_closing<Gain>(to + done + behind, p.dst_pitch, from + behind, p.src_pitch, by);
        to += 2 * done + rounds.rest + 2 * p.dst_pitch - 2 * rounds.width;
    }
    if (streamed) fence_streaming();
    from -= p.src_pitch;
    to -= p.dst_pitch;
    write_whole(to, from);
    write_whole(to + 2 * rounds.blocks_of_8, from + rounds.blocks_of_8 - p.src_pitch);
}

void strech_pic_2X2_adjust(unsigned char* src, unsigned char* dst, int width, int height, int src_pitch, int dst_pitch,
                           ajust_contrast_info*, int plane)
{
    const auto by = adjustment_of(plane);
    const auto rounds = Rounds::of(width, height);
    const PlaneLines p{src, dst, src_pitch, dst_pitch, height};
    const bool streamed = rounds.rest == 0 && streams(dst, dst_pitch, 2 * rounds.blocks_of_8, 2 * rounds.count);
    if (CommonGain::suits(by)) double_adjusted<CommonGain>(p, rounds, by, streamed);
    else double_adjusted<AnyGain>(p, rounds, by, false);
}

// Irregular: the same shift, loss and last copy; both pitches are followed.
template <class Gain>
ALWAYS_INLINE void heighten_adjusted(PlaneLines p, const Rounds& rounds, SampleAdjust by, bool streamed)
{
    using One = Adjust<Gain, Row>;
    using Two = Adjust<Gain, Average<Row>>;
    auto write_whole = [&](uint8_t* to, const uint8_t* from) VSURF_INLINED {
        write_line(SameWidth<One>{{by, {from}}}, to, rounds.blocks_of_8, false);
    };
    const ptrdiff_t done = rounds.blocks_of_16, behind = done - 16 + rounds.rest;
    const uint8_t* from = p.src;
    uint8_t* to = p.dst;
    write_whole(to, from);
    to += rounds.blocks_of_8 + p.dst_pitch - rounds.width;
    for (ptrdiff_t i = 0; i < rounds.count; i++, from += p.src_pitch, to += 2 * p.dst_pitch) {
        const SameWidth<One> upper{{by, {from}}};
        const SameWidth<Two> lower{{by, {{from}, {from + p.src_pitch}}}};
        write_two_lines(upper, lower, to, p.dst_pitch, done, streamed);
        if (rounds.rest) write_closing<Gain>(to + behind, p.dst_pitch, from + behind, p.src_pitch, by);
    }
    if (streamed) fence_streaming();
    from -= p.src_pitch;
    to -= p.dst_pitch;
    write_whole(to, from);
    write_whole(to + rounds.blocks_of_8, from);
}

void strech_pic_1X2_adjust(unsigned char* src, unsigned char* dst, int width, int height, int src_pitch, int dst_pitch,
                           ajust_contrast_info*, int plane)
{
    const auto by = adjustment_of(plane);
    const auto rounds = Rounds::of(width, height);
    const PlaneLines p{src, dst, src_pitch, dst_pitch, height};
    const bool streamed = rounds.rest == 0 && streams(dst, dst_pitch, rounds.blocks_of_8, 2 * rounds.count);
    if (CommonGain::suits(by)) heighten_adjusted<CommonGain>(p, rounds, by, streamed);
    else heighten_adjusted<AnyGain>(p, rounds, by, false);
}

// The V plane follows the luma plane, the U plane follows V. Irregular: as planes 2 and 3, V takes `u_offset` and U
// takes `v_offset`.
template <class Enlarge>
ALWAYS_INLINE void enlarge_planes(const Picture& p, ajust_contrast_info* info, const Enlarge& enlarge)
{
    auto plane = [&](const uint8_t* from, uint8_t* to, int halved, int number) VSURF_INLINED {
        enlarge(const_cast<uint8_t*>(from), to, p.width >> halved, p.height >> halved, p.y_pitch >> halved,
                p.dst_pitch >> halved, info, number);
    };
    const int luma_bytes = product(product(2, p.height), p.dst_pitch);
    uint8_t* v_plane = p.start.dst + luma_bytes;
    plane(p.start.y, p.start.dst, 0, 1);
    plane(p.start.v, v_plane, 1, 2);
    plane(p.start.u, v_plane + (luma_bytes >> 2), 1, 3);
}

LOADER_EXPORT(strech_picture_2X2_yv12_ajust) { enlarge_planes(PICTURE, info, strech_pic_2X2_adjust); }
LOADER_EXPORT(strech_picture_1X2_yv12_ajust) { enlarge_planes(PICTURE, info, strech_pic_1X2_adjust); }

} // namespace vsurf::VSURF_ISA
