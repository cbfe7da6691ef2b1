// SPDX-License-Identifier: MIT
// Alpha planes and drawings of subpictures.
#pragma once
#include <vector>

#include "bench/content.h"

namespace bench {

constexpr uint32_t kColorKey = 0x101010; // RGB16 takes the low 16 bits

// Paints the alpha plane or drawing as the access covers it. Where it covers all: at random or, as natural content, in
// smooth steps, because not every library takes the alpha of the same pixel for a pair's chroma.
void make_cover(const Layout& layout, const Picture& picture, Content content);

// Two lines of outlined text near the lower edge, drawn with strokes with smooth edges: 0..16 for each pixel.
std::vector<uint8_t> subtitle_alpha(Size size);

struct Coverage {
    double pixels, blocks; // the share of pixels and of blocks of 16 that are not all 0
};
Coverage coverage_of(const std::vector<uint8_t>& alpha);

} // namespace bench
