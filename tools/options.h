// SPDX-License-Identifier: MIT
// The command line.
#pragma once
#include "tools/decode_thread.h"
#include "tools/view.h"
#include <filesystem>
#include <optional>

namespace player {

struct Options {
    std::string text;               // of help or version, where these are wanted and nothing else
    std::vector<std::string> files; // one after the other; none: the test pattern
    Source source;                  // the first of them
    View view;
    SubtitleChoice subtitles;
    SoundChoice sound;
    bool mute = false;
    std::optional<std::filesystem::path> dump;
    std::optional<int64_t> frames;
    std::optional<double> start, end; // seconds
    int threads = 1;
    bool window = true;
    bool loop = false, stats = false, quiet = false;
    std::string isa; // empty: the best
};

// Throws Error with one line of what is wrong.
Options parse_options(int argc, const char* const* argv);

} // namespace player
