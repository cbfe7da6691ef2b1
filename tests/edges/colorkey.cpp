// SPDX-License-Identifier: MIT
// Rectangles filled with a colour key, and bytes replaced by one.
#include "edges/bytes.h"

#include <climits>

namespace {

using harness::Bytes;
using harness::place;
using vsurf::Kernels;

constexpr size_t kRoom = 8192;
constexpr int kMiddle = 3000; // where lines may go either way

using FillEntry = void (*Kernels::*)(unsigned, void*, int, int, int, int);

// The bytes that a block of sixteen pixels repeats.
struct Filled {
    FillEntry fill;
    int bytes; // a pixel
    uint32_t colour;
    Bytes repeated;

    Bytes block() const
    {
        Bytes found;
        while (found.size() < static_cast<size_t>(16 * bytes)) {
            found.insert(found.end(), repeated.begin(), repeated.end());
        }
        return found;
    }
};

const std::vector<Filled>& fills()
{
    static const std::vector<Filled> all = {
        {&Kernels::LoadColorKeyRgb32, 4, 0x44332211, {0x11, 0x22, 0x33, 0x44}},
        {&Kernels::LoadColorKeyRgb32, 4, 0x00FF00FF, {0xFF, 0x00, 0xFF, 0x00}},
        {&Kernels::LoadColorKeyRgb16, 2, 0x12345678, {0x78, 0x56}},
        {&Kernels::LoadColorKeyRgb16, 2, 0x0000F81F, {0x1F, 0xF8}},
        {&Kernels::LoadColorKeyRgb24, 3, 0x00332211, {0x22, 0x33, 0x11, 0x22, 0x33, 0x11, 0x22, 0x33, //
                                                      0x33, 0x11, 0x22, 0x33, 0x11, 0x22, 0x33, 0x11, //
                                                      0x11, 0x22, 0x33, 0x11, 0x22, 0x33, 0x11, 0x22}},
        {&Kernels::LoadColorKeyRgb24, 3, 0x33221100, {0x11, 0x22, 0x33, 0x11, 0x22, 0x33, 0x11, 0x22, //
                                                      0x22, 0x33, 0x11, 0x22, 0x33, 0x11, 0x22, 0x33, //
                                                      0x00, 0x11, 0x22, 0x33, 0x11, 0x22, 0x33, 0x11}},
        // The top byte and the lowest meet: 0x80 | 0x01.
        {&Kernels::LoadColorKeyRgb24, 3, 0x80000001, {0x00, 0x00, 0x81, 0x00, 0x00, 0x81, 0x00, 0x00, //
                                                      0x00, 0x81, 0x00, 0x00, 0x81, 0x00, 0x00, 0x81, //
                                                      0x01, 0x00, 0x00, 0x81, 0x00, 0x00, 0x81, 0x00}},
        {&Kernels::LoadColorKeyRgb24, 3, 0x00FFFFFF, {0xFF}},
    };
    return all;
}

class ColorKey : public harness::OnEveryTable {
protected:
    Bytes filled(const Filled& by, int width, int height, int pitch, int reserved = 0)
    {
        return surface_after(kRoom, [&](uint8_t* surface) {
            (table().*by.fill)(by.colour, surface + kMiddle, width, height, reserved, pitch);
        });
    }

    // `count` passes of `blocks` blocks, each begun `step` bytes after the one before, its lines a pitch apart.
    static Bytes passes(const Filled& by, int count, int blocks, int step, int pitch)
    {
        Bytes surface(kRoom, kUntouched);
        for (int pass = 0; pass < count; ++pass) {
            for (int block = 0; block < blocks; ++block) {
                const int at = kMiddle + pass * step + 16 * by.bytes * block;
                place(surface, static_cast<size_t>(at), by.block());
                place(surface, static_cast<size_t>(at + pitch), by.block());
            }
        }
        return surface;
    }
};

TEST_P(ColorKey, fills_two_lines_at_a_time)
{
    for (const Filled& by : fills()) {
        const int pitch = 16 * by.bytes + 5;
        for (const auto& [height, count] : {std::pair{0, 0}, {1, 1}, {2, 1}, {3, 2}, {4, 2}, {5, 3}}) {
            EXPECT_EQ(filled(by, 16, height, pitch), passes(by, count, 1, 2 * pitch, pitch)) << height;
        }
    }
}

TEST_P(ColorKey, fills_blocks_of_sixteen_pixels_and_drifts)
{
    constexpr struct {
        int width, blocks, beyond; // the width, in pixels
    } kWidths[] = {{0, 1, 16},  {1, 1, 15},   {15, 1, 1},  {16, 1, 0},   {17, 2, 15},  {20, 2, 12},
                   {32, 2, 0},  {48, 3, 0},   {64, 4, 0},  {80, 5, 0},   {96, 6, 0},   {112, 7, 0},
                   {128, 8, 0}, {129, 9, 15}, {144, 9, 0}, {176, 11, 0}, {240, 15, 0}, {256, 16, 0}};
    for (const Filled& by : fills()) {
        for (const auto& [width, blocks, beyond] : kWidths) {
            const int pitch = 16 * by.bytes * blocks + 3;
            const int step = 2 * pitch + by.bytes * beyond;
            EXPECT_EQ(filled(by, width, 3, pitch), passes(by, 2, blocks, step, pitch)) << width;
        }
    }
}

TEST_P(ColorKey, fills_upwards_and_over_what_it_filled)
{
    for (const Filled& by : fills()) {
        for (const int pitch : {-112 * by.bytes - 1, -1, 0, 1, by.bytes, 16 * by.bytes, 100 * by.bytes}) {
            EXPECT_EQ(filled(by, 112, 4, pitch), passes(by, 2, 7, 2 * pitch, pitch)) << pitch;
        }
    }
}

TEST_P(ColorKey, the_fifth_argument_is_ignored)
{
    for (const Filled& by : fills()) {
        for (const int reserved : {-1, 1, INT_MIN, INT_MAX}) {
            EXPECT_EQ(filled(by, 32, 2, 200, reserved), filled(by, 32, 2, 200));
        }
    }
}

VSURF_ON_EVERY_TABLE(ColorKey);

class Mask : public harness::OnEveryTable {
protected:
    struct By {
        unsigned match, key;
        int width, pitch, height;
    };

    Bytes replaced(const By& by)
    {
        Bytes changed = dst;
        Bytes mask_after = mask;
        GetParam().apply();
        table().RelaceMaskWithColorKey(changed.data() + kMiddle, mask_after.data() + kMiddle, by.match, by.key,
                                       by.width, by.pitch, by.height);
        EXPECT_EQ(mask_after, mask);
        return changed;
    }

    // The destination where lines of this many bytes are all selected.
    Bytes lines(int count, int bytes, int step, uint8_t key) const
    {
        Bytes changed = dst;
        for (int line = 0; line < count; ++line) {
            place(changed, static_cast<size_t>(kMiddle + line * step), Bytes(static_cast<size_t>(bytes), key));
        }
        return changed;
    }

    Bytes dst = harness::counting(kRoom, 7), mask = Bytes(kRoom, 0);
};

TEST_P(Mask, selects_single_bytes)
{
    for (size_t i = 0; i < kRoom; ++i) mask[i] = static_cast<uint8_t>(i % 3 == 1 ? 0 : i | 1);
    Bytes expected = dst;
    for (size_t i = kMiddle; i < kMiddle + 112; ++i) {
        if (i % 3 == 1) expected[i] = 0x10;
    }
    EXPECT_EQ(replaced({0x00, 0x10, 112, 112, 1}), expected);
}

TEST_P(Mask, compares_all_eight_bits_of_the_match_and_no_more)
{
    for (size_t i = 0; i < kRoom; ++i) mask[i] = static_cast<uint8_t>(i - kMiddle);
    for (unsigned match = 0; match < 0x200; ++match) {
        Bytes expected = dst;
        expected[kMiddle + match % 0x100] = 0xAB;
        EXPECT_EQ(replaced({match, 0x1AB, 256, 256, 1}), expected) << match;
    }
    EXPECT_EQ(replaced({0xFFFFFF00, 0xFFFFFF10, 16, 16, 1})[kMiddle], 0x10);
}

TEST_P(Mask, keeps_everything_where_nothing_is_selected) { EXPECT_EQ(replaced({0x01, 0x10, 112, 112, 5}), dst); }

TEST_P(Mask, takes_a_line_even_of_height_zero)
{
    EXPECT_EQ(replaced({0, 0x10, 16, 40, 0}), lines(1, 16, 40, 0x10));
    EXPECT_EQ(replaced({0, 0x10, 16, 40, 1}), lines(1, 16, 40, 0x10));
    EXPECT_EQ(replaced({0, 0x10, 16, 40, 3}), lines(3, 16, 40, 0x10));
}

TEST_P(Mask, takes_whole_blocks_and_drifts)
{
    EXPECT_EQ(replaced({0, 0x10, 20, 40, 4}), lines(4, 32, 52, 0x10));
    EXPECT_EQ(replaced({0, 0x10, 0, 40, 4}), lines(4, 16, 56, 0x10));
    EXPECT_EQ(replaced({0, 0x10, 1, 40, 4}), lines(4, 16, 55, 0x10));
    for (int width = 16; width <= 272; width += 16) {
        EXPECT_EQ(replaced({0, 0x10, width, 280, 2}), lines(2, width, 280, 0x10)) << width;
    }
}

TEST_P(Mask, moves_in_both_pictures_alike)
{
    // The third line of a width of 20, at 2 * 52: one byte of its second block.
    mask.assign(kRoom, 1);
    mask[kMiddle + 2 * 52 + 31] = 0;
    Bytes expected = dst;
    expected[kMiddle + 2 * 52 + 31] = 0x10;
    EXPECT_EQ(replaced({0, 0x10, 20, 40, 3}), expected);
    EXPECT_EQ(replaced({0, 0x10, 20, 40, 2}), dst);
}

TEST_P(Mask, pictures_may_run_upwards_or_overlap_themselves)
{
    for (const int pitch : {-112, -40, -1, 0, 1, 16}) {
        EXPECT_EQ(replaced({0, 0x10, 112, pitch, 3}), lines(3, 112, pitch, 0x10)) << pitch;
    }
}

TEST_P(Mask, a_picture_may_be_its_own_mask)
{
    for (const int width : {16, 20, 112}) {
        Bytes picture = harness::counting(kRoom), expected = picture;
        const int line = (width + 15) / 16 * 16, step = line - width + 120;
        for (const int at : {kMiddle, kMiddle + step}) {
            for (int i = at; i < at + line; ++i) {
                if (picture[static_cast<size_t>(i)] == 0xC3) expected[static_cast<size_t>(i)] = 0x10;
            }
        }
        GetParam().apply();
        table().RelaceMaskWithColorKey(picture.data() + kMiddle, picture.data() + kMiddle, 0xC3, 0x10, width, 120, 2);
        EXPECT_EQ(picture, expected) << width;
    }
}

VSURF_ON_EVERY_TABLE(Mask);

} // namespace
