// SPDX-License-Identifier: MIT
// What the planes of a case show.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace harness {

enum class Content {
    kNoise,
    kExtremes, // black, white, and the values around which arithmetic turns
    kNear,     // noise so faint that four samples differ by about 32 in total
    kLevels,   // three levels 32 apart: sums of differences tie, and hit 32
    kStripes,  // edges, hard and soft, that run diagonally for most pitches
    kMask,     // runs of 0, of 255 and of noise
    kSprites,  // words of noise whose last byte, the alpha, is 0, 255 or anything: runs of each

    // Alphas, on their scale of 0 to 16 or beyond it.
    kTransparent, // 0 throughout
    kWeights,     // 0 to 16
    kSubtitle,    // transparent stretches and drawn ones, of every length and alignment
    kDots,        // single samples far apart
    kOpaque,      // 16 throughout
    kStray,       // 0 to 16, except single samples beyond
    kHalfScale,   // 0 to 127
    kBeyond,      // 200 throughout
};

const char* name(Content content);

std::vector<uint8_t> bytes_of(Content content, size_t size);

} // namespace harness
