// SPDX-License-Identifier: MIT
// vsurf-play: a video through vsurf's loaders, in a window or as PNG files.
#include "tools/player.h"
#include <algorithm>
#include <cstdio>
#include <exception>
extern "C" {
#include <libavutil/log.h>
}

namespace {

constexpr int kFailure = 2;

void play(const player::Options& options)
{
    av_log_set_level(AV_LOG_QUIET);
    player::StopSignals stop;
    player::Player(options, stop).run();
}

// One line, whatever a file name holds.
void complain(std::string what)
{
    std::replace_if(
        what.begin(), what.end(), [](unsigned char c) { return c < ' ' || c == 127; }, '?');
    std::fprintf(stderr, "vsurf-play: %s\n", what.c_str());
}

} // namespace

int main(int argc, char** argv)
try {
    const player::Options options = player::parse_options(argc, argv);
    switch (options.action) {
    case player::Options::Action::help: std::fputs(player::help_text().c_str(), stdout); break;
    case player::Options::Action::version: std::fputs(player::version_text().c_str(), stdout); break;
    case player::Options::Action::play: play(options); break;
    }
    return 0;
} catch (const std::bad_alloc&) {
    complain("out of memory");
    return kFailure;
} catch (const std::exception& error) {
    complain(error.what());
    return kFailure;
}
