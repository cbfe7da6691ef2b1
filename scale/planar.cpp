// SPDX-License-Identifier: MIT
// Planar YV12 pictures into enlarged YUY2 and RGB surfaces.
#include "scale/planar.h"
#include "load/loader.h"

namespace vsurf::VSURF_ISA {

ALWAYS_INLINE ptrdiff_t whole_blocks(int width) { return rounds(width < 0 ? 0 : width, kBlock) * kBlock; }

// Twice the height, by averages.
template <class Sink>
[[maybe_unused]] static NEVER_INLINE void write_taller(Sink sink, const Rows& r, uint8_t* upper, uint8_t* lower,
                                                       ptrdiff_t pixels, bool streamed)
{
    using Between = Average<Row>;
    const SourcesStep<Sink, kRegister, Row, Between, Between> step{
        r.y, {r.y, r.y_below}, {r.u, r.u_below}, {r.v, r.v_below}, sink};
    write_two_lines(step, upper, lower, pixels, streamed);
}

template <class Sink> ALWAYS_INLINE auto taller(Sink sink)
{
    return [=](const Rows& r, uint8_t* upper, uint8_t* lower, ptrdiff_t pixels, bool, bool streamed)
               VSURF_INLINED { write_taller(sink, r, upper, lower, pixels, streamed); };
}

LOADER_EXPORT(strech_picture_1X2_yuy2)
{
    if (height < 8) return;
    Enlargement::of(PICTURE, whole_blocks(width), Yuy2::kBytes).from_picture(taller(Yuy2{}));
}

template <class Sink> ALWAYS_INLINE void write_taller_adjusted(const Picture& p, Sink sink)
{
    const auto e = Enlargement::of(p, whole_blocks(p.width), Sink::kBytes);
    e.from_adjusted(adjustments_now(), LookAhead::none, taller(sink));
}

// The guards of the RGB forms are 12 lines, and come before `info` is read.
LOADER_EXPORT(strech_picture_1X2_yuy2_ajust_rgb32)
{
    if (height >= 12) write_taller_adjusted(PICTURE, Rgb32{});
}
LOADER_EXPORT(strech_picture_1X2_yuy2_ajust_rgb24)
{
    if (height >= 12) write_taller_adjusted(PICTURE, Rgb24{});
}
LOADER_EXPORT(strech_picture_1X2_yuy2_ajust_rgb16)
{
    if (height < 12) return;
    with_rgb16_sink(info->rgb16_layout, [&](Rgb16 sink) VSURF_INLINED { write_taller_adjusted(PICTURE, sink); });
}

// New lines of four lines, from `line` - 1 on.
ALWAYS_INLINE FourTap filtered(const uint8_t* plane, ptrdiff_t pitch, int line)
{
    const uint8_t* row = plane + line * pitch;
    return {{row - pitch}, {row}, {row + pitch}, {row + 2 * pitch}};
}

// The filter needs two lines on either side, and keeps away from one line more at the top of the luma plane.
template <class Gain> ALWAYS_INLINE void write_filtered(const Enlargement& e, const Adjustments& by)
{
    auto adjust = []<class Of>(SampleAdjust how, Of of) VSURF_INLINED { return Adjust<Gain, Of>{how, of}; };
    e.each_line(e.start.dst, [&](Neighbours n, uint8_t* upper, uint8_t* lower) VSURF_INLINED {
        auto write = [&]<class Luma, class Chroma>(Luma luma, Chroma u, Chroma v) VSURF_INLINED {
            using Own = Adjust<Gain, Row>;
            using Step = SourcesStep<Yuy2, Gain::kWidest, Own, Adjust<Gain, Luma>, Adjust<Gain, Chroma>>;
            const Step step{{by.luma, e.y(n.y)}, adjust(by.luma, luma), adjust(by.u, u), adjust(by.v, v), {}};
            write_two_lines(step, upper, lower, e.width, e.streamed);
        };
        const Rows r = e.rows(n);
        const Average<Row> y{r.y, r.y_below}, u{r.u, r.u_below}, v{r.v, r.v_below};
        const FourTap y4 = filtered(e.start.y, e.pitch, n.y);
        const bool luma = n.y >= 2 && n.y <= e.height - 3;
        const bool chroma = n.y % 2 != 0 && n.c >= 1 && n.c <= e.height / 2 - 3;
        if (chroma) write(y4, filtered(e.start.u, e.chroma_pitch, n.c), filtered(e.start.v, e.chroma_pitch, n.c));
        else if (luma) write(y4, u, v);
        else write(y, u, v);
    });
    if (e.streamed) fence_streaming();
}

// Irregular: interpolates with four taps, and adjusts what it has interpolated; its siblings adjust first.
LOADER_EXPORT(strech_picture_1X2_yuy2_ajust)
{
    if (height < 8) return;
    const auto by = adjustments_now();
    const auto e = Enlargement::of(PICTURE, whole_blocks(width), Yuy2::kBytes);
    with_gain(by, [&]<class Gain>(Gain) VSURF_INLINED { write_filtered<Gain>(e, by); });
}

// Twice the width and height.
[[maybe_unused]] static NEVER_INLINE void write_doubled(const Rows& r, uint8_t* upper, uint8_t* lower, ptrdiff_t pixels,
                                                        bool last, bool streamed)
{
    const ptrdiff_t ahead = last ? pixels - kBlock : pixels;
    const Doubled y{r.y, r.y}, y_below{r.y_below, r.y_below}, u{r.u, r.u_ahead}, u_below{r.u_below, r.u_ahead_below};
    const Doubled v{r.v, r.v}, v_below{r.v_below, r.v_below};
    const DoubledStep<kRegister, Doubled> step{{y, y_below}, {u, u_below}, {v, v_below}};
    write_two_lines(step, upper, lower, ahead, streamed);
    if (!last) return;
    const DoubledStep<kBlock, DoubledToTheEnd> closing{
        {{r.y}, {r.y_below}}, {{r.u}, {r.u_below}}, {{r.v}, {r.v_below}}};
    write_last_blocks(closing, upper, lower, ahead, pixels, streamed);
}

LOADER_EXPORT(strech_picture_2X2_yuy2)
{
    if (height < 8) return;
    Enlargement::of(PICTURE, doubled_blocks(width), 4).from_picture(write_doubled);
}

// Irregular: refuses heights below 16 where its siblings refuse those below 8, and the U samples that look ahead into
// the next 8 take `v_offset`.
LOADER_EXPORT(strech_picture_2X2_yuy2_ajust)
{
    if (height < 16) return;
    const auto e = Enlargement::of(PICTURE, doubled_blocks(width), 4);
    e.from_adjusted(adjustments_now(), LookAhead::u_by_v, write_doubled);
}

} // namespace vsurf::VSURF_ISA
