// SPDX-License-Identifier: MIT
// What the measured pictures show.
#pragma once
#include <cstdint>
#include <span>

#include "bench/picture.h"

namespace bench {

constexpr uint8_t kSelected = 0x5A; // by a mask

void make_noise(std::span<uint8_t> memory);
// Shading, a disc, slanted bars and a faint grain; the same scene at every size. A mask selects everything.
void make_natural(const Layout& layout, const Picture& picture);

// The share of the luma groups of four samples, away from the lines' ends, that differ from those of the line below by
// more than 32 in sum: the groups that an edge-directed enlarger has to search.
double edge_share(const Layout& layout, const Picture& picture);

} // namespace bench
