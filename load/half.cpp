// SPDX-License-Identifier: MIT
// Planar YV12 pictures at half their width.
#include "frame/adjusted_line.h"
#include "frame/dispatch.h"
#include "frame/half_width.h"
#include "frame/picture.h"

namespace vsurf::VSURF_ISA {

// Neighbours are averaged, rounded up, then adjusted.
struct AveragesOfPairs {
    template <class Gain, int N> static ALWAYS_INLINE Words<N> words(Bytes<N> samples)
    {
        return Gain::of_words(averages_of_pairs(samples));
    }
};

void loadimage_half_yuy2_ajust(Picture p)
{
    write_adjusted(walk_by_line(p, kHalfWidthBytes), [](Adjustments by) VSURF_INLINED {
        return [=](Position at) VSURF_INLINED {
            return HalfWidthLine<FastGain, AveragesOfPairs>{at.y, at.u, at.v, by};
        };
    });
}

// Every second sample, the odd ones.
struct OddSamples {
    static constexpr int kWidest = kRegister;
    const uint8_t* samples;

    template <int N, int> ALWAYS_INLINE Words<N> words(ptrdiff_t x) const
    {
        return split(load<N>(samples + 2 * x)).odd;
    }
    template <int N, int W> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        return pack_in_order(words<N, W>(x), words<N, W>(x + N / 2));
    }
};
static_assert(Source<OddSamples>);

struct HalvedPlane {
    const uint8_t* src;
    uint8_t* dst;
    ptrdiff_t src_step, dst_step, lines, samples; // from line to line in bytes; samples of a new line
};

// A line closes with 8 samples that begin `closing` samples of the source after the last whole block, and that overlap
// what came before. From an even place they continue the line; from an odd one they are even samples.
[[maybe_unused]] static NEVER_INLINE void halve_plane(const HalvedPlane& p, SampleAdjust by, ptrdiff_t closing)
{
    using Halved = PlaneLine<Adjust<FastGain, OddSamples>>;
    const bool continues = closing % 2 == 0;
    const ptrdiff_t samples = p.samples + (continues ? closing / 2 : 0);
    Writer writer(continues ? Target::lines(p.dst, p.dst_step, samples, p.lines) : Target::never_streamed());
    for (ptrdiff_t i = 0; i < p.lines; i++) {
        const uint8_t* src = p.src + i * p.src_step;
        uint8_t* dst = p.dst + i * p.dst_step;
        write_adjusted_line(writer, by, Halved{{by, {src}}}, dst, {0, samples});
        if (!continues) exact(Halved{{by, {src + closing}}}).store_eight(dst + samples - 8 + closing / 2, samples - 8);
    }
}

// Keeps the odd samples, without averaging; the planes lie at the ordinary places for its own height and pitch, and
// each has its own offset.
void loadimage_half_yv12_ajust(Picture p)
{
    const Position at = start_of(p);
    const ptrdiff_t pitch = p.dst_pitch, half_pitch = p.dst_pitch >> 1, half_width = p.width >> 1;
    const ptrdiff_t luma_samples = step_count(p.width, 16) * 8;
    const HalvedPlane luma{.src = at.y,
                           .dst = at.dst,
                           .src_step = p.y_pitch + 2 * luma_samples - p.width,
                           .dst_step = pitch + luma_samples - half_width,
                           .lines = step_count(p.height, 1),
                           .samples = luma_samples};
    const ptrdiff_t rest = half_width & 15, samples = step_count(p.width >> 1 & ~15, 16) * 8;
    auto chroma = [&](const uint8_t* plane, uint8_t* to) VSURF_INLINED {
        return HalvedPlane{.src = plane,
                           .dst = to,
                           .src_step = (p.y_pitch >> 1) - half_width + 2 * samples + rest,
                           .dst_step = half_pitch - (p.width >> 2) + samples + (rest >> 1),
                           .lines = step_count(p.height >> 1, 1),
                           .samples = samples};
    };
    uint8_t *v_plane = at.dst + p.height * pitch, *u_plane = v_plane + half_pitch * (p.height >> 1);
    const auto by = adjustments_now();
    halve_plane(luma, by.luma, 0);
    halve_plane(chroma(at.v, v_plane), by.v, rest);
    halve_plane(chroma(at.u, u_plane), by.u, rest);
}

} // namespace vsurf::VSURF_ISA
