// SPDX-License-Identifier: MIT
// The adjusted plane enlargers: a picture one line too low, a last line that is lost, a copy that lands in the padding.
#include "harness/fixture.h"

#include <algorithm>

namespace {

using harness::Bytes;
using harness::counting;
using harness::flat_lines;
using vsurf::Kernels;

class PlanesAdjusted : public harness::OnEveryTable {
protected:
    using AdjustedEntry = void (*Kernels::*)(unsigned char*, unsigned char*, int, int, int, int, ajust_contrast_info*,
                                             int);

    Bytes enlarged(AdjustedEntry entry, const Bytes& src, Size size, size_t bytes, int plane_number = 1)
    {
        return surface_after(bytes, [&](uint8_t* dst) {
            (table().*entry)(plane(src), dst, size.width, size.height, size.y_pitch, size.dst_pitch, nullptr,
                             plane_number);
        });
    }

    Bytes both_ways(const Bytes& src, Size size, size_t bytes)
    {
        return enlarged(&Kernels::strech_pic_2X2_adjust, src, size, bytes);
    }

    Bytes down(const Bytes& src, Size size, size_t bytes)
    {
        return enlarged(&Kernels::strech_pic_1X2_adjust, src, size, bytes);
    }

    // Samples that count up, doubled: each average is rounded up to the next sample.
    static Bytes ramp(int first, size_t bytes)
    {
        Bytes doubled(bytes);
        for (size_t i = 0; i < bytes; ++i) doubled[i] = static_cast<uint8_t>(first + static_cast<int>((i + 1) / 2));
        return doubled;
    }

    static void put(Bytes& surface, long at, const Bytes& bytes)
    {
        std::copy(bytes.begin(), bytes.end(), surface.begin() + at);
    }
};

TEST_P(PlanesAdjusted, down_a_packed_plane)
{
    const Bytes surface = down(flat_lines(16, {10, 21, 40, 81}), {16, 4, 16, 16}, 9 * 16);
    EXPECT_EQ(surface, flat_lines(16, {10, 10, 16, 21, 31, 40, 40, 40, kUntouched}));
}

TEST_P(PlanesAdjusted, down_with_padding_puts_the_last_line_behind_the_one_before)
{
    Bytes expected(240, kUntouched);
    put(expected, 0, counting(16));
    put(expected, 40, counting(16));
    put(expected, 80, counting(16, 10));
    put(expected, 120, counting(16, 20));
    put(expected, 160, counting(16, 20));
    put(expected, 176, counting(16, 20)); // and nothing at 200
    EXPECT_EQ(down(counting(60), {16, 3, 20, 40}, 240), expected);
}

TEST_P(PlanesAdjusted, down_a_width_of_24_closes_each_line_with_a_block_that_ends_at_its_end)
{
    Bytes expected(7 * 24, kUntouched);
    long line = 0;
    for (const int first : {0, 0, 12, 24, 24, 24}) put(expected, 24 * line++, counting(24, first));
    EXPECT_EQ(down(counting(72), {24, 3, 24, 24}, 7 * 24), expected);
}

TEST_P(PlanesAdjusted, down_a_width_of_8_takes_a_whole_block_and_a_closing_one)
{
    Bytes expected(256, kUntouched);
    put(expected, 0, counting(8));
    put(expected, 64, counting(24));      // 0 to 15, then 8 to 23
    put(expected, 128, counting(24, 16)); // averages with what is 32 further
    put(expected, 128, counting(8));
    put(expected, 136, counting(8));
    EXPECT_EQ(down(counting(64), {8, 2, 32, 64}, 256), expected);
}

TEST_P(PlanesAdjusted, height_one_works_as_two)
{
    const Bytes source = counting(100);
    EXPECT_EQ(down(source, {16, 1, 20, 40}, 240), down(source, {16, 2, 20, 40}, 240));
    EXPECT_EQ(both_ways(source, {16, 1, 16, 40}, 240), both_ways(source, {16, 2, 16, 40}, 240));
}

// The neighbour of a line's last sample is the first of the next line.
TEST_P(PlanesAdjusted, both_ways_never_shows_the_last_line_of_a_packed_plane)
{
    Bytes source = flat_lines(16, {10, 20, 200});
    source.push_back(0);
    Bytes expected = flat_lines(32, {10, 10, 15, 20, 20, 20, kUntouched});
    const Bytes ends = {15, 15, 63, 110, 110, 110};
    for (size_t line = 0; line < 6; ++line) expected[32 * line + 31] = ends[line];
    EXPECT_EQ(both_ways(source, {16, 3, 16, 32}, 7 * 32), expected);
}

// Rounds start at 0 and 16; the end steps back by 20 from 32, and again from the end of the line it did.
TEST_P(PlanesAdjusted, both_ways_goes_on_by_the_width_and_looks_down_by_the_pitch)
{
    Bytes expected(400, kUntouched);
    put(expected, 0, ramp(0, 32));
    put(expected, 72, ramp(0, 32));
    put(expected, 144, ramp(10, 32));
    put(expected, 216, ramp(16, 32));
    put(expected, 288, ramp(12, 32));
    put(expected, 320, ramp(8, 32)); // right behind, not at 360
    EXPECT_EQ(both_ways(counting(100), {16, 3, 20, 72}, 400), expected);
}

// 16 samples are doubled, and the last 16 are not; the next round starts 8 bytes early.
TEST_P(PlanesAdjusted, both_ways_a_width_of_24_closes_with_samples_that_are_not_doubled)
{
    Bytes expected(400, kUntouched);
    put(expected, 0, ramp(0, 48));
    put(expected, 64, ramp(0, 24));
    put(expected, 88, counting(16, 8));
    put(expected, 128, ramp(12, 24));
    put(expected, 152, counting(16, 20));
    put(expected, 184, ramp(24, 24));
    put(expected, 208, counting(16, 32));
    put(expected, 240, ramp(24, 48)); // over the second round's averages
    put(expected, 288, ramp(24, 48));
    EXPECT_EQ(both_ways(counting(100), {24, 3, 24, 64}, 400), expected);
}

TEST_P(PlanesAdjusted, both_ways_a_width_of_8_takes_two_blocks_and_a_closing_one)
{
    Bytes expected(256, kUntouched);
    put(expected, 0, ramp(0, 16));
    put(expected, 64, ramp(0, 24));
    put(expected, 88, counting(16, 8));
    put(expected, 128, ramp(4, 24));
    put(expected, 152, ramp(0, 16)); // the round ended 24 bytes further than a packed one
    put(expected, 168, ramp(0, 16));
    EXPECT_EQ(both_ways(counting(64), {8, 2, 8, 64}, 256), expected);
}

// The chroma of a picture 16 wide. Two blocks are more than a line of the surface holds: the second block of the upper
// line goes over the first of the lower one.
TEST_P(PlanesAdjusted, both_ways_a_packed_width_of_8_stores_block_by_block)
{
    Bytes expected(128, kUntouched);
    put(expected, 0, ramp(0, 16));
    put(expected, 16, ramp(0, 16));
    put(expected, 32, ramp(8, 8));
    put(expected, 40, counting(16, 8));
    put(expected, 56, ramp(0, 16));
    put(expected, 72, ramp(0, 16));
    EXPECT_EQ(both_ways(counting(64), {8, 2, 8, 16}, 128), expected);
}

TEST_P(PlanesAdjusted, samples_are_averaged_before_they_are_adjusted)
{
    harness::set_adjustment({128, 0}, {-100, 0, 0});
    EXPECT_EQ(down(flat_lines(16, {200, 0, 0}), {16, 3, 16, 16}, 96), flat_lines(16, {255, 255, 100, 0, 0, 0}));
    Bytes source(49, 0);
    for (size_t i = 0; i < source.size(); i += 2) source[i] = 200;
    const Bytes wide = both_ways(source, {16, 2, 16, 32}, 128);
    for (size_t i = 0; i < wide.size(); ++i) EXPECT_EQ(wide[i], i % 4 == 0 ? 255 : i % 4 == 2 ? 0 : 100) << i;
}

TEST_P(PlanesAdjusted, each_plane_number_chooses_an_offset_and_none_another_gain)
{
    harness::set_adjustment({128, 1}, {1, 2, 3});
    const Bytes source(64, 20);
    for (const AdjustedEntry entry : {&Kernels::strech_pic_2X2_adjust, &Kernels::strech_pic_1X2_adjust}) {
        for (const int number : {1, 2, 3}) {
            const Bytes surface = enlarged(entry, source, {16, 2, 16, 32}, 128, number);
            EXPECT_EQ(harness::part(surface, 0, 16), Bytes(16, static_cast<uint8_t>(40 + number)));
        }
    }
}

VSURF_ON_EVERY_TABLE(PlanesAdjusted);

} // namespace
