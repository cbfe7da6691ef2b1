// Pixels of the RGB surfaces, and the walk along sixteen of them that every RGB writer shares.
#pragma once
#include "model/memory.h"
#include "model/samples.h"

#include <array>

namespace model {

enum class Format { kRgb32, kRgb24, kRgb16 };

struct PixelFormat {
    Format format;
    uint32_t layout; // of 16-bit pixels
};

int bytes_per_pixel(Format format);

// Eight chroma pairs and the sixteen pixels of one line that they serve.
using Luma16 = std::array<uint8_t, 16>;
using Terms8 = std::array<ChromaTerms, 8>;

void store_pixels(Pointer to, const Luma16& luma, const Terms8& terms, PixelFormat format);

} // namespace model
