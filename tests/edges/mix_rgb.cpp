// SPDX-License-Identifier: MIT
// Subpictures mixed onto progressive pictures in RGB.
#include "edges/mix_rgb.h"
#include "harness/random.h"

namespace {

using harness::Bytes;
using harness::flat_rgb;
using harness::kWideMix;
using harness::part;
using harness::Region;
using harness::rgb_from;
using vsurf::Kernels;

constexpr int kWide = static_cast<int>(kWideMix);

class MixRgb : public harness::OnEveryRgbMix {
protected:
    // The first two lines, of sixteen pixels each.
    void expect_two_lines(const model::Rgb& pixel)
    {
        for (const Format& format : kFormats) {
            const Bytes mixed = drawn(format.progressive, rgb_record(format, {16, 2, 16, 16, 64}));
            EXPECT_EQ(part(mixed, 0, 16 * format.bytes), flat_rgb(16, pixel, format.bytes));
            EXPECT_EQ(part(mixed, 64, 16 * format.bytes), flat_rgb(16, pixel, format.bytes));
        }
    }
};

TEST_P(MixRgb, greys_are_blended_and_converted)
{
    set_alpha(8);
    constexpr struct {
        uint8_t picture, subpicture, grey;
    } kGreys[] = {{100, 201, 155}, // 150: (134 << 2) * 19071 >> 16
                  {16, 16, 0},     {235, 235, 254}, {255, 255, 255}, {0, 0, 0}, {255, 215, 254}}; // 235
    for (const auto& [picture, subpicture, grey] : kGreys) {
        picture_y.assign(kRoom, picture);
        y.assign(kRoom, subpicture);
        expect_two_lines({grey, grey, grey});
    }
}

TEST_P(MixRgb, blends_in_sixteenths_and_wraps_beyond_the_scale)
{
    for (const harness::Cycle& cycle : harness::kCycles) {
        const Line blended = set_blends(cycle);
        for (const Format& format : kFormats) {
            const size_t line = kWideMix * format.bytes;
            const Bytes expected =
                rgb_from(blended.luma, blended.chroma, blended.chroma, {0, 0}, kWideMix, format.bytes);
            const Region region = {kWide, 2, kWide, kWide, static_cast<int>(line)};
            const Bytes mixed = drawn(format.progressive, rgb_record(format, region));
            EXPECT_EQ(part(mixed, 0, line), expected);
            EXPECT_EQ(part(mixed, line, line), expected);
        }
    }
}

TEST_P(MixRgb, a_pairs_chroma_takes_the_alpha_of_its_odd_pixel)
{
    picture_y.assign(kRoom, 16);
    y.assign(kRoom, 16);
    u.assign(kRoom, 228);
    constexpr struct {
        uint8_t even, odd, blue;
    } kPairs[] = {{16, 0, 0}, {0, 16, 201}, {16, 8, 100}, {8, 9, 113}, {9, 1, 12}, {0, 17, 213}};
    for (const auto& [even, odd, blue] : kPairs) {
        for (size_t i = 0; i < kRoom; ++i) alpha[i] = i % 2 == 0 ? even : odd;
        expect_two_lines({0, 0, blue});
    }
}

TEST_P(MixRgb, u_turns_blue_and_v_turns_red)
{
    set_alpha(16);
    v.assign(kRoom, 228); // 400 * 26149 >> 16
    expect_two_lines({159, 0, 0});
    v.assign(kRoom, 128);
    u.assign(kRoom, 255); // 1016 * 16532 >> 16 = 256
    expect_two_lines({0, 0, 255});
}

TEST_P(MixRgb, samples_are_adjusted_after_the_blend)
{
    harness::set_adjustment({128, 64}, {-100, -50, 0});
    set_alpha(8);
    picture_y.assign(kRoom, 200);
    y.assign(kRoom, 50); // 125: 250 - 100 = 150, grey 155
    picture_u.assign(kRoom, 100);
    u.assign(kRoom, 255); // 177: 127, which is -8 * 16532 >> 16 = -3 of blue, and -25625 >> 16 = -1 of green
    expect_two_lines({155, 156, 152});
}

TEST_P(MixRgb, alpha_0_is_the_adjusted_loader)
{
    harness::set_adjustment({70, 60}, {3, -4, 5});
    harness::Random random(7);
    for (Bytes* plane : {&picture_y, &picture_u, &picture_v, &y, &u, &v}) {
        for (uint8_t& byte : *plane) byte = static_cast<uint8_t>(random.next());
    }
    for (const Format& format : kFormats) {
        for (contrast.rgb16_layout = 0; contrast.rgb16_layout < 4; ++contrast.rgb16_layout) {
            const Bytes mixed = drawn(format.progressive, rgb_record(format, {112, 8, 120, 112, 500}));
            const Bytes loaded = surface_after(kRoom, [&](uint8_t* dst) {
                (table().*format.loader)(picture_y.data(), picture_u.data(), picture_v.data(), dst, 112, 8, 120, 500,
                                         &contrast);
            });
            EXPECT_EQ(mixed, loaded) << format.bytes << ", " << contrast.rgb16_layout;
        }
    }
}

TEST_P(MixRgb, each_line_has_chroma_of_its_own_from_the_subpicture)
{
    set_places();
    set_alpha(16);
    for (const Format& format : kFormats) {
        const Bytes mixed = drawn(format.progressive, rgb_record(format, {112, 4, 112, 114, 450}));
        for (size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(part(mixed, 450 * k, 112 * format.bytes), rgb_from(y, u, v, {114 * k, 57 * k}, 112, format.bytes))
                << k;
        }
    }
}

TEST_P(MixRgb, an_odd_pitch_is_rounded_down_to_the_lower_line_only)
{
    set_places();
    const harness::LineAt lines[] = {{0, 0}, {32, 0}, {66, 16}, {98, 16}};
    const harness::LineAt sublines[] = {{0, 0}, {20, 10}, {42, 21}, {62, 31}};
    for (const Format& format : kFormats) {
        const size_t line = 16 * format.bytes;
        set_alpha(0);
        const Bytes picture = drawn(format.progressive, rgb_record(format, {16, 4, 33, 21, 67}));
        set_alpha(16);
        const Bytes subpicture = drawn(format.progressive, rgb_record(format, {16, 4, 33, 21, 67}));
        for (size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(part(picture, 67 * k, line),
                      rgb_from(picture_y, picture_u, picture_v, lines[k], 16, format.bytes));
            EXPECT_EQ(part(subpicture, 67 * k, line), rgb_from(y, u, v, sublines[k], 16, format.bytes)) << k;
        }
    }
}

TEST_P(MixRgb, heights_are_counted_down_by_pairs_of_lines)
{
    for (const Format& format : kFormats) {
        for (const auto& [height, passes, left] : harness::kProgressiveHeights) {
            SCOPED_TRACE(height);
            surface.assign(kRoom, kUntouched);
            const MIX_INFO job = rgb_record(format, {16, height, 20, 18, 70});
            MIX_INFO expected = moved(job, {10 * passes, 36 * passes, 18 * passes});
            expected.height = left;
            expect_record(run(format.progressive, job), expected);
            harness::expect_lines_written(surface, 2 * static_cast<size_t>(passes), 16 * format.bytes, 70);
        }
    }
}

TEST_P(MixRgb, a_width_of_20_takes_32_pixels_and_drifts_by_12)
{
    set_places();
    const harness::LineAt sources[] = {{0, 0}, {40, 0}, {92, 26}, {132, 26}};
    for (const Format& format : kFormats) {
        const size_t bytes = format.bytes;
        const MIX_INFO job = rgb_record(format, {20, 4, 40, 36, 150});
        const Bytes mixed = drawn(format.progressive, job);
        const size_t lines[] = {0, 150, 300 + 12 * bytes, 450 + 12 * bytes};
        for (size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(part(mixed, lines[k], 32 * bytes),
                      rgb_from(picture_y, picture_u, picture_v, sources[k], 32, bytes))
                << k;
        }
        MIX_INFO expected = moved(job, {2 * 26, 2 * 84, 2 * 42});
        expected.height = 0;
        expect_record(run(format.progressive, job), expected);
    }
}

TEST_P(MixRgb, lines_that_overlap_are_stored_block_by_block_with_the_upper_one_first)
{
    set_places();
    for (const Format& format : kFormats) {
        const size_t bytes = format.bytes, half = 8 * bytes;
        const Region region = {32, 2, 64, 64, static_cast<int>(half)};
        const Bytes mixed = drawn(format.progressive, rgb_record(format, region));
        const harness::LineAt sources[] = {{0, 0}, {64, 0}, {16, 8}, {80, 8}, {88, 12}};
        for (size_t k = 0; k < 5; ++k) {
            EXPECT_EQ(part(mixed, k * half, half), rgb_from(picture_y, picture_u, picture_v, sources[k], 8, bytes))
                << k;
        }
    }
}

TEST_P(MixRgb, rgb16_has_four_layouts)
{
    constexpr int kBlues[] = {0x001E, 0x003C, 0x000F, 0x001E}, kWhites[] = {0xFFFF, 0xFFFE, 0xFFFF, 0xFFFF};
    set_alpha(8);
    for (int layout = 0; layout < 4; ++layout) {
        contrast.rgb16_layout = layout;
        for (const auto entry : {kFormats[2].progressive, kFormats[2].field}) {
            picture_y.assign(kRoom, 16);
            y.assign(kRoom, 16);
            picture_u.assign(kRoom, 239);
            u.assign(kRoom, 255); // 247: blue 240
            const Bytes blue = drawn(entry, rgb_record(kFormats[2], {16, 4, 16, 16, 32}));
            picture_y.assign(kRoom, 215);
            y.assign(kRoom, 255); // 235: grey 254
            picture_u.assign(kRoom, 128);
            u.assign(kRoom, 128);
            const Bytes white = drawn(entry, rgb_record(kFormats[2], {16, 4, 16, 16, 32}));
            for (size_t at = 0; at < 128; at += 2) {
                EXPECT_EQ(blue[at] | blue[at + 1] << 8, kBlues[layout]) << at;
                EXPECT_EQ(white[at] | white[at + 1] << 8, kWhites[layout]) << at;
            }
        }
    }
}

TEST_P(MixRgb, unknown_layouts_leave_surface_and_record_untouched)
{
    for (const int layout : {4, -1, 5, 256, INT32_MIN}) {
        contrast.rgb16_layout = layout;
        for (const auto entry : {kFormats[2].progressive, kFormats[2].field}) {
            const MIX_INFO job = rgb_record(kFormats[2], {16, 4, 16, 16, 32});
            expect_record(run(entry, job), job);
            EXPECT_EQ(surface, Bytes(kRoom, kUntouched)) << layout;
        }
    }
}

VSURF_ON_EVERY_TABLE(MixRgb);

} // namespace
