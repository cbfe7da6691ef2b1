// SPDX-License-Identifier: MIT
// Overlays: which columns they touch, and how they are blended onto lines in strips.
#pragma once
#include "show/strips.h"

namespace vsurf::VSURF_ISA {

struct Columns {
    ptrdiff_t from, end; // of the rectangle; equal: none
};

// What overlays touch of a pair of lines, in whole steps of the grid: what is left on either side is none or at least
// one step.
Columns touched_columns(const Plan& plan, ptrdiff_t line);

// A line from column x on, already in B, G and R.
void blend_bgr(const Plan& plan, ptrdiff_t line, ptrdiff_t x, ptrdiff_t pixels, uint8_t* b, uint8_t* g, uint8_t* r);

// A pair of lines, or the last one, from column x on. `rows` are in strips. Either both lines have the same chroma, or
// each has its own.
void blend_yuv(const Plan& plan, ptrdiff_t line, ptrdiff_t x, ptrdiff_t pixels, Strips& strips, bool two,
               bool own_chroma);

} // namespace vsurf::VSURF_ISA
