// SPDX-License-Identifier: MIT
// The way of a picture: pair by pair of lines, from the planes to rows, through what changes them, and to the surface.
#include "show/dispatch.h"
#include "show/overlay.h"
#include "show/sinks.h"

namespace vsurf::VSURF_ISA {

// Rows of pictures that are narrower are read from strips, so that whole blocks may be read behind their ends.
constexpr ptrdiff_t kNarrow = 32;

// Pixels from x on of the pair of lines that begins with `line`, in the planes of a picture whose rows need not be
// made.
ALWAYS_INLINE Rows rows_in_planes(const Plan& p, ptrdiff_t line, ptrdiff_t x)
{
    const bool packed = is_packed(p.source);
    const uint8_t *upper = p.from[0] + line * p.from_pitch[0] + (packed ? 2 * x : x), *lower = upper + p.from_pitch[0];
    if (line + 1 == p.height) lower = nullptr;
    if (packed) {
        const uint8_t* chroma = p.from[1] + line * p.from_pitch[0] + 2 * x;
        return {{upper, lower}, nullptr, nullptr, {chroma, chroma + p.from_pitch[0]}, true};
    }
    const uint8_t* chroma = p.from[1] + line / 2 * p.from_pitch[1];
    if (p.source != VSURF_I420) return {{upper, lower}, nullptr, nullptr, {chroma + x, chroma + x}};
    return {{upper, lower}, chroma + x / 2, p.from[2] + line / 2 * p.from_pitch[2] + x / 2, {}};
}

// The same of any picture, if need be in strips.
static Rows rows_of(const Plan& p, ptrdiff_t line, ptrdiff_t x, ptrdiff_t pixels, Strips& strips)
{
    if (!is_packed(p.source)) {
        Rows rows = rows_in_planes(p, line, x);
        if (p.source == VSURF_NV21) {
            swap_pairs(rows.uv[0], strips.uv[0], chroma_columns(pixels));
            rows.uv[0] = rows.uv[1] = strips.uv[0];
        }
        return rows;
    }
    const bool two = line + 1 < p.height;
    for (int i = 0; i <= two; i++) {
        const ptrdiff_t at = (line + i) * p.from_pitch[0] + 2 * x;
        take_packed(p.from[0] + at, p.from[1] + at, strips.y[i], strips.uv[i], pixels);
    }
    return {{strips.y[0], two ? strips.y[1] : nullptr}, nullptr, nullptr, {strips.uv[0], strips.uv[two]}};
}

// The same rows in strips, their chroma interleaved.
static Rows in_strips(const Rows& rows, Strips& strips, ptrdiff_t pixels)
{
    const ptrdiff_t columns = chroma_columns(pixels);
    const bool two = rows.y[1] != nullptr, own = rows.uv[0] != rows.uv[1];
    for (int i = 0; i <= two; i++) copy_bytes(strips.y[i], rows.y[i], pixels);
    if (rows.u) interleave(rows.u, rows.v, strips.uv[0], columns);
    else copy_bytes(strips.uv[0], rows.uv[0], 2 * columns);
    return {{strips.y[0], two ? strips.y[1] : nullptr}, nullptr, nullptr, {strips.uv[0], strips.uv[own]}};
}

static void transform(const Plan& plan, const Rows& rows, Strips& strips, ptrdiff_t pixels)
{
    const ptrdiff_t bytes = 2 * chroma_columns(pixels);
    for (int step = 0; step < plan.step_count; step++) {
        const Transform& by = plan.steps[step];
        for (int i = 0; i < 2 && rows.y[i]; i++) transform_luma(by, strips.y[i], rows.uv[i], pixels);
        if (!by.changes_chroma) continue;
        transform_chroma(by, strips.uv[0], bytes);
        if (rows.uv[1] != rows.uv[0]) transform_chroma(by, strips.uv[1], bytes);
    }
}

// Pixels of one line as B, G and R.
struct BgrStrips {
    alignas(64) uint8_t of[3][kStrip];
};
static NEVER_INLINE void to_bgr(const AnyEncoding& by, const uint8_t* y, const uint8_t* uv, BgrStrips& to,
                                ptrdiff_t pixels)
{
    constexpr int N = kRegister;
    for (ptrdiff_t x = 0; x < pixels; x += N) {
        auto chroma = split(load<N>(uv + x));
        auto px = to_rgb(by, split_times4(load<N>(y + x)), chroma_terms(by, chroma.even, chroma.odd));
        put(to.of[0] + x, join_cut(px.b)), put(to.of[1] + x, join_cut(px.g)), put(to.of[2] + x, join_cut(px.r));
    }
}

class Show {
public:
    Show(const Plan& plan, const RgbWords& words, Writer* writers)
        : plan_(plan), sink_(sink_of(plan.surface)), output_{plan.surface, {&words}, writers},
          planes_(sink_.bytes == 1), shifted_(is_packed(plan.surface) && plan.x % 2 != 0 && plan.source == VSURF_I420),
          straight_(plan.step_count == 0 && !shifted_ && plan.width >= kNarrow &&
                    (is_packed(plan.source) ? packed_rows_do() : plan.source != VSURF_NV21))
    {
    }

    // Both lines of a pair: as they are, or in parts.
    ALWAYS_INLINE void pair(ptrdiff_t line)
    {
        if (!straight_ || plan_.overlay_count > 0) return parts(line);
        sink_.write(output_, rows_in_planes(plan_, line, 0), place(line, 0), plan_.width);
    }

private:
    void parts(ptrdiff_t line)
    {
        const Columns touched = plan_.overlay_count > 0 ? touched_columns(plan_, line) : Columns{0, 0};
        for (ptrdiff_t x = 0, end; x < plan_.width; x = end) {
            const bool overlaid = x >= touched.from && x < touched.end;
            end = overlaid ? touched.end : x < touched.from ? touched.from : plan_.width;
            if ((overlaid || !straight_) && end - x > kPart) end = x + kPart;
            if (plan_.width - end < kGrid) end = plan_.width;
            part(line, x, end - x, overlaid);
        }
    }

    // Whether pixels can be made of packed ones as they are: a byte of luma and one of chroma to each.
    bool packed_rows_do() const
    {
        return sink_.write_bgr && plan_.width % 2 == 0 && plan_.from[0] - plan_.from[1] <= 1;
    }

    ALWAYS_INLINE Place place(ptrdiff_t line, ptrdiff_t x) const
    {
        const ptrdiff_t* pitch = plan_.to_pitch;
        const ptrdiff_t pair = line / 2;
        if (is_packed(plan_.surface)) {
            uint8_t *luma = plan_.to[0] + line * pitch[0] + 2 * x, *chroma = plan_.to[1] + line * pitch[0] + 2 * x;
            return {{luma, luma + pitch[0]}, {chroma, chroma + pitch[0]}};
        }
        uint8_t* first = plan_.to[0] + line * pitch[0] + x * sink_.bytes;
        if (!planes_) return {{first, first + pitch[0]}, {}};
        uint8_t* u = plan_.to[1] + pair * pitch[1] + (sink_.paired ? x : x / 2);
        return {{first, first + pitch[0]}, {u, sink_.paired ? nullptr : plan_.to[2] + pair * pitch[2] + x / 2}};
    }

    NEVER_INLINE void part(ptrdiff_t line, ptrdiff_t x, ptrdiff_t pixels, bool overlaid)
    {
        Strips strips;
        if (straight_ && !overlaid) return sink_.write(output_, rows_in_planes(plan_, line, x), place(line, x), pixels);
        Rows rows = rows_of(plan_, line, x, pixels, strips);
        if (overlaid || shifted_ || plan_.step_count > 0 || plan_.width < kNarrow) {
            rows = in_strips(rows, strips, pixels);
            transform(plan_, rows, strips, pixels);
        }
        if (planes_ && rows.uv[0] != rows.uv[1]) {
            average_lines(strips.uv[0], strips.uv[1], 2 * chroma_columns(pixels));
            rows.uv[1] = rows.uv[0];
        }
        const Place to = place(line, x);
        if (!overlaid) return sink_.write(output_, rows, to, pixels);
        if (sink_.write_bgr) return write_overlaid(rows, line, x, to, pixels);
        if (!planes_ && rows.uv[0] == rows.uv[1] && rows.y[1]) {
            copy_bytes(strips.uv[1], strips.uv[0], 2 * chroma_columns(pixels));
            rows.uv[1] = strips.uv[1];
        }
        blend_yuv(plan_, line, x, pixels, strips, rows.y[1] != nullptr, !planes_);
        sink_.write(output_, rows, to, pixels);
    }

    void write_overlaid(const Rows& rows, ptrdiff_t line, ptrdiff_t x, const Place& to, ptrdiff_t pixels)
    {
        BgrStrips bgr;
        for (int i = 0; i < 2 && rows.y[i]; i++) {
            to_bgr(output_.encoding, rows.y[i], rows.uv[i], bgr, pixels);
            blend_bgr(plan_, line + i, x, pixels, bgr.of[0], bgr.of[1], bgr.of[2]);
            sink_.write_bgr(output_, {bgr.of[0], bgr.of[1], bgr.of[2]}, to.line[i], pixels);
        }
    }

    const Plan& plan_;
    const SurfaceSink& sink_;
    const Output output_;
    const bool planes_;
    const bool shifted_;  // luma and chroma of packed pixels come from different pairs
    const bool straight_; // rows are taken from the planes as they are
};

// How a plane of the surface is written altogether. Where two steps from line to line would leave the address space,
// there are no more than two lines.
static Target target_of(const Plan& plan, int plane)
{
    const SurfaceSink& sink = sink_of(plan.surface);
    const ptrdiff_t pitch = plan.to_pitch[plane], most = PTRDIFF_MAX / 4;
    if (!plan.to[plane] || pitch > most || pitch < -most) return Target::never_streamed();
    uint8_t* first = plan.to[0];
    if (is_packed(plan.surface)) {
        // A byte of chroma by itself, and a line that is no whole words without it.
        if (PackedRun::of(plan.to[0], plan.to[1], plan.width).chroma_leads) return Target::never_streamed();
        first = plan.to[1] < first ? plan.to[1] : first;
    }
    if (plane == 0) {
        Target target = Target::lines(first, pitch, plan.width * sink.bytes, plan.height);
        if (sink.bytes == 4) target.multiple = 2 * sink.bytes; // cache lines begin with pairs of pixels in all lines
        return target;
    }
    const ptrdiff_t columns = chroma_columns(plan.width), lines = chroma_columns(plan.height);
    return sink.bytes == 1 ? Target::lines(plan.to[plane], pitch, sink.paired ? 2 * columns : columns, lines)
                           : Target::never_streamed();
}

static void show(const Plan& plan)
{
    Writer writers[] = {Writer(target_of(plan, 0)), Writer(target_of(plan, 1)), Writer(target_of(plan, 2))};
    const RgbWords words(plan.rgb);
    Show by_pairs(plan, words, writers);
    for (ptrdiff_t pair = plan.first_pair; pair < plan.end_pair; pair++) by_pairs.pair(2 * pair);
}

constinit const ShowKernels show_kernels = {show};

} // namespace vsurf::VSURF_ISA
