// SPDX-License-Identifier: MIT
// A subpicture's alpha from the blue of a drawing, and back to one.
#include "model/job.h"
#include "model/pixels.h"

#include <algorithm>

namespace model {
namespace {

struct Walk {
    int pixel_bytes, block;
    bool lowers_height; // in the record
    void (*pixel)(Pointer alpha, Pointer surface);
};

void walk(JobPlanes& planes, Job& job, const Walk& by)
{
    Pointer alpha(planes.alpha), surface(planes.surface);
    const int32_t lines = std::max(job.height, 1);
    for (int32_t line = 0; line < lines; ++line) {
        Counter columns(job.width);
        do {
            for (int i = 0; i < by.block; ++i) {
                by.pixel(alpha, surface);
                alpha.advance(1);
                surface.advance(by.pixel_bytes);
            }
        } while (columns.more_after(static_cast<uint32_t>(by.block)));
        // Irregular: neither the subpicture's pitch nor the whole of what this pitch leaves over.
        alpha.advance(shift_arithmetic(wrap(int64_t{job.picture_pitch} - job.width), 1));
        surface.advance(wrap(job.surface_pitch - int64_t{by.pixel_bytes} * job.width));
    }
    if (by.lowers_height) job.height = wrap(int64_t{job.height} - lines);
}

void restore_32(Pointer alpha, Pointer surface)
{
    alpha.store(0, static_cast<uint8_t>(read_number(surface, 4) & 0xFF));
}

// Irregular: the top one of four bytes, which is the blue of the pixel to the right.
void restore_24(Pointer alpha, Pointer surface) { alpha.store(0, static_cast<uint8_t>(read_number(surface, 4) >> 24)); }

void restore_565(Pointer alpha, Pointer surface)
{
    alpha.store(0, static_cast<uint8_t>(read_number(surface, 2) & 0x1F));
}

template <int bytes> void write(Pointer alpha, Pointer surface) { store_number(surface, alpha[0], bytes); }

} // namespace

void Restore_RGB32_To_Alpha(JobPlanes& planes, Job& job) { walk(planes, job, {4, 8, false, restore_32}); }
void Restore_RGB24_To_Alpha(JobPlanes& planes, Job& job) { walk(planes, job, {3, 8, true, restore_24}); }
void Restore_RGB16_565_To_Alpha(JobPlanes& planes, Job& job) { walk(planes, job, {2, 16, false, restore_565}); }
void load_subpicture_alpha_rgb32(JobPlanes& planes, Job& job) { walk(planes, job, {4, 16, false, write<4>}); }
void load_subpicture_alpha_rgb24(JobPlanes& planes, Job& job) { walk(planes, job, {3, 16, true, write<3>}); }
void load_subpicture_alpha_rgb16_565(JobPlanes& planes, Job& job) { walk(planes, job, {2, 16, false, write<2>}); }

} // namespace model
