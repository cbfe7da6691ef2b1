// SPDX-License-Identifier: MIT
// Showing a picture, pixel by pixel.
#pragma once
#include "show/vsurf_show.h"

#include <cstdint>

namespace model {

// What a job shows: of the picture from (crop_x, crop_y), on the surface from (x, y).
struct ShownSize {
    int width, height;
};
ShownSize shown_size(const vsurf_job& job);

// Lines of the rectangle.
struct Lines {
    int first, end;
};
Lines band_lines(const vsurf_job& job, int band, int bands);

// Shows a band of a job that has no mistake.
void show(const vsurf_job& job, int band = 0, int bands = 1);

} // namespace model
