// SPDX-License-Identifier: MIT
// From rows to the surface: what is done for each of its formats.
#pragma once
#include "show/strips.h"

namespace vsurf::VSURF_ISA {

// Where a part of a pair of lines goes.
struct Place {
    uint8_t* line[2];   // pixels or luma
    uint8_t* chroma[2]; // planes: U and V, or both in the first; packed pixels: of each line
};

struct BgrRows {
    const uint8_t *b, *g, *r;
};

// What a call writes with: a writer for each plane.
struct Output {
    int surface; // vsurf_format
    AnyEncoding encoding;
    Writer* writers;
};

struct SurfaceSink {
    // Whole blocks are read behind the rows' ends where they are shorter than 32 pixels. Packed rows are only for
    // formats of R, G and B, and are of an even number of pixels.
    void (*write)(const Output& output, const Rows& rows, const Place& to, ptrdiff_t pixels);
    // A line of pixels that have been made in strips; null where pixels have no R, G and B.
    void (*write_bgr)(const Output& output, const BgrRows& rows, uint8_t* to, ptrdiff_t pixels);
    int bytes;   // of a pixel; 1: chroma has planes of its own
    bool paired; // of which one has both samples
};
const SurfaceSink& sink_of(int surface);

} // namespace vsurf::VSURF_ISA
