// SPDX-License-Identifier: MIT
// Controls, options and statistics on their own.
#include "tools/options.h"
#include "tools/stats.h"
#include <gtest/gtest.h>

namespace player_test {
namespace {

using player::Controls;
using player::Scaling;
using player::SurfaceFormat;

TEST(Controls, leave_mid_grey_and_neutral_colours_alone)
{
    for (int gain : {0, 1, 31, 64, 100, Controls::kMaxGain}) {
        Controls controls;
        controls.contrast = controls.saturation = gain;
        const ajust_contrast_info info = controls.parameters();
        EXPECT_EQ((128 * info.y_gain >> 6) + info.y_offset_a + info.y_offset_b, 128);
        EXPECT_EQ((128 * info.uv_gain >> 6) + info.u_offset_a + info.u_offset_b, 128);
        EXPECT_EQ((128 * info.uv_gain >> 6) + info.v_offset_a + info.v_offset_b, 128);
        EXPECT_LE(255 * info.y_gain, 65535);
    }
}

TEST(Controls, stop_at_their_ends_and_know_when_they_are_neutral)
{
    Controls controls;
    EXPECT_TRUE(controls.neutral());
    controls.turn_contrast(1000);
    controls.turn_saturation(-1000);
    controls.turn_brightness(-1000);
    EXPECT_EQ(controls.contrast, Controls::kMaxGain);
    EXPECT_EQ(controls.brightness, -Controls::kMaxBrightness);
    EXPECT_TRUE(controls.grey());
    EXPECT_FALSE(controls.neutral());
}

player::Options parse(std::vector<std::string> words)
{
    words.insert(words.begin(), "vsurf-play");
    std::vector<const char*> pointers;
    pointers.reserve(words.size());
    for (const std::string& word : words) pointers.push_back(word.c_str());
    return player::parse_options(static_cast<int>(words.size()), pointers.data());
}

TEST(Options, are_what_the_words_say)
{
    const auto options =
        parse({"--surface", "rgb16-655", "film.mkv", "--contrast=1.5", "--brightness", "-7", "--frames=9"});
    EXPECT_EQ(options.view.surface, SurfaceFormat::rgb16_655);
    EXPECT_EQ(options.source.file, "film.mkv");
    EXPECT_EQ(options.view.controls.contrast, 96);
    EXPECT_EQ(options.view.controls.brightness, -7);
    EXPECT_EQ(options.frames, 9);
    EXPECT_EQ(parse({"--brightness", "+5"}).view.controls.brightness, 5);
    EXPECT_TRUE(options.window);
}

TEST(Options, dump_closes_the_window_unless_it_is_asked_for)
{
    EXPECT_FALSE(parse({"--dump", "d"}).window);
    EXPECT_TRUE(parse({"--dump", "d", "--window"}).window);
    EXPECT_TRUE(parse({}).source.is_pattern());
    EXPECT_EQ(parse({"--size", "33x9"}).source.height, 9);
}

TEST(Options, choose_a_scaling_and_describe_a_file)
{
    EXPECT_EQ(parse({}).view.scaling, Scaling::none);
    EXPECT_EQ(parse({"--half"}).view.scaling, Scaling::half_width);
    EXPECT_EQ(parse({"--zoom", "1x2"}).view.scaling, Scaling::zoom_1x2);
    EXPECT_EQ(parse({"--zoom=2x2"}).view.scaling, Scaling::zoom_2x2);
    EXPECT_EQ(parse({"--field"}).view.scaling, Scaling::field);
    const auto options = parse({"--format", "rawvideo", "--pixel-format=yuyv422", "--video-size", "33x9", "clip.yuy2"});
    EXPECT_EQ(options.source.format, "rawvideo");
    EXPECT_EQ(options.source.pixel_format, "yuyv422");
    EXPECT_EQ(options.source.frame_size, "33x9");
}

TEST(Options, choose_subtitles)
{
    EXPECT_FALSE(parse({}).subtitles.wanted);
    const auto file = parse({"--subtitles", "a.srt"}).subtitles;
    EXPECT_TRUE(file.wanted);
    EXPECT_EQ(file.file, "a.srt");
    EXPECT_EQ(file.track, 0);
    EXPECT_EQ(parse({"--subtitle-track", "2", "film.mkv"}).subtitles.track, 2);
    const auto own = parse({"--subtitle-track=default", "--overlay", "--subpicture-alone", "film.mkv"});
    EXPECT_TRUE(own.subtitles.wanted && own.subtitles.file.empty());
    EXPECT_EQ(own.subtitles.track, 0);
    EXPECT_TRUE(own.view.overlay && own.view.alone && own.view.subtitles);
}

TEST(Stats, name_least_middle_and_mean_of_every_export)
{
    player::Stats stats;
    EXPECT_EQ(stats.lines(), std::vector<std::string>{"no pictures"});
    for (double each : {4.0, 1.0, 2.0, 9.0}) stats.add("b", each);
    stats.time([] { return "a"; });
    ASSERT_EQ(stats.lines().size(), 2U);
    EXPECT_TRUE(stats.lines()[0].starts_with("a: 1 picture, ms per picture: min 0.")) << stats.lines()[0];
    EXPECT_EQ(stats.lines()[1], "b: 4 pictures, ms per picture: min 1.000, median 3.000, mean 4.000");
}

} // namespace
} // namespace player_test
