// SPDX-License-Identifier: MIT
// A band of a frame or field, doubled in height along its edges.
#include "frame/dispatch.h"
#include "scale/edges.h"
#include "scale/rows.h"

namespace vsurf::VSURF_ISA {

struct Band {
    const uint8_t *y, *u, *v;
    ptrdiff_t step, chroma_step; // from a line of the band to the next
    ptrdiff_t width;             // of plain lines, in whole blocks
    ptrdiff_t interpolated;      // and of interpolated ones: at least a first, a middle and a last block
    uint8_t* dst;
    ptrdiff_t dst_pitch;
    ptrdiff_t groups; // of four lines of the surface, made of two of the band
    bool streamed;

    ALWAYS_INLINE bool narrow() const { return interpolated > width; }
    static ALWAYS_INLINE Band of(const tagVideoFrame& frame, int start, int lines, uint8_t* dst, int dst_pitch)
    {
        const int pitch = frame.pitch;
        const bool field = frame.field_mode == 1;
        const int step = field ? product(2, pitch) : pitch;
        const int offset = field ? product(pitch, start) : product(pitch, start) >> 1;
        const ptrdiff_t width = rounds(pitch < 0 ? 0 : pitch, kBlock) * kBlock, groups = lines >> 1;
        const ptrdiff_t interpolated = width < 3 * kBlock ? 3 * kBlock : width;
        return {.y = frame.plane_y + offset,
                .u = frame.plane_u + (offset >> 2),
                .v = frame.plane_v + (offset >> 2),
                .step = step,
                .chroma_step = step >> 1,
                .width = width,
                .interpolated = interpolated,
                .dst = dst,
                .dst_pitch = dst_pitch,
                .groups = groups,
                .streamed = streams(dst, dst_pitch, 2 * width, 4 * groups)};
    }
};

// Two lines of the surface and the chroma that they share.
struct LinePair {
    const uint8_t *upper, *lower, *u, *v;
    ptrdiff_t upper_pixels, lower_pixels;
};

// Interpolated lines of a band narrower than their three blocks are longer than plain ones and reach into the line
// below, so that there line after line is written.
template <class Gain>
ALWAYS_INLINE void write_pair(const Band& band, const Adjustments& by, const LinePair& p, uint8_t* to)
{
    using Samples = Adjust<Gain, Row>;
    const SourcesStep<Yuy2, Gain::kWidest, Samples, Samples, Samples> step{
        {by.luma, {p.upper}}, {by.luma, {p.lower}}, {by.u, {p.u}}, {by.v, {p.v}}, {}};
    uint8_t* below = to + band.dst_pitch;
    if (!band.narrow()) return write_two_lines(step, to, below, p.upper_pixels, band.streamed);
    const Position upper{nullptr, nullptr, nullptr, to}, lower{nullptr, nullptr, nullptr, below};
    for (ptrdiff_t x = 0; x < p.upper_pixels; x += kBlock)
        one_line<Stores::cached, Line::upper, kBlock>(step, upper, x);
    for (ptrdiff_t x = 0; x < p.lower_pixels; x += kBlock)
        one_line<Stores::cached, Line::lower, kBlock>(step, lower, x);
}

// New samples of a part of a line, on their way to the surface: 12 KiB of stack.
struct NewSamples {
    uint8_t first[kPart], second[kPart], u[kPart / 2], v[kPart / 2];
};

// The pixels x to `end` of a group's four lines: the band's line, a new one below it, the next line and a new one below
// that, the second two with new chroma. The last group has no line below: it shows its second line twice.
template <class Gain>
ALWAYS_INLINE void write_group(const Band& band, const Adjustments& by, ptrdiff_t group, ptrdiff_t x, ptrdiff_t end)
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
        write_pair<Gain>(band, by, pair, to);
        to += 2 * band.dst_pitch;
    }
}

void strech_opt_yuy2_ajust(tagVideoFrame* frame, int start, int lines, unsigned char* dst, int dst_pitch,
                           ajust_contrast_info*)
{
    if (lines < 8) return;
    const auto by = adjustments_now();
    const auto band = Band::of(*frame, start, lines, dst, dst_pitch);
    with_gain(by, [&]<class Gain>(Gain) VSURF_INLINED {
        for (ptrdiff_t group = 0; group < band.groups; group++) {
            each_part<kPart>(band.interpolated, [&](ptrdiff_t x, ptrdiff_t size, bool)
                                                    VSURF_INLINED { write_group<Gain>(band, by, group, x, x + size); });
        }
    });
    if (band.streamed) fence_streaming();
}

} // namespace vsurf::VSURF_ISA
