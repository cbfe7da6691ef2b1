// SPDX-License-Identifier: MIT
// One call of an export for subpictures or colour keys: everything that decides its result.
#pragma once
#include "harness/case.h"
#include "harness/job_exports.h"

namespace harness {

struct JobCase {
    const JobExport* tested = nullptr;
    int picture_pitch = 0, subpicture_pitch = 0, surface_pitch = 0, width = 0, height = 0;
    uint32_t color_key = 0, match = 0;
    int reserved1 = 0, reserved2 = 0;
    bool in_place = false; // the surface is the picture, or the mask
    ajust_contrast_info info = {}, adjustment = {};
    Content picture = Content::kNoise, subpicture = Content::kNoise, alpha = Content::kNoise;
    uint64_t seed = 0; // which stretch of the contents the planes show, and what a conversion's drawing is like
};

std::string describe(const JobCase& c);

// The legal sizes up to a limit.
std::vector<int> widths(const JobExport& tested, int widest);
std::vector<int> heights(const JobExport& tested, int highest);

struct JobPitches {
    Pitch picture, subpicture, surface;
};

JobPitches any_pitches(Random& random);

// Lines of `width` pixels, with pitches of the given kinds as far as they are legal; all else is random.
JobCase job_of(const JobExport& tested, int width, int height, const JobPitches& pitches, Random& random);
JobCase any_job(const JobExport& tested, int width, int height, uint64_t seed);

} // namespace harness
