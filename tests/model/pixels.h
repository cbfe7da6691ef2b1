// SPDX-License-Identifier: MIT
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

// The pixel as a number whose low byte comes first in memory, and such numbers there.
uint32_t packed(const Rgb& pixel, PixelFormat format);
uint32_t read_number(const Pointer& from, int bytes);
void store_number(Pointer to, uint64_t number, int bytes);

// Eight chroma pairs and the sixteen pixels of one line that take them.
using Luma16 = std::array<uint8_t, 16>;
using Terms8 = std::array<ChromaTerms, 8>;

void store_pixels(Pointer to, const Luma16& luma, const Terms8& terms, PixelFormat format);

// Their samples as they are read, adjusted where there is a state.
Luma16 read_luma(const Pointer& y, const State* adjustment);
Terms8 read_terms(const Pointer& u, const Pointer& v, const State* adjustment);

} // namespace model
