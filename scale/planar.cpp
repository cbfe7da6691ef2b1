// SPDX-License-Identifier: MIT
// Planar YV12 pictures into enlarged YUY2 and RGB surfaces.
#include "scale/planar.h"
#include "frame/dispatch.h"
#include "scale/doubled.h"

namespace vsurf::VSURF_ISA {

ALWAYS_INLINE ptrdiff_t whole_blocks(int width) { return whole_steps(not_negative(width), kBlock); }

// Twice the height, by averages.
template <class Format>
[[maybe_unused]] static NEVER_INLINE void write_taller(Writer& writer, Format format, const Rows& r, uint8_t* upper,
                                                       uint8_t* lower, ptrdiff_t pixels)
{
    using Plain = PixelLine<Format, Row, PlanarChroma<Average<Row>>>;
    using Averaged = PixelLine<Format, Average<Row>, PlanarChroma<Average<Row>>>;
    const PlanarChroma<Average<Row>> uv{{r.u, r.u_below}, {r.v, r.v_below}};
    const Averaged between{{r.y, r.y_below}, uv, format};
    // Where the format takes much more work than an average, the upper line averages a row with itself: lines of one
    // type halve the code.
    if constexpr (SameAs<Format, Yuy2>) writer.pair(Plain{r.y, uv, format}, between, upper, lower, {0, pixels});
    else writer.pair(Averaged{{r.y, r.y}, uv, format}, between, upper, lower, {0, pixels});
}

template <class Format> ALWAYS_INLINE auto taller(Format format)
{
    return [=](Writer& writer, const Rows& r, uint8_t* upper, uint8_t* lower, ptrdiff_t pixels, bool)
               VSURF_INLINED { write_taller(writer, format, r, upper, lower, pixels); };
}

void strech_picture_1X2_yuy2(Picture p)
{
    if (p.height < 8) return;
    PlanarEnlargement::of_picture(p, whole_blocks(p.width), Yuy2::kBytes).from_picture(taller(Yuy2{}));
}

template <class Format> ALWAYS_INLINE void write_taller_adjusted(const Picture& p, Format format)
{
    const auto e = PlanarEnlargement::of_picture(p, whole_blocks(p.width), Format::kBytes);
    e.from_adjusted(adjustments_now(), LookAhead::none, taller(format));
}

// The guards of the RGB forms are 12 lines, and come before `info` is read.
void strech_picture_1X2_yuy2_ajust_rgb32(Picture p)
{
    if (p.height >= 12) write_taller_adjusted(p, Rgb32{});
}
void strech_picture_1X2_yuy2_ajust_rgb24(Picture p)
{
    if (p.height >= 12) write_taller_adjusted(p, Rgb24{});
}
void strech_picture_1X2_yuy2_ajust_rgb16(Picture p)
{
    if (p.height < 12) return;
    with_rgb16_sink(p.info->rgb16_layout, [&](Rgb16 format) VSURF_INLINED { write_taller_adjusted(p, format); });
}

// What goes between two lines of a plane.
template <class New>
ALWAYS_INLINE New interpolated(const uint8_t* plane, ptrdiff_t pitch, ptrdiff_t line, ptrdiff_t line_below)
{
    if constexpr (SameAs<New, FourTap>) return FourTap::below(plane, pitch, line);
    else return {{plane + line * pitch}, {plane + line_below * pitch}};
}

// Two lines of samples that are adjusted after they have been interpolated.
template <class Luma, class Chroma>
ALWAYS_INLINE void write_interpolated(const Writer& writer, const PlanarEnlargement& e, const Adjustments& by,
                                      Neighbours n, uint8_t* upper, uint8_t* lower)
{
    using Samples = PlanarChroma<Adjust<FastGain, Chroma>>;
    const Samples uv{{by.u, interpolated<Chroma>(e.start.u, e.chroma_pitch, n.c, n.c_below)},
                     {by.v, interpolated<Chroma>(e.start.v, e.chroma_pitch, n.c, n.c_below)}};
    const PixelLine<Yuy2, Adjust<FastGain, Row>, Samples> own{{by.luma, e.y(n.y)}, uv, {}};
    const PixelLine<Yuy2, Adjust<FastGain, Luma>, Samples> between{
        {by.luma, interpolated<Luma>(e.start.y, e.pitch, n.y, n.y_below)}, uv, {}};
    const Range r{0, e.width};
    if constexpr (SameAs<Luma, FourTap>)
        if (FastGain::suits(by)) return writer.pair(own, between, upper, lower, r);
    Writer::blocks(own, upper, r);
    Writer::blocks(between, lower, r);
}

// The filter needs two lines on either side, and keeps away from one line more at the top of the luma plane. Lines
// without it are few.
ALWAYS_INLINE void write_filtered(const PlanarEnlargement& e, const Adjustments& by)
{
    Writer writer(e.target());
    e.each_line(e.start.dst, [&](Neighbours n, uint8_t* upper, uint8_t* lower) VSURF_INLINED {
        const bool luma = n.y >= 2 && n.y <= e.height - 3;
        const bool chroma = n.y % 2 != 0 && n.c >= 1 && n.c <= e.height / 2 - 3;
        if (chroma) write_interpolated<FourTap, FourTap>(writer, e, by, n, upper, lower);
        else if (luma) write_interpolated<FourTap, Average<Row>>(writer, e, by, n, upper, lower);
        else write_interpolated<Average<Row>, Average<Row>>(writer, e, by, n, upper, lower);
    });
}

// Irregular: interpolates with four taps, and adjusts what it has interpolated; the others adjust first.
void strech_picture_1X2_yuy2_ajust(Picture p)
{
    if (p.height < 8) return;
    const auto by = adjustments_now();
    const auto e = PlanarEnlargement::of_picture(p, whole_blocks(p.width), Yuy2::kBytes);
    write_filtered(e, by);
}

// Ordinary blocks, at least one, look ahead, and a closing one does not.
ALWAYS_INLINE ptrdiff_t doubled_blocks(int width)
{
    return whole_steps(width < 2 * kBlock ? 2 * kBlock : width, kBlock);
}

// Twice the width and height.
[[maybe_unused]] static NEVER_INLINE void write_larger(Writer& writer, const Rows& r, uint8_t* upper, uint8_t* lower,
                                                       ptrdiff_t pixels, bool last)
{
    const ptrdiff_t ahead = last ? pixels - kBlock : pixels;
    const Doubled y{r.y}, y_below{r.y_below};
    const Between u{DoubledAhead{r.u, r.u_ahead}, DoubledAhead{r.u_below, r.u_ahead_below}};
    const Between v{Doubled{r.v}, Doubled{r.v_below}};
    writer.pair(DoubledPixelLine{y, u, v}, DoubledPixelLine{Between{y, y_below}, u, v}, upper, lower, {0, ahead});
    if (!last) return;

    const DoubledToTheEnd y_end{r.y}, y_end_below{r.y_below};
    const Between u_end{DoubledToTheEnd{r.u}, DoubledToTheEnd{r.u_below}};
    const Between v_end{DoubledToTheEnd{r.v}, DoubledToTheEnd{r.v_below}};
    writer.closing_blocks(DoubledPixelLine{y_end, u_end, v_end},
                          DoubledPixelLine{Between{y_end, y_end_below}, u_end, v_end}, upper, lower, ahead);
}

void strech_picture_2X2_yuy2(Picture p)
{
    if (p.height < 8) return;
    PlanarEnlargement::of_picture(p, doubled_blocks(p.width), 4).from_picture(write_larger);
}

// Irregular: refuses heights below 16 where the others refuse those below 8, and the U samples that look ahead into
// the next 8 take `v_offset`.
void strech_picture_2X2_yuy2_ajust(Picture p)
{
    if (p.height < 16) return;
    const auto e = PlanarEnlargement::of_picture(p, doubled_blocks(p.width), 4);
    e.from_adjusted(adjustments_now(), LookAhead::u_by_v, write_larger);
}

} // namespace vsurf::VSURF_ISA
