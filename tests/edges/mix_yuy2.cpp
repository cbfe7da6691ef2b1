// SPDX-License-Identifier: MIT
// Subpictures mixed onto progressive pictures in YUY2, at full width and at half.
#include "edges/mix.h"

namespace {

using harness::Bytes;
using harness::kWideMix;
using harness::part;
using harness::Region;
using harness::yuy2_from;
using vsurf::Kernels;

constexpr auto kFull = &Kernels::mix_ayuy2_yuy2_p_ajust;
constexpr auto kHalf = &Kernels::mix_ayuy2_half_yuy2_p_ajust;
constexpr auto kField = &Kernels::mix_ayuy2_yuy2_i_ajust;

class MixYuy2 : public harness::OnEveryMix {};

constexpr int kWide = static_cast<int>(kWideMix);
constexpr Region kWideRegion = {kWide, 2, kWide, kWide, 2 * kWide};

TEST_P(MixYuy2, blends_in_sixteenths_and_wraps_beyond_the_scale)
{
    for (const harness::Cycle& cycle : harness::kCycles) {
        const Line line = set_blends(cycle);
        const Bytes expected = yuy2_from(line.luma, line.chroma, line.chroma, {0, 0}, kWideMix);
        const Bytes mixed = drawn(kFull, kWideRegion);
        for (const size_t k : {0U, 1U}) EXPECT_EQ(part(mixed, k * 2 * kWideMix, 2 * kWideMix), expected) << k;
    }
}

TEST_P(MixYuy2, a_field_blends_the_same)
{
    Region four_lines = kWideRegion;
    four_lines.height = 4;
    for (const harness::Cycle& cycle : harness::kCycles) {
        const Line line = set_blends(cycle);
        const Bytes expected = yuy2_from(line.luma, line.chroma, line.chroma, {0, 0}, kWideMix);
        const Bytes mixed = drawn(kField, four_lines);
        // The second line averages two picture lines, which are alike.
        for (const size_t k : {0U, 1U, 2U, 3U}) {
            EXPECT_EQ(part(mixed, k * 2 * kWideMix, 2 * kWideMix), expected) << k;
        }
    }
}

// Every other pixel, and the chroma samples that go with every second of them.
Bytes half_from(const Bytes& luma, const Bytes& cb, const Bytes& cr, harness::LineAt at, size_t pixels = 16)
{
    Bytes line;
    for (size_t k = 0; k < pixels / 4; ++k) {
        const size_t first = at.luma + 4 * k + 1, chroma = at.chroma + 2 * k + 1;
        line.insert(line.end(), {luma[first], cb[chroma], luma[first + 2], cr[chroma]});
    }
    return line;
}

TEST_P(MixYuy2, half_width_blends_the_odd_pixels_and_odd_chroma)
{
    Region region = kWideRegion;
    region.surface_pitch = kWide;
    for (const harness::Cycle& cycle : harness::kCycles) {
        const Line line = set_blends(cycle);
        // Chroma sample 2k + 1 goes with pixel 4k + 3.
        const Bytes expected = half_from(line.luma, line.chroma, line.chroma, {0, 0}, kWideMix);
        const Bytes mixed = drawn(kHalf, region);
        EXPECT_EQ(part(mixed, 0, kWideMix), expected);
        EXPECT_EQ(part(mixed, kWideMix, kWideMix), expected);
    }
}

TEST_P(MixYuy2, alpha_0_is_the_picture_whose_chroma_serves_both_lines)
{
    set_places();
    const Bytes mixed = drawn(kFull, {112, 4, 120, 113, 230});
    const harness::LineAt lines[] = {{0, 0}, {120, 0}, {240, 60}, {360, 60}};
    for (size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(part(mixed, 230 * k, 224), yuy2_from(picture_y, picture_u, picture_v, lines[k], 112)) << k;
    }
}

TEST_P(MixYuy2, alpha_16_is_the_subpicture_with_chroma_of_its_own_on_every_line)
{
    set_places();
    set_alpha(16);
    const Bytes mixed = drawn(kFull, {112, 4, 120, 114, 230});
    for (size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(part(mixed, 230 * k, 224), yuy2_from(y, u, v, {114 * k, 57 * k}, 112)) << k;
    }
}

TEST_P(MixYuy2, each_line_has_its_own_alpha_and_a_pair_its_odd_pixels)
{
    set_picture(100);
    set_subpicture(201);
    alpha = harness::flat_lines(16, {0, 0});
    for (size_t i = 0; i < 16; i += 2) alpha[i] = 16;      // upper line: only even pixels
    for (size_t i = 16 + 1; i < 32; i += 2) alpha[i] = 16; // lower line: only odd pixels
    const Bytes mixed = drawn(kFull, {16, 2, 16, 16, 32});
    for (size_t at = 0; at < 32; at += 4) {
        EXPECT_EQ(part(mixed, at, 4), Bytes({201, 100, 100, 100})) << at;
        EXPECT_EQ(part(mixed, 32 + at, 4), Bytes({100, 201, 201, 201})) << at;
    }
}

TEST_P(MixYuy2, one_pixel_of_the_subpicture_changes_itself_and_the_chroma_of_its_pair_if_odd)
{
    set_picture(100);
    set_subpicture(201);
    for (size_t at = 0; at < 2 * kWideMix; ++at) {
        set_alpha(0);
        alpha[at] = 16;
        Bytes expected(4 * kWideMix, 100);
        expected[2 * at] = 201;
        if (at % 2 == 1) expected[2 * at - 1] = expected[2 * at + 1] = 201;
        ASSERT_EQ(part(drawn(kFull, kWideRegion), 0, 4 * kWideMix), expected) << at;
    }
}

TEST_P(MixYuy2, samples_are_adjusted_after_the_blend)
{
    // Adjusted before it, 200 and 50 would be 255 and 100, and 177 the blend.
    harness::set_adjustment({128, 128}, {-100, -110, -120});
    set_picture(200);
    set_subpicture(50);
    set_alpha(8);
    for (const auto entry : {kFull, kHalf, kField}) {
        const Bytes mixed = drawn(entry, {16, 4, 16, 16, 32});
        for (const size_t at : {0U, 12U, 32U, 44U}) EXPECT_EQ(part(mixed, at, 4), Bytes({150, 140, 150, 130})) << at;
    }
}

TEST_P(MixYuy2, adjusted_products_wrap)
{
    harness::set_adjustment({-64, 300}, {-1000, 0, 0}); // -64 * 1 = 65472: 1023; 219 * 300 = 65700: 164 >> 6
    picture_y.assign(kRoom, 1);
    picture_u.assign(kRoom, 219);
    picture_v.assign(kRoom, 30); // 9000 >> 6 = 140
    for (const auto entry : {kFull, kHalf, kField}) {
        EXPECT_EQ(part(drawn(entry, {16, 4, 16, 16, 32}), 12, 4), Bytes({23, 2, 23, 140}));
    }
}

TEST_P(MixYuy2, an_odd_pitch_is_rounded_down_to_the_lower_line_only)
{
    set_places();
    const Region region = {16, 4, 33, 21, 67};
    const Bytes picture = drawn(kFull, region);
    const harness::LineAt lines[] = {{0, 0}, {32, 0}, {66, 16}, {98, 16}};
    for (size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(part(picture, 67 * k, 32), yuy2_from(picture_y, picture_u, picture_v, lines[k])) << k;
    }
    set_alpha(16);
    const Bytes subpicture = drawn(kFull, region);
    const harness::LineAt sublines[] = {{0, 0}, {20, 10}, {42, 21}, {62, 31}};
    for (size_t k = 0; k < 4; ++k) EXPECT_EQ(part(subpicture, 67 * k, 32), yuy2_from(y, u, v, sublines[k])) << k;
}

TEST_P(MixYuy2, the_lower_lines_alpha_is_found_like_its_luma)
{
    set_picture(100);
    set_subpicture(201);
    std::fill(alpha.begin() + 20, alpha.begin() + 36, uint8_t{16});
    const Bytes mixed = drawn(kFull, {16, 2, 33, 21, 67});
    // The upper line's 16 alphas end before byte 20.
    EXPECT_EQ(part(mixed, 0, 32), Bytes(32, 100));
    EXPECT_EQ(part(mixed, 67, 32), Bytes(32, 201));
}

TEST_P(MixYuy2, heights_are_counted_down_by_pairs_of_lines)
{
    for (const auto entry : {kFull, kHalf}) {
        const size_t line = entry == kFull ? 32 : 16;
        for (const auto& [height, passes, left] : harness::kProgressiveHeights) {
            SCOPED_TRACE(height);
            surface.assign(kRoom, kUntouched);
            const MIX_INFO job = record({16, height, 20, 18, 50});
            MIX_INFO expected = moved(job, {10 * passes, 36 * passes, 18 * passes});
            // At half width the picture's chroma steps by the subpicture's pitch.
            if (entry == kHalf) expected = moved(job, {9 * passes, 36 * passes, 18 * passes});
            expected.height = left;
            expect_record(run(entry, job), expected);
            harness::expect_lines_written(surface, 2 * static_cast<size_t>(passes), line, 50);
        }
    }
}

TEST_P(MixYuy2, a_width_of_20_takes_32_pixels_and_drifts_by_12)
{
    set_places();
    const Region region = {20, 4, 40, 36, 100};
    const Bytes picture = drawn(kFull, region);
    const size_t lines[] = {0, 100, 224, 324}; // 200 bytes and the 24 of 12 pixels further
    const harness::LineAt sources[] = {{0, 0}, {40, 0}, {92, 26}, {132, 26}};
    for (size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(part(picture, lines[k], 64), yuy2_from(picture_y, picture_u, picture_v, sources[k], 32)) << k;
    }
    set_alpha(16);
    const Bytes subpicture = drawn(kFull, region);
    const harness::LineAt sublines[] = {{0, 0}, {36, 18}, {84, 42}, {120, 60}};
    for (size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(part(subpicture, lines[k], 64), yuy2_from(y, u, v, sublines[k], 32)) << k;
    }
    const MIX_INFO job = record(region);
    MIX_INFO expected = moved(job, {2 * 26, 2 * 84, 2 * 42});
    expected.height = 0;
    expect_record(run(kFull, job), expected);
}

TEST_P(MixYuy2, a_width_of_0_takes_16_pixels)
{
    for (const int width : {0, 1, 15}) {
        MIX_INFO job = record({width, 2, 16, 16, 64});
        surface.assign(kRoom, kUntouched);
        MIX_INFO expected = moved(job, {16 - width / 2, 48 - width, 24 - width / 2});
        expected.height = 0;
        expect_record(run(kFull, job), expected);
        harness::expect_lines_written(surface, 2, 32, 64);
    }
}

TEST_P(MixYuy2, lines_that_overlap_are_stored_block_by_block_with_the_upper_one_first)
{
    set_places();
    const Bytes mixed = drawn(kFull, {32, 2, 64, 64, 16});
    // Block 0 at 0 and 16, block 1 at 32 and 48: what block 0's lower line leaves at 32, block 1 covers.
    EXPECT_EQ(part(mixed, 0, 16), yuy2_from(picture_y, picture_u, picture_v, {0, 0}, 8));
    EXPECT_EQ(part(mixed, 16, 16), yuy2_from(picture_y, picture_u, picture_v, {64, 0}, 8));
    EXPECT_EQ(part(mixed, 32, 16), yuy2_from(picture_y, picture_u, picture_v, {16, 8}, 8));
    EXPECT_EQ(part(mixed, 48, 32), yuy2_from(picture_y, picture_u, picture_v, {80, 8}));
}

TEST_P(MixYuy2, lines_may_run_upwards)
{
    set_places();
    MIX_INFO job = record({16, 4, 16, 16, -40});
    job.surface += 120;
    const Bytes mixed = drawn(kFull, job);
    const harness::LineAt lines[] = {{0, 0}, {16, 0}, {32, 8}, {48, 8}};
    for (size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(part(mixed, 120 - 40 * k, 32), yuy2_from(picture_y, picture_u, picture_v, lines[k])) << k;
    }
}

TEST_P(MixYuy2, half_width_finds_the_pictures_lower_line_and_chroma_by_the_subpictures_pitch)
{
    set_places();
    for (const int pitch : {24, 25}) {
        const Region region = {16, 4, 40, pitch, 20};
        const Bytes picture = drawn(kHalf, region);
        const harness::LineAt lines[] = {{0, 0}, {24, 0}, {80, 12}, {104, 12}};
        for (size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(part(picture, 20 * k, 16), half_from(picture_y, picture_u, picture_v, lines[k])) << k;
        }
        const MIX_INFO job = record(region);
        MIX_INFO expected = moved(job, {2 * 12, 4 * pitch, 2 * pitch});
        expected.height = 0;
        expect_record(run(kHalf, job), expected);
    }
}

TEST_P(MixYuy2, half_width_drifts_by_12_bytes_of_the_surface_at_a_width_of_20)
{
    set_places();
    set_alpha(16);
    const Bytes mixed = drawn(kHalf, {20, 4, 40, 36, 50});
    const size_t lines[] = {0, 50, 112, 162};
    const harness::LineAt sources[] = {{0, 0}, {36, 18}, {84, 42}, {120, 60}};
    for (size_t k = 0; k < 4; ++k) EXPECT_EQ(part(mixed, lines[k], 32), half_from(y, u, v, sources[k], 32)) << k;
}

VSURF_ON_EVERY_TABLE(MixYuy2);

} // namespace
