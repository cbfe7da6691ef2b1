// SPDX-License-Identifier: MIT
// RGB pixels as tests expect them on a surface.
#pragma once
#include "edges/bytes.h"
#include "model/samples.h"

namespace harness {

// The bytes B, G, R and 0, or B, G, R, or the word in layout 0.
inline Bytes packed_pixel(const model::Rgb& pixel, size_t bytes)
{
    const int word = (pixel.r & 0xF8) << 8 | (pixel.g & 0xFC) << 3 | pixel.b >> 3;
    const int number = bytes == 2 ? word : pixel.r << 16 | pixel.g << 8 | pixel.b;
    return little_endian(static_cast<uint64_t>(number), bytes);
}

} // namespace harness
