// SPDX-License-Identifier: MIT
#include "show/sinks.h"

namespace vsurf::VSURF_ISA {

struct Planar {
    static ALWAYS_INLINE PlanarChroma<Row> of(const Rows& rows, int) { return {{rows.u}, {rows.v}}; }
};
struct Interleaved {
    static ALWAYS_INLINE InterleavedChroma of(const Rows& rows, int line) { return {rows.uv[line]}; }
};

// The last pixels of an odd number: bytes of the surface, for each line.
using LastPixels = const uint8_t* [2];

template <class Form, class Format>
ALWAYS_INLINE void write_pixels(const Format& format, Writer& writer, const Rows& rows, uint8_t* const* to,
                                ptrdiff_t pixels, const LastPixels& last)
{
    auto line = [&](int i) VSURF_INLINED {
        auto chroma = Form::of(rows, i);
        return PixelLine<Format, Row, decltype(chroma)>{{rows.y[i]}, chroma, format};
    };
    const bool odd = pixels % 2 != 0, two = rows.y[1] != nullptr;
    const Range whole{0, pixels - odd};
    auto end = [&](int i) VSURF_INLINED {
        if (odd) writer.few(to[i] + whole.end * Format::kBytes, last[i], Format::kBytes);
    };
    if (pixels < kBlock) {
        for (int i = 0; i <= two; i++) writer.units_of_block(line(i), to[i], static_cast<int>(pixels));
    } else if (two && rows.uv[0] == rows.uv[1] && !(odd && writer.streams())) {
        writer.pair(line(0), line(1), to[0], to[1], whole);
        end(0), end(1);
    } else {
        for (int i = 0; i <= two; i++) {
            writer.line(line(i), to[i], whole);
            end(i);
        }
    }
}

// Two pixels with the same chroma, in a block of them.
template <class Format>
ALWAYS_INLINE void make_two(const Format& format, int first, int second, int u, int v, uint8_t* block)
{
    auto luma = join(EvenOddWords<kBlock>{Words<kBlock>::splat(first), Words<kBlock>::splat(second)});
    format.store(block, split_times4(luma),
                 format.chroma(EvenOddWords<kBlock>{Words<kBlock>::splat(u), Words<kBlock>::splat(v)}));
}

// A pixel without a partner is made with the one below it, or by itself.
template <class Format>
ALWAYS_INLINE void write_rgb_rows(const Format& format, Writer& writer, const Rows& rows, uint8_t* const* to,
                                  ptrdiff_t pixels)
{
    alignas(16) uint8_t blocks[2][4 * kBlock];
    const bool own = rows.uv[0] != rows.uv[1], two = rows.y[1] != nullptr;
    const LastPixels last = {blocks[0], own ? blocks[1] : blocks[0] + Format::kBytes};
    const ptrdiff_t x = pixels - 1;
    for (int i = 0; pixels % 2 != 0 && i <= (own && two); i++) {
        const uint8_t *u = rows.u ? rows.u + x / 2 : rows.uv[i] + x, *v = rows.u ? rows.v + x / 2 : u + 1;
        make_two(format, rows.y[i][x], rows.y[two ? 1 : 0][x], *u, *v, blocks[i]);
    }
    if (rows.u) write_pixels<Planar>(format, writer, rows, to, pixels, last);
    else write_pixels<Interleaved>(format, writer, rows, to, pixels, last);
}

// Pixels of packed ones, y0 u0 y1 v0 ... or u0 y0 v0 y1 ..., each line with its own chroma; x counts pixels.
template <class Format, bool chroma_first> struct PackedPixelLine {
    static constexpr int kBytes = Format::kBytes, kGrain = 2, kWidest = kRegister;
    static constexpr bool kComplete = true, kEights = false, kMayRepeat = true;
    template <int N> struct Pixels {
        EvenOddWords<N> luma;
        ChromaTerms<N> chroma;
    };
    const uint8_t* from;
    Format format;

    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Pixels<N> own(ptrdiff_t x) const
    {
        auto px = load_yuyv<N, Format::kWeave>(from + 2 * x);
        auto luma = chroma_first ? px.uv : px.y, uv = chroma_first ? px.y : px.uv;
        return {split_times4(luma), format.chroma(split(uv))};
    }
    template <class To, int N> ALWAYS_INLINE void store(To to, const Pixels<N>& pixels, Nothing) const
    {
        format.store(to, pixels.luma, pixels.chroma);
    }
};
template <class Format>
ALWAYS_INLINE void write_packed_rows(const Format& format, Writer& writer, const Rows& rows, uint8_t* const* to,
                                     ptrdiff_t pixels)
{
    for (int i = 0; i < 2 && rows.y[i]; i++) {
        if (rows.y[i] < rows.uv[i]) writer.line(PackedPixelLine<Format, false>{rows.y[i], format}, to[i], {0, pixels});
        else writer.line(PackedPixelLine<Format, true>{rows.uv[i], format}, to[i], {0, pixels});
    }
}

template <class Format> ALWAYS_INLINE Format format_of(const Output&) { return {}; }
template <> ALWAYS_INLINE Rgb16Format format_of(const Output& output)
{
    return kRgb16Formats[output.surface - VSURF_RGB565];
}

template <class Format> static void write_rgb(const Output& output, const Rows& rows, const Place& to, ptrdiff_t pixels)
{
    const RgbSink<Format, AnyEncoding> format{format_of<Format>(output), output.encoding};
    if (rows.packed) return write_packed_rows(format, *output.writers, rows, to.line, pixels);
    write_rgb_rows(format, *output.writers, rows, to.line, pixels);
}

// Pixels that are made already; x counts them.
template <class Format> struct BgrLine {
    static constexpr int kBytes = Format::kBytes, kGrain = 1, kWidest = kRegister;
    static constexpr bool kComplete = true, kEights = false, kMayRepeat = true;
    template <int N> struct Pixels {
        Bytes<N> b, g, r;
    };
    Row b, g, r;
    Format format;

    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Pixels<N> own(ptrdiff_t x) const
    {
        auto in_packed_order = [x](Row row) VSURF_INLINED { return pack(split(row.bytes<N, Format::kWeave>(x))); };
        return {in_packed_order(b), in_packed_order(g), in_packed_order(r)};
    }
    template <class To, int N> ALWAYS_INLINE void store(To to, const Pixels<N>& pixels, Nothing) const
    {
        format.put(to, pixels.b, pixels.g, pixels.r);
    }
};

template <class Format> static void write_bgr(const Output& output, const BgrRows& rows, uint8_t* to, ptrdiff_t pixels)
{
    const BgrLine<Format> line{{rows.b}, {rows.g}, {rows.r}, format_of<Format>(output)};
    if (pixels >= kBlock) output.writers->line(line, to, {0, pixels});
    else output.writers->units_of_block(line, to, static_cast<int>(pixels));
}

static void write_pairs(Writer& writer, const uint8_t* a, const uint8_t* b, uint8_t* to, ptrdiff_t pairs)
{
    const PairLine line{{a}, {b}};
    if (pairs >= kBlock) writer.line(line, to, {0, pairs});
    else writer.units_of_block(line, to, static_cast<int>(pairs));
}
static void write_plane(Writer& writer, const uint8_t* from, uint8_t* to, ptrdiff_t samples)
{
    if (samples >= kBlock) writer.line(PlaneLine<Row>{{from}}, to, {0, samples});
    else copy_bytes(to, from, samples);
}

// A line of packed pixels from luma and interleaved chroma. Its ends may have only one of both.
static void write_packed_line(Writer& writer, const uint8_t* y, const uint8_t* uv, uint8_t* luma, uint8_t* chroma,
                              ptrdiff_t pixels)
{
    const auto run = PackedRun::of(luma, chroma, pixels);
    const ptrdiff_t lead = run.chroma_leads;
    uint8_t* c = chroma + 2 * lead;
    if (lead) chroma[0] = uv[0];
    if (luma < c) write_pairs(writer, y, uv + lead, luma, run.pairs);
    else write_pairs(writer, uv + lead, y, c, run.pairs);
    for (ptrdiff_t x = run.pairs; x < pixels; x++) luma[2 * x] = y[x];
    for (ptrdiff_t x = run.pairs + lead; x < run.chroma; x++) chroma[2 * x] = uv[x];
}

template <class Format>
static void write_packed(const Output& output, const Rows& rows, const Place& to, ptrdiff_t pixels)
{
    if (!rows.u) {
        for (int i = 0; i < 2 && rows.y[i]; i++)
            write_packed_line(*output.writers, rows.y[i], rows.uv[i], to.line[i], to.chroma[i], pixels);
        return;
    }
    const ptrdiff_t whole = pixels & ~1;
    uint8_t* const begin[] = {to.line[0] < to.chroma[0] ? to.line[0] : to.chroma[0],
                              to.line[1] < to.chroma[1] ? to.line[1] : to.chroma[1]};
    write_pixels<Planar>(Format{}, *output.writers, rows, begin, whole, {});
    for (int i = 0; i < 2 && rows.y[i] && whole != pixels; i++) {
        to.line[i][2 * whole] = rows.y[i][whole];
        to.chroma[i][2 * whole] = rows.u[whole / 2];
        to.chroma[i][2 * whole + 2] = rows.v[whole / 2];
    }
}

static void write_luma(Writer& writer, const Rows& rows, const Place& to, ptrdiff_t pixels)
{
    for (int i = 0; i < 2 && rows.y[i]; i++) write_plane(writer, rows.y[i], to.line[i], pixels);
}

static void write_i420(const Output& output, const Rows& rows, const Place& to, ptrdiff_t pixels)
{
    const ptrdiff_t columns = chroma_columns(pixels);
    write_luma(output.writers[0], rows, to, pixels);
    uint8_t u[kStrip / 2], v[kStrip / 2];
    for (ptrdiff_t x = 0; !rows.u && x < columns; x += kPart / 2) {
        const ptrdiff_t count = columns - x < kPart / 2 ? columns - x : kPart / 2;
        deinterleave(rows.uv[0] + 2 * x, u, v, count);
        write_plane(output.writers[1], u, to.chroma[0] + x, count);
        write_plane(output.writers[2], v, to.chroma[1] + x, count);
    }
    if (!rows.u) return;
    write_plane(output.writers[1], rows.u, to.chroma[0], columns);
    write_plane(output.writers[2], rows.v, to.chroma[1], columns);
}

static void write_nv12(const Output& output, const Rows& rows, const Place& to, ptrdiff_t pixels)
{
    const ptrdiff_t columns = chroma_columns(pixels);
    write_luma(output.writers[0], rows, to, pixels);
    if (rows.u) write_pairs(output.writers[1], rows.u, rows.v, to.chroma[0], columns);
    else write_plane(output.writers[1], rows.uv[0], to.chroma[0], 2 * columns);
}

static void write_nv21(const Output& output, const Rows& rows, const Place& to, ptrdiff_t pixels)
{
    const ptrdiff_t columns = chroma_columns(pixels);
    write_luma(output.writers[0], rows, to, pixels);
    if (rows.u) return write_pairs(output.writers[1], rows.v, rows.u, to.chroma[0], columns);
    uint8_t vu[kStrip];
    for (ptrdiff_t x = 0; x < columns; x += kPart / 2) {
        const ptrdiff_t count = columns - x < kPart / 2 ? columns - x : kPart / 2;
        swap_pairs(rows.uv[0] + 2 * x, vu, count);
        write_plane(output.writers[1], vu, to.chroma[0] + 2 * x, 2 * count);
    }
}

template <class Format> constexpr SurfaceSink rgb_sink()
{
    return {write_rgb<Format>, write_bgr<Format>, Format::kBytes, false};
}

static constexpr SurfaceSink kSinks[] = {
    {write_i420, nullptr, 1, false},
    {write_nv12, nullptr, 1, true},
    {write_nv21, nullptr, 1, true},
    {write_packed<Yuy2>, nullptr, 2, false},
    {write_packed<Uyvy>, nullptr, 2, false},
    rgb_sink<BgrAnd<0>>(),
    rgb_sink<RedFirst<BgrAnd<0>>>(),
    rgb_sink<BgrAnd<255>>(),
    rgb_sink<RedFirst<BgrAnd<255>>>(),
    rgb_sink<Bgr>(),
    rgb_sink<RedFirst<Bgr>>(),
    rgb_sink<Rgb16Format>(),
    rgb_sink<Rgb16Format>(),
    rgb_sink<Rgb16Format>(),
    rgb_sink<Rgb16Format>(),
};
const SurfaceSink& sink_of(int surface) { return kSinks[surface - VSURF_I420]; }

} // namespace vsurf::VSURF_ISA
