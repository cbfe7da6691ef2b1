// SPDX-License-Identifier: MIT
// Mixers onto YV12 surfaces: plane by plane.
#include "model/job.h"

#include <array>

namespace model {
namespace {

// How far a pointer moves with a line, beyond the blocks of that line.
struct Steps {
    int32_t alpha, subpicture, surface;
    int32_t picture, picture_of_pair; // the latter after the upper line of two that are made from one
};

struct PlaneWalk {
    Pointer picture, subpicture, alpha, surface;
    Steps steps;
    int32_t width, height; // of the plane, in samples
    int32_t line_below;    // of the picture
    int alphas;            // to a sample, which takes the last of them
    int16_t gain, offset;
    bool adjusted;
};

void mix_block(PlaneWalk& at, bool between)
{
    const Pointer below = between ? at.picture.plus(at.line_below) : at.picture;
    std::array<uint8_t, 16> alpha{};
    for (int i = 0; i < 8 * at.alphas; ++i) alpha[static_cast<size_t>(i)] = at.alpha[i];
    std::array<uint8_t, 8> out{};
    for (int k = 0; k < 8; ++k) {
        const size_t last = static_cast<size_t>(at.alphas * (k + 1) - 1);
        const uint8_t mixed = blend(average(at.picture[k], below[k]), at.subpicture[k], alpha[last]);
        out[static_cast<size_t>(k)] = at.adjusted ? adjust(mixed, at.gain, at.offset) : mixed;
    }
    for (int k = 0; k < 8; ++k) at.surface.store(k, out[static_cast<size_t>(k)]);
    at.picture.advance(8);
    at.subpicture.advance(8);
    at.alpha.advance(8 * at.alphas);
    at.surface.advance(8);
}

void mix_line(PlaneWalk& at, bool between, int32_t picture_step)
{
    Counter columns(at.width);
    do mix_block(at, between);
    while (columns.more_after(8));
    at.picture.advance(picture_step);
    at.subpicture.advance(at.steps.subpicture);
    at.alpha.advance(at.steps.alpha);
    at.surface.advance(at.steps.surface);
}

void mix_plane(PlaneWalk at, bool interlaced)
{
    Counter lines(at.height);
    do {
        if (interlaced) mix_line(at, false, at.steps.picture_of_pair);
        mix_line(at, interlaced, at.steps.picture);
    } while (lines.more_after(interlaced ? 2 : 1));
}

PlaneWalk luma_walk(JobPlanes& planes, const Job& job, bool adjusted)
{
    const int32_t w = job.width;
    const int32_t subpicture = wrap(int64_t{job.subpicture_pitch} - w);
    return {
        .picture = Pointer(planes.picture_y),
        .subpicture = Pointer(planes.y),
        .alpha = Pointer(planes.alpha),
        .surface = Pointer(planes.surface),
        .steps = {.alpha = subpicture,
                  .subpicture = subpicture,
                  .surface = wrap(int64_t{job.surface_pitch} - w),
                  .picture = wrap(int64_t{job.picture_pitch} - w),
                  .picture_of_pair = wrap(-int64_t{w})},
        .width = w,
        .height = job.height,
        .line_below = job.picture_pitch,
        .alphas = 1,
        .gain = job.state.luma_gain,
        .offset = job.state.luma_offset,
        .adjusted = adjusted,
    };
}

// The planes of one of the two colours.
struct Colour {
    Plane &picture, &subpicture, &surface;
    int16_t offset;
};

// By the record's width before it is halved, and its height after.
PlaneWalk chroma_walk(JobPlanes& planes, const Colour& colour, const Job& job, int32_t w, bool adjusted)
{
    const int32_t half = shift_logical(w, 1);
    return {
        .picture = Pointer(colour.picture),
        .subpicture = Pointer(colour.subpicture),
        .alpha = Pointer(planes.alpha),
        .surface = Pointer(colour.surface),
        .steps = {.alpha = wrap(2 * int64_t{job.subpicture_pitch} - w),
                  .subpicture = wrap(int64_t{job.subpicture_pitch} - half),
                  .surface = shift_arithmetic(wrap(int64_t{job.surface_pitch} - w), 1),
                  .picture = shift_arithmetic(wrap(int64_t{job.picture_pitch} - w), 1),
                  .picture_of_pair = -half},
        .width = half,
        .height = job.height,
        .line_below = shift_logical(job.picture_pitch, 1),
        .alphas = 2,
        .gain = job.state.chroma_gain,
        .offset = colour.offset,
        .adjusted = adjusted,
    };
}

void mix_planes(JobPlanes& planes, Job& job, bool interlaced, bool adjusted)
{
    const int32_t width = job.width;
    mix_plane(luma_walk(planes, job, adjusted), interlaced);
    job.height = shift_logical(job.height, 1);
    if (interlaced) job.width = shift_logical(job.width, 1);
    const Colour v{planes.picture_v, planes.v, planes.surface_v, job.state.v_offset};
    const Colour u{planes.picture_u, planes.u, planes.surface_u, job.state.u_offset};
    for (const Colour& colour : {v, u}) mix_plane(chroma_walk(planes, colour, job, width, adjusted), interlaced);
}

} // namespace

void mix_ayv12_yv12_p(JobPlanes& planes, Job& job) { mix_planes(planes, job, false, false); }
void mix_ayv12_yv12_p_ajust(JobPlanes& planes, Job& job) { mix_planes(planes, job, false, true); }
void mix_ayv12_yv12_i(JobPlanes& planes, Job& job) { mix_planes(planes, job, true, false); }

} // namespace model
