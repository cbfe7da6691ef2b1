// SPDX-License-Identifier: MIT
// Mixers onto RGB surfaces.
#include "subpicture/pairs.h"

namespace vsurf::VSURF_ISA {

[[maybe_unused]] static NEVER_INLINE void mix_frame(Job job, const AnySink& sink)
{
    const auto pairs = frame_pairs(job, sink.bytes, job->picture_pitch);
    mix<OddAlpha, ThroughSamples>(pairs, sink);
    consume(job, pairs);
}

void mix_ayuy2_rgb32_p_ajust(Job job) { mix_frame(job, any_sink(Rgb32{})); }
void mix_ayuy2_rgb24_p_ajust(Job job) { mix_frame(job, any_sink(Rgb24{})); }
void mix_ayuy2_rgb16_p_ajust(Job job)
{
    with_rgb16_sink(job->contrast_info->rgb16_layout, [=](Rgb16 sink) { mix_frame(job, any_sink(sink)); });
}

// Irregular: a pair's chroma takes the average of its alphas, heights below 4 still give four lines, and the record
// stays as it is.
[[maybe_unused]] static NEVER_INLINE void mix_field(Job job, const AnySink& sink)
{
    const ptrdiff_t width = (at_least_one(job->width) + kBlock - 1) / kBlock * kBlock;
    mix<AverageAlpha, ThroughSamples>(field_pairs(job, StoreOrder::by_strip, sink.bytes, width, 0, 0), sink);
}

void mix_ayuy2_rgb32_i_ajust(Job job) { mix_field(job, any_sink(Rgb32{})); }
void mix_ayuy2_rgb24_i_ajust(Job job) { mix_field(job, any_sink(Rgb24{})); }
void mix_ayuy2_rgb16_i_ajust(Job job)
{
    with_rgb16_sink(job->contrast_info->rgb16_layout, [=](Rgb16 sink) { mix_field(job, any_sink(sink)); });
}

} // namespace vsurf::VSURF_ISA
