// SPDX-License-Identifier: MIT
// The packets of an audio stream as chunks that the loudspeaker takes.
#pragma once
#include "tools/ffmpeg.h"
#include "tools/sound.h"
#include <cstdint>

extern "C" {
#include <libswresample/swresample.h>
}

namespace player {

using ResamplerPtr = std::unique_ptr<SwrContext, ReleaseByAddress<swr_free>>;

class AudioDecoder {
public:
    // A stream that no decoder is there for stays silent.
    AudioDecoder(const AVStream& stream, std::shared_ptr<Sound> sound);

    void take(AVPacket& packet, double speed);
    void jumped();                               // what comes next does not follow what came last
    int64_t damaged() const { return damaged_; } // packets

private:
    struct Kind {
        int rate = 0, format = -1, channels = 0;
        double speed = 1;
        bool operator==(const Kind&) const = default;
    };
    void prepare(AVFrame& frame, const Kind& kind);
    void put(AVFrame& frame, double speed);

    AVRational time_base_;
    std::shared_ptr<Sound> sound_;
    CodecPtr codec_;
    FramePtr frame_ = new_frame();
    Kind kind_;
    ResamplerPtr resampler_;
    double next_ = 0; // time of a frame that has none
    int64_t damaged_ = 0;
};

// The streams of a kind, in the file's order.
std::vector<int> streams_of(const AVFormatContext& file, AVMediaType type);

} // namespace player
