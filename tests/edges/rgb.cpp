// SPDX-License-Identifier: MIT
// The conversion to RGB and the three packings, with figures computed by hand.
#include "harness/fixture.h"

namespace {

using harness::Bytes;
using harness::Picture;
using vsurf::Kernels;

class Rgb : public harness::OnEveryTable {
protected:
    struct Pixel {
        int b, g, r, fourth;
        bool operator==(const Pixel&) const = default;
    };

    Pixel pixel(const Picture& p)
    {
        const Bytes surface = load(&Kernels::loadimage_rgb32, p, {16, 2, 16, 64}, 128);
        for (size_t i = 4; i < 128; ++i) EXPECT_EQ(surface[i], surface[i % 4]);
        return {surface[0], surface[1], surface[2], surface[3]};
    }

    static constexpr Entry kRgb16[] = {&Kernels::loadimage_rgb16, &Kernels::loadimage_rgb16_ajust};

    int word(const Picture& p, int layout, Entry entry)
    {
        ajust_contrast_info info = {};
        info.rgb16_layout = layout;
        const Bytes surface = load(entry, p, {16, 2, 16, 32}, 64, &info);
        return surface[0] | surface[1] << 8;
    }
};

TEST_P(Rgb, black_white_and_beyond)
{
    EXPECT_EQ(pixel(Picture(16)), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(pixel(Picture(235)), (Pixel{254, 254, 254, 0})); // not 255
    EXPECT_EQ(pixel(Picture(255)), (Pixel{255, 255, 255, 0})); // 278, saturated
    EXPECT_EQ(pixel(Picture(0)), (Pixel{0, 0, 0, 0}));         // -19, saturated
    EXPECT_EQ(pixel(Picture(17)), (Pixel{1, 1, 1, 0}));
}

TEST_P(Rgb, the_highest_u_gives_full_blue_from_black_on)
{
    for (int y = 16; y < 256; ++y) EXPECT_EQ(pixel(Picture(static_cast<uint8_t>(y), 255)).b, 255);
    EXPECT_EQ(pixel(Picture(0, 255)).b, 237); // 256 - 19
}

TEST_P(Rgb, all_zero_samples_give_green) { EXPECT_EQ(pixel(Picture(0, 0, 0)), (Pixel{0, 137, 0, 0})); }

TEST_P(Rgb, red_takes_v_and_blue_takes_u)
{
    // Y' 110 gives 128; V' 60 gives rv 95 and gv 48, U' 0 nothing.
    EXPECT_EQ(pixel(Picture(126, 128, 188)), (Pixel{128, 80, 223, 0}));
    // U' -60 gives bu -122 (from -121.08) and gu -24 (from -23.46).
    EXPECT_EQ(pixel(Picture(126, 68, 128)), (Pixel{6, 152, 128, 0}));
}

TEST_P(Rgb, rgb24_of_one_block_writes_48_bytes_a_line_pixel_n_at_3n)
{
    Picture p;
    for (size_t i = 0; i < 32; ++i) p.y[i] = static_cast<uint8_t>(20 + 7 * i);
    p.v.assign(p.v.size(), 140);
    const Bytes wide = load(&Kernels::loadimage_rgb32, p, {16, 2, 16, 64}, 128);
    const Bytes surface = load(&Kernels::loadimage_rgb24, p, {16, 2, 16, 100}, 200);
    for (size_t line = 0; line < 2; ++line) {
        for (size_t n = 0; n < 16; ++n) {
            EXPECT_EQ(harness::part(surface, line * 100 + 3 * n, 3), harness::part(wide, line * 64 + 4 * n, 3));
        }
        EXPECT_EQ(harness::part(surface, line * 100 + 48, 52), Bytes(52, kUntouched));
    }
}

TEST_P(Rgb, white_in_the_16_bit_layouts)
{
    for (const Entry entry : kRgb16) {
        EXPECT_EQ(word(Picture(255), 0, entry), 0xFFFF);
        EXPECT_EQ(word(Picture(255), 1, entry), 0xFFFE); // blue in bits 1 to 5, bit 0 zero
        EXPECT_EQ(word(Picture(255), 2, entry), 0xFFFF);
        EXPECT_EQ(word(Picture(255), 3, entry), 0xFFFF);
        EXPECT_EQ(word(Picture(235), 0, entry), 0xFFFF); // 254 has the same high bits
    }
}

TEST_P(Rgb, blue_alone_in_the_16_bit_layouts)
{
    // Y 16, U 247, V 128: bu is 240 (from 240.14), red 0, and green far below zero.
    const Picture blue(16, 247);
    ASSERT_EQ(pixel(blue), (Pixel{240, 0, 0, 0}));
    for (const Entry entry : kRgb16) {
        EXPECT_EQ(word(blue, 0, entry), 0x001E);
        EXPECT_EQ(word(blue, 1, entry), 0x003C);
        EXPECT_EQ(word(blue, 2, entry), 0x000F);
        EXPECT_EQ(word(blue, 3, entry), 0x001E);
    }
}

TEST_P(Rgb, each_component_sits_where_its_layout_says)
{
    // 128, 80, 223 as above: B 10000000, G 01010000, R 11011111.
    const Picture p(126, 128, 188);
    for (const Entry entry : kRgb16) {
        EXPECT_EQ(word(p, 0, entry), 0b11011'010100'10000);
        EXPECT_EQ(word(p, 1, entry), 0b11011'01010'10000'0);
        EXPECT_EQ(word(p, 2, entry), 0b110111'010100'1000);
        EXPECT_EQ(word(p, 3, entry), 0b110111'01010'10000);
    }
}

TEST_P(Rgb, unknown_layouts_leave_the_surface_untouched)
{
    for (const Entry entry : kRgb16) {
        for (const int layout : {-1, 4, 5, 6, 7, 256, 65536, INT32_MAX, INT32_MIN}) {
            ajust_contrast_info info = {};
            info.rgb16_layout = layout;
            EXPECT_EQ(load(entry, Picture(235), {16, 2, 16, 32}, 64, &info), Bytes(64, kUntouched)) << layout;
        }
    }
}

TEST_P(Rgb, a_black_picture_gives_zero_bytes_throughout)
{
    EXPECT_EQ(load(&Kernels::loadimage_rgb32, Picture(), {64, 8, 64, 256}, 2048), Bytes(2048, 0));
}

VSURF_ON_EVERY_TABLE(Rgb);

} // namespace
