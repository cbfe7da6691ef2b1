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
};

const char* name(Content content);

std::vector<uint8_t> bytes_of(Content content, size_t size);

} // namespace harness
