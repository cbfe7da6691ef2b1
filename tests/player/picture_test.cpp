// SPDX-License-Identifier: MIT
// Frames as the loaders may read them.
#include "tests/player/clip.h"
#include "tools/picture.h"
#include <gtest/gtest.h>

namespace player_test {
namespace {

using player::Geometry;
using player::Scaling;
using player::SurfaceFormat;

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
        const Geometry geometry =
            player::plan(35, 13, tight ? SurfaceFormat::yv12 : SurfaceFormat::rgb32, Scaling::none, false);
        player::PictureSource padded;
        const player::Picture planes = padded.take(*source.frame, geometry);
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
    const auto planes = padded.take(*source.frame, player::plan(64, 32, SurfaceFormat::yv12, Scaling::none, false));
    EXPECT_EQ(planes.y, source.samples.y.data());
    source.frame->data[1] += 15 * 32; // lines in another order than luma's
    source.frame->linesize[1] = -32;
    EXPECT_NE(padded.take(*source.frame, player::plan(64, 32, SurfaceFormat::yv12, Scaling::none, false)).y,
              source.samples.y.data());
}

TEST(PictureSource, takes_pictures_that_are_stored_upside_down)
{
    const OwnedFrame source(noise(64, 32));
    source.frame->data[0] += 31 * 64;
    source.frame->linesize[0] = -64;
    player::PictureSource padded;
    const auto planes = padded.take(*source.frame, player::plan(64, 32, SurfaceFormat::rgb32, Scaling::none, false));
    EXPECT_EQ(planes.y[0], source.samples.luma(0, 31));
    EXPECT_EQ(planes.y[31 * planes.pitch + 63], source.samples.luma(63, 0));
}

struct PackedFrame {
    std::string bytes;
    player::FramePtr frame = player::new_frame();

    PackedFrame(const Yuv& picture, int pitch) : bytes(packed_bytes(picture))
    {
        frame->format = AV_PIX_FMT_YUYV422;
        frame->width = picture.width;
        frame->height = picture.height;
        frame->data[0] = reinterpret_cast<uint8_t*>(bytes.data());
        frame->linesize[0] = pitch;
    }
};

TEST(PictureSource, repeats_the_edges_of_yuy2_into_the_padding)
{
    const Yuv samples = noise(35, 13, 1);
    const PackedFrame source(samples, 72);
    player::PictureSource padded;
    const auto picture = padded.take(*source.frame, player::plan(35, 13, SurfaceFormat::rgb24, Scaling::none, true));
    ASSERT_EQ(picture.width, 48);
    ASSERT_EQ(picture.height, 14);
    for (int line = 0; line < picture.height; line++) {
        for (int x = 0; x < picture.width; x++) {
            const uint8_t* pixel = picture.y + 2 * (line * picture.pitch + x);
            ASSERT_EQ(pixel[0], samples.luma(x, line)) << x << "," << line;
            ASSERT_EQ(pixel[1], samples.at(1 + x % 2, x / 2, line)) << x << "," << line;
        }
    }
}

TEST(PictureSource, leaves_whole_yuy2_where_it_is_unless_its_pitch_is_no_pixels)
{
    const PackedFrame source(noise(32, 18, 1), 64);
    source.frame->height = 16;
    player::PictureSource padded;
    auto take = [&](Scaling scaling, int pitch) {
        source.frame->linesize[0] = pitch;
        return padded.take(*source.frame, player::plan(32, 16, SurfaceFormat::yuy2, scaling, true));
    };
    const uint8_t* in_place = source.frame->data[0];
    EXPECT_EQ(take(Scaling::none, 64).y, in_place);
    EXPECT_EQ(take(Scaling::none, 66).y, in_place);
    EXPECT_EQ(take(Scaling::none, 66).pitch, 33);
    EXPECT_NE(take(Scaling::none, 65).y, in_place);
    EXPECT_EQ(take(Scaling::zoom_2x2, 64).y, in_place);
    EXPECT_NE(take(Scaling::zoom_2x2, 66).y, in_place);
}

TEST(PictureSource, pads_a_field_with_its_own_last_line)
{
    const OwnedFrame source(noise(48, 18));
    player::PictureSource padded;
    const auto planes = padded.take(*source.frame, player::plan(48, 18, SurfaceFormat::yuy2, Scaling::field, false));
    ASSERT_EQ(planes.height, 20);
    EXPECT_EQ(planes.y[18 * planes.pitch + 5], source.samples.luma(5, 16));
    EXPECT_EQ(planes.u[9 * planes.pitch / 2 + 5], source.samples.chroma(5, 8)[0]);
}

} // namespace
} // namespace player_test
