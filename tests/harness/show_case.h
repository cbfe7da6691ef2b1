// SPDX-License-Identifier: MIT
// One job of vsurf_show: everything that decides its result.
#pragma once
#include "harness/case.h"
#include "show/vsurf_show.h"

#include <string>
#include <vector>

namespace harness {

inline constexpr size_t kMostOverlays = 3;

// The pointers in its records are null until a checker sets them.
struct ShowCase {
    vsurf_picture picture = {};
    vsurf_surface surface = {};
    vsurf_job job = {};
    std::vector<vsurf_overlay> overlays;
    int bands = 1; // as many calls
    int band = -1; // or only this one of them
    Content content = Content::kNoise, overlay_content = Content::kNoise;
    uint64_t seed = 0; // which stretch of the contents each plane shows
};

std::string describe(const ShowCase& c);
const char* name_of_format(int format);

const std::vector<vsurf_format>& picture_formats();
const std::vector<vsurf_format>& surface_formats();

// What may be drawn into a case: all of it unless said otherwise.
struct ShowVariety {
    bool looks = true, overlays = true, margins = true, bands = true;
};

// A rectangle of width x height pixels, all else random.
ShowCase show_case(vsurf_format picture, vsurf_format surface, int width, int height, Random& random,
                   const ShowVariety& variety = {});

} // namespace harness
