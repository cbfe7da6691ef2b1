// SPDX-License-Identifier: MIT
// Subpictures mixed onto single fields in YUY2: which lines of the field each line is made from, and where all are.
#include "edges/mix.h"

namespace {

using harness::Bytes;
using harness::flat_lines;
using harness::part;
using harness::Region;
using harness::yuy2_from;

constexpr auto kMix = &vsurf::Kernels::mix_ayuy2_yuy2_i_ajust;

class MixYuy2Field : public harness::OnEveryMix {};

TEST_P(MixYuy2Field, heights_below_four_touch_neither_surface_nor_record)
{
    for (const int height : {3, 2, 1, 0, -1, -4, -8, INT32_MIN}) {
        const MIX_INFO job = record({16, height, 16, 16, 32});
        expect_record(run(kMix, job), job);
        EXPECT_EQ(surface, Bytes(kRoom, kUntouched)) << height;
    }
}

TEST_P(MixYuy2Field, heights_from_eight_are_rounded_up_to_four_lines_and_count_down_to_0)
{
    constexpr std::pair<int, int> kLines[] = {{4, 4},  {5, 4},   {6, 4},   {7, 4},   {8, 8},
                                              {9, 12}, {11, 12}, {12, 12}, {13, 16}, {16, 16}};
    for (const auto& [height, lines] : kLines) {
        SCOPED_TRACE(height);
        surface.assign(kRoom, kUntouched);
        const MIX_INFO job = record({16, height, 22, 18, 50});
        MIX_INFO expected = moved(job, {11 * lines / 4, 18 * lines, 9 * lines});
        expected.height = 0;
        expect_record(run(kMix, job), expected);
        harness::expect_lines_written(surface, static_cast<size_t>(lines), 32, 50);
    }
}

TEST_P(MixYuy2Field, each_line_takes_its_lines_of_the_field)
{
    picture_y = flat_lines(112, {10, 21, 40, 61, 80, 101, 255});
    picture_u = picture_v = flat_lines(56, {100, 121, 150, 255});
    const std::pair<uint8_t, uint8_t> lines[] = {{10, 100}, {16, 100}, {21, 111}, {31, 111}, {40, 121},  {51, 121},
                                                 {61, 136}, {71, 136}, {80, 150}, {91, 150}, {101, 150}, {101, 150}};
    const Bytes mixed = drawn(kMix, {112, 12, 112, 112, 224});
    for (size_t k = 0; k < 12; ++k) {
        const auto& [luma, chroma] = lines[k];
        EXPECT_EQ(part(mixed, 224 * k, 224), harness::flat_yuy2(112, luma, chroma, chroma)) << k;
    }
}

TEST_P(MixYuy2Field, four_lines_read_two_luma_lines_and_one_chroma_line)
{
    picture_y = flat_lines(16, {10, 20});
    picture_u = picture_v = flat_lines(8, {100});
    y = flat_lines(16, {0, 0, 0, 0});
    u = v = flat_lines(8, {0, 0, 0, 0});
    alpha = flat_lines(16, {0, 8, 0, 8});
    const Bytes mixed = drawn(kMix, {16, 7, 16, 16, 32});
    EXPECT_EQ(part(mixed, 0, 32), harness::flat_yuy2(16, 10, 100, 100));
    EXPECT_EQ(part(mixed, 32, 32), harness::flat_yuy2(16, 7, 50, 50)); // 15 averaged, then halved
    EXPECT_EQ(part(mixed, 64, 32), harness::flat_yuy2(16, 20, 100, 100));
    EXPECT_EQ(part(mixed, 96, 32), harness::flat_yuy2(16, 10, 50, 50));
}

TEST_P(MixYuy2Field, lines_are_averaged_before_they_are_blended_and_adjusted)
{
    harness::set_adjustment({128, 128}, {-100, 2, 3});
    picture_y = flat_lines(16, {200, 0, 0, 0, 0, 0});
    picture_u = picture_v = flat_lines(8, {200, 0, 0});
    const Bytes mixed = drawn(kMix, {16, 8, 16, 16, 32});
    EXPECT_EQ(part(mixed, 0, 32), harness::flat_yuy2(16, 255, 255, 255)); // 400 - 100
    EXPECT_EQ(part(mixed, 32, 32), harness::flat_yuy2(16, 100, 255, 255));
    EXPECT_EQ(part(mixed, 64, 32), harness::flat_yuy2(16, 0, 202, 203));
    EXPECT_EQ(part(mixed, 128, 32), harness::flat_yuy2(16, 0, 2, 3));
}

TEST_P(MixYuy2Field, the_subpicture_moves_on_by_a_line_and_a_chroma_line)
{
    set_places();
    set_alpha(16);
    for (const size_t pitch : {112U, 113U, 120U}) {
        const Bytes mixed = drawn(kMix, {112, 8, 112, static_cast<int>(pitch), 225});
        for (size_t k = 0; k < 8; ++k) {
            EXPECT_EQ(part(mixed, 225 * k, 224), yuy2_from(y, u, v, {pitch * k, pitch / 2 * k}, 112)) << k;
        }
    }
}

TEST_P(MixYuy2Field, an_odd_pitch_is_rounded_down_for_chroma_only)
{
    set_places();
    const Region region = {16, 8, 33, 21, 67};
    const Bytes picture = drawn(kMix, region);
    const std::pair<size_t, harness::LineAt> lines[] = {{0, {0, 0}}, {4, {66, 16}}, {6, {99, 16}}, {7, {99, 16}}};
    for (const auto& [line, at] : lines) {
        EXPECT_EQ(part(picture, 67 * line, 32), yuy2_from(picture_y, picture_u, picture_v, at)) << line;
    }
    const MIX_INFO job = record(region);
    MIX_INFO expected = moved(job, {2 * 16, 8 * 21, 8 * 10});
    expected.height = 0;
    expect_record(run(kMix, job), expected);
}

TEST_P(MixYuy2Field, a_field_is_read_in_place_at_twice_the_frames_pitch)
{
    picture_y = flat_lines(16, {10, 255, 20, 255, 30, 255, 40, 255});
    picture_u = picture_v = flat_lines(8, {100, 255, 120, 255});
    const Bytes mixed = drawn(kMix, {16, 8, 32, 16, 32});
    const std::pair<uint8_t, uint8_t> lines[] = {{10, 100}, {15, 100}, {20, 110}, {25, 110},
                                                 {30, 120}, {35, 120}, {40, 120}, {40, 120}};
    for (size_t k = 0; k < 8; ++k) {
        const auto& [luma, chroma] = lines[k];
        EXPECT_EQ(part(mixed, 32 * k, 32), harness::flat_yuy2(16, luma, chroma, chroma)) << k;
    }
}

// At a width of 20 each line takes 32 pixels and leaves every pointer 12 pixels further.
class MixYuy2FieldDrift : public MixYuy2Field {
protected:
    static constexpr Region kRegion = {20, 8, 40, 36, 100};
};

TEST_P(MixYuy2FieldDrift, the_subpicture_and_the_surface_drift_with_every_line)
{
    set_places();
    set_alpha(16);
    const Bytes mixed = drawn(kMix, kRegion);
    for (size_t k = 0; k < 8; ++k) {
        EXPECT_EQ(part(mixed, 124 * k, 64), yuy2_from(y, u, v, {48 * k, 24 * k}, 32)) << k;
    }
}

TEST_P(MixYuy2FieldDrift, the_picture_drifts_with_every_line_as_well)
{
    set_places();
    const Bytes mixed = drawn(kMix, kRegion);
    // Lines that are not averages: 12 luma and 6 chroma samples further for each line before them.
    const std::pair<size_t, harness::LineAt> lines[] = {
        {0, {0, 0}}, {4, {48 + 80, 24 + 20}}, {6, {72 + 120, 36 + 20}}, {7, {84 + 120, 42 + 20}}};
    for (const auto& [line, at] : lines) {
        EXPECT_EQ(part(mixed, 124 * line, 64), yuy2_from(picture_y, picture_u, picture_v, at, 32)) << line;
    }
    // Line 1 averages bytes 40 apart of a plane that counts up: 20 more than its first.
    for (size_t i = 0; i < 32; ++i) EXPECT_EQ(mixed[124 + 2 * i], picture_y[12 + 20 + i]) << i;
    const MIX_INFO job = record(kRegion);
    MIX_INFO expected = moved(job, {8 * 6 + 2 * 20, 8 * 48, 8 * 24});
    expected.height = 0;
    expect_record(run(kMix, job), expected);
}

TEST_P(MixYuy2FieldDrift, blocks_are_counted_in_whole_pairs_of_pixels)
{
    constexpr struct {
        int width, blocks;
    } kWidths[] = {{0, 1}, {1, 1}, {16, 1}, {17, 1}, {18, 2}, {31, 2}, {33, 2}, {34, 3}};
    for (const auto& [width, blocks] : kWidths) {
        SCOPED_TRACE(width);
        MIX_INFO job = record({width, 4, 64, 64, 128});
        job.picture_y += 64; // Odd widths drift to the left.
        surface.assign(kRoom, kUntouched);
        const int luma = 16 * blocks - width, chroma = 8 * blocks - width / 2;
        MIX_INFO expected = moved(job, {4 * chroma + 32, 4 * (luma + 64), 4 * (chroma + 32)});
        expected.height = 0;
        expect_record(run(kMix, job), expected);
        const size_t end = static_cast<size_t>(3 * (128 + 2 * luma) + 32 * blocks);
        EXPECT_NE(surface[end - 1], kUntouched);
        EXPECT_EQ(part(surface, end, kRoom - end), Bytes(kRoom - end, kUntouched));
    }
}

VSURF_ON_EVERY_TABLE(MixYuy2Field);
VSURF_ON_EVERY_TABLE(MixYuy2FieldDrift);

} // namespace
