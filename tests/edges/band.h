// SPDX-License-Identifier: MIT
// For tests of the band enlarger: frames whose lines are 48 samples, the least that the function takes, or more.
#pragma once
#include "harness/fixture.h"

namespace harness {

constexpr size_t kBandPitch = 48;

// A frame in which every byte of the first lines is its place.
inline Picture counted_frame()
{
    Picture p;
    for (size_t i = 0; i < Picture::kRoom; ++i) {
        p.y[i] = static_cast<uint8_t>(i + i / 256);
        p.u[i] = static_cast<uint8_t>(3 * i);
        p.v[i] = static_cast<uint8_t>(255 - 3 * i);
    }
    return p;
}

class OnEveryBand : public OnEveryTable {
protected:
    Bytes band(const Picture& p, int field_mode, int start, int lines, size_t bytes,
               int dst_pitch = 2 * static_cast<int>(kBandPitch), int pitch = static_cast<int>(kBandPitch))
    {
        tagVideoFrame frame = {field_mode, plane(p.y), plane(p.u), plane(p.v), pitch};
        return surface_after(
            bytes, [&](uint8_t* dst) { table().strech_opt_yuy2_ajust(&frame, start, lines, dst, dst_pitch, nullptr); });
    }
};

} // namespace harness
