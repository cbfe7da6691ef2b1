// SPDX-License-Identifier: MIT
// Colours of whole streams, as their tags say or as is usual without.
#include "tests/player/stream.h"
#include <cmath>

namespace player_test {
namespace {

// Bars as they should be, and as the matrix and the range of a stream make them.
struct Bar {
    std::array<double, 3> rgb;
};

constexpr Bar kBars[] = {{{191, 191, 191}}, {{191, 191, 0}}, {{0, 191, 191}}, {{0, 191, 0}},
                         {{191, 0, 191}},   {{191, 0, 0}},   {{0, 0, 191}},   {{16, 16, 16}}};

Yuv bars(int width, int height, double kr, double kb, bool full)
{
    Yuv picture(width, height);
    auto store = [&](auto& plane, int plane_width, std::size_t component) {
        for (std::size_t i = 0; i < plane.size(); i++) {
            const auto& rgb = kBars[static_cast<int>(i) % plane_width * 8 / plane_width].rgb;
            const double y = kr * rgb[0] + (1 - kr - kb) * rgb[1] + kb * rgb[2];
            const double values[] = {y, (rgb[2] - y) / (2 * (1 - kb)), (rgb[0] - y) / (2 * (1 - kr))};
            const double scale = full ? 1 : component ? 224 / 255.0 : 219 / 255.0;
            const double black = component ? 128 : full ? 0 : 16;
            plane[i] = static_cast<uint8_t>(std::lround(values[component] * scale + black));
        }
    };
    store(picture.y, picture.width, 0);
    store(picture.u, picture.chroma_width(), 1);
    store(picture.v, picture.chroma_width(), 2);
    return picture;
}

class Colour : public Stream {
protected:
    // In the middle of each bar, for every kind of surface and way to it. Other surfaces, and exports for BT.601, take
    // another step of rounding.
    void expect_bars(const Yuv& picture, const std::string& tags, const char* assumed)
    {
        write_y4m(scratch_ / "bars.y4m", picture, 1, tags);
        for (const Arguments& options : {Arguments{},
                                         {"--surface=yuy2"},
                                         {"--surface=yv12"},
                                         {"--surface=rgb24"},
                                         {"--zoom=2x2"},
                                         {"--contrast=1.01"},
                                         {"--half", "--surface=yv12"}}) {
            Arguments all = options;
            all.push_back("--stats");
            const Result result = dump(scratch_ / "bars.y4m", all);
            ASSERT_EQ(result.status, 0) << result.err;
            EXPECT_NE(result.out.find(assumed), std::string::npos) << result.out;
            const Image seen = this->picture(1);
            for (int bar = 0; bar < 8; bar++) {
                const Pixel got = seen.at((2 * bar + 1) * seen.width / 16, seen.height / 2);
                for (std::size_t c = 0; c < 3; c++)
                    EXPECT_NEAR(got[c], kBars[bar].rgb[c], options.empty() ? 2 : 7)
                        << tags << " bar " << bar << " " << (options.empty() ? "" : options[0]);
            }
        }
    }
};

TEST_F(Colour, of_untagged_pictures_depends_on_their_height)
{
    expect_bars(bars(640, 480, .299, .114, false), "C420mpeg2", "BT.601 (assumed), limited range (assumed)");
    expect_bars(bars(768, 576, .299, .114, false), "C420mpeg2", "BT.601 (assumed)");
    expect_bars(bars(1280, 720, .2126, .0722, false), "C420mpeg2", "BT.709 (assumed), limited range (assumed)");
    expect_bars(bars(1023, 577, .2126, .0722, false), "C420mpeg2", "BT.709 (assumed)");
}

TEST_F(Colour, follows_the_range_of_the_stream)
{
    expect_bars(bars(640, 480, .299, .114, true), "C420mpeg2 XCOLORRANGE=FULL", "BT.601 (assumed), full range\n");
    expect_bars(bars(1279, 719, .2126, .0722, true), "C420mpeg2 XCOLORRANGE=FULL", "BT.709 (assumed), full range\n");
}

TEST_F(Colour, of_a_grey_image_has_full_range)
{
    encode(scratch_ / "grey.nut", {"png", "gray", 64, 48, 1});
    const Result result = dump(scratch_ / "grey.nut", {"--stats"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find("full range\n"), std::string::npos) << result.out;
    const Image seen = picture(1);
    for (int y = 0; y < 48; y++)
        for (int x = 0; x < 64; x++) ASSERT_EQ(seen.at(x, y)[1], 64 + ((x * 3) ^ (y * 2)) % 128) << x << "," << y;
}

} // namespace
} // namespace player_test
