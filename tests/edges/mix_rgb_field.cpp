// SPDX-License-Identifier: MIT
// Subpictures mixed onto single fields in RGB: by strips of sixteen pixels, with chroma weighted by both pixels.
#include "edges/mix_rgb.h"

namespace {

using harness::Bytes;
using harness::flat_lines;
using harness::flat_rgb;
using harness::kWideMix;
using harness::part;
using harness::Region;
using harness::rgb_from;

constexpr int kWide = static_cast<int>(kWideMix);

class MixRgbField : public harness::OnEveryRgbMix {
protected:
    // Which lines are made from which luma and chroma; U and V are alike.
    void expect_lines(const Region& region, const std::vector<std::pair<uint8_t, uint8_t>>& lines)
    {
        const size_t width = static_cast<size_t>(region.width), pitch = static_cast<size_t>(region.surface_pitch);
        for (const Format& format : kFormats) {
            const Bytes mixed = drawn(format.field, rgb_record(format, region));
            for (size_t k = 0; k < lines.size(); ++k) {
                const auto& [luma, chroma] = lines[k];
                const auto pixel = model::to_rgb(luma, model::chroma_terms(chroma, chroma));
                EXPECT_EQ(part(mixed, pitch * k, width * format.bytes), flat_rgb(width, pixel, format.bytes)) << k;
            }
        }
    }
};

TEST_P(MixRgbField, luma_blends_in_sixteenths_and_wraps_beyond_the_scale)
{
    for (const harness::Cycle& cycle : harness::kCycles) {
        const Line blended = set_blends(cycle);
        for (Bytes* plane : {&picture_u, &picture_v, &u, &v}) plane->assign(kRoom, 128); // which any alpha leaves
        for (const Format& format : kFormats) {
            const size_t line = kWideMix * format.bytes;
            const Bytes expected = rgb_from(blended.luma, u, v, {0, 0}, kWideMix, format.bytes);
            const Region region = {kWide, 4, kWide, kWide, static_cast<int>(line)};
            const Bytes mixed = drawn(format.field, rgb_record(format, region));
            for (size_t k = 0; k < 4; ++k) EXPECT_EQ(part(mixed, k * line, line), expected) << k;
        }
    }
}

TEST_P(MixRgbField, a_pairs_chroma_takes_the_average_of_its_alphas)
{
    picture_y.assign(kRoom, 16);
    y.assign(kRoom, 16);
    u.assign(kRoom, 228);
    constexpr struct {
        uint8_t even, odd, blue;
    } kPairs[] = {
        {16, 0, 100},                  // as alpha 8: U 178, 400 * 16532 >> 16
        {0, 16, 100},    {16, 1, 113}, // rounded up to 9: U 184
        {0, 1, 12},                    // rounded up to 1: U 134
        {17, 16, 213},                 // rounded up to 17: U 234
        {255, 254, 255},               // 255: -30592 - 7396 saturates
        {16, 16, 201},   {0, 0, 0},
    };
    for (const auto& [even, odd, blue] : kPairs) {
        for (size_t i = 0; i < kRoom; ++i) alpha[i] = i % 2 == 0 ? even : odd;
        for (const Format& format : kFormats) {
            const Bytes mixed = drawn(format.field, rgb_record(format, {kWide, 8, kWide, kWide, 4 * kWide}));
            for (size_t k = 0; k < 8; ++k) {
                EXPECT_EQ(part(mixed, 4 * kWideMix * k, kWideMix * format.bytes),
                          flat_rgb(kWideMix, {0, 0, blue}, format.bytes))
                    << int{even} << ", " << int{odd};
            }
        }
    }
}

TEST_P(MixRgbField, heights_are_rounded_up_to_four_lines_and_the_record_stays)
{
    constexpr std::pair<int, size_t> kLines[] = {{-1, 4}, {0, 4}, {1, 4},  {2, 4},   {3, 4},   {4, 4},        {5, 4},
                                                 {7, 4},  {8, 8}, {9, 12}, {12, 12}, {13, 16}, {INT32_MIN, 4}};
    for (const Format& format : kFormats) {
        for (const auto& [height, lines] : kLines) {
            SCOPED_TRACE(height);
            surface.assign(kRoom, kUntouched);
            const MIX_INFO job = rgb_record(format, {16, height, 20, 18, 70});
            expect_record(run(format.field, job), job);
            harness::expect_lines_written(surface, lines, 16 * format.bytes, 70);
        }
    }
}

TEST_P(MixRgbField, each_line_takes_its_lines_of_the_field)
{
    picture_y = flat_lines(112, {10, 21, 40, 61, 80, 101, 255});
    picture_u = picture_v = flat_lines(56, {100, 121, 150, 255});
    expect_lines({112, 12, 112, 112, 450}, {{10, 100},
                                            {16, 100},
                                            {21, 111},
                                            {31, 111},
                                            {40, 121},
                                            {51, 121},
                                            {61, 136},
                                            {71, 136},
                                            {80, 150},
                                            {91, 150},
                                            {101, 150},
                                            {101, 150}});
}

TEST_P(MixRgbField, four_lines_read_two_luma_lines_and_one_chroma_line)
{
    picture_y = flat_lines(16, {100, 202});
    picture_u = picture_v = flat_lines(8, {100});
    y = flat_lines(16, {0, 0, 0, 0});
    u = v = flat_lines(8, {0, 0, 0, 0});
    alpha = flat_lines(16, {0, 8, 0, 8});
    expect_lines({16, 2, 16, 16, 64}, {{100, 100}, {75, 50}, {202, 100}, {101, 50}}); // 151 averaged, then halved
}

TEST_P(MixRgbField, lines_are_averaged_before_they_are_adjusted)
{
    harness::set_adjustment({128, 128}, {-100, -30, -30});
    picture_y = flat_lines(16, {200, 0, 0, 0, 0, 0});
    picture_u = picture_v = flat_lines(8, {200, 0, 0});
    expect_lines({16, 8, 16, 16, 64}, {{255, 255}, {100, 255}, {0, 170}, {0, 170}, {0, 0}});
}

TEST_P(MixRgbField, every_line_has_subpicture_lines_of_its_own)
{
    set_places();
    set_alpha(16);
    for (const Format& format : kFormats) {
        for (const size_t pitch : {112U, 113U, 120U}) { // An odd one is rounded down for chroma.
            const Bytes mixed = drawn(format.field, rgb_record(format, {112, 8, 112, static_cast<int>(pitch), 450}));
            for (size_t k = 0; k < 8; ++k) {
                EXPECT_EQ(part(mixed, 450 * k, 112 * format.bytes),
                          rgb_from(y, u, v, {pitch * k, pitch / 2 * k}, 112, format.bytes))
                    << k;
            }
        }
    }
}

TEST_P(MixRgbField, an_odd_picture_pitch_is_rounded_down_for_chroma_only)
{
    set_places();
    const std::pair<size_t, harness::LineAt> lines[] = {{0, {0, 0}}, {4, {66, 16}}, {6, {99, 16}}, {7, {99, 16}}};
    for (const Format& format : kFormats) {
        const Bytes mixed = drawn(format.field, rgb_record(format, {16, 8, 33, 16, 67}));
        for (const auto& [line, at] : lines) {
            EXPECT_EQ(part(mixed, 67 * line, 16 * format.bytes),
                      rgb_from(picture_y, picture_u, picture_v, at, 16, format.bytes))
                << line;
        }
    }
}

TEST_P(MixRgbField, widths_are_rounded_up_to_strips_and_no_line_drifts)
{
    constexpr std::pair<int, size_t> kPixels[] = {{-20, 16}, {0, 16}, {1, 16}, {16, 16}, {20, 32}, {33, 48}};
    set_places();
    for (const Format& format : kFormats) {
        for (const auto& [width, pixels] : kPixels) {
            SCOPED_TRACE(width);
            const MIX_INFO job = rgb_record(format, {width, 8, 48, 48, 200});
            const Bytes mixed = drawn(format.field, job);
            const size_t line = pixels * format.bytes;
            const std::pair<size_t, harness::LineAt> lines[] = {
                {0, {0, 0}}, {4, {96, 24}}, {6, {144, 24}}, {7, {144, 24}}};
            for (const auto& [k, at] : lines) {
                EXPECT_EQ(part(mixed, 200 * k, line),
                          rgb_from(picture_y, picture_u, picture_v, at, pixels, format.bytes))
                    << k;
                EXPECT_EQ(part(mixed, 200 * k + line, 200 - line), Bytes(200 - line, kUntouched)) << k;
            }
        }
    }
}

TEST_P(MixRgbField, lines_that_overlap_show_that_strips_are_finished_one_after_the_other)
{
    set_places();
    set_alpha(16);
    for (const Format& format : kFormats) {
        const size_t bytes = format.bytes, strip = 16 * bytes;
        const Region region = {32, 4, 64, 64, static_cast<int>(strip)};
        const Bytes mixed = drawn(format.field, rgb_record(format, region));
        // Only the first line's first strip stays; each line of the second strip covers the next line of the first.
        EXPECT_EQ(part(mixed, 0, strip), rgb_from(y, u, v, {0, 0}, 16, bytes));
        for (size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(part(mixed, (k + 1) * strip, strip), rgb_from(y, u, v, {16 + 64 * k, 8 + 32 * k}, 16, bytes))
                << k;
        }
    }
}

TEST_P(MixRgbField, surface_and_picture_may_run_upwards)
{
    set_places();
    for (const Format& format : kFormats) {
        MIX_INFO job = rgb_record(format, {16, 4, -16, 16, -64});
        job.picture_y += 16;
        job.surface += 192;
        const Bytes mixed = drawn(format.field, job);
        const std::pair<size_t, harness::LineAt> lines[] = {{0, {16, 0}}, {2, {0, 0}}, {3, {0, 0}}};
        for (const auto& [k, at] : lines) {
            EXPECT_EQ(part(mixed, 192 - 64 * k, 16 * format.bytes),
                      rgb_from(picture_y, picture_u, picture_v, at, 16, format.bytes))
                << k;
        }
    }
}

VSURF_ON_EVERY_TABLE(MixRgbField);

} // namespace
