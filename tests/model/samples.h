// SPDX-License-Identifier: MIT
// What happens to single samples: the picture adjustment, the conversion to RGB, the pixel formats.
#pragma once
#include "frame/vsurf.h"

#include <cstdint>

namespace model {

// The adjustment that a record describes: only the low 16 bits of its fields count, and the addends wrap.
struct State {
    int16_t luma_gain = 0;
    int16_t chroma_gain = 0;
    int16_t luma_offset = 0;
    int16_t u_offset = 0;
    int16_t v_offset = 0;
};

State state_from(const ajust_contrast_info& record);

uint8_t adjust(uint8_t sample, int16_t gain, int16_t offset);

uint8_t average(uint8_t a, uint8_t b); // rounded up

// A subpicture's sample over a picture's: weights in sixteenths, which 16-bit lanes carry beyond that scale too.
uint8_t blend(uint8_t picture, uint8_t subpicture, uint8_t alpha);

// The four terms that a chroma pair contributes; every luma sample that shares the pair uses them.
struct ChromaTerms {
    int16_t gu, bu, gv, rv;
};

struct Rgb {
    uint8_t r, g, b;
};

ChromaTerms chroma_terms(uint8_t u, uint8_t v);
Rgb to_rgb(uint8_t y, const ChromaTerms& chroma);

// A 16-bit pixel in layout 0 (5-6-5), 1 (5-5-5 and a zero bit below), 2 (6-6-4) or 3 (6-5-5).
uint16_t rgb16(const Rgb& pixel, uint32_t layout);

} // namespace model
