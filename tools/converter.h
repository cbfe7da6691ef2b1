// SPDX-License-Identifier: MIT
// Any decoded pixel format as one that the library knows, with the colours that it has.
#pragma once
#include "tools/ffmpeg.h"

namespace player {

class Converter {
public:
    // The frame itself where the library knows its format (4:2:0 in planes or half interleaved, packed 4:2:2), else one
    // in planes that is valid until the next call.
    const AVFrame& to_known(const AVFrame& frame);

private:
    struct Kind {
        int width = 0, height = 0, format = -1;
        bool full_range = false;
        bool operator==(const Kind&) const = default;
    };
    void prepare(const Kind& kind);
    void add_neutral_chroma(const AVFrame& grey);

    Kind kind_;
    FramePtr padded_, converted_;
    ScalerPtr scaler_;
};

} // namespace player
