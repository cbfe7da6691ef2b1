// SPDX-License-Identifier: MIT
// vsurf-play: a video through vsurf's loaders, in a window or as PNG files.
#include "tools/error.h"
#include "tools/player.h"
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <exception>
#include <unistd.h>
#include <vsurf_show.h>
extern "C" {
#include <libavutil/log.h>
}

namespace {

constexpr int kFailure = 2;

// One line, whatever a file name holds.
void complain(std::string what)
{
    std::replace_if(
        what.begin(), what.end(), [](unsigned char c) { return c < ' ' || c == 127; }, '?');
    std::fprintf(stderr, "vsurf-play: %s\n", what.c_str());
}

// One file after the other, and those that are dropped onto the window. What is wrong with one keeps none of the others
// from being played. False where anything was wrong.
bool play(player::Options options)
{
    av_log_set_level(AV_LOG_QUIET);
    player::StopSignals stop;
    std::deque<std::string> files(options.files.begin(), options.files.end());
    if (files.empty()) files.emplace_back();
    bool good = true;
    for (bool quit = false; !files.empty() && !quit && !stop.pending(); files.pop_front()) {
        options.source.file = files.front();
        try {
            player::Player player(options, stop);
            player.run();
            quit = player.quit();
            if (!player.dropped_file().empty()) files.insert(files.begin() + 1, player.dropped_file());
        } catch (const std::exception& error) {
            if (files.size() == 1) throw;
            complain(error.what());
            good = false;
        }
    }
    return good;
}

void flush_output()
{
    if (std::fflush(stdout) != 0 || std::ferror(stdout))
        throw player::Error(std::string("standard output: ") + std::strerror(errno));
}

// The library chooses when it is loaded: the program starts anew, with its environment variable set.
void use_isa(const std::string& wanted, char** argv)
{
    constexpr const char* kVariable = "VSURF_ISA";
    if (wanted.empty() || wanted == vsurf_show_isa()) return;
    const char* before = std::getenv(kVariable);
    if (!before || wanted != before) {
        setenv(kVariable, wanted.c_str(), 1);
        execv("/proc/self/exe", argv);
    }
    throw player::Error("--isa " + wanted + ": this processor, or the library that was built, does not have it");
}

} // namespace

int main(int argc, char** argv)
try {
    const player::Options options = player::parse_options(argc, argv);
    use_isa(options.isa, argv);
    bool good = true;
    if (options.text.empty()) good = play(options);
    else std::fputs(options.text.c_str(), stdout);
    flush_output();
    return good ? 0 : kFailure;
} catch (const std::bad_alloc&) {
    complain("out of memory");
    return kFailure;
} catch (const std::exception& error) {
    complain(error.what());
    return kFailure;
}
