// SPDX-License-Identifier: MIT
// The picture controls that the viewer turns, and the record that the library takes for them.
#pragma once
#include <vsurf.h>

namespace player {

class Controls {
public:
    static constexpr int kUnity = 64;    // gains are in 1/64
    static constexpr int kMaxGain = 255; // 255 * 257 is the last product that fits 16 bits
    static constexpr int kMaxBrightness = 255;

    int brightness = 0; // added to luma
    int contrast = kUnity, saturation = kUnity;

    void turn_brightness(int by);
    void turn_contrast(int by);
    void turn_saturation(int by);

    bool neutral() const { return *this == Controls{}; }
    bool grey() const { return saturation == 0; }
    ajust_contrast_info parameters() const;
    bool operator==(const Controls&) const = default;
};

} // namespace player
