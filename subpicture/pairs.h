// SPDX-License-Identifier: MIT
// Which lines a mixer handles together, and how the record's pointers follow them.
#pragma once
#include "subpicture/mix.h"

namespace vsurf::VSURF_ISA {

ALWAYS_INLINE void move_subpicture(Job job, Distance d)
{
    job->subpic_alpha += d.y;
    job->subpic_y += d.y;
    job->subpic_u += d.chroma;
    job->subpic_v += d.chroma;
}
ALWAYS_INLINE Position picture(const MIX_INFO* job)
{
    return {job->picture_y, job->picture_u, job->picture_v, job->surface};
}

// A frame: each pair of lines shares a chroma line of the picture, and each line has one of the subpicture. The
// pointers are moved once a pair.
struct FramePairs : Walk {
    Subpicture subpicture;
    Distance subpicture_to_lower, subpicture_to_next_pass;

    template <class Work> ALWAYS_INLINE void each(const Work& work) const
    {
        Subpicture s = subpicture;
        Walk::each([&](Position upper, Position lower) VSURF_INLINED {
            auto line = [](Position at, Subpicture of_line) VSURF_INLINED {
                return MixedLine<Row>{{at.y}, {at.u}, {at.v}, of_line, at.dst};
            };
            work(line(upper, s), line(lower, s + subpicture_to_lower));
            s = s + subpicture_to_next_pass;
        });
    }
};

// The lower line of the picture is reached by `lower_pitch`, by which its chroma steps, too; `bytes` a source pixel.
ALWAYS_INLINE FramePairs frame_pairs(const MIX_INFO* job, int bytes, int lower_pitch)
{
    const ptrdiff_t width = whole_steps(job->width, kBlock), drift = width - job->width;
    const ptrdiff_t chroma_drift = width / 2 - (job->width >> 1);
    const ptrdiff_t pitch = job->subpicture_pitch, surface = job->surface_pitch;
    const Walk walk{
        .start = picture(job),
        .to_lower = {lower_pitch & ~1, 0, surface},
        .to_next_pass = {2 * ptrdiff_t{job->picture_pitch} + drift, (lower_pitch >> 1) + chroma_drift,
                         2 * surface + bytes * drift},
        .width = width,
        .passes = (at_least_one(job->height) + 1) / 2,
        .line_bytes = width * bytes,
    };
    return {walk, subpicture(job), {pitch & ~1, pitch >> 1, 0}, {2 * pitch + drift, pitch + chroma_drift, 0}};
}

ALWAYS_INLINE void consume(Job job, const FramePairs& pairs)
{
    const Distance s = pairs.subpicture_to_next_pass;
    const ptrdiff_t passes = pairs.passes, chroma = passes * pairs.to_next_pass.chroma;
    job->picture_u += chroma;
    job->picture_v += chroma;
    move_subpicture(job, {passes * s.y, passes * s.chroma, 0});
    job->height = wrapping_sub(job->height, static_cast<int>(2 * passes));
}

// A field, doubled in height: groups of four lines stand on two luma lines and one chroma line. Lines in between are
// averaged with the next ones; the last group looks no further than its own. The pointers are moved after each line.
struct FieldPairs {
    StoreOrder order;
    Position start;
    Subpicture subpicture;
    ptrdiff_t picture_pitch, chroma_pitch;
    Distance to_next_line; // of the subpicture and the surface
    ptrdiff_t line_bytes, groups, width;
    ptrdiff_t drift, chroma_drift; // of the picture, a line of the surface

    ALWAYS_INLINE Target target() const { return Target::lines(start.dst, to_next_line.dst, line_bytes, 4 * groups); }
    ALWAYS_INLINE bool store_order_matters() const
    {
        return drift != 0 || chroma_drift != 0 || target().pair_overlaps();
    }

    ALWAYS_INLINE Average<Row> average(const uint8_t* line, ptrdiff_t to_other) const
    {
        return {{line}, {line + to_other}};
    }
    NEVER_INLINE MixedLine<Average<Row>> line(ptrdiff_t group, int of_group) const
    {
        const ptrdiff_t n = 4 * group + of_group;
        const bool looks_on = group < groups - 1 || of_group < 2;
        auto y = start.y + n / 2 * picture_pitch + n * drift;
        auto u = start.u + group * chroma_pitch + n * chroma_drift;
        auto v = start.v + group * chroma_pitch + n * chroma_drift;
        const ptrdiff_t below = of_group % 2 && looks_on ? picture_pitch : 0;
        const ptrdiff_t chroma_below = of_group >= 2 && looks_on ? chroma_pitch : 0;
        return {average(y, below), average(u, chroma_below), average(v, chroma_below),
                subpicture + Distance{n * to_next_line.y, n * to_next_line.chroma, 0},
                start.dst + n * to_next_line.dst};
    }
    template <class Work> ALWAYS_INLINE void each(const Work& work) const
    {
        for (ptrdiff_t group = 0; group < groups; group++)
            for (int pair = 0; pair < 4; pair += 2) work(line(group, pair), line(group, pair + 1));
    }
};

// `width` in whole blocks; `drift` and `chroma_drift` are what a line moves the pointers by beyond the pitches. Up to
// eight lines the last group is the only one.
ALWAYS_INLINE FieldPairs field_pairs(const MIX_INFO* job, StoreOrder order, int bytes, ptrdiff_t width, ptrdiff_t drift,
                                     ptrdiff_t chroma_drift)
{
    return {
        .order = order,
        .start = picture(job),
        .subpicture = subpicture(job),
        .picture_pitch = job->picture_pitch,
        .chroma_pitch = job->picture_pitch >> 1,
        .to_next_line = {job->subpicture_pitch + drift, (job->subpicture_pitch >> 1) + chroma_drift,
                         job->surface_pitch + bytes * drift},
        .line_bytes = bytes * width,
        .groups = job->height < 8 ? 1 : (ptrdiff_t{job->height} + 3) / 4,
        .width = width,
        .drift = drift,
        .chroma_drift = chroma_drift,
    };
}

} // namespace vsurf::VSURF_ISA
