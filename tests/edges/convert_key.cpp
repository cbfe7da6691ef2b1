// SPDX-License-Identifier: MIT
// What conversions leave as it is: blocks of the key colour.
#include "edges/convert.h"

namespace {

using harness::Bytes;
using harness::Colour;

class ConvertKey : public harness::OnEveryConversion {
protected:
    // Whether a block of a colour is there after the call.
    bool converts(const Format& format, uint32_t pixel, uint32_t key)
    {
        for (size_t x = 0; x < 8; ++x) draw(format, x, pixel);
        convert(format, line(key, 8));
        const Bytes untouched(kRoom, kUntouched);
        const bool left = y == untouched && u == untouched && v == untouched;
        EXPECT_NE(left, harness::part(y, 0, 8) == Bytes(8, y[0]) && y[0] != kUntouched);
        return !left;
    }
};

TEST_P(ConvertKey, runs_of_transparent_blocks_leave_the_planes)
{
    constexpr size_t kBlocks = kWide / 8;
    for (const Format& format : kFormats) {
        for (size_t first = 0; first < kBlocks; ++first) {
            for (size_t end = first + 1; end <= kBlocks; ++end) {
                Expected expected;
                for (size_t x = 0; x < kWide; ++x) {
                    const bool transparent = x / 8 >= first && x / 8 < end;
                    draw(format, x, transparent ? format.key.pixel : format.colour(x).pixel);
                    if (!transparent) expected.set(x, format.colour(x));
                }
                convert(format, line(format.key.pixel));
                expect(expected, std::to_string(first) + " to " + std::to_string(end));
            }
        }
    }
}

TEST_P(ConvertKey, a_block_is_converted_whole_where_one_pixel_is_not_the_key)
{
    for (const Format& format : kFormats) {
        for (size_t other = 0; other < kWide; ++other) {
            Expected expected;
            for (size_t x = 0; x < kWide; ++x) {
                const Colour& colour = x == other ? format.colour(x) : format.key;
                draw(format, x, colour.pixel);
                if (x / 8 == other / 8) expected.set(x, colour);
            }
            convert(format, line(format.key.pixel));
            expect(expected, std::to_string(other));
        }
    }
}

TEST_P(ConvertKey, every_bit_of_a_pixel_counts)
{
    for (const Format& format : kFormats) {
        for (size_t bit = 0; bit < 8 * format.bytes; ++bit) {
            const size_t other = (5 * bit + bit / 8) % kWide;
            Expected expected;
            for (size_t x = 0; x < kWide; ++x) {
                draw(format, x, format.key.pixel);
                if (x / 8 == other / 8) expected.set(x, format.key);
            }
            draw(format, other, format.key.pixel ^ 1u << bit);
            convert(format, line(format.key.pixel));
            expected.y[other] = y[other]; // whatever colour that is
            expected.u[other / 2] = u[other / 2];
            expected.v[other / 2] = v[other / 2];
            expect(expected, std::to_string(bit));
        }
    }
}

TEST_P(ConvertKey, the_whole_pixel_or_24_bits_or_the_low_half_of_the_key_counts)
{
    const auto& [rgb32, rgb24, rgb16] = kFormats;
    const struct {
        const Format& format;
        uint32_t pixel, key;
        bool converted;
    } kPairs[] = {
        {rgb32, 0x00FF00FF, 0x00FF00FF, false}, {rgb32, 0x80FF00FF, 0x80FF00FF, false},
        {rgb32, 0xFFFFFFFF, 0xFFFFFFFF, false}, {rgb32, 0x01FF00FF, 0x00FF00FF, true},
        {rgb32, 0x00FF00FF, 0x80FF00FF, true},  {rgb24, 0xFF00FF, 0x00FF00FF, false},
        {rgb24, 0x123456, 0x00123456, false},   {rgb24, 0xFF00FF, 0x01FF00FF, true}, // a top byte matches nothing
        {rgb24, 0xFFFFFF, 0xFFFFFFFF, true},    {rgb24, 0x000000, 0x80000000, true},
        {rgb16, 0xF81F, 0x0000F81F, false},     {rgb16, 0xF81F, 0x1234F81F, false},
        {rgb16, 0x0000, 0xFFFF0000, false},     {rgb16, 0xF81F, 0xF81F0000, true},
    };
    for (const auto& [format, pixel, key, converted] : kPairs) {
        EXPECT_EQ(converts(format, pixel, key), converted) << format.bytes << ", " << pixel << ", " << key;
    }
}

TEST_P(ConvertKey, what_follows_a_line_does_not_count)
{
    for (const Format& format : kFormats) {
        for (const uint32_t next : {0u, ~0u}) {
            for (size_t x = 0; x < kWide + 8; ++x) draw(format, x, x < kWide ? format.key.pixel : next);
            convert(format, line(format.key.pixel));
            expect({});
        }
    }
}

TEST_P(ConvertKey, transparent_lines_move_the_record_as_well)
{
    for (const Format& format : kFormats) {
        for (size_t x = 0; x < 3 * 24; ++x) draw(format, x, format.key.pixel);
        const MIX_INFO job = record({24, 3, kUnread, 40, 24 * static_cast<int>(format.bytes), format.key.pixel});
        MIX_INFO moved = job;
        moved.subpic_y += 3 * 40;
        moved.subpic_u += 3 * 20;
        moved.subpic_v += 3 * 20;
        moved.subpic_alpha += 3 * 16;
        expect_record(convert(format, job), moved);
        expect({});
    }
}

VSURF_ON_EVERY_TABLE(ConvertKey);

} // namespace
