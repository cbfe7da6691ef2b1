// The player's parts on their own.
#include "tests/player/clip.h"
#include "tools/options.h"
#include "tools/picture.h"
#include "tools/stats.h"
#include <getopt.h>
#include <gtest/gtest.h>

namespace player_test {
namespace {

using player::Controls;
using player::Geometry;
using player::Rectangle;
using player::SurfaceFormat;

TEST(Geometry, is_whole_blocks_and_pairs_of_lines)
{
    const Geometry g = player::plan(853, 479, SurfaceFormat::rgb24, false);
    EXPECT_EQ(g.picture_width, 864);
    EXPECT_EQ(g.picture_height, 480);
    EXPECT_EQ(g.surface_width, 864);
    EXPECT_EQ(g.shown_width, 853);
    EXPECT_EQ(g.shown_height, 479);
    EXPECT_FALSE(g.tight_luma);
}

TEST(Geometry, half_width_takes_yuv_surfaces_alone)
{
    EXPECT_EQ(player::plan(100, 100, SurfaceFormat::rgb16_664, true).surface, SurfaceFormat::yuy2);
    EXPECT_EQ(player::plan(100, 100, SurfaceFormat::yv12, true).surface, SurfaceFormat::yv12);
    EXPECT_EQ(player::plan(17, 100, SurfaceFormat::yv12, true).picture_width, 32);
    EXPECT_EQ(player::plan(17, 100, SurfaceFormat::yv12, true).shown_width, 9);
}

TEST(Geometry, has_more_lines_than_the_yuy2_loader_refuses)
{
    EXPECT_EQ(player::plan(16, 1, SurfaceFormat::yuy2, false).surface_height, 10);
    EXPECT_EQ(player::plan(16, 11, SurfaceFormat::yuy2, false).surface_height, 12);
}

TEST(Geometry, fits_into_the_middle)
{
    EXPECT_EQ(player::fit(2.0, 400, 400), (Rectangle{0, 100, 400, 200}));
    EXPECT_EQ(player::fit(0.5, 400, 400), (Rectangle{100, 0, 200, 400}));
    EXPECT_EQ(player::fit(4.0 / 3, 640, 480), (Rectangle{0, 0, 640, 480}));
    EXPECT_EQ(player::fit(1000, 20, 20), (Rectangle{0, 9, 20, 1}));
}

TEST(Surface, has_aligned_lines_and_planes)
{
    for (std::size_t i = 0; i < player::kFormatTraits.size(); i++) {
        player::Surface surface;
        surface.shape(static_cast<SurfaceFormat>(i), 48, 10, 40, 9);
        EXPECT_EQ(surface.pitch() % 64, 0);
        EXPECT_GE(surface.pitch(), 48 * player::kFormatTraits[i].bytes_per_pixel);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(surface.bytes()) % 64, 0U);
        if (surface.format() != SurfaceFormat::yv12) continue;
        EXPECT_EQ(reinterpret_cast<uintptr_t>(surface.v_plane()) % 64, 0U);
        EXPECT_EQ(surface.v_plane() - surface.bytes(), 10 * surface.pitch());
        EXPECT_EQ(surface.u_plane() - surface.v_plane(), 5 * surface.chroma_pitch());
        EXPECT_EQ(surface.chroma_pitch() % 64, 0);
    }
}

TEST(Surface, formats_have_names_and_come_round)
{
    SurfaceFormat format = SurfaceFormat::rgb32;
    for (const auto& each : player::kFormatTraits) {
        EXPECT_EQ(player::format_named(each.name), format);
        format = player::next_format(format);
    }
    EXPECT_EQ(format, SurfaceFormat::rgb32);
    EXPECT_FALSE(player::format_named("RGB32"));
}

struct OwnedFrame {
    Yuv samples;
    player::FramePtr frame = player::new_frame();

    // The planes end with their last sample, so that an address sanitizer sees every step beyond it.
    explicit OwnedFrame(Yuv picture) : samples(std::move(picture))
    {
        frame->format = AV_PIX_FMT_YUV420P;
        frame->width = samples.width;
        frame->height = samples.height;
        frame->data[0] = samples.y.data();
        frame->data[1] = samples.u.data();
        frame->data[2] = samples.v.data();
        frame->linesize[0] = samples.width;
        frame->linesize[1] = frame->linesize[2] = samples.chroma_width();
    }
};

TEST(PictureSource, repeats_the_edges_into_the_padding)
{
    for (const bool tight : {false, true}) {
        const OwnedFrame source(noise(35, 13));
        const Geometry geometry = player::plan(35, 13, tight ? SurfaceFormat::yv12 : SurfaceFormat::rgb32, false);
        player::PictureSource padded;
        const player::Planes planes = padded.planes(*source.frame, geometry);
        ASSERT_EQ(planes.width, 48);
        ASSERT_EQ(planes.height, 14);
        EXPECT_EQ(planes.pitch == planes.width, tight);
        for (int line = 0; line < planes.height; line++)
            for (int x = 0; x < planes.width; x++)
                ASSERT_EQ(planes.y[line * planes.pitch + x], source.samples.luma(x, line)) << x << "," << line;
        for (int line = 0; line < planes.height / 2; line++) {
            for (int x = 0; x < planes.width / 2; x++) {
                const auto [u, v] = source.samples.chroma(x, line);
                ASSERT_EQ(planes.u[line * planes.pitch / 2 + x], u) << x << "," << line;
                ASSERT_EQ(planes.v[line * planes.pitch / 2 + x], v) << x << "," << line;
            }
        }
    }
}

TEST(PictureSource, leaves_whole_pictures_where_they_are)
{
    const OwnedFrame source(noise(64, 32));
    player::PictureSource padded;
    const auto planes = padded.planes(*source.frame, player::plan(64, 32, SurfaceFormat::yv12, false));
    EXPECT_EQ(planes.y, source.samples.y.data());
    source.frame->data[1] += 15 * 32; // lines in another order than luma's
    source.frame->linesize[1] = -32;
    EXPECT_NE(padded.planes(*source.frame, player::plan(64, 32, SurfaceFormat::yv12, false)).y,
              source.samples.y.data());
}

TEST(PictureSource, takes_pictures_that_are_stored_upside_down)
{
    const OwnedFrame source(noise(64, 32));
    source.frame->data[0] += 31 * 64;
    source.frame->linesize[0] = -64;
    player::PictureSource padded;
    const auto planes = padded.planes(*source.frame, player::plan(64, 32, SurfaceFormat::rgb32, false));
    EXPECT_EQ(planes.y[0], source.samples.luma(0, 31));
    EXPECT_EQ(planes.y[31 * planes.pitch + 63], source.samples.luma(63, 0));
}

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
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    optind = 0; // from the first word again
    return player::parse_options(static_cast<int>(words.size()), pointers.data());
}

TEST(Options, are_what_the_words_say)
{
    const auto options =
        parse({"--surface", "rgb16-655", "film.mkv", "--contrast=1.5", "--brightness", "-7", "--frames=9"});
    EXPECT_EQ(options.surface, SurfaceFormat::rgb16_655);
    EXPECT_EQ(options.source.file, "film.mkv");
    EXPECT_EQ(options.controls.contrast, 96);
    EXPECT_EQ(options.controls.brightness, -7);
    EXPECT_EQ(options.frames, 9);
    EXPECT_TRUE(options.window);
}

TEST(Options, dump_closes_the_window_unless_it_is_asked_for)
{
    EXPECT_FALSE(parse({"--dump", "d"}).window);
    EXPECT_TRUE(parse({"--dump", "d", "--window"}).window);
    EXPECT_TRUE(parse({}).source.is_pattern());
    EXPECT_EQ(parse({"--size", "33x9"}).source.height, 9);
}

TEST(Stats, name_least_middle_and_mean)
{
    player::Stats stats;
    EXPECT_EQ(stats.summary(), "no pictures");
    for (double each : {4.0, 1.0, 2.0, 9.0}) stats.add(each);
    EXPECT_EQ(stats.summary(), "4 pictures, ms per picture: min 1.000, median 3.000, mean 4.000");
}

} // namespace
} // namespace player_test
