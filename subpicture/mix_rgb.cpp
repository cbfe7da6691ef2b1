// SPDX-License-Identifier: MIT
// Mixers onto RGB surfaces.
#include "subpicture/pairs.h"

namespace vsurf::VSURF_ISA {

// Calls `mixer` with the writer of the layout; layouts beyond the four mix nothing.
template <class Mixer> ALWAYS_INLINE void mix_words(const MIX_INFO* job, const Mixer& mixer)
{
    with_rgb16_sink(job->contrast_info->rgb16_layout, [&](Rgb16 sink) VSURF_INLINED { mixer(AnyWriter::of(sink)); });
}

[[maybe_unused]] static NEVER_INLINE void mix_frame(MIX_INFO* job, const AnyWriter& writer)
{
    const auto pairs = frame_pairs(job, writer.bytes, job->picture_pitch);
    mix<OddAlpha, ThroughSamples>(pairs, writer);
    consume(job, pairs);
}

void mix_ayuy2_rgb32_p_ajust(MIX_INFO* job) { mix_frame(job, AnyWriter::of(Rgb32{})); }
void mix_ayuy2_rgb24_p_ajust(MIX_INFO* job) { mix_frame(job, AnyWriter::of(Rgb24{})); }
void mix_ayuy2_rgb16_p_ajust(MIX_INFO* job)
{
    mix_words(job, [=](const AnyWriter& words) { mix_frame(job, words); });
}

// Irregular: a pair's chroma takes the average of its alphas, heights below 4 still give four lines, and the record
// stays as it is.
[[maybe_unused]] static NEVER_INLINE void mix_field(const MIX_INFO* job, const AnyWriter& writer)
{
    const ptrdiff_t width = (at_least_one(job->width) + kBlock - 1) / kBlock * kBlock;
    const auto pairs = field_pairs<MixOrder::strip_by_strip>(job, writer.bytes, width, 0, 0);
    mix<AverageAlpha, ThroughSamples>(pairs, writer);
}

void mix_ayuy2_rgb32_i_ajust(MIX_INFO* job) { mix_field(job, AnyWriter::of(Rgb32{})); }
void mix_ayuy2_rgb24_i_ajust(MIX_INFO* job) { mix_field(job, AnyWriter::of(Rgb24{})); }
void mix_ayuy2_rgb16_i_ajust(MIX_INFO* job)
{
    mix_words(job, [=](const AnyWriter& words) { mix_field(job, words); });
}

} // namespace vsurf::VSURF_ISA
