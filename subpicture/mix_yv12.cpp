// SPDX-License-Identifier: MIT
// Mixers onto YV12 surfaces, plane by plane.
#include "frame/dispatch.h"
#include "subpicture/plane.h"

namespace vsurf::VSURF_ISA {

struct MixedPlane {
    const uint8_t* picture;
    ptrdiff_t picture_step, picture_odd_step; // after lines 0, 2, ... and after lines 1, 3, ...
    ptrdiff_t below;                          // to the line with which a field's odd lines are averaged
    const uint8_t *subpicture, *alpha;
    ptrdiff_t subpicture_step, alpha_step;
    uint8_t* dst;
    ptrdiff_t dst_step, samples, lines;

    ALWAYS_INLINE Row line(ptrdiff_t i, Row*) const
    {
        return {picture + i / 2 * (picture_step + picture_odd_step) + (i % 2 ? picture_step : 0)};
    }
    ALWAYS_INLINE Average<Row> line(ptrdiff_t i, Average<Row>*) const
    {
        const Row own = line(i, static_cast<Row*>(nullptr));
        return {own, own + (i % 2 ? below : 0)};
    }
};

template <class Alpha, Source Picture, class After> NEVER_INLINE void mix(const MixedPlane& p, After after)
{
    Writer writer(Target::lines(p.dst, p.dst_step, p.samples, p.lines));
    for (ptrdiff_t i = 0; i < p.lines; i++) {
        const BlendedLine<Alpha, Picture, After> line{
            {p.line(i, static_cast<Picture*>(nullptr)), p.subpicture + i * p.subpicture_step, after},
            p.alpha + i * p.alpha_step};
        uint8_t* to = p.dst + i * p.dst_step;
        if (after.suits()) writer.line(line, to, {0, p.samples});
        else Writer::store_exactly(line, to, {0, p.samples});
    }
}

// Each line moves the pointers by whole blocks, back by the width, and on by the pitch.
ALWAYS_INLINE MixedPlane luma_plane(const MIX_INFO* job)
{
    const ptrdiff_t samples = whole_steps(job->width, 8), drift = samples - job->width;
    return {
        .picture = job->picture_y,
        .picture_step = job->picture_pitch + drift,
        .picture_odd_step = job->picture_pitch + drift,
        .below = job->picture_pitch,
        .subpicture = job->subpic_y,
        .alpha = job->subpic_alpha,
        .subpicture_step = job->subpicture_pitch + drift,
        .alpha_step = job->subpicture_pitch + drift,
        .dst = job->surface,
        .dst_step = job->surface_pitch + drift,
        .samples = samples,
        .lines = step_count(job->height, 1),
    };
}

// Of the subpicture only the even lines are used.
ALWAYS_INLINE MixedPlane chroma_plane(const MIX_INFO* job, const uint8_t* picture, const uint8_t* subpicture,
                                      uint8_t* surface)
{
    const ptrdiff_t samples = whole_steps(logical_half(job->width), 8);
    const ptrdiff_t step = samples + (wrapping_sub(job->picture_pitch, job->width) >> 1);
    return {
        .picture = picture,
        .picture_step = step,
        .picture_odd_step = step,
        .below = logical_half(job->picture_pitch),
        .subpicture = subpicture,
        .alpha = job->subpic_alpha,
        .subpicture_step = samples + job->subpicture_pitch - (job->width >> 1),
        .alpha_step = 2 * samples + 2 * ptrdiff_t{job->subpicture_pitch} - job->width,
        .dst = surface,
        .dst_step = samples + (wrapping_sub(job->surface_pitch, job->width) >> 1),
        .samples = samples,
        .lines = step_count(logical_half(job->height), 1),
    };
}
ALWAYS_INLINE MixedPlane v_plane(const MIX_INFO* job)
{
    return chroma_plane(job, job->picture_v, job->subpic_v, job->surface_v);
}
ALWAYS_INLINE MixedPlane u_plane(const MIX_INFO* job)
{
    return chroma_plane(job, job->picture_u, job->subpic_u, job->surface_u);
}

void mix_ayv12_yv12_p(Job job)
{
    mix<PixelAlpha, Row>(luma_plane(job), Unadjusted{});
    mix<OddAlpha, Row>(v_plane(job), Unadjusted{});
    mix<OddAlpha, Row>(u_plane(job), Unadjusted{});
    job->height = logical_half(job->height);
}

template <class Alpha> NEVER_INLINE void mix_adjusted(const MixedPlane& p, SampleAdjust by)
{
    mix<Alpha, Row>(p, Adjusted<FastGain>{by});
}

void mix_ayv12_yv12_p_ajust(Job job)
{
    const auto by = adjustments_now();
    mix_adjusted<PixelAlpha>(luma_plane(job), by.luma);
    mix_adjusted<OddAlpha>(v_plane(job), by.v);
    mix_adjusted<OddAlpha>(u_plane(job), by.u);
    job->height = logical_half(job->height);
}

// A field: even lines are the picture's, odd ones averages with the next, down to the line after its last one.
ALWAYS_INLINE MixedPlane doubled(MixedPlane plane, int height, ptrdiff_t step_in_pair)
{
    plane.picture_step = step_in_pair;
    plane.lines = 2 * step_count(height, 2);
    return plane;
}

void mix_ayv12_yv12_i(Job job)
{
    const auto luma = luma_plane(job), v = v_plane(job), u = u_plane(job);
    const int half_height = logical_half(job->height);
    const ptrdiff_t drift = luma.samples - job->width, chroma_drift = v.samples - (job->width >> 1);
    mix<PixelAlpha, Average<Row>>(doubled(luma, job->height, drift), Unadjusted{});
    mix<OddAlpha, Average<Row>>(doubled(v, half_height, chroma_drift), Unadjusted{});
    mix<OddAlpha, Average<Row>>(doubled(u, half_height, chroma_drift), Unadjusted{});
    job->height = half_height;
    job->width = logical_half(job->width);
}

} // namespace vsurf::VSURF_ISA
