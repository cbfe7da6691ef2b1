// SPDX-License-Identifier: MIT
// Only a subpicture on an RGB surface, the key colour where it is transparent.
#include "model/job.h"
#include "model/pixels.h"

#include <algorithm>

namespace model {
namespace {

// Sixteen bits know the key as it stands and full transparency only; the wider formats reverse the bytes of the key
// and take alpha as a signed number.
uint32_t drawn(const Rgb& colour, uint8_t alpha, uint32_t key, PixelFormat pixels)
{
    if (pixels.format == Format::kRgb16) return alpha == 0 ? key & 0xFFFF : packed(colour, pixels);
    if (alpha == 0) return (key & 0xFF) << 16 | (key & 0xFF00) | (key >> 16 & 0xFF);
    return static_cast<int8_t>(alpha) < 0 ? 0 : packed(colour, pixels);
}

struct Walk {
    Pointer alpha, y, u, v, surface;
};

void draw_block(Walk& at, uint32_t key, PixelFormat pixels, const State* adjustment)
{
    const Luma16 luma = read_luma(at.y, adjustment);
    const Terms8 terms = read_terms(at.u, at.v, adjustment);
    const int bytes = bytes_per_pixel(pixels.format);
    for (size_t i = 0; i < luma.size(); ++i) {
        store_number(at.surface, drawn(to_rgb(luma[i], terms[i / 2]), at.alpha[0], key, pixels), bytes);
        at.surface.advance(bytes);
        at.alpha.advance(1);
    }
    at.y.advance(16);
    at.u.advance(8);
    at.v.advance(8);
}

void draw(JobPlanes& planes, const Job& job, Format format, bool adjusted)
{
    PixelFormat pixels{format, 0};
    if (format == Format::kRgb16) {
        pixels.layout = static_cast<uint32_t>(job.contrast_info->rgb16_layout);
        if (pixels.layout > 3) return;
    }
    Walk at{Pointer(planes.alpha), Pointer(planes.y), Pointer(planes.u), Pointer(planes.v), Pointer(planes.surface)};
    const int32_t length = job.picture_pitch; // irregular: in pixels, whatever the width
    for (int32_t lines = std::max(job.height, 1); lines > 0; --lines) {
        Counter columns(length);
        do draw_block(at, job.color_key, pixels, adjusted ? &job.state : nullptr);
        while (columns.more_after(16));
        at.surface.advance(wrap(job.surface_pitch - int64_t{bytes_per_pixel(format)} * length));
    }
}

} // namespace

void load_subpicture_yuy2_rgb32(JobPlanes& planes, Job& job) { draw(planes, job, Format::kRgb32, false); }
void load_subpicture_yuy2_rgb24(JobPlanes& planes, Job& job) { draw(planes, job, Format::kRgb24, false); }
void load_subpicture_yuy2_rgb16(JobPlanes& planes, Job& job) { draw(planes, job, Format::kRgb16, false); }
void load_subpicture_yuy2_rgb32_ajust(JobPlanes& planes, Job& job) { draw(planes, job, Format::kRgb32, true); }
void load_subpicture_yuy2_rgb24_ajust(JobPlanes& planes, Job& job) { draw(planes, job, Format::kRgb24, true); }
void load_subpicture_yuy2_rgb16_ajust(JobPlanes& planes, Job& job) { draw(planes, job, Format::kRgb16, true); }

} // namespace model
