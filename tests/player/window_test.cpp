// SPDX-License-Identifier: MIT
// Whole runs with a window, on SDL's dummy display.
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include "tools/surface.h"
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

namespace player_test {
namespace {

const Arguments kDummy{"SDL_VIDEODRIVER=dummy"};

TEST(DummyDisplay, shows_every_surface_in_every_scaling)
{
    for (const auto& format : player::kFormatTraits) {
        for (const char* size : {"64x48", "35x7"}) {
            SCOPED_TRACE(std::string(format.name) + " " + size);
            const Arguments options{"--surface", format.name, "--size", size, "--frames", "2"};
            for (const Arguments& scaling :
                 {Arguments{}, Arguments{"--half"}, Arguments{"--zoom=1x2"}, Arguments{"--zoom=2x2"},
                  Arguments{"--field"}, Arguments{"--pixel-format=yuyv422"}}) {
                Arguments all = options;
                all.insert(all.end(), scaling.begin(), scaling.end());
                const Result result = play(all, kDummy);
                EXPECT_EQ(result.status, 0) << result.err;
                EXPECT_EQ(result.err, "");
                EXPECT_EQ(result.out, "");
            }
        }
    }
}

TEST(DummyDisplay, keeps_the_pace_of_the_pictures)
{
    const Result result = play({"--size", "64x48", "--seconds", "1"}, kDummy);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_GE(result.seconds, 0.98);
    EXPECT_LT(result.seconds, 10);
}

// A thousand pictures in a second are more than any machine shows; the film takes its time all the same.
TEST(DummyDisplay, leaves_out_late_pictures_and_counts_them)
{
    constexpr int kCount = 500;
    const ScratchDirectory scratch;
    write_y4m(scratch / "clip.y4m", gradient(320, 240), kCount);
    std::string film = contents(scratch / "clip.y4m");
    film.replace(film.find("F25:1"), 5, "F1000:1");
    write_file(scratch / "clip.y4m", film);
    const Result result = play({"--stats", "--zoom", "2x2", "--quiet", (scratch / "clip.y4m").string()}, kDummy);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_GE(result.seconds, 0.45);
    EXPECT_LT(result.seconds, 2.5);
    auto number_behind = [&](const std::string& words) {
        const std::size_t at = result.out.find(words);
        return at == std::string::npos ? -1 : std::atoi(result.out.c_str() + at + words.size());
    };
    const int shown = number_behind("2X2_yuy2: "), dropped = number_behind("late pictures dropped: ");
    EXPECT_GT(dropped, 0);
    EXPECT_GT(shown, 3);
    EXPECT_EQ(shown + dropped, kCount) << result.out;
}

TEST(DummyDisplay, dumps_beside_the_window)
{
    const ScratchDirectory scratch;
    const auto directory = scratch / "pictures";
    const Result result = play({"--size", "64x48", "--frames", "3", "--window", "--dump", directory.string()}, kDummy);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_GE(result.seconds, 0.08);
    EXPECT_EQ(read_png(directory / "picture-000003.png").width, 64);
}

TEST(DummyDisplay, loop_starts_again)
{
    const ScratchDirectory scratch;
    write_y4m(scratch / "clip.y4m", gradient(32, 32), 3);
    for (const Arguments& source :
         {Arguments{(scratch / "clip.y4m").string()}, Arguments{"--seconds", "0.12", "--size", "32x32"}}) {
        Arguments options{"--loop", "--frames", "10", "--stats"};
        options.insert(options.end(), source.begin(), source.end());
        const Result result = play(options, kDummy);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_NE(result.out.find(": 10 pictures,"), std::string::npos) << result.out;
    }
}

TEST(DummyDisplay, termination_leaves_whole_pictures_and_ends_by_the_signal)
{
    const ScratchDirectory scratch;
    const auto directory = scratch / "pictures";
    Process player = start_player({"--window", "--size", "640x480", "--loop", "--dump", directory.string()}, kDummy);
    for (int i = 0; i < 500 && !std::filesystem::exists(directory / "picture-000005.png"); i++)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    player.send(SIGTERM);
    const Result result = player.wait();
    EXPECT_EQ(result.signal, SIGTERM);
    EXPECT_EQ(result.err, "");
    for (const auto& entry : std::filesystem::directory_iterator(directory))
        EXPECT_EQ(read_png(entry.path()).width, 640) << entry.path();
}

} // namespace
} // namespace player_test
