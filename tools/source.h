// SPDX-License-Identifier: MIT
// What is played: a file, standard input, or a test pattern.
#pragma once
#include "tools/interrupt.h"

namespace player {

struct Source {
    std::string file; // empty: the test pattern
    int width = 1280, height = 720;
    double seconds = 10;
    // What a file without a header does not say of itself, in FFmpeg's words: -f, -video_size and -pixel_format, which
    // also shapes the pattern. Empty: FFmpeg finds out.
    std::string format, frame_size, pixel_format;
    const char* content = "a video"; // what it should be, for messages

    static constexpr int kPatternRate = 25;

    bool is_pattern() const { return file.empty(); }
    bool is_standard_input() const { return file == "-"; }
    std::string name() const;
};

// With the streams' parameters found. What reads the file later can be interrupted, too.
FormatPtr open(const Source& source, Interrupt& interrupt);

} // namespace player
