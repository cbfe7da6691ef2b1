// SPDX-License-Identifier: MIT
// The plain plane enlarger, and the YV12 pictures that the adjusted ones make.
#include "harness/fixture.h"

#include <algorithm>

namespace {

using harness::Bytes;
using harness::flat_lines;
using harness::part;
using harness::Picture;
using vsurf::Kernels;

class Planes : public harness::OnEveryTable {
protected:
    Bytes doubled(const Bytes& src, Size size, size_t bytes)
    {
        return surface_after(bytes, [&](uint8_t* dst) {
            table().strech_pic_2X2(plane(src), dst, size.width, size.height, size.y_pitch, size.dst_pitch);
        });
    }

    static void fill(Bytes& bytes, long from, long count, uint8_t value)
    {
        std::fill_n(bytes.begin() + from, count, value);
    }

    // A packed YV12 surface of 8 lines, of one value each for Y, V and U, and what follows it.
    static Bytes planes(size_t width, const Bytes& y_v_u, size_t bytes)
    {
        Bytes image(width * 8, y_v_u[0]);
        image.resize(width * 10, y_v_u[1]);
        image.resize(width * 12, y_v_u[2]);
        image.resize(bytes, kUntouched);
        return image;
    }
};

TEST_P(Planes, the_first_strip_skips_the_last_line_and_writes_the_one_below_it)
{
    const Bytes surface = doubled(flat_lines(16, {0, 255}), {16, 2, 16, 32}, 6 * 32);
    Bytes expected = flat_lines(32, {0, 128, 255, kUntouched, kUntouched, kUntouched});
    fill(expected, 3 * 32 + 16, 16, 255);
    fill(expected, 4 * 32, 16, 255);
    EXPECT_EQ(surface, expected);
}

TEST_P(Planes, every_strip_but_the_last_leaves_the_gap)
{
    const Bytes surface = doubled(flat_lines(24, {0, 255}), {24, 2, 24, 48}, 6 * 48);
    Bytes expected = flat_lines(48, {0, 128, 255, kUntouched, kUntouched, kUntouched});
    fill(expected, 3 * 48 + 32, 16, 255);
    fill(expected, 4 * 48, 32, 255);
    EXPECT_EQ(surface, expected);
}

TEST_P(Planes, gaps_and_copies_do_not_reach_into_the_padding)
{
    const Bytes surface = doubled(flat_lines(45, {0, 100, 200, 100}), {40, 4, 45, 101}, 10 * 101);
    const Bytes values = {0, 50, 100, 150, 200, 150, 100};
    Bytes expected(10 * 101, kUntouched);
    for (long line = 0; line < 7; ++line) fill(expected, line * 101, 80, values[static_cast<size_t>(line)]);
    fill(expected, 7 * 101 + 64, 16, 100);
    fill(expected, 8 * 101, 64, 100);
    EXPECT_EQ(surface, expected);
}

TEST_P(Planes, averages_round_up_and_the_last_sample_is_its_own_neighbour)
{
    Bytes line = {10, 11, 255, 254, 0, 0, 1, 200, 100, 100, 100, 100, 100, 100, 100, 40};
    const Bytes expected = {10,  11,  11,  133, 255, 255, 254, 127, 0,   0,   0,   1,   1,   101, 200, 150,
                            100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 70,  40,  40};
    line.insert(line.end(), line.begin(), line.end());
    const Bytes surface = doubled(line, {16, 2, 16, 32}, 5 * 32);
    for (size_t at : {0u, 32u, 64u}) EXPECT_EQ(part(surface, at, 32), expected);
}

// Each of the two averages rounds up by itself.
TEST_P(Planes, a_sample_between_four_is_rounded_twice)
{
    Bytes plane(32, 0);
    plane[1] = 1;
    EXPECT_EQ(part(doubled(plane, {16, 2, 16, 32}, 5 * 32), 32, 4), (Bytes{0, 1, 1, 1}));
}

TEST_P(Planes, there_are_never_less_than_two_strips)
{
    const Bytes source = harness::counting(64);
    const Bytes two = doubled(source, {16, 2, 32, 64}, 400);
    for (const int width : {0, 1, 8, 9, 15}) EXPECT_EQ(doubled(source, {width, 2, 32, 64}, 400), two) << width;
    EXPECT_EQ(part(two, 32, 32), Bytes(32, kUntouched));
    const Bytes three = doubled(source, {17, 2, 32, 64}, 400);
    EXPECT_EQ(three[47], 23);
    EXPECT_EQ(three[48], kUntouched);
}

TEST_P(Planes, height_one_works_as_two_and_lowers_the_strips_that_follow)
{
    const Bytes surface = doubled(flat_lines(16, {0, 100, 255}), {16, 1, 16, 32}, 7 * 32);
    const Bytes left = {0, 50, 100, kUntouched, 100, kUntouched, kUntouched};
    const Bytes right = {kUntouched, kUntouched, 100, 178, 255, 255, kUntouched};
    for (size_t line = 0; line < 7; ++line) {
        EXPECT_EQ(part(surface, 32 * line, 16), Bytes(16, left[line])) << line;
        EXPECT_EQ(part(surface, 32 * line + 16, 16), Bytes(16, right[line])) << line;
    }
}

TEST_P(Planes, yv12_gives_v_the_offset_of_u_and_every_plane_the_gain_of_luma)
{
    const Entry both_ways = &Kernels::strech_picture_2X2_yv12_ajust, down = &Kernels::strech_picture_1X2_yv12_ajust;
    harness::set_adjustment({64, 1}, {0, 10, 0});
    EXPECT_EQ(load(both_ways, Picture(20, 30, 40), {32, 4, 32, 64}, 800), planes(64, {20, 50, 30}, 800));
    EXPECT_EQ(load(down, Picture(20, 30, 40), {32, 4, 32, 32}, 400), planes(32, {20, 50, 30}, 400));
    harness::set_adjustment({128, 1}, {1, 0, 10});
    EXPECT_EQ(load(both_ways, Picture(20, 30, 40), {32, 4, 32, 64}, 800), planes(64, {41, 80, 70}, 800));
    EXPECT_EQ(load(down, Picture(20, 30, 40), {32, 4, 32, 32}, 400), planes(32, {41, 80, 70}, 400));
}

TEST_P(Planes, yv12_places_u_a_quarter_of_the_luma_bytes_behind_v)
{
    const Bytes image = load(&Kernels::strech_picture_1X2_yv12_ajust, Picture(20, 30, 40), {32, 4, 32, 80}, 1000);
    EXPECT_EQ(image[7 * 80], kUntouched);              // the last luma line, whose samples lie
    EXPECT_EQ(part(image, 6 * 80, 64), Bytes(64, 20)); // behind those of the line above
    for (size_t line = 0; line < 3; ++line) {
        EXPECT_EQ(part(image, 640 + 40 * line, 16), Bytes(16, 40));
        EXPECT_EQ(part(image, 800 + 40 * line, 16), Bytes(16, 30));
    }
    EXPECT_EQ(image[639], kUntouched);
    EXPECT_EQ(image[799], kUntouched);
}

VSURF_ON_EVERY_TABLE(Planes);

} // namespace
