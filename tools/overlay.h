// SPDX-License-Identifier: MIT
// A screen whose hardware shows the video wherever the screen holds the key colour.
#pragma once
#include "tools/geometry.h"
#include "tools/rgb_image.h"
#include "tools/stats.h"
#include <optional>
#include <vsurf.h>

namespace player {

class Overlay {
public:
    // Every byte of the key is the same, so that it can be set byte by byte, and reads the same from either end.
    static constexpr uint32_t kKeyByte = 16;

    // The part of the screen that this video is to cover.
    Surface& area(const Surface& video);
    void paint_key(Stats& stats);
    // A bar over the top of the video. The part of it that was played, 0 to 1, is open to the video again.
    void paint_bar(std::optional<double> played, Stats& stats);
    // What the viewer sees.
    const RgbImage& over(const RgbImage& video);

private:
    const char* fill(uint32_t byte, int height); // returns the name of the export that did it

    Surface screen_;
    std::vector<uint8_t> mask_; // of the bar: 1 where it was played
    RgbConverter converter_;
    RgbImage seen_;
};

} // namespace player
