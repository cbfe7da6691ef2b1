// SPDX-License-Identifier: MIT
// The test pattern: FFmpeg's moving one, and a still card with edges in every direction.
#pragma once
#include "tools/source.h"

namespace player {

// The pattern of the source's size, length and pixel format as a filter graph.
std::string pattern(const Source& source);

} // namespace player
