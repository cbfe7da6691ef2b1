// SPDX-License-Identifier: MIT
// The loaders that halve the width: one averages, the other keeps every second sample.
#include "harness/fixture.h"

namespace {

using harness::Bytes;
using harness::Picture;
using vsurf::Kernels;

class Half : public harness::OnEveryTable {
protected:
    static Picture counted()
    {
        Picture p;
        p.y = harness::counting(Picture::kRoom);
        p.u = harness::counting(Picture::kRoom);
        p.v = harness::counting(Picture::kRoom, 100);
        return p;
    }

    static Bytes odd(int first, int count)
    {
        Bytes bytes;
        for (int i = 0; i < count; ++i) bytes.push_back(static_cast<uint8_t>(first + 2 * i + 1));
        return bytes;
    }
};

TEST_P(Half, yuy2_rounds_the_average_up)
{
    Picture p;
    p.y[0] = 10;
    p.y[1] = 13;
    p.y[2] = 10;
    p.y[3] = 11;
    p.y[4] = 255;
    p.y[5] = 254;
    p.u[0] = 1;
    p.u[1] = 2;
    p.v[0] = 255;
    p.v[1] = 255;
    const Bytes surface = load(&Kernels::loadimage_half_yuy2_ajust, p, {16, 2, 16, 16}, 32);
    EXPECT_EQ(harness::part(surface, 0, 8), (Bytes{12, 2, 11, 255, 255, 128, 16, 128}));
}

TEST_P(Half, yuy2_writes_height_lines_of_width_bytes)
{
    const Bytes surface = load(&Kernels::loadimage_half_yuy2_ajust, Picture(1, 2, 3), {32, 6, 32, 40}, 300);
    for (size_t i = 0; i < surface.size(); ++i) EXPECT_EQ(surface[i] != kUntouched, i / 40 < 6 && i % 40 < 32) << i;
}

TEST_P(Half, yuy2_lines_of_a_pass_share_their_chroma)
{
    const Bytes surface = load(&Kernels::loadimage_half_yuy2_ajust, counted(), {16, 4, 16, 16}, 64);
    for (size_t line = 0; line < 4; ++line) {
        EXPECT_EQ(surface[16 * line], 16 * line + 1);
        EXPECT_EQ(surface[16 * line + 1], 8 * (line / 2) + 1);
        EXPECT_EQ(surface[16 * line + 3], 100 + 8 * (line / 2) + 1);
    }
}

TEST_P(Half, yuy2_averages_before_it_adjusts)
{
    harness::set_adjustment({128, 128}, {-100, -3, 5});
    Picture p;
    p.y[0] = 200; // without its neighbour it would saturate
    p.y[1] = 0;
    p.u[0] = 3;
    p.u[1] = 4;
    p.v[0] = 0;
    p.v[1] = 201;
    const Bytes surface = load(&Kernels::loadimage_half_yuy2_ajust, p, {16, 2, 16, 16}, 32);
    EXPECT_EQ(harness::part(surface, 0, 2), (Bytes{100, 5}));
    EXPECT_EQ(surface[3], 207);
}

TEST_P(Half, yv12_keeps_the_odd_samples)
{
    const Bytes surface = load(&Kernels::loadimage_half_yv12_ajust, counted(), {16, 2, 16, 8}, 64);
    EXPECT_EQ(harness::part(surface, 0, 8), (Bytes{1, 3, 5, 7, 9, 11, 13, 15}));
    EXPECT_EQ(harness::part(surface, 8, 8), (Bytes{17, 19, 21, 23, 25, 27, 29, 31}));
}

TEST_P(Half, yv12_places_v_then_u_by_its_own_height_and_pitch)
{
    const Bytes surface = load(&Kernels::loadimage_half_yv12_ajust, Picture(20, 30, 40), {32, 4, 32, 32}, 256);
    Bytes expected(256, kUntouched);
    for (long line = 0; line < 4; ++line) std::fill_n(expected.begin() + 32 * line, 16, uint8_t{20});
    for (long line = 0; line < 2; ++line) {
        std::fill_n(expected.begin() + 128 + 16 * line, 8, uint8_t{40});
        std::fill_n(expected.begin() + 160 + 16 * line, 8, uint8_t{30});
    }
    EXPECT_EQ(surface, expected);
}

TEST_P(Half, yv12_gives_each_chroma_plane_its_own_offset)
{
    harness::set_adjustment({64, 64}, {0, 1, 2});
    const Bytes surface = load(&Kernels::loadimage_half_yv12_ajust, Picture(20, 30, 40), {32, 2, 32, 16}, 64);
    EXPECT_EQ(surface[32], 42); // V
    EXPECT_EQ(surface[40], 31); // U
}

// Chroma lines of 40: two blocks, source bytes 0 to 31, and a closing one over 24 to 39, written to 12 to 19.
TEST_P(Half, yv12_of_width_80_closes_each_chroma_line_with_a_block_that_ends_at_its_end)
{
    const Bytes surface = load(&Kernels::loadimage_half_yv12_ajust, counted(), {80, 2, 80, 64}, 256);
    EXPECT_EQ(harness::part(surface, 128, 20), odd(100, 20));
    EXPECT_EQ(surface[148], kUntouched);
    EXPECT_EQ(harness::part(surface, 160, 20), odd(0, 20));
}

// Chroma lines of 20: source bytes 0 to 15 to output 0 to 7, then 4 to 19 to 2 to 9.
TEST_P(Half, yv12_of_width_40_overlaps_its_closing_block)
{
    const Bytes surface = load(&Kernels::loadimage_half_yv12_ajust, counted(), {40, 2, 40, 64}, 256);
    EXPECT_EQ(harness::part(surface, 128, 10), odd(100, 10));
    EXPECT_EQ(surface[138], kUntouched);
}

// Chroma lines of 19: the closing block moves by a rounded half, so that it keeps the even samples.
TEST_P(Half, yv12_of_width_38_shifts_its_closing_block_by_a_rounded_half)
{
    const Bytes surface = load(&Kernels::loadimage_half_yv12_ajust, counted(), {38, 2, 38, 64}, 256);
    // Back by 13: source bytes 3 to 18 (kept: 4, 6, ... 18) go to output 1 to 8.
    EXPECT_EQ(harness::part(surface, 128, 9), (Bytes{101, 104, 106, 108, 110, 112, 114, 116, 118}));
    EXPECT_EQ(surface[137], kUntouched);
}

// Chroma lines of 8: source bytes 0 to 15 to output 0 to 7, then 8 to 23 to output 4 to 11.
TEST_P(Half, yv12_of_width_16_reads_beyond_the_chroma_line)
{
    const Bytes surface = load(&Kernels::loadimage_half_yv12_ajust, counted(), {16, 2, 16, 64}, 256);
    EXPECT_EQ(harness::part(surface, 128, 12), odd(100, 12));
    EXPECT_EQ(surface[140], kUntouched);
}

TEST_P(Half, yv12_of_width_zero_converts_one_block_a_plane)
{
    const Bytes surface = load(&Kernels::loadimage_half_yv12_ajust, counted(), {0, 2, 16, 64}, 256);
    EXPECT_EQ(harness::part(surface, 0, 8), odd(0, 8));
    EXPECT_EQ(surface[8], kUntouched);
    EXPECT_EQ(harness::part(surface, 128, 8), odd(100, 8));
    EXPECT_EQ(harness::part(surface, 160, 8), odd(0, 8));
}

VSURF_ON_EVERY_TABLE(Half);

} // namespace
