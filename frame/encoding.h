// SPDX-License-Identifier: MIT
// The coefficients with which frame/rgb.h makes RGB of YUV.
#pragma once
#include <stdint.h>

namespace vsurf {

// In 1/65536 of their operands: luma above black times 4, U less 128 times 8, V less 128 times 4.
struct RgbEncoding {
    int16_t black, luma, red_v, green_u, green_v, blue_u;
};

// What the exports use.
constexpr RgbEncoding kBt601Limited = {16, 19071, 26149, 3204, 13321, 16532};

} // namespace vsurf
