// Planar YV12 pictures into enlarged YUY2 and RGB surfaces.
#include "scale/planar.h"
#include "load/loader.h"

namespace vsurf::VSURF_ISA {

OP ptrdiff_t whole_blocks(int width) { return rounds(width < 0 ? 0 : width, kBlock) * kBlock; }

// What is new is averaged of plain samples,
struct AverageOnly {
    OP Row own(const Enlargement& e, Neighbours n) { return e.y(n.y); }
    OP Average<Row> between_y(const Enlargement& e, Neighbours n) { return {e.y(n.y), e.y(n.y_below)}; }
    OP Average<Row> between_u(const Enlargement& e, Neighbours n) { return {e.u(n.c), e.u(n.c_below)}; }
    OP Average<Row> between_v(const Enlargement& e, Neighbours n) { return {e.v(n.c), e.v(n.c_below)}; }
};

// or of adjusted ones,
template <class Gain> struct AdjustThenAverage {
    Adjustments by;

    MEMBER Adjust<Gain, Row> luma(Row row) const { return {by.luma, row}; }
    MEMBER Adjust<Gain, Row> u(Row row) const { return {by.u, row}; }
    MEMBER Adjust<Gain, Row> v(Row row) const { return {by.v, row}; }

    MEMBER auto own(const Enlargement& e, Neighbours n) const { return luma(e.y(n.y)); }
    MEMBER auto between_y(const Enlargement& e, Neighbours n) const
    {
        return Average{luma(e.y(n.y)), luma(e.y(n.y_below))};
    }
    MEMBER auto between_u(const Enlargement& e, Neighbours n) const { return Average{u(e.u(n.c)), u(e.u(n.c_below))}; }
    MEMBER auto between_v(const Enlargement& e, Neighbours n) const { return Average{v(e.v(n.c)), v(e.v(n.c_below))}; }
};

// or filtered of four lines,
struct FilteredLuma : AverageOnly {
    OP FourTap between_y(const Enlargement& e, Neighbours n)
    {
        return {e.y(n.y - 1), e.y(n.y), e.y(n.y + 1), e.y(n.y + 2)};
    }
};
struct Filtered : FilteredLuma {
    OP FourTap between_u(const Enlargement& e, Neighbours n)
    {
        return {e.u(n.c - 1), e.u(n.c), e.u(n.c + 1), e.u(n.c + 2)};
    }
    OP FourTap between_v(const Enlargement& e, Neighbours n)
    {
        return {e.v(n.c - 1), e.v(n.c), e.v(n.c + 1), e.v(n.c + 2)};
    }
};

// and adjusted afterwards.
template <class Gain, class Kind> struct ThenAdjust {
    Adjustments by;

    template <class Of> OP Adjust<Gain, Of> adjust(SampleAdjust by, Of of) { return {by, of}; }
    MEMBER auto own(const Enlargement& e, Neighbours n) const { return adjust(by.luma, Kind::own(e, n)); }
    MEMBER auto between_y(const Enlargement& e, Neighbours n) const { return adjust(by.luma, Kind::between_y(e, n)); }
    MEMBER auto between_u(const Enlargement& e, Neighbours n) const { return adjust(by.u, Kind::between_u(e, n)); }
    MEMBER auto between_v(const Enlargement& e, Neighbours n) const { return adjust(by.v, Kind::between_v(e, n)); }
};

LOADER_EXPORT(strech_picture_1X2_yuy2)
{
    if (height < 8) return;
    const auto e = Enlargement::of(PICTURE, whole_blocks(width), Yuy2::kBytes);
    e.each_line([&](Neighbours n, uint8_t* upper, uint8_t* lower)
                    VSURF_INLINED { write_taller<Yuy2, kLanes>(e, AverageOnly{}, n, upper, lower); });
}

// The filter needs two lines on either side, and keeps away from one line more at the top of the luma plane.
template <class Gain> OP void write_filtered(const Enlargement& e, const Adjustments& by)
{
    e.each_line([&](Neighbours n, uint8_t* upper, uint8_t* lower) VSURF_INLINED {
        const bool luma = n.y >= 2 && n.y <= e.height - 3;
        const bool chroma = n.y % 2 != 0 && n.c >= 1 && n.c <= e.height / 2 - 3;
        auto write = [&](auto kind) VSURF_INLINED {
            write_taller<Yuy2, kWidestFor<Gain>>(e, ThenAdjust<Gain, decltype(kind)>{by}, n, upper, lower);
        };
        if (chroma) write(Filtered{});
        else if (luma) write(FilteredLuma{});
        else write(AverageOnly{});
    });
}

// Irregular: interpolates with four taps, and adjusts what it has interpolated; its siblings adjust first.
LOADER_EXPORT(strech_picture_1X2_yuy2_ajust)
{
    if (height < 8) return;
    const auto by = adjustments_now();
    const auto e = Enlargement::of(PICTURE, whole_blocks(width), Yuy2::kBytes);
    with_gain(by, [&]<class Gain>(Gain) VSURF_INLINED { write_filtered<Gain>(e, by); });
}

template <class Sink> OP void taller_rgb(const Picture& p)
{
    const auto by = adjustments_now();
    const auto e = Enlargement::of(p, whole_blocks(p.width), Sink::kBytes);
    with_gain(by, [&]<class Gain>(Gain) VSURF_INLINED {
        e.each_line([&](Neighbours n, uint8_t* upper, uint8_t* lower) VSURF_INLINED {
            write_taller<Sink, kWidestFor<Gain>>(e, AdjustThenAverage<Gain>{by}, n, upper, lower);
        });
    });
}

// The guards of the RGB forms are 12 lines, and come before `info` is read.
LOADER_EXPORT(strech_picture_1X2_yuy2_ajust_rgb32)
{
    if (height >= 12) taller_rgb<Rgb32>(PICTURE);
}
LOADER_EXPORT(strech_picture_1X2_yuy2_ajust_rgb24)
{
    if (height >= 12) taller_rgb<Rgb24>(PICTURE);
}
LOADER_EXPORT(strech_picture_1X2_yuy2_ajust_rgb16)
{
    if (height < 12) return;
    with_rgb16_sink(info->rgb16_layout, [&](auto sink) VSURF_INLINED { taller_rgb<decltype(sink)>(PICTURE); });
}

// `Kind` gives the sources of a line and of its neighbours ahead, which may differ.
template <int widest, class Kind>
OP void write_doubled(const Enlargement& e, const Kind& kind, Neighbours n, uint8_t* upper, uint8_t* lower)
{
    using Luma = decltype(kind.luma(Row{}));
    using Ahead = Doubled<decltype(kind.u(Row{})), decltype(kind.u_ahead(Row{}))>;
    using End = DoubledToTheEnd<decltype(kind.u(Row{}))>;
    const Luma y = kind.luma(e.y(n.y)), y_below = kind.luma(e.y(n.y_below));
    const ptrdiff_t ordinary = e.width - kBlock;
    auto u = [&](int c) VSURF_INLINED { return Ahead{kind.u(e.u(c)), kind.u_ahead(e.u(c))}; };
    auto v = [&](int c) VSURF_INLINED { return Ahead{kind.v(e.v(c)), kind.v_ahead(e.v(c))}; };
    DoubledStep<widest, Doubled<Luma>, Ahead> step{
        {y, y}, {y_below, y_below}, {u(n.c), u(n.c_below)}, {v(n.c), v(n.c_below)}};
    write_two_lines(step, upper, lower, ordinary, e.streamed);
    DoubledStep<kBlock, DoubledToTheEnd<Luma>, End> closing{
        {y}, {y_below}, {{kind.u(e.u(n.c))}, {kind.u(e.u(n.c_below))}}, {{kind.v(e.v(n.c))}, {kind.v(e.v(n.c_below))}}};
    write_last_blocks(closing, upper, lower, ordinary, e.width, e.streamed);
}

struct AsTheyAre {
    OP Row luma(Row row) { return row; }
    OP Row u(Row row) { return row; }
    OP Row v(Row row) { return row; }
    OP Row u_ahead(Row row) { return row; }
    OP Row v_ahead(Row row) { return row; }
};

LOADER_EXPORT(strech_picture_2X2_yuy2)
{
    if (height < 8) return;
    const auto e = Enlargement::of(PICTURE, doubled_blocks(width), 4);
    e.each_line([&](Neighbours n, uint8_t* upper, uint8_t* lower)
                    VSURF_INLINED { write_doubled<kLanes>(e, AsTheyAre{}, n, upper, lower); });
}

// Irregular: the U sample that looks ahead into the next 8 takes `v_offset`.
template <class Gain> struct AdjustWithUAheadByV {
    Adjustments by;

    MEMBER Adjust<Gain, Row> luma(Row row) const { return {by.luma, row}; }
    MEMBER Adjust<Gain, Row> u(Row row) const { return {by.u, row}; }
    MEMBER Adjust<Gain, Row> v(Row row) const { return {by.v, row}; }
    MEMBER AdjustAhead u_ahead(Row row) const { return {by.u, by.v, row}; }
    MEMBER AdjustAhead v_ahead(Row row) const { return {by.v, by.v, row}; }
};

// Irregular: refuses heights below 16 where its siblings refuse those below 8.
LOADER_EXPORT(strech_picture_2X2_yuy2_ajust)
{
    if (height < 16) return;
    const auto by = adjustments_now();
    const auto e = Enlargement::of(PICTURE, doubled_blocks(width), 4);
    with_gain(by, [&]<class Gain>(Gain) VSURF_INLINED {
        e.each_line([&](Neighbours n, uint8_t* upper, uint8_t* lower) VSURF_INLINED {
            write_doubled<kWidestFor<Gain>>(e, AdjustWithUAheadByV<Gain>{by}, n, upper, lower);
        });
    });
}

} // namespace vsurf::VSURF_ISA
