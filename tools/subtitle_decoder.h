// SPDX-License-Identifier: MIT
// The text subtitles of a file as the events of an ASS script.
#pragma once
#include "tools/ffmpeg.h"
#include <cstdint>
#include <vector>

namespace player {

struct SubtitleEvent {
    int64_t start, duration; // in milliseconds
    std::string line;        // "ReadOrder,Layer,Style,Name,MarginL,MarginR,MarginV,Effect,Text"
};

// The stream of track `track`, counted from 1; for 0 the text track that the file marks as default, else its first.
// Throws Error where there is none, or where it holds pictures. `name` is the file's, for messages.
int choose_subtitles(const AVFormatContext& file, int track, const std::string& name);

class SubtitleDecoder {
public:
    SubtitleDecoder(const AVStream& stream, const std::string& name);

    const std::string& header() const { return header_; } // of the script: styles, and what its coordinates mean
    std::vector<SubtitleEvent> decode(AVPacket& packet);
    int64_t damaged() const { return damaged_; } // packets that could not be decoded

private:
    AVRational time_base_;
    CodecPtr codec_; // none where packets are lines of a script already
    std::string header_;
    int64_t damaged_ = 0;
};

} // namespace player
