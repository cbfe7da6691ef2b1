// SPDX-License-Identifier: MIT
// Layers of coverage with a colour, as one drawing of colours on a key and one of opacities.
#include "tools/drawing.h"
#include <cstring>
#include <gtest/gtest.h>

namespace player_test {
namespace {

using player::Canvas;
using player::Drawing;

constexpr Canvas kCanvas{30, 9, 32, 10};

// A rectangle that is covered alike; the next one is above it.
struct Layer {
    std::vector<unsigned char> coverage;
    ASS_Image image{};

    Layer(int x, int y, int width, int height, uint32_t colour, unsigned char covered = 255, Layer* next = nullptr)
        : coverage(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), covered)
    {
        image.w = image.stride = width;
        image.h = height;
        image.bitmap = coverage.data();
        image.color = colour;
        image.dst_x = x;
        image.dst_y = y;
        image.next = next ? &next->image : nullptr;
    }
};

class Drawn : public testing::Test {
protected:
    static uint32_t at(const player::Surface& surface, int x, int y)
    {
        uint32_t pixel;
        std::memcpy(&pixel, surface.bytes() + y * surface.pitch() + 4 * x, 4);
        return pixel;
    }
    uint32_t colour(int x, int y) const { return at(drawing_.colours(), x, y); }
    uint32_t opacity(int x, int y) const { return at(drawing_.opacities(), x, y); }

    Drawing drawing_;
};

TEST_F(Drawn, nothing_is_the_key_throughout)
{
    drawing_.compose(nullptr, kCanvas);
    EXPECT_EQ(drawing_.colours().width(), 32);
    EXPECT_EQ(drawing_.opacities().height(), 10);
    for (int y = 0; y < 10; y++) {
        for (int x = 0; x < 32; x++) {
            ASSERT_EQ(colour(x, y), Drawing::kKey);
            ASSERT_EQ(opacity(x, y), 0U);
        }
    }
}

TEST_F(Drawn, colour_and_opacity_of_one_layer)
{
    Layer opaque(4, 2, 6, 3, 0x123456'00), half(20, 2, 2, 2, 0xff8001'00, 128), faint(24, 2, 2, 2, 0x010203'00, 7);
    opaque.image.next = &half.image;
    half.image.next = &faint.image;
    drawing_.compose(&opaque.image, kCanvas);
    EXPECT_EQ(colour(4, 2), 0x123456U);
    EXPECT_EQ(opacity(9, 4), 16U);
    EXPECT_EQ(colour(10, 4), Drawing::kKey);
    EXPECT_EQ(colour(4, 5), Drawing::kKey);
    EXPECT_EQ(colour(21, 3), 0xff8001U);
    EXPECT_EQ(opacity(21, 3), 8U);
    EXPECT_EQ(colour(24, 2), Drawing::kKey) << "less than half of the least opacity";
    EXPECT_EQ(opacity(24, 2), 0U);
}

// Every drawn colour, the key's own three bytes among them, differs from the key.
TEST_F(Drawn, black_is_not_the_key)
{
    Layer black(0, 0, 8, 2, 0x000000'00);
    drawing_.compose(&black.image, kCanvas);
    EXPECT_EQ(colour(0, 0), 0U);
    EXPECT_NE(colour(0, 0), colour(8, 0));
}

TEST_F(Drawn, transparency_of_a_layer_counts_as_much_as_coverage)
{
    Layer layer(0, 0, 8, 2, 0xffffff'80);
    drawing_.compose(&layer.image, kCanvas);
    EXPECT_EQ(opacity(3, 1), 8U);
    EXPECT_EQ(colour(3, 1), 0xffffffU);
}

// Half of red over half of blue: a quarter is blue, half is red, three quarters are covered.
TEST_F(Drawn, layers_lie_over_each_other)
{
    Layer red(4, 0, 8, 8, 0xff0000'80), blue(0, 0, 8, 8, 0x0000ff'80, 255, &red);
    drawing_.compose(&blue.image, kCanvas);
    EXPECT_EQ(colour(2, 2), 0x0000ffU);
    EXPECT_EQ(opacity(5, 2), 12U);
    EXPECT_NEAR(static_cast<int>(colour(5, 2) >> 16), 170, 1);
    EXPECT_NEAR(static_cast<int>(colour(5, 2) & 255), 85, 1);
    Layer white(0, 0, 4, 4, 0xffffff'00), black(0, 0, 4, 4, 0x000000'00, 255, &white);
    drawing_.compose(&black.image, kCanvas);
    EXPECT_EQ(colour(0, 0), 0xffffffU) << "the last one lies on top";
}

TEST_F(Drawn, even_pixel_has_the_colour_of_its_odd_one_where_that_alone_is_seen)
{
    Layer layer(5, 0, 4, 1, 0x345678'00);
    drawing_.compose(&layer.image, kCanvas);
    EXPECT_EQ(colour(4, 0), 0x345678U);
    EXPECT_EQ(opacity(4, 0), 0U);
    EXPECT_EQ(colour(9, 0), Drawing::kKey) << "the odd one of the last pair";
}

TEST_F(Drawn, what_reaches_beyond_the_picture_is_cut_and_its_edge_repeated)
{
    Layer layer(-3, -2, 60, 40, 0x112233'00);
    layer.coverage.assign(layer.coverage.size(), 0);
    layer.coverage[(8 + 2) * 60 + 29 + 3] = 255; // the last pixel of the last line
    drawing_.compose(&layer.image, kCanvas);
    EXPECT_EQ(opacity(28, 8), 0U);
    for (int y : {8, 9})
        for (int x : {29, 30, 31}) EXPECT_EQ(opacity(x, y), 16U) << x << "," << y;
    EXPECT_EQ(opacity(31, 7), 0U);
}

TEST_F(Drawn, nothing_stays_from_the_drawing_before)
{
    Layer first(0, 0, 8, 4, 0xffffff'00), second(16, 4, 4, 4, 0x00ff00'00);
    drawing_.compose(&first.image, kCanvas);
    drawing_.compose(&second.image, kCanvas);
    EXPECT_EQ(colour(0, 0), Drawing::kKey);
    EXPECT_EQ(opacity(0, 0), 0U);
    EXPECT_EQ(opacity(17, 5), 16U);
}

} // namespace
} // namespace player_test
