// SPDX-License-Identifier: MIT
// Clips with subtitle tracks in them.
#pragma once
#include "tests/player/image.h"
#include <string>
#include <vector>

namespace player_test {

struct Track {
    enum class Kind { script, plain, pictures };

    Kind kind;
    std::string header; // of a script
    struct Event {
        int start, duration; // in milliseconds
        std::string text;    // of a script: all that follows the times
    };
    std::vector<Event> events;
    bool is_default = false;
};

// The video of one file and subtitles, in a container that its name chooses. All times begin at `start`.
void add_tracks(const std::filesystem::path& from, const std::filesystem::path& to, const std::vector<Track>& tracks,
                int start = 0);

} // namespace player_test
