// SPDX-License-Identifier: MIT
// Text subtitles, drawn by libass.
#pragma once
#include "tools/ass.h"
#include "tools/source.h"
#include "tools/subtitle_decoder.h"
#include <mutex>
#include <set>
#include <tuple>

namespace player {

// What is shown at one moment, in layers: the first one is at the bottom.
struct SubtitleImages {
    const ASS_Image* first = nullptr;
    bool changed = false; // since the moment before
};

class Subtitles {
public:
    // A track of an opened file, with the fonts that come in the file. `name` is the file's, for messages.
    Subtitles(const AVFormatContext& file, int track, std::string name);

    Subtitles(const Subtitles&) = delete;
    Subtitles& operator=(const Subtitles&) = delete;

    int stream() const { return stream_; }
    // A packet may come again, after a seek: its events count once. From any thread.
    void take(AVPacket& packet);
    bool empty() const;
    // The images are libass's own, valid until the next call.
    SubtitleImages draw(double time, int width, int height, double sample_aspect);
    // What was not drawn, in words; empty where nothing was left out.
    std::string damage() const;

private:
    static void hear(int level, const char* format, va_list values, void* self);
    void add_fonts(const AVFormatContext& file);

    mutable std::mutex mutex_; // of all that packets change
    std::string name_;
    int stream_;
    bool visible_ = false, drawn_ = false, font_missed_ = false;
    SubtitleDecoder decoder_;
    AssLibraryPtr library_;
    AssRendererPtr renderer_;
    AssTrackPtr track_;
    std::set<std::tuple<int64_t, int64_t, std::string>> seen_; // start, duration, what follows the number of the line
};

// A file of subtitles, or of video with subtitles in it, read to its end.
std::unique_ptr<Subtitles> read_subtitles(const Source& source, int track, Interrupt& interrupt);

} // namespace player
