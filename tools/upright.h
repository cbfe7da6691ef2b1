// SPDX-License-Identifier: MIT
// Pictures that were recorded on their side, upside down or mirrored, as they are to be seen.
#pragma once
#include "tools/ffmpeg.h"

extern "C" {
#include <libavfilter/avfilter.h>
}

namespace player {

using GraphPtr = std::unique_ptr<AVFilterGraph, ReleaseByAddress<avfilter_graph_free>>;

class Upright {
public:
    // By what the frame or its stream says of it. True where width and height have changed places.
    bool turn(AVFrame& frame, const AVStream& stream);

private:
    struct Kind {
        const char* filters = "";
        int width = 0, height = 0, format = -1;
        bool operator==(const Kind&) const = default;
    };
    void prepare(const Kind& kind);

    Kind kind_;
    GraphPtr graph_;
    AVFilterContext *source_ = nullptr, *sink_ = nullptr; // the graph's own
};

} // namespace player
