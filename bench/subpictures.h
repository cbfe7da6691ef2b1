// SPDX-License-Identifier: MIT
// The measured exports that deal with subpictures and colour keys.
#pragma once
#include "bench/exports.h"

namespace bench {

constexpr unsigned kFillColour = 0x10101010; // equal bytes, as peers can fill a surface of any kind with

std::vector<Group> mixer_groups();
std::vector<Group> subpicture_groups(); // preparation, drawing, fills

} // namespace bench
