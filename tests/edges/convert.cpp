// SPDX-License-Identifier: MIT
// RGB drawings converted to the planes of a subpicture.
#include "edges/convert.h"

#include <iterator>

namespace {

using harness::Bytes;
using harness::Colour;
using harness::kNoKey;
using vsurf::Kernels;

using Convert = harness::OnEveryConversion;

TEST_P(Convert, every_pixel_gives_luma_and_every_second_one_chroma)
{
    for (const Format& format : kFormats) {
        for (size_t shift = 0; shift < 2; ++shift) {
            Expected expected;
            for (size_t x = 0; x < kWide; ++x) {
                draw(format, x, format.colour(x + shift).pixel);
                expected.set(x, format.colour(x + shift));
            }
            convert(format, line(kNoKey));
            expect(expected);
        }
    }
}

TEST_P(Convert, chroma_is_that_of_a_pairs_first_pixel)
{
    for (size_t x = 0; x < 8; ++x) draw(kFormats[0], x, x % 2 == 0 ? 0xFF0000 : 0x0000FF);
    convert(kFormats[0], line(kNoKey, 8));
    EXPECT_EQ(harness::part(y, 0, 8), (Bytes{81, 40, 81, 40, 81, 40, 81, 40}));
    EXPECT_EQ(harness::part(u, 0, 4), Bytes(4, 90));
    EXPECT_EQ(harness::part(v, 0, 4), Bytes(4, 239));
}

TEST_P(Convert, the_fourth_byte_enters_the_sums)
{
    constexpr Colour kColours[] = {
        {0xFF000000, 255, 255, 255}, {0xFFFFFFFF, 255, 255, 255}, // 473 of luma
        {0xFFFF0000, 255, 217, 255},                              // 255 + (-38505 >> 10); V is 366
        {0xFF00FF00, 255, 181, 161},                              // 255 - 74, 255 - 94
        {0xFFFFFF00, 255, 143, 255},                              // 255 - 112, 273
        {0xFF0000FF, 255, 255, 237},                              // 366, 255 - 18
        {0x01000000, 17, 129, 129},                               // ORed with 16 and 128
        {0x10000000, 16, 144, 144},  {0x70000000, 112, 240, 240}, {0x7F000000, 127, 255, 255},
        {0x80000000, 144, 128, 128}, {0xEF00FF00, 255, 165, 145}, // 239 of both: 239 - 74, 239 - 94
        {0x20FF0000, 113, 122, 255},                              // 48 + 65, 160 - 38, 160 + 111
    };
    Expected expected;
    for (size_t x = 0; x < kWide; ++x) {
        const Colour& colour = kColours[x % std::size(kColours)];
        draw(kFormats[0], x, colour.pixel);
        expected.set(x, colour);
    }
    convert(kFormats[0], line(kNoKey));
    expect(expected);
}

// How lines follow one another: at the drawing in pixels beyond the pitch, and in the planes.
struct Lines {
    int width, height, pitch; // of the subpicture
    size_t lines, pixels;
    int drawing;
    size_t luma, chroma;
};
constexpr Lines kLines[] = {
    {24, 3, 40, 3, 24, 0, 40, 20},      {24, 3, 41, 3, 24, 0, 41, 20}, // 12 + (17 >> 1)
    {24, 1, 24, 1, 24, 0, 24, 12},      {8, 0, 8, 1, 8, 0, 8, 4},      // at least one line
    {8, -5, 10, 1, 8, 0, 10, 5},        {8, INT_MIN, 9, 1, 8, 0, 9, 4},
    {136, 3, 200, 3, 136, 0, 200, 100}, {20, 4, 40, 4, 16, -4, 36, 18}, // two blocks, then back by 20 pixels
    {15, 3, 40, 3, 8, -7, 33, 16},                                      // 8 + 25, 4 + (25 >> 1)
    {31, 3, 31, 3, 24, -7, 24, 12},
};

TEST_P(Convert, lines_and_the_record_move_by_what_the_blocks_leave_over)
{
    for (const Format& format : kFormats) {
        const auto bytes = static_cast<int>(format.bytes);
        for (const Lines& of : kLines) {
            Expected expected;
            const int surface_pitch = bytes * (of.width + 3) + 1;
            const auto step = static_cast<size_t>(surface_pitch + bytes * of.drawing);
            for (size_t line = 0; line < of.lines; ++line) {
                for (size_t x = 0; x < of.pixels; ++x) {
                    const Colour& colour = format.colour(x + 2 * line);
                    draw(format, x, colour.pixel, line * step);
                    expected.set(x, colour, line * of.luma, line * of.chroma);
                }
            }
            const Bytes drawing = surface;
            const MIX_INFO job = record({of.width, of.height, kUnread, of.pitch, surface_pitch, kNoKey});
            const MIX_INFO after = convert(format, job);
            expect(expected, "width " + std::to_string(of.width));
            EXPECT_EQ(surface, drawing);
            EXPECT_EQ(alpha, Bytes(kRoom, 0));
            MIX_INFO moved = job;
            moved.subpic_y += of.lines * of.luma;
            moved.subpic_u += of.lines * of.chroma;
            moved.subpic_v += of.lines * of.chroma;
            moved.subpic_alpha += of.lines * static_cast<size_t>(of.pitch - of.width); // to no use
            expect_record(after, moved);
        }
    }
}

TEST_P(Convert, drawings_may_run_upwards)
{
    for (const Format& format : kFormats) {
        const size_t pitch = 16 * format.bytes + 5;
        Expected expected;
        for (size_t line = 0; line < 3; ++line) {
            for (size_t x = 0; x < 16; ++x) {
                draw(format, x, format.colour(x + line).pixel, (2 - line) * pitch);
                expected.set(x, format.colour(x + line), 32 * line, 16 * line);
            }
        }
        MIX_INFO job = record({16, 3, kUnread, 32, -static_cast<int>(pitch), kNoKey});
        job.surface += 2 * pitch;
        convert(format, job);
        expect(expected);
    }
}

VSURF_ON_EVERY_TABLE(Convert);

} // namespace
