// SPDX-License-Identifier: MIT
// Only the subpicture, drawn on an RGB surface.
#include "edges/draw.h"

namespace {

using harness::Bytes;
using harness::little_endian;
using harness::part;
using harness::place;

using Draw = harness::OnEveryDrawer;

TEST_P(Draw, the_key_shows_at_alpha_0_and_black_from_128_on)
{
    set_colours();
    for (const Format& format : kFormats) {
        for (contrast.rgb16_layout = 0; contrast.rgb16_layout < 4; ++contrast.rgb16_layout) {
            for (const int length : {16, 32, 48, 64, 80, 96, 112, 128, 144, 272}) {
                const auto pixels = static_cast<size_t>(length);
                Bytes expected(kRoom, kUntouched);
                place(expected, kMiddle, line_of(0, pixels, format.bytes, contrast.rgb16_layout));
                const MIX_INFO job = drawing(format, length, 1, 4 * length);
                EXPECT_EQ(drawn(format.plain, job), expected) << length;
                EXPECT_EQ(drawn(format.adjusted, job), expected) << length; // which changes nothing
            }
        }
    }
}

TEST_P(Draw, lines_may_be_longer_than_any_that_are_worked_on_in_parts)
{
    constexpr int kLength = 4096 + 48;
    set_colours();
    for (const Format& format : kFormats) {
        for (const JobEntry entry : {format.plain, format.adjusted}) {
            MIX_INFO job = drawing(format, kLength, 1, 4 * kLength);
            const Bytes found = surface_after(kLength * format.bytes + 1, [&](uint8_t* to) {
                job.surface = to;
                run(entry, job);
            });
            Bytes expected = line_of(0, kLength, format.bytes);
            expected.push_back(kUntouched);
            EXPECT_EQ(found, expected);
        }
    }
}

TEST_P(Draw, each_alpha_counts_as_a_signed_number_and_in_16_bits_not_at_all)
{
    alpha = harness::counting(kRoom);
    y.assign(kRoom, 235);
    for (const Format& format : kFormats) {
        const Bytes line = part(drawn(format.plain, drawing(format, 256, 1, 1024)), kMiddle, 256 * format.bytes);
        for (size_t a = 0; a < 256; ++a) {
            EXPECT_EQ(part(line, a * format.bytes, format.bytes),
                      pixel(harness::kDrawn[1], static_cast<uint8_t>(a), format.bytes))
                << a;
        }
    }
}

TEST_P(Draw, the_keys_bytes_are_reversed_but_in_16_bits)
{
    constexpr struct {
        uint32_t key, drawn;
        uint16_t word;
    } kKeys[] = {{0x00FF00FF, 0xFF00FF, 0x00FF}, {0x000000FF, 0xFF0000, 0x00FF}, {0x00FF0000, 0x0000FF, 0x0000},
                 {0xFF123456, 0x563412, 0x3456}, {0xFF000000, 0x000000, 0x0000}, {0x8000F81F, 0x1FF800, 0xF81F}};
    for (const Format& format : kFormats) {
        for (const auto& [key, rgb, word] : kKeys) {
            MIX_INFO job = drawing(format, 16, 1, 64);
            job.color_key = key;
            for (const JobEntry entry : {format.plain, format.adjusted}) {
                const Bytes surface_after = drawn(entry, job);
                const Bytes one = little_endian(format.bytes == 2 ? word : rgb, format.bytes);
                EXPECT_EQ(part(surface_after, kMiddle, format.bytes), one) << key;
                EXPECT_EQ(part(surface_after, kMiddle + 15 * format.bytes, format.bytes), one) << key;
            }
        }
    }
}

TEST_P(Draw, both_pixels_of_a_pair_share_its_chroma)
{
    alpha.assign(kRoom, 127);
    v.assign(kRoom, 188); // 95 of red, -48 of green
    for (size_t i = 0; i < kRoom; ++i) y[i] = i % 2 == 0 ? 16 : 126;
    for (const Format& format : kFormats) {
        Bytes pair = little_endian(format.bytes == 2 ? 0b01011'000000'00000 : 0x5F0000, format.bytes);
        const Bytes odd = little_endian(format.bytes == 2 ? 0b11011'010100'10000 : 0xDF5080, format.bytes);
        pair.insert(pair.end(), odd.begin(), odd.end());
        const Bytes line = part(drawn(format.plain, drawing(format, 144, 1, 576)), kMiddle, 144 * format.bytes);
        for (size_t at = 0; at < line.size(); at += pair.size()) EXPECT_EQ(part(line, at, pair.size()), pair);
    }
}

TEST_P(Draw, samples_are_adjusted_before_they_are_converted)
{
    harness::set_adjustment({128, 32}, {-126, 4, 34});
    const harness::Drawn &plain = harness::kDrawn[3], &adjusted = harness::kDrawn[4];
    y.assign(kRoom, plain.y); // 252 - 126
    u.assign(kRoom, plain.u); // 64 + 4
    v.assign(kRoom, plain.v); // 94 + 34
    for (size_t i = 0; i < kRoom; ++i) alpha[i] = alpha_at(i);
    for (const Format& format : kFormats) {
        const MIX_INFO job = drawing(format, 144, 1, 576);
        const Bytes as_it_is = drawn(format.plain, job), changed = drawn(format.adjusted, job);
        for (size_t i = 0; i < 144; ++i) {
            const size_t at = kMiddle + i * format.bytes;
            EXPECT_EQ(part(as_it_is, at, format.bytes), pixel(plain, alpha_at(i), format.bytes)) << i;
            EXPECT_EQ(part(changed, at, format.bytes), pixel(adjusted, alpha_at(i), format.bytes)) << i;
        }
    }
}

TEST_P(Draw, gains_of_zero_give_green_where_the_key_does_not_show)
{
    harness::set_adjustment({0, 0});
    set_colours();
    for (const Format& format : kFormats) {
        const Bytes surface_after = drawn(format.adjusted, drawing(format, 48, 1, 200));
        for (size_t i = 0; i < 48; ++i) {
            EXPECT_EQ(part(surface_after, kMiddle + i * format.bytes, format.bytes),
                      pixel(harness::kDrawn[6], alpha_at(i), format.bytes));
        }
    }
}

// The pixels of a line in whole blocks of all planes, and how many of them are beyond its length.
constexpr struct Lines {
    int length, height;
    size_t lines, pixels;
    int beyond;
} kLines[] = {{16, 3, 3, 16, 0},       {32, 2, 2, 32, 0},  {144, 3, 3, 144, 0},
              {16, 1, 1, 16, 0},       {16, 0, 1, 16, 0},  /* at least one line */ {16, -3, 1, 16, 0},
              {48, INT_MIN, 1, 48, 0}, {20, 3, 3, 32, 12}, {1, 2, 2, 16, 15},
              {0, 2, 2, 16, 16}};

TEST_P(Draw, lines_are_as_long_as_the_pictures_pitch_and_planes_have_no_gaps)
{
    set_colours();
    for (const Format& format : kFormats) {
        for (const Lines& of : kLines) {
            const auto bytes = static_cast<int>(format.bytes);
            const int pitch = bytes * (of.length + 20) + 1;
            Bytes expected(kRoom, kUntouched);
            for (size_t line = 0; line < of.lines; ++line) {
                place(expected, kMiddle + line * static_cast<size_t>(pitch + bytes * of.beyond),
                      line_of(line * of.pixels, of.pixels, format.bytes));
            }
            for (const JobEntry entry : {format.plain, format.adjusted}) {
                surface.assign(kRoom, kUntouched);
                const MIX_INFO job = drawing(format, of.length, of.height, pitch);
                expect_record(run(entry, job), job);
                EXPECT_EQ(surface, expected) << "length " << of.length << ", height " << of.height;
            }
        }
    }
}

TEST_P(Draw, lines_may_run_upwards_or_over_each_other)
{
    set_colours();
    for (const Format& format : kFormats) {
        const auto bytes = static_cast<int>(format.bytes);
        for (const int pitch : {-112 * bytes - 3, bytes, -bytes, 0}) {
            Bytes expected(kRoom, kUntouched);
            for (int line = 0; line < 3; ++line) {
                place(expected, static_cast<size_t>(static_cast<int>(kMiddle) + line * pitch),
                      line_of(static_cast<size_t>(112 * line), 112, format.bytes));
            }
            EXPECT_EQ(drawn(format.plain, drawing(format, 112, 3, pitch)), expected) << pitch;
            EXPECT_EQ(drawn(format.adjusted, drawing(format, 112, 3, pitch)), expected) << pitch;
        }
    }
}

TEST_P(Draw, other_layouts_draw_nothing)
{
    const Format& format = kFormats[2];
    for (const int layout : {-1, 4, 5, 7, 256, 65536, INT_MAX, INT_MIN}) {
        contrast.rgb16_layout = layout;
        const MIX_INFO job = drawing(format, 16, 2, 32);
        for (const JobEntry entry : {format.plain, format.adjusted}) {
            expect_record(run(entry, job), job);
            EXPECT_EQ(surface, Bytes(kRoom, kUntouched)) << layout;
        }
    }
}

VSURF_ON_EVERY_TABLE(Draw);

} // namespace
