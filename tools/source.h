// What is played: a file, standard input, or FFmpeg's test pattern.
#pragma once
#include "tools/ffmpeg.h"

namespace player {

struct Source {
    std::string file; // empty: the test pattern
    int width = 1280, height = 720;
    double seconds = 10;

    static constexpr int kPatternRate = 25;

    bool is_pattern() const { return file.empty(); }
    bool is_standard_input() const { return file == "-"; }
    std::string name() const;
};

// With the streams' parameters found.
FormatPtr open(const Source& source);

} // namespace player
