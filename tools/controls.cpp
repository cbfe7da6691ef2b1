// SPDX-License-Identifier: MIT
#include "tools/controls.h"
#include <algorithm>

namespace player {

static constexpr int kMidGrey = 128;

void Controls::turn_brightness(int by) { brightness = std::clamp(brightness + by, -kMaxBrightness, kMaxBrightness); }

void Controls::turn_contrast(int by) { contrast = std::clamp(contrast + by, 0, kMaxGain); }

void Controls::turn_saturation(int by) { saturation = std::clamp(saturation + by, 0, kMaxGain); }

// The gains multiply from zero; the offsets move the fixed point to mid-grey: 128 * gain / 64 has no remainder.
ajust_contrast_info Controls::parameters() const
{
    ajust_contrast_info info{};
    info.y_gain = contrast;
    info.uv_gain = saturation;
    info.y_offset_a = kMidGrey - kMidGrey * contrast / kUnity;
    info.y_offset_b = brightness;
    info.u_offset_a = kMidGrey - kMidGrey * saturation / kUnity;
    info.v_offset_a = info.u_offset_a;
    return info;
}

} // namespace player
