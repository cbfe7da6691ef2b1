// SPDX-License-Identifier: MIT
// Mixers onto RGB surfaces.
#include "model/mix.h"

namespace model {
namespace {

enum class ChromaAlpha { kOddPixel, kAverage };

void store_rgb(const Pointer& surface, const MixBlock& block, ChromaAlpha weight, PixelFormat format, const State& s)
{
    Luma16 luma;
    Terms8 terms;
    for (size_t k = 0; k < 8; ++k) {
        const uint8_t even = block.alpha[2 * k], odd = block.alpha[2 * k + 1];
        const uint8_t alpha = weight == ChromaAlpha::kAverage ? average(even, odd) : odd;
        terms[k] = chroma_terms(mixed_u(block, k, alpha, s), mixed_v(block, k, alpha, s));
        luma[2 * k] = mixed_luma(block, 2 * k, s);
        luma[2 * k + 1] = mixed_luma(block, 2 * k + 1, s);
    }
    store_pixels(surface, luma, terms, format);
}

// Only 16-bit pixels have a layout, and only they may have an unknown one.
uint32_t layout_of(const Job& job, Format format)
{
    return format == Format::kRgb16 ? static_cast<uint32_t>(job.contrast_info->rgb16_layout) : 0;
}

void mix_rgb_progressive(JobPlanes& planes, Job& job, Format format)
{
    const PixelFormat pixels{format, layout_of(job, format)};
    if (pixels.layout > 3) return;
    const Progression progression{bytes_per_pixel(format), even_below(job.picture_pitch),
                                  shift_arithmetic(job.picture_pitch, 1)};
    mix_progressive(planes, job, progression, [&](const Pointer& surface, const MixBlock& block) {
        store_rgb(surface, block, ChromaAlpha::kOddPixel, pixels, job.state);
    });
}

void mix_group(MixField& at, const Job& job, PixelFormat format, bool last)
{
    const int32_t chroma_pitch = shift_arithmetic(job.picture_pitch, 1);
    for (int line = 0; line < 4; ++line) {
        const PictureLine picture = field_line(at.picture, line, last, job.picture_pitch, chroma_pitch);
        store_rgb(at.surface, read_block(picture, at.subpicture), ChromaAlpha::kAverage, format, job.state);
        at.surface.advance(job.surface_pitch);
        at.subpicture.advance(job.subpicture_pitch, shift_arithmetic(job.subpicture_pitch, 1));
        if (line % 2 == 1) at.picture.y.advance(job.picture_pitch);
    }
    at.picture.advance(0, chroma_pitch);
}

// A strip of sixteen pixels, from its top line to its bottom.
void mix_strip(MixField at, const Job& job, PixelFormat format)
{
    if (job.height >= 8) {
        int32_t lines = job.height - 4;
        do {
            mix_group(at, job, format, false);
            lines -= 4;
        } while (lines > 0);
    }
    mix_group(at, job, format, true);
}

void mix_rgb_interlaced(JobPlanes& planes, Job& job, Format format)
{
    const PixelFormat pixels{format, layout_of(job, format)};
    if (pixels.layout > 3) return;
    MixField strip(planes);
    int64_t columns = job.width;
    do {
        mix_strip(strip, job, pixels);
        strip.picture.advance(16, 8);
        strip.subpicture.advance(16, 8);
        strip.surface.advance(16 * bytes_per_pixel(format));
        columns -= 16;
    } while (columns > 0);
}

} // namespace

void mix_ayuy2_rgb32_p_ajust(JobPlanes& planes, Job& job) { mix_rgb_progressive(planes, job, Format::kRgb32); }
void mix_ayuy2_rgb24_p_ajust(JobPlanes& planes, Job& job) { mix_rgb_progressive(planes, job, Format::kRgb24); }
void mix_ayuy2_rgb16_p_ajust(JobPlanes& planes, Job& job) { mix_rgb_progressive(planes, job, Format::kRgb16); }
void mix_ayuy2_rgb32_i_ajust(JobPlanes& planes, Job& job) { mix_rgb_interlaced(planes, job, Format::kRgb32); }
void mix_ayuy2_rgb24_i_ajust(JobPlanes& planes, Job& job) { mix_rgb_interlaced(planes, job, Format::kRgb24); }
void mix_ayuy2_rgb16_i_ajust(JobPlanes& planes, Job& job) { mix_rgb_interlaced(planes, job, Format::kRgb16); }

} // namespace model
