// SPDX-License-Identifier: MIT
// Which lines a band of a frame is made from, and where it starts.
#include "edges/band.h"

namespace {

using harness::Bytes;
using harness::counting;
using harness::flat_lines;
using harness::part;
using harness::Picture;

constexpr size_t kLine = 2 * harness::kBandPitch;

class Band : public harness::OnEveryBand {
protected:
    // The surface's lines as pairs of a luma value and a chroma value; each line must be flat.
    static std::vector<std::pair<int, int>> flat_content(const Bytes& surface)
    {
        std::vector<std::pair<int, int>> lines;
        for (size_t at = 0; at < surface.size(); at += kLine) {
            for (size_t i = 0; i < kLine; i += 2) {
                EXPECT_EQ(surface[at + i], surface[at]) << at + i;
                EXPECT_EQ(surface[at + i + 1], surface[at + 1]) << at + i;
            }
            lines.emplace_back(surface[at], surface[at + 1]);
        }
        return lines;
    }
};

TEST_P(Band, less_than_eight_lines_leave_the_surface_untouched)
{
    for (const int lines : {7, 6, 1, 0, -1, -8}) {
        EXPECT_EQ(band(Picture(), 0, 0, lines, 20 * kLine), Bytes(20 * kLine, kUntouched)) << lines;
    }
}

TEST_P(Band, writes_twice_its_lines_and_drops_an_odd_one)
{
    for (const int lines : {8, 9, 10, 11}) {
        const size_t written = static_cast<size_t>(lines / 2) * 4 * kLine;
        Bytes expected = flat_lines(kLine, Bytes(static_cast<size_t>(lines / 2) * 4, 128));
        for (size_t i = 0; i < expected.size(); i += 2) expected[i] = 16;
        expected.resize(written + kLine, kUntouched);
        EXPECT_EQ(band(Picture(), 0, 0, lines, written + kLine), expected) << lines;
    }
}

TEST_P(Band, lines_are_the_sources_and_those_between_but_at_the_bottom)
{
    Picture p;
    p.y = flat_lines(harness::kBandPitch, {0, 10, 20, 30, 40, 50, 60, 71});
    p.u = p.v = flat_lines(harness::kBandPitch / 2, {100, 120, 141, 200});
    const std::vector<std::pair<int, int>> expected = {
        {0, 100},  {5, 100},  {10, 110}, {15, 110}, {20, 120}, {25, 120}, {30, 131}, {35, 131},
        {40, 141}, {45, 141}, {50, 171}, {55, 171}, {60, 200}, {66, 200}, {71, 200}, {71, 200},
    };
    EXPECT_EQ(flat_content(band(p, 0, 0, 8, 16 * kLine)), expected);
}

TEST_P(Band, samples_are_averaged_before_they_are_adjusted)
{
    harness::set_adjustment({128, 128}, {-100, 3, 3});
    Picture p;
    p.y = flat_lines(harness::kBandPitch, {200, 0, 0, 0, 0, 0, 0, 0});
    p.u = p.v = flat_lines(harness::kBandPitch / 2, {200, 0, 0, 0});
    const auto lines = flat_content(band(p, 0, 0, 8, 16 * kLine));
    EXPECT_EQ(lines[0], std::pair(255, 255));
    EXPECT_EQ(lines[1], std::pair(100, 255));
    EXPECT_EQ(lines[2], std::pair(0, 203));
    EXPECT_EQ(lines[4], std::pair(0, 3));
}

TEST_P(Band, each_plane_has_its_own_adjustment)
{
    harness::set_adjustment({32, 128}, {1, 2, 3});
    const Bytes surface = band(Picture(100, 50, 60), 0, 0, 8, 16 * kLine);
    for (size_t i = 0; i < surface.size(); ++i) EXPECT_EQ(surface[i], i % 2 == 0 ? 51 : i % 4 == 1 ? 102 : 123) << i;
}

// What the first two lines that the band takes from the source show, by where they come from.
void expect_start(const Bytes& surface, size_t luma, size_t luma_step, size_t chroma, size_t chroma_step)
{
    const Picture p = harness::counted_frame();
    for (size_t i = 0; i < harness::kBandPitch; ++i) {
        EXPECT_EQ(surface[2 * i], p.y[luma + i]) << i;
        EXPECT_EQ(surface[2 * kLine + 2 * i], p.y[luma + luma_step + i]) << i;
        EXPECT_EQ(surface[4 * kLine + 2 * i], p.y[luma + 2 * luma_step + i]) << i;
        EXPECT_EQ(surface[2 * i + 1], (i % 2 == 0 ? p.u : p.v)[chroma + i / 2]) << i;
        EXPECT_EQ(surface[4 * kLine + 2 * i + 1], (i % 2 == 0 ? p.u : p.v)[chroma + chroma_step + i / 2]) << i;
    }
}

TEST_P(Band, a_field_starts_at_its_line_and_a_quarter_of_that_offset_in_chroma)
{
    for (const int start : {0, 1, 2, 3}) {
        SCOPED_TRACE(start);
        const size_t offset = static_cast<size_t>(start) * 48;
        expect_start(band(harness::counted_frame(), 1, start, 8, 16 * kLine), offset, 96, offset / 4, 48);
    }
}

TEST_P(Band, a_frame_starts_at_half_its_position)
{
    for (const int mode : {0, 2, -1, 257}) {
        for (const int start : {0, 1, 2, 3}) {
            SCOPED_TRACE(testing::Message() << mode << ", " << start);
            const size_t offset = static_cast<size_t>(start) * 24;
            expect_start(band(harness::counted_frame(), mode, start, 8, 16 * kLine), offset, 48, offset / 4, 24);
        }
    }
}

TEST_P(Band, lines_keep_to_their_pitch)
{
    const Bytes tight = band(harness::counted_frame(), 0, 0, 8, 16 * kLine);
    const Bytes padded = band(harness::counted_frame(), 0, 0, 8, 16 * 131, 131);
    for (size_t line = 0; line < 16; ++line) {
        EXPECT_EQ(part(padded, 131 * line, kLine), part(tight, kLine * line, kLine)) << line;
        EXPECT_EQ(part(padded, 131 * line + kLine, 131 - kLine), Bytes(131 - kLine, kUntouched)) << line;
    }
}

VSURF_ON_EVERY_TABLE(Band);

} // namespace
