// SPDX-License-Identifier: MIT
// Mixers onto YUY2 surfaces.
#include "subpicture/half_width.h"
#include "subpicture/pairs.h"

namespace vsurf::VSURF_ISA {

void mix_ayuy2_yuy2_p_ajust(Job job)
{
    const auto pairs = frame_pairs(job, Yuy2::kBytes, job->picture_pitch);
    mix<OddAlpha, Directly<Yuy2>>(pairs, any_sink(Yuy2{}));
    consume(job, pairs);
}

// Irregular: the picture's lower line and its next chroma line are found by the subpicture's pitch.
void mix_ayuy2_half_yuy2_p_ajust(Job job)
{
    const auto pairs = frame_pairs(job, kHalfWidthBytes, job->subpicture_pitch);
    mix_half_width(pairs, adjustments_now());
    consume(job, pairs);
}

// Irregular: refuses heights below 4.
void mix_ayuy2_yuy2_i_ajust(Job job)
{
    if (job->height < 4) return;
    const ptrdiff_t half_width = whole_steps(logical_half(job->width), kBlock / 2), width = 2 * half_width;
    const auto pairs =
        field_pairs(job, StoreOrder::by_line, Yuy2::kBytes, width, width - job->width, half_width - (job->width >> 1));
    mix<OddAlpha, Directly<Yuy2>>(pairs, any_sink(Yuy2{}));

    const ptrdiff_t lines = 4 * pairs.groups, chroma = pairs.groups * pairs.chroma_pitch + lines * pairs.chroma_drift;
    job->picture_u += chroma;
    job->picture_v += chroma;
    move_subpicture(job, {lines * pairs.to_next_line.y, lines * pairs.to_next_line.chroma, 0});
    job->height = 0;
}

} // namespace vsurf::VSURF_ISA
