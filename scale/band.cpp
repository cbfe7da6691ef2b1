// SPDX-License-Identifier: MIT
// A band of a frame or field, doubled in height along its edges.
#include "frame/dispatch.h"
#include "frame/sink.h"
#include "scale/edges.h"

namespace vsurf::VSURF_ISA {

struct Band {
    const uint8_t *y, *u, *v;
    ptrdiff_t step, chroma_step; // from a line of the band to the next
    ptrdiff_t width;             // of plain lines, in whole blocks
    ptrdiff_t interpolated;      // width of interpolated lines: at least a first, a middle and a last block
    uint8_t* dst;
    ptrdiff_t dst_pitch;
    ptrdiff_t groups; // of four lines of the surface, from two of the band

    ALWAYS_INLINE bool narrow() const { return interpolated > width; }
    ALWAYS_INLINE Target target() const { return {dst, dst_pitch, 2 * dst_pitch, 2 * width, 2 * groups}; }

    static ALWAYS_INLINE Band to_enlarge(const BandEnlargement& e)
    {
        const tagVideoFrame& frame = *e.frame;
        const int pitch = frame.pitch;
        const bool field = frame.field_mode == 1;
        const int step = field ? wrapping_mul(2, pitch) : pitch;
        const int offset = field ? wrapping_mul(pitch, e.start) : wrapping_mul(pitch, e.start) >> 1;
        const ptrdiff_t width = whole_steps(not_negative(pitch), kBlock);
        return {.y = frame.plane_y + offset,
                .u = frame.plane_u + (offset >> 2),
                .v = frame.plane_v + (offset >> 2),
                .step = step,
                .chroma_step = step >> 1,
                .width = width,
                .interpolated = width < 3 * kBlock ? 3 * kBlock : width,
                .dst = e.dst,
                .dst_pitch = e.dst_pitch,
                .groups = e.lines >> 1};
    }
};

// Two lines of the surface and the chroma that they share.
struct LinePair {
    const uint8_t *upper, *lower, *u, *v;
    ptrdiff_t upper_pixels, lower_pixels;
};

// Interpolated lines of a band narrower than their three blocks are longer than plain ones and reach into the line
// below, so that there line after line is written.
ALWAYS_INLINE void write_pair(Writer& writer, const Band& band, const Adjustments& by, const LinePair& p, uint8_t* to)
{
    using Samples = Adjust<FastGain, Row>;
    auto line = [&](const uint8_t* luma) VSURF_INLINED {
        return PixelLine<Yuy2, Samples, PlanarChroma<Samples>>{{by.luma, {luma}}, {{by.u, {p.u}}, {by.v, {p.v}}}, {}};
    };
    uint8_t* below = to + band.dst_pitch;
    if (!band.narrow() && FastGain::suits(by))
        return writer.pair(line(p.upper), line(p.lower), to, below, {0, p.upper_pixels});
    Writer::blocks(line(p.upper), to, {0, p.upper_pixels});
    Writer::blocks(line(p.lower), below, {0, p.lower_pixels});
}

// New samples of a part of a line, on their way to the surface: 12 KiB of stack.
struct NewSamples {
    uint8_t first[kStackPart], second[kStackPart], u[kStackPart / 2], v[kStackPart / 2];
};

// The pixels x to `end` of a group's four lines: the band's line, a new one below it, the next line and a new one below
// that, the second two with new chroma. The last group has no line below: it shows its second line twice.
ALWAYS_INLINE void write_group(Writer& writer, const Band& band, const Adjustments& by, ptrdiff_t group, ptrdiff_t x,
                               ptrdiff_t end)
{
    const ptrdiff_t chroma = group * band.chroma_step;
    const uint8_t *a = band.y + 2 * group * band.step, *b = a + band.step, *u = band.u + chroma, *v = band.v + chroma;
    const ptrdiff_t made = end - x, plain = band.narrow() ? band.width : made;
    NewSamples fresh;
    LinePair pairs[2] = {{a + x, fresh.first, u + x / 2, v + x / 2, plain, made},
                         {b + x, b + x, u + x / 2, v + x / 2, plain, plain}};
    interpolate(OnePlane{a, b, fresh.first, x}, x, end, band.interpolated);
    if (group + 1 < band.groups) {
        interpolate(OnePlane{b, b + band.step, fresh.second, x}, x, end, band.interpolated);
        const OnePlane new_u{u, u + band.chroma_step, fresh.u, x / 2}, new_v{v, v + band.chroma_step, fresh.v, x / 2};
        interpolate(BothChroma{new_u, new_v}, x, end, band.interpolated);
        pairs[1] = {b + x, fresh.second, fresh.u, fresh.v, made, made};
    }
    uint8_t* to = band.dst + 4 * group * band.dst_pitch + 2 * x;
    for (const LinePair& pair : pairs) {
        write_pair(writer, band, by, pair, to);
        to += 2 * band.dst_pitch;
    }
}

void strech_opt_yuy2_ajust(BandEnlargement e)
{
    if (e.lines < 8) return;
    const auto by = adjustments_now();
    const auto band = Band::to_enlarge(e);
    Writer writer(band.target());
    for (ptrdiff_t group = 0; group < band.groups; group++) {
        each_part(band.interpolated, kStackPart, [&](ptrdiff_t x, ptrdiff_t size, bool) VSURF_INLINED {
            write_group(writer, band, by, group, x, x + size);
        });
    }
}

} // namespace vsurf::VSURF_ISA
