// SPDX-License-Identifier: MIT
// What the samples of a picture mean: matrix and range, as the stream says, or as is usual.
#pragma once
#include "tools/ffmpeg.h"

namespace player {

enum class Matrix { bt601, bt709, bt2020 };

struct Colours {
    Matrix matrix = Matrix::bt601;
    bool full = false; // range
    bool matrix_assumed = false, range_assumed = false;

    bool operator==(const Colours&) const = default;
    bool are_of_exports() const { return matrix == Matrix::bt601 && !full; }
    std::string text() const; // "BT.709 (assumed), limited range"
};

// An RGB frame has those of what it is converted to.
Colours colours_of(const AVFrame& frame);

} // namespace player
