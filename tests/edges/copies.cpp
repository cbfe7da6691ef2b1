// SPDX-License-Identifier: MIT
// The two loaders that only move samples, with the bytes that they leave, repeat or write over.
#include "harness/fixture.h"

namespace {

using harness::Bytes;
using harness::Picture;
using vsurf::Kernels;

class Copies : public harness::OnEveryTable {
protected:
    Copies()
    {
        picture_.y = harness::counting(Picture::kRoom);
        picture_.u = Bytes(Picture::kRoom, 0xC0);
        picture_.v = Bytes(Picture::kRoom, 0xD0);
        for (size_t i = 0; i < 8; ++i) {
            picture_.u[i] = static_cast<uint8_t>(0xE0 + i);
            picture_.v[i] = static_cast<uint8_t>(0xF0 + i);
        }
    }

    Picture picture_;
};

TEST_P(Copies, yuy2_leaves_four_pixels_of_each_block_of_the_second_line)
{
    constexpr int kWidth = 112; // steps of 64, 32 and 16 pixels, where there are such
    constexpr size_t kLine = 2 * kWidth;
    const Bytes surface = load(&Kernels::loadimage_yuy2, picture_, {kWidth, 4, kWidth, kLine}, 4 * kLine);
    for (size_t at = 0; at < surface.size(); ++at) {
        const size_t line = at / kLine, in_block = at % kLine % 32;
        const bool left = line % 2 == 1 && in_block < 8;
        if (left) {
            EXPECT_EQ(surface[at], kUntouched) << at;
        } else if (at % 2 == 0) {
            EXPECT_EQ(surface[at], picture_.y[at / 2]) << at;
        } else {
            EXPECT_NE(surface[at], kUntouched) << at;
        }
    }
}

TEST_P(Copies, yuy2_lines_of_a_pass_share_their_chroma)
{
    const Bytes surface = load(&Kernels::loadimage_yuy2, picture_, {16, 2, 16, 32}, 64);
    EXPECT_EQ(harness::part(surface, 0, 8), (Bytes{0, 0xE0, 1, 0xF0, 2, 0xE1, 3, 0xF1}));
    // Pixels 4 and 5 of both lines: the second line has these, not its first ones.
    EXPECT_EQ(harness::part(surface, 8, 4), (Bytes{4, 0xE2, 5, 0xF2}));
    EXPECT_EQ(harness::part(surface, 32 + 8, 4), (Bytes{16 + 4, 0xE2, 16 + 5, 0xF2}));
}

TEST_P(Copies, yv12_places_chroma_one_byte_early)
{
    const Bytes surface = load(&Kernels::loadimage_yv12, picture_, {16, 2, 16, 16}, 80);
    EXPECT_EQ(harness::part(surface, 0, 31), harness::counting(31)); // both luma lines except the last byte
    EXPECT_EQ(surface[31], 0xF0);                                    // V over it
    // V would be 31 to 46, two lines of eight; U comes from 39 on, and V's second line is stored after U's first.
    EXPECT_EQ(harness::part(surface, 31, 8), harness::part(picture_.v, 0, 8));
    EXPECT_EQ(harness::part(surface, 39, 8), Bytes(8, 0xD0));
    EXPECT_EQ(harness::part(surface, 47, 8), Bytes(8, 0xC0));
    EXPECT_EQ(harness::part(surface, 55, 25), Bytes(25, kUntouched));
}

TEST_P(Copies, yv12_places_u_a_quarter_of_the_luma_bytes_behind_v)
{
    const Bytes surface = load(&Kernels::loadimage_yv12, picture_, {16, 2, 16, 32}, 160);
    EXPECT_EQ(harness::part(surface, 63, 8), harness::part(picture_.v, 0, 8)); // V at 2 * 32 - 1
    EXPECT_EQ(harness::part(surface, 79, 8), Bytes(8, 0xD0));                  // V's second line, stored over U's first
    EXPECT_EQ(harness::part(surface, 95, 8), Bytes(8, 0xC0));                  // U's second line, so U starts at 79
    EXPECT_EQ(surface[103], kUntouched);
}

TEST_P(Copies, yv12_second_luma_line_comes_from_width_not_from_the_pitch)
{
    const Bytes surface = load(&Kernels::loadimage_yv12, picture_, {16, 2, 40, 64}, 512);
    EXPECT_EQ(harness::part(surface, 64, 16), harness::counting(16, 16));
}

TEST_P(Copies, yv12_second_pass_reads_far_on_and_writes_beside_the_first)
{
    const int width = 16, y_pitch = 20, dst_pitch = 64;
    const Bytes surface = load(&Kernels::loadimage_yv12, picture_, {width, 4, y_pitch, dst_pitch}, 1024);
    const int second = 2 * y_pitch + 2 * dst_pitch - width;
    EXPECT_EQ(harness::part(surface, 0, 16), harness::counting(16));
    EXPECT_EQ(harness::part(surface, 16, 16), harness::counting(16, second));
    EXPECT_EQ(harness::part(surface, 64 + 16, 16), harness::counting(16, second + 16));
    EXPECT_EQ(harness::part(surface, 32, 32), Bytes(32, kUntouched));
    EXPECT_EQ(harness::part(surface, 128, 127), Bytes(127, kUntouched)); // up to V, at 4 * 64 - 1
    EXPECT_EQ(surface[255], 0xF0);
}

TEST_P(Copies, yv12_copies_as_many_chroma_lines_as_the_picture_has_lines)
{
    picture_.u = harness::counting(Picture::kRoom);
    picture_.v = harness::counting(Picture::kRoom, 100);
    const Bytes surface = load(&Kernels::loadimage_yv12, picture_, {16, 4, 16, 256}, 2048);
    const size_t v = 4 * 256 - 1, u = v + 256;
    for (size_t line = 0; line < 4; ++line) { // V's third line is on U's first, and is older than U's second pass
        EXPECT_EQ(harness::part(surface, u + 128 * line, 8),
                  line < 2 ? harness::counting(8, 100 + 8 * static_cast<int>(line + 2))
                           : harness::counting(8, 8 * static_cast<int>(line)));
    }
    EXPECT_EQ(harness::part(surface, v, 8), harness::counting(8, 100));
    EXPECT_EQ(harness::part(surface, v + 128, 8), harness::counting(8, 108));
}

VSURF_ON_EVERY_TABLE(Copies);

} // namespace
