// SPDX-License-Identifier: MIT
// Which lines a mixer handles together, and how the record's pointers follow them.
#pragma once
#include "scale/source.h"
#include "subpicture/lines.h"
#include "subpicture/mix.h"

namespace vsurf::VSURF_ISA {

ALWAYS_INLINE Subpicture subpicture(const MIX_INFO* job)
{
    return {job->subpic_alpha, job->subpic_y, job->subpic_u, job->subpic_v};
}
ALWAYS_INLINE Subpicture moved(Subpicture s, ptrdiff_t luma, ptrdiff_t chroma)
{
    return {s.alpha + luma, s.y + luma, s.u + chroma, s.v + chroma};
}
ALWAYS_INLINE void move_subpicture(MIX_INFO* job, ptrdiff_t luma, ptrdiff_t chroma)
{
    job->subpic_alpha += luma;
    job->subpic_y += luma;
    job->subpic_u += chroma;
    job->subpic_v += chroma;
}
ALWAYS_INLINE Position picture(const MIX_INFO* job)
{
    return {job->picture_y, job->picture_u, job->picture_v, job->surface};
}

// A frame: each pair of lines shares a chroma line of the picture, and each line has one of the subpicture. The
// pointers are moved once a pair.
struct FramePairs {
    static constexpr MixOrder kOrder = MixOrder::block_by_block;
    Walk walk;
    Subpicture subpicture;
    ptrdiff_t subpicture_lower, subpicture_chroma_lower, subpicture_pass, subpicture_chroma_pass;

    ALWAYS_INLINE ptrdiff_t width() const { return walk.width; }
    ALWAYS_INLINE bool order_shows() const { return lines_overlap(walk); }
    ALWAYS_INLINE bool streamed() const { return streams(walk); }
    template <class Work> ALWAYS_INLINE void each(const Work& work) const
    {
        Position at = walk.start;
        for (ptrdiff_t i = 0; i < walk.passes; i++, at = at + walk.to_next_pass) {
            auto upper = moved(subpicture, i * subpicture_pass, i * subpicture_chroma_pass);
            auto lower = moved(upper, subpicture_lower, subpicture_chroma_lower);
            const Row u{at.u}, v{at.v};
            work(MixedLine<Row>{{at.y}, u, v, upper, at.dst},
                 MixedLine<Row>{{at.y + walk.to_lower.y}, u, v, lower, at.dst + walk.to_lower.dst});
        }
    }
};

// The lower line of the picture is reached by `lower_pitch`, by which its chroma steps, too; `bytes` a source pixel.
ALWAYS_INLINE FramePairs frame_pairs(const MIX_INFO* job, int bytes, int lower_pitch)
{
    const ptrdiff_t width = rounds(job->width, kBlock) * kBlock, drift = width - job->width;
    const ptrdiff_t chroma_drift = width / 2 - (job->width >> 1);
    const ptrdiff_t pitch = job->subpicture_pitch, surface = job->surface_pitch;
    return {
        .walk = {.start = picture(job),
                 .to_lower = {lower_pitch & ~1, 0, surface},
                 .to_next_pass = {2 * ptrdiff_t{job->picture_pitch} + drift, (lower_pitch >> 1) + chroma_drift,
                                  2 * surface + bytes * drift},
                 .width = width,
                 .passes = (at_least_one(job->height) + 1) / 2,
                 .line_bytes = width * bytes},
        .subpicture = subpicture(job),
        .subpicture_lower = pitch & ~1,
        .subpicture_chroma_lower = pitch >> 1,
        .subpicture_pass = 2 * pitch + drift,
        .subpicture_chroma_pass = pitch + chroma_drift,
    };
}

ALWAYS_INLINE void consume(MIX_INFO* job, const FramePairs& pairs)
{
    const ptrdiff_t passes = pairs.walk.passes;
    job->picture_u += passes * pairs.walk.to_next_pass.chroma;
    job->picture_v += passes * pairs.walk.to_next_pass.chroma;
    move_subpicture(job, passes * pairs.subpicture_pass, passes * pairs.subpicture_chroma_pass);
    job->height = difference(job->height, static_cast<int>(2 * passes));
}

// A field, doubled in height: groups of four lines stand on two luma lines and one chroma line. Lines in between are
// averaged with the next ones; the last group looks no further than its own. The pointers are moved after each line.
template <MixOrder order> struct FieldPairs {
    static constexpr MixOrder kOrder = order;
    Position start;
    Subpicture subpicture;
    ptrdiff_t picture_pitch, chroma_pitch;
    ptrdiff_t subpicture_step, subpicture_chroma_step, surface_step; // from line to line
    ptrdiff_t line_bytes, groups, whole_width;
    ptrdiff_t drift, chroma_drift; // of the picture, a line of the surface

    ALWAYS_INLINE ptrdiff_t width() const { return whole_width; }
    ALWAYS_INLINE bool order_shows() const
    {
        return drift != 0 || chroma_drift != 0 || (surface_step < line_bytes && -surface_step < line_bytes);
    }
    ALWAYS_INLINE bool streamed() const { return streams(start.dst, surface_step, line_bytes, 4 * groups); }

    ALWAYS_INLINE Average<Row> average(const uint8_t* line, ptrdiff_t to_other) const
    {
        return {{line}, {line + to_other}};
    }
    ALWAYS_INLINE MixedLine<Average<Row>> line(ptrdiff_t group, int of_group) const
    {
        const ptrdiff_t n = 4 * group + of_group;
        const bool looks_on = group < groups - 1 || of_group < 2;
        auto y = start.y + n / 2 * picture_pitch + n * drift;
        auto u = start.u + group * chroma_pitch + n * chroma_drift;
        auto v = start.v + group * chroma_pitch + n * chroma_drift;
        const ptrdiff_t below = of_group % 2 && looks_on ? picture_pitch : 0;
        const ptrdiff_t chroma_below = of_group >= 2 && looks_on ? chroma_pitch : 0;
        return {average(y, below), average(u, chroma_below), average(v, chroma_below),
                moved(subpicture, n * subpicture_step, n * subpicture_chroma_step), start.dst + n * surface_step};
    }
    template <class Work> ALWAYS_INLINE void each(const Work& work) const
    {
        for (ptrdiff_t group = 0; group < groups; group++)
            for (int pair = 0; pair < 4; pair += 2) work(line(group, pair), line(group, pair + 1));
    }
};

// `width` in whole blocks; `drift` and `chroma_drift` are what a line moves the pointers by beyond the pitches. Up to
// eight lines the last group is the only one.
template <MixOrder order>
ALWAYS_INLINE FieldPairs<order> field_pairs(const MIX_INFO* job, int bytes, ptrdiff_t width, ptrdiff_t drift,
                                            ptrdiff_t chroma_drift)
{
    return {
        .start = picture(job),
        .subpicture = subpicture(job),
        .picture_pitch = job->picture_pitch,
        .chroma_pitch = job->picture_pitch >> 1,
        .subpicture_step = job->subpicture_pitch + drift,
        .subpicture_chroma_step = (job->subpicture_pitch >> 1) + chroma_drift,
        .surface_step = job->surface_pitch + bytes * drift,
        .line_bytes = bytes * width,
        .groups = job->height < 8 ? 1 : (ptrdiff_t{job->height} + 3) / 4,
        .whole_width = width,
        .drift = drift,
        .chroma_drift = chroma_drift,
    };
}

} // namespace vsurf::VSURF_ISA
