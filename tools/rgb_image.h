// SPDX-License-Identifier: MIT
// A surface's shown part as 8-bit R, G, B: for PNG files, and for surfaces that no texture format matches.
#pragma once
#include "tools/ffmpeg.h"
#include "tools/surface.h"
#include <vector>

namespace player {

struct RgbImage {
    int width = 0, height = 0;
    std::vector<uint8_t> bytes; // R, G, B, lines without gaps
};

class RgbConverter {
public:
    const RgbImage& convert(const Surface& surface);

private:
    void convert_yuv(const Surface& surface);

    RgbImage image_;
    FramePtr rgb_;
    ScalerPtr scaler_;
};

} // namespace player
