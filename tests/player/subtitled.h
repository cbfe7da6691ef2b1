// SPDX-License-Identifier: MIT
// Subtitles of known content, and what pictures look like with them: written from what they should be.
#pragma once
#include "tests/player/clip.h"

namespace player_test {

// A rectangle of one colour.
struct Box {
    int left, top, right, bottom;
    Pixel colour;
    int transparency; // 0 to 255, in the words of a script

    int alpha() const; // 0 to 16
    bool holds(int x, int line) const { return x >= left && x < right && line >= top && line < bottom; }
};

// Scripts, events, and what stands before these, for a picture of this size. Times are in hundredths of a second.
std::string script_header(int width, int height);
std::string script_line(const Box& box); // all that follows the times
std::string script(int width, int height, const std::vector<Box>& boxes, int start = 0, int end = 6000);

// Which alpha weights the chroma of a pair of pixels.
enum class ChromaAlpha { odd, average };
// Each line of chroma belongs to the first of the lines that share it. A pair of pixels is touched by one box at most.
Yuv subtitled(const Yuv& picture, const std::vector<Box>& boxes, ChromaAlpha chroma_alpha = ChromaAlpha::odd);

} // namespace player_test
