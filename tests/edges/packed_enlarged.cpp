// SPDX-License-Identifier: MIT
// Packed pictures at twice their width and height.
#include "harness/fixture.h"

namespace {

using harness::Bytes;
using harness::flat_lines;
using harness::flat_yuy2;
using harness::part;

class PackedEnlarged : public harness::OnEveryTable {
protected:
    Bytes plain(const Bytes& src, int line_bytes, int height, size_t bytes, int dst_pitch)
    {
        return surface_after(bytes, [&](uint8_t* dst) {
            table().yuy2_strech_picture_2X2_yuy2(plane(src), nullptr, nullptr, dst, line_bytes, height, dst_pitch);
        });
    }

    Bytes adjusted(const Bytes& src, int line_bytes, int height, size_t bytes, int dst_pitch)
    {
        return surface_after(bytes, [&](uint8_t* dst) {
            table().yuy2_strech_picture_2X2_yuy2_ajust(plane(src), nullptr, nullptr, dst, line_bytes, height, dst_pitch,
                                                       nullptr);
        });
    }

    // Both forms, where they must agree.
    std::vector<Bytes> both(const Bytes& src, int line_bytes, int height, size_t bytes, int dst_pitch)
    {
        return {plain(src, line_bytes, height, bytes, dst_pitch), adjusted(src, line_bytes, height, bytes, dst_pitch)};
    }

    static Bytes repeated(const Bytes& line, size_t times)
    {
        Bytes lines;
        for (size_t i = 0; i < times; ++i) lines.insert(lines.end(), line.begin(), line.end());
        return lines;
    }
};

TEST_P(PackedEnlarged, the_plain_form_refuses_twice_the_height_that_the_adjusted_does)
{
    const Bytes source = flat_yuy2(32 * 16, 50, 60, 70), untouched(33 * 128, kUntouched);
    for (const int height : {-16, -2, 0, 2, 6, 7}) {
        for (const Bytes& surface : both(source, 64, height, untouched.size(), 128)) EXPECT_EQ(surface, untouched);
    }
    for (const int height : {8, 10, 14, 15}) EXPECT_EQ(plain(source, 64, height, untouched.size(), 128), untouched);
    for (const int height : {8, 14}) {
        Bytes expected = flat_yuy2(64 * 2 * static_cast<size_t>(height), 50, 60, 70);
        expected.resize(untouched.size(), kUntouched);
        EXPECT_EQ(adjusted(source, 64, height, untouched.size(), 128), expected) << height;
    }
    Bytes expected = flat_yuy2(64 * 32, 50, 60, 70);
    expected.resize(untouched.size(), kUntouched);
    for (const Bytes& surface : both(source, 64, 16, untouched.size(), 128)) EXPECT_EQ(surface, expected);
}

TEST_P(PackedEnlarged, odd_lines_are_averages_and_the_last_is_there_twice)
{
    Bytes values, expected;
    for (int s = 0; s < 16; ++s) {
        values.push_back(static_cast<uint8_t>(s * s));
        expected.push_back(static_cast<uint8_t>(s * s));
        expected.push_back(static_cast<uint8_t>(s < 15 ? s * s + s + 1 : s * s)); // (s*s + (s+1)*(s+1) + 1) / 2
    }
    for (const size_t line : {64u, 96u, 160u}) { // luma and chroma alike
        const int bytes = static_cast<int>(line);
        for (const Bytes& surface : both(flat_lines(line, values), bytes, 16, 64 * line, 2 * bytes)) {
            EXPECT_EQ(surface, flat_lines(2 * line, expected));
        }
    }
}

TEST_P(PackedEnlarged, samples_lie_between_their_neighbours_and_the_last_is_its_own)
{
    Bytes line, expected;
    for (int pixel = 0; pixel < 96; pixel += 2) { // luma 2p, U p, V 255 - p
        for (const int byte : {2 * pixel, pixel, 2 * pixel + 2, 255 - pixel}) {
            line.push_back(static_cast<uint8_t>(byte));
        }
        for (const int at : {0, 1}) { // a doubled pixel pair shows one pixel and what lies behind it
            const int p = pixel + at, luma = 2 * p, u = pixel == 94 ? 94 : p, v = 255 - u;
            for (const int byte : {luma, u, p == 95 ? luma : luma + 1, v}) {
                expected.push_back(static_cast<uint8_t>(byte));
            }
        }
    }
    EXPECT_EQ(part(expected, 4 * 94, 8), (Bytes{188, 94, 189, 161, 190, 94, 190, 161}));
    for (const Bytes& surface : both(repeated(line, 16), 192, 16, 32 * 384, 384)) {
        for (size_t at = 0; at < 32; ++at) EXPECT_EQ(part(surface, 384 * at, 384), expected) << at;
    }
}

TEST_P(PackedEnlarged, a_sample_between_four_is_rounded_twice)
{
    Bytes source(64 * 16, 0);
    source[2] = 1; // the second pixel
    for (const Bytes& surface : both(source, 64, 16, 32 * 128, 128)) {
        EXPECT_EQ(part(surface, 0, 8), (Bytes{0, 0, 1, 0, 1, 0, 1, 0}));
        EXPECT_EQ(part(surface, 128, 8), (Bytes{0, 0, 1, 0, 1, 0, 1, 0}));
        EXPECT_EQ(part(surface, 256, 128), Bytes(128, 0));
    }
}

TEST_P(PackedEnlarged, source_lines_follow_without_gaps_and_surface_lines_by_their_pitch)
{
    for (const int pitch : {131, -131}) {
        const Bytes source = flat_lines(64, {10, 20, 30, 40, 50, 60, 70, 80});
        Bytes surface(16 * 131, kUntouched);
        uint8_t* first = surface.data() + (pitch < 0 ? 15 * 131 : 0);
        GetParam().apply();
        table().yuy2_strech_picture_2X2_yuy2_ajust(plane(source), nullptr, nullptr, first, 64, 8, pitch, nullptr);
        for (size_t line = 0; line < 16; ++line) {
            const size_t at = 131 * (pitch < 0 ? 15 - line : line);
            const uint8_t value = static_cast<uint8_t>(line == 15 ? 80 : 10 + 5 * line);
            EXPECT_EQ(part(surface, at, 128), Bytes(128, value));
            EXPECT_EQ(part(surface, at + 128, 3), Bytes(3, kUntouched));
        }
    }
}

TEST_P(PackedEnlarged, samples_are_adjusted_before_they_are_averaged)
{
    harness::set_adjustment({128, 128});
    // 200 and 0 become 255 and 0, and 128 between them; not 100, which would become 200.
    Bytes source;
    for (int s = 0; s < 8; ++s) source.insert(source.end(), 64, static_cast<uint8_t>(s % 2 == 0 ? 200 : 0));
    const Bytes down = adjusted(source, 64, 8, 16 * 128, 128);
    EXPECT_EQ(part(down, 0, 128), Bytes(128, 255));
    EXPECT_EQ(part(down, 128, 128), Bytes(128, 128));
    EXPECT_EQ(part(down, 256, 128), Bytes(128, 0));
    for (size_t i = 0; i < source.size(); ++i) source[i] = i % 4 == 0 || i % 8 == 1 || i % 8 == 7 ? 200 : 0;
    const Bytes across = part(adjusted(source, 64, 8, 16 * 128, 128), 0, 16);
    EXPECT_EQ(across, (Bytes{255, 255, 128, 0, 0, 128, 128, 128, 255, 0, 128, 255, 0, 128, 128, 128}));
}

// U becomes 100 and V 120; a sample that took the other's offset, the reverse.
TEST_P(PackedEnlarged, chroma_ahead_of_16_pixels_takes_the_other_offset)
{
    harness::set_adjustment({64, 128}, {5, 0, 20});
    for (const size_t width : {32u, 48u, 64u, 80u, 144u}) {
        const int line_bytes = static_cast<int>(2 * width);
        const Bytes surface = adjusted(flat_yuy2(width * 8, 90, 50, 50), line_bytes, 8, 64 * width, 2 * line_bytes);
        for (size_t at = 0; at < surface.size(); at += 4) {
            const size_t pair = at % (4 * width) / 4; // of doubled pixels
            const bool ahead = pair % 16 == 15 && pair != width - 1;
            const Bytes expected = {95, uint8_t(ahead ? 110 : 100), 95, uint8_t(ahead ? 110 : 120)};
            EXPECT_EQ(part(surface, at, 4), expected) << pair << " of " << width << ", line " << at / (4 * width);
        }
    }
}

VSURF_ON_EVERY_TABLE(PackedEnlarged);

} // namespace
