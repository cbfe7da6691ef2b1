// SPDX-License-Identifier: MIT
// Packed pictures onto surfaces: the upper line's chroma is used for both lines of a pass, and nothing drifts.
#include "harness/fixture.h"

#include <algorithm>

namespace {

using harness::Bytes;
using harness::counting;
using harness::flat_yuy2;
using harness::part;
using vsurf::Kernels;

class Packed : public harness::OnEveryTable {
protected:
    // The pointers that the planar loaders need are null here.
    Bytes packed(Entry entry, const Bytes& src, Size size, size_t bytes, ajust_contrast_info* info = nullptr)
    {
        return surface_after(bytes, [&](uint8_t* dst) {
            (table().*entry)(plane(src), nullptr, nullptr, dst, size.width, size.height, size.y_pitch, size.dst_pitch,
                             info);
        });
    }

    // The first pixel of a picture of one colour, as 32, 24 and 16 bits show it alike.
    void expect_bgr(const Bytes& source, const Bytes& bgr, bool adjusted)
    {
        ajust_contrast_info info = {};
        const Size size = {16, 2, 16, 64};
        const auto k32 = adjusted ? &Kernels::LoadYUY2_RGB32_adjust : &Kernels::LoadYUY2_RGB32;
        const auto k24 = adjusted ? &Kernels::LoadYUY2_RGB24_adjust : &Kernels::LoadYUY2_RGB24;
        const auto k16 = adjusted ? &Kernels::LoadYUY2_RGB16_adjust : &Kernels::LoadYUY2_RGB16;
        const Bytes in32 = packed(k32, source, size, 128), in24 = packed(k24, source, size, 128);
        const Bytes in16 = packed(k16, source, size, 128, &info);
        const int word = (bgr[2] & 0xF8) << 8 | (bgr[1] & 0xFC) << 3 | bgr[0] >> 3;
        for (size_t line : {0u, 64u}) {
            EXPECT_EQ(part(in32, line, 3), bgr);
            EXPECT_EQ(in32[line + 3], 0);
            EXPECT_EQ(part(in24, line, 3), bgr);
            EXPECT_EQ(in16[line] | in16[line + 1] << 8, word);
        }
    }
};

constexpr struct {
    harness::LoaderFunction Kernels::*entry;
    size_t bytes; // a pixel
} kRgb[] = {
    {&Kernels::LoadYUY2_RGB32, 4},        {&Kernels::LoadYUY2_RGB24, 3},        {&Kernels::LoadYUY2_RGB16, 2},
    {&Kernels::LoadYUY2_RGB32_adjust, 4}, {&Kernels::LoadYUY2_RGB24_adjust, 3}, {&Kernels::LoadYUY2_RGB16_adjust, 2},
};

constexpr harness::LoaderFunction Kernels::*kYuy2[] = {&Kernels::LoadYUY2_YUY2, &Kernels::LoadYUY2_YUY2_adjust};

TEST_P(Packed, yuy2_gives_both_lines_the_chroma_of_the_upper)
{
    for (const int width : {8, 16, 56, 64, 120}) {
        const size_t line = 2 * static_cast<size_t>(width);
        Bytes expected = counting(2 * line);
        for (size_t i = 1; i < line; i += 2) expected[line + i] = expected[i];
        const Size size = {width, 2, width, 2 * width};
        for (const Entry entry : kYuy2) EXPECT_EQ(packed(entry, counting(2 * line), size, 2 * line), expected) << width;
    }
}

TEST_P(Packed, yuy2_of_width_4_writes_16_bytes_a_line)
{
    Bytes expected(64, kUntouched);
    std::fill_n(expected.begin(), 16, uint8_t{7});
    std::fill_n(expected.begin() + 32, 16, uint8_t{7});
    for (const int width : {0, 1, 4, 8}) {
        for (const Entry entry : kYuy2) EXPECT_EQ(packed(entry, Bytes(64, 7), {width, 2, 8, 32}, 64), expected);
    }
}

TEST_P(Packed, yuy2_of_height_3_takes_luma_from_the_fourth_line_and_chroma_from_the_third)
{
    Bytes expected = counting(80);
    for (size_t i = 1; i < 16; i += 2) {
        expected[16 + i] = static_cast<uint8_t>(i);
        expected[48 + i] = static_cast<uint8_t>(32 + i);
    }
    std::fill_n(expected.begin() + 64, 16, kUntouched);
    for (const Entry entry : kYuy2) EXPECT_EQ(packed(entry, counting(80), {8, 3, 8, 16}, 80), expected);
}

TEST_P(Packed, yuy2_of_height_0_writes_two_lines)
{
    for (const Entry entry : kYuy2) {
        const Bytes surface = packed(entry, Bytes(64, 7), {8, 0, 8, 16}, 64);
        EXPECT_EQ(part(surface, 0, 32), Bytes(32, 7));
        EXPECT_EQ(part(surface, 32, 32), Bytes(32, kUntouched));
    }
}

// Source lines are twice their pitch apart, surface lines theirs; three blocks of a line do not move the next.
TEST_P(Packed, yuy2_of_width_20_does_not_drift)
{
    Bytes source;
    for (int line = 0; line < 6; ++line) source.insert(source.end(), 60, static_cast<uint8_t>(40 + line));
    const Bytes luma = {40, 41, 42, 43, 44, 45}, chroma = {40, 40, 42, 42, 44, 44};
    for (const Entry entry : kYuy2) {
        const Bytes surface = packed(entry, source, {20, 6, 30, 101}, 6 * 101);
        for (size_t at = 0; at < surface.size(); ++at) {
            const size_t line = at / 101, in_line = at % 101;
            const uint8_t expected = in_line >= 48 ? kUntouched : in_line % 2 == 0 ? luma[line] : chroma[line];
            EXPECT_EQ(surface[at], expected) << at;
        }
    }
}

TEST_P(Packed, yuy2_adjusts_each_sample_once)
{
    harness::set_adjustment({128, 128}, {1, 2, 3});
    const Bytes surface = packed(&Kernels::LoadYUY2_YUY2_adjust, flat_yuy2(112, 50, 60, 70), {56, 2, 56, 112}, 224);
    EXPECT_EQ(surface, flat_yuy2(112, 101, 122, 143));
}

TEST_P(Packed, yuy2_saturates_a_doubled_luma)
{
    harness::set_adjustment({128, 64});
    EXPECT_EQ(packed(&Kernels::LoadYUY2_YUY2_adjust, flat_yuy2(16, 200, 60, 70), {8, 2, 8, 16}, 32),
              flat_yuy2(16, 255, 60, 70));
}

TEST_P(Packed, rgb_of_black_and_white)
{
    for (const bool adjusted : {false, true}) {
        expect_bgr(flat_yuy2(32, 16, 128, 128), {0, 0, 0}, adjusted);
        expect_bgr(flat_yuy2(32, 235, 128, 128), {254, 254, 254}, adjusted);
        expect_bgr(flat_yuy2(32, 255, 128, 128), {255, 255, 255}, adjusted);
    }
}

TEST_P(Packed, rgb_adjusts_before_it_converts)
{
    harness::set_adjustment({128, 128}, {0, 8, -8});
    // 200, 128, 128: (184 * 4 * 19071) >> 16 is 214.
    expect_bgr(flat_yuy2(32, 100, 60, 68), {214, 214, 214}, true);
    harness::set_adjustment({64, 64}, {6, 119, 0});
    // 16, 247, 128: blue 240, and green below zero.
    expect_bgr(flat_yuy2(32, 10, 128, 128), {240, 0, 0}, true);
}

TEST_P(Packed, rgb_lines_that_differ_in_chroma_alone_show_the_same_colours)
{
    ajust_contrast_info info = {};
    Bytes source;
    for (size_t i = 0; i < 224; ++i) source.push_back(static_cast<uint8_t>(i % 2 == 0 ? i % 112 : 40 + i * i));
    for (const auto& [entry, bytes] : kRgb) {
        const Bytes surface = packed(entry, source, {56, 2, 56, 300}, 600, &info);
        EXPECT_EQ(part(surface, 0, 56 * bytes), part(surface, 300, 56 * bytes));
    }
}

TEST_P(Packed, rgb_each_line_has_its_own_luma)
{
    Bytes source = flat_yuy2(16, 16, 128, 128);
    const Bytes lower = flat_yuy2(16, 235, 128, 128);
    source.insert(source.end(), lower.begin(), lower.end());
    ajust_contrast_info info = {};
    for (const auto& [entry, bytes] : kRgb) {
        const Bytes surface = packed(entry, source, {16, 2, 16, 64}, 128, &info);
        EXPECT_EQ(surface[0], 0);
        EXPECT_GE(surface[64], 254);
    }
}

TEST_P(Packed, rgb_a_chroma_pair_belongs_to_two_pixels)
{
    Bytes source = flat_yuy2(32, 16, 128, 128);
    source[4 * 3 + 1] = 247; // blue, as above
    const Bytes surface = packed(&Kernels::LoadYUY2_RGB32, source, {16, 2, 16, 64}, 128);
    for (size_t pixel = 0; pixel < 32; ++pixel) {
        EXPECT_EQ(surface[4 * pixel], pixel % 16 / 2 == 3 ? 240 : 0) << pixel;
    }
}

TEST_P(Packed, rgb_of_width_20_writes_32_pixels_a_line_and_does_not_drift)
{
    ajust_contrast_info info = {};
    Bytes source = flat_yuy2(4 * 40, 235, 128, 128);
    for (const auto& [entry, bytes] : kRgb) {
        const Bytes surface = packed(entry, source, {20, 4, 40, 200}, 800, &info);
        for (size_t at = 0; at < surface.size(); ++at) {
            EXPECT_EQ(surface[at] != kUntouched, at % 200 < 32 * bytes) << at << ", " << bytes;
        }
    }
}

TEST_P(Packed, rgb16_has_four_layouts)
{
    const Bytes blue = flat_yuy2(32, 16, 247, 128), white = flat_yuy2(32, 235, 128, 128); // blue 240, white 254
    const int blues[] = {0x001E, 0x003C, 0x000F, 0x001E}, whites[] = {0xFFFF, 0xFFFE, 0xFFFF, 0xFFFF};
    ajust_contrast_info info = {};
    for (const Entry entry : {&Kernels::LoadYUY2_RGB16, &Kernels::LoadYUY2_RGB16_adjust}) {
        for (int layout = 0; layout < 4; ++layout) {
            info.rgb16_layout = layout;
            const Bytes b = packed(entry, blue, {16, 2, 16, 32}, 64, &info);
            const Bytes w = packed(entry, white, {16, 2, 16, 32}, 64, &info);
            EXPECT_EQ(b[0] | b[1] << 8, blues[layout]);
            EXPECT_EQ(w[0] | w[1] << 8, whites[layout]);
        }
    }
}

TEST_P(Packed, rgb16_of_unknown_layouts_leaves_the_surface_untouched)
{
    ajust_contrast_info info = {};
    for (const Entry entry : {&Kernels::LoadYUY2_RGB16, &Kernels::LoadYUY2_RGB16_adjust}) {
        for (const int layout : {-1, 4, 5, 256, INT32_MIN}) {
            info.rgb16_layout = layout;
            EXPECT_EQ(packed(entry, flat_yuy2(32, 235, 128, 128), {16, 2, 16, 32}, 64, &info), Bytes(64, kUntouched));
        }
    }
}

VSURF_ON_EVERY_TABLE(Packed);

} // namespace
