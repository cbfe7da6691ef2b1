// SPDX-License-Identifier: MIT
// Any decoded pixel format as 4:2:0 in studio range, which is what the planar loaders take.
#pragma once
#include "tools/ffmpeg.h"

namespace player {

// Packed 4:2:2 in the order and the range of YUY2, which has loaders of its own.
bool is_yuy2(const AVFrame& frame);

class Converter {
public:
    // The frame itself where it fits already, else one that is valid until the next call.
    const AVFrame& to_yuv420p(const AVFrame& frame);

private:
    struct Kind {
        int width = 0, height = 0, format = -1, full_range = 0, colorspace = 0;
        bool operator==(const Kind&) const = default;
    };
    void prepare(const Kind& kind);

    Kind kind_;
    FramePtr converted_;
    ScalerPtr scaler_;
};

} // namespace player
