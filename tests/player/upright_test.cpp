// SPDX-License-Identifier: MIT
// Pictures with a matrix that says how they are to be seen: all eight ways.
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include "tools/ffmpeg.h"
#include "tools/upright.h"
#include <cstring>
#include <gtest/gtest.h>

namespace player_test {
namespace {

struct Way {
    int a, b, c, d; // of the matrix: where one step to the right, and one down, lead
};

constexpr Way kWays[] = {{1, 0, 0, 1}, {-1, 0, 0, 1}, {1, 0, 0, -1}, {-1, 0, 0, -1},
                         {0, 1, 1, 0}, {0, 1, -1, 0}, {0, -1, 1, 0}, {0, -1, -1, 0}};

constexpr int kWidth = 7, kHeight = 5;

player::FramePtr picture(const Way& way)
{
    player::FramePtr frame = player::new_frame();
    frame->format = AV_PIX_FMT_GRAY8;
    frame->width = kWidth;
    frame->height = kHeight;
    EXPECT_GE(av_frame_get_buffer(frame.get(), 0), 0);
    for (int y = 0; y < kHeight; y++)
        for (int x = 0; x < kWidth; x++) frame->data[0][y * frame->linesize[0] + x] = static_cast<uint8_t>(10 * y + x);
    AVFrameSideData* data = av_frame_new_side_data(frame.get(), AV_FRAME_DATA_DISPLAYMATRIX, 9 * sizeof(int32_t));
    const int32_t matrix[9] = {way.a * 65536, way.b * 65536, 0, way.c * 65536, way.d * 65536, 0, 0, 0, 1 << 30};
    std::memcpy(data->data, matrix, sizeof matrix);
    return frame;
}

TEST(Upright, turns_and_mirrors_all_eight_ways)
{
    AVStream stream{};
    player::Upright upright;
    for (const Way& way : kWays) {
        SCOPED_TRACE(std::to_string(way.a) + std::to_string(way.b) + std::to_string(way.c) + std::to_string(way.d));
        const player::FramePtr frame = picture(way);
        const bool on_side = way.b != 0;
        AVCodecParameters parameters{};
        stream.codecpar = &parameters;
        EXPECT_EQ(upright.turn(*frame, stream), on_side);
        ASSERT_EQ(frame->width, on_side ? kHeight : kWidth);
        ASSERT_EQ(frame->height, on_side ? kWidth : kHeight);
        // Steps to the left and up begin at the far edge.
        const int left = way.a < 0 || way.c < 0 ? frame->width - 1 : 0;
        const int top = way.b < 0 || way.d < 0 ? frame->height - 1 : 0;
        for (int q = 0; q < kHeight; q++) {
            for (int p = 0; p < kWidth; p++) {
                const int x = left + way.a * p + way.c * q, y = top + way.b * p + way.d * q;
                EXPECT_EQ(frame->data[0][y * frame->linesize[0] + x], 10 * q + p) << p << "," << q;
            }
        }
    }
}

} // namespace
} // namespace player_test
