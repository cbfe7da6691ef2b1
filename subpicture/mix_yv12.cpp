// SPDX-License-Identifier: MIT
// Mixers onto YV12 surfaces, plane by plane.
#include "frame/dispatch.h"
#include "subpicture/lines.h"
#include "subpicture/plane.h"

namespace vsurf::VSURF_ISA {

struct MixedPlane {
    const uint8_t* picture;
    ptrdiff_t picture_step, picture_odd_step; // after lines 0, 2, ... and after lines 1, 3, ...
    ptrdiff_t below;                          // to the line with which a field's odd lines are averaged
    const uint8_t *over, *alpha;
    ptrdiff_t over_step, alpha_step;
    uint8_t* dst;
    ptrdiff_t dst_step, samples, lines;

    ALWAYS_INLINE const uint8_t* picture_line(ptrdiff_t i) const
    {
        return picture + i / 2 * (picture_step + picture_odd_step) + (i % 2 ? picture_step : 0);
    }
    template <class Source> ALWAYS_INLINE Source source(ptrdiff_t i) const
    {
        const Row own{picture_line(i)};
        if constexpr (__is_same(Source, Row)) return own;
        else return {own, {own.samples + (i % 2 ? below : 0)}};
    }
};

template <class Source, class After> using Luma = LumaLine<Source, After>;
template <class Source, class After> using Chroma = ChromaLine<Source, OddAlpha, After>;

template <template <class, class> class Line, class Source, class After>
ALWAYS_INLINE void mix(const MixedPlane& p, const After& after)
{
    using Mixed = Line<Source, After>;
    const bool streamed = streams(p.dst, p.dst_step, p.samples, p.lines);
    const ptrdiff_t pixels = p.samples * Mixed::kPixels, whole = pixels & -streaming_unit(1, kUnit) * Mixed::kPixels;
    for (ptrdiff_t i = 0; i < p.lines; i++) {
        const Mixed line{p.source<Source>(i), p.over + i * p.over_step, p.alpha + i * p.alpha_step,
                         p.dst + i * p.dst_step, after};
        blend_line(line, pixels, streamed ? whole : 0);
    }
    if (streamed) fence_streaming();
}

// Each line moves the pointers by whole blocks, back by the width, and on by the pitch.
ALWAYS_INLINE MixedPlane luma_plane(const MIX_INFO* job)
{
    const ptrdiff_t samples = rounds(job->width, 8) * 8, drift = samples - job->width;
    return {
        .picture = job->picture_y,
        .picture_step = job->picture_pitch + drift,
        .picture_odd_step = job->picture_pitch + drift,
        .below = job->picture_pitch,
        .over = job->subpic_y,
        .alpha = job->subpic_alpha,
        .over_step = job->subpicture_pitch + drift,
        .alpha_step = job->subpicture_pitch + drift,
        .dst = job->surface,
        .dst_step = job->surface_pitch + drift,
        .samples = samples,
        .lines = rounds(job->height, 1),
    };
}

// The subpicture's even lines alone.
ALWAYS_INLINE MixedPlane chroma_plane(const MIX_INFO* job, const uint8_t* picture, const uint8_t* over,
                                      uint8_t* surface)
{
    const ptrdiff_t samples = rounds(logical_half(job->width), 8) * 8;
    const ptrdiff_t step = samples + (difference(job->picture_pitch, job->width) >> 1);
    return {
        .picture = picture,
        .picture_step = step,
        .picture_odd_step = step,
        .below = logical_half(job->picture_pitch),
        .over = over,
        .alpha = job->subpic_alpha,
        .over_step = samples + job->subpicture_pitch - (job->width >> 1),
        .alpha_step = 2 * samples + 2 * ptrdiff_t{job->subpicture_pitch} - job->width,
        .dst = surface,
        .dst_step = samples + (difference(job->surface_pitch, job->width) >> 1),
        .samples = samples,
        .lines = rounds(logical_half(job->height), 1),
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

void mix_ayv12_yv12_p(MIX_INFO* job)
{
    mix<Luma, Row>(luma_plane(job), AsTheyAre{});
    mix<Chroma, Row>(v_plane(job), AsTheyAre{});
    mix<Chroma, Row>(u_plane(job), AsTheyAre{});
    job->height = logical_half(job->height);
}

void mix_ayv12_yv12_p_ajust(MIX_INFO* job)
{
    const auto by = adjustments_now();
    with_gain(by, [&](auto gain) VSURF_INLINED {
        using After = AdjustedBy<decltype(gain)>;
        mix<Luma, Row>(luma_plane(job), After{by.luma});
        mix<Chroma, Row>(v_plane(job), After{by.v});
        mix<Chroma, Row>(u_plane(job), After{by.u});
    });
    job->height = logical_half(job->height);
}

// A field: even lines are the picture's, odd ones averages with the next, down to the line after its last one.
ALWAYS_INLINE MixedPlane doubled(MixedPlane plane, int height, ptrdiff_t step_in_pair)
{
    plane.picture_step = step_in_pair;
    plane.lines = 2 * rounds(height, 2);
    return plane;
}

void mix_ayv12_yv12_i(MIX_INFO* job)
{
    const auto luma = luma_plane(job), v = v_plane(job), u = u_plane(job);
    const int half_height = logical_half(job->height);
    const ptrdiff_t drift = luma.samples - job->width, chroma_drift = v.samples - (job->width >> 1);
    mix<Luma, Average<Row>>(doubled(luma, job->height, drift), AsTheyAre{});
    mix<Chroma, Average<Row>>(doubled(v, half_height, chroma_drift), AsTheyAre{});
    mix<Chroma, Average<Row>>(doubled(u, half_height, chroma_drift), AsTheyAre{});
    job->height = half_height;
    job->width = logical_half(job->width);
}

} // namespace vsurf::VSURF_ISA
