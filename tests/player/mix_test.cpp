// SPDX-License-Identifier: MIT
// Dumped pictures with subtitles over them, against the same pictures computed here.
#include "tests/player/dump.h"
#include "tests/player/enlarged.h"
#include "tests/player/subtitled.h"

namespace player_test {
namespace {

constexpr Size kSizes[] = {{64, 48}, {101, 37}, {17, 11}};
const Arguments kTurned{"--brightness", "20", "--contrast", "0.75", "--saturation", "1.5"};

Yuv turned(const Yuv& picture) { return adjusted(picture, 20, 48, 96); }

// An opaque one, which begins and ends within pairs of pixels, and translucent ones, one of them at the corner.
std::vector<Box> boxes(const Size& size)
{
    const int w = size.width, h = size.height;
    return {{1, 2, w / 2, h / 2, {200, 40, 90}, 0},
            {w / 2 / 2 * 2 + 2, 1, w - 2, h / 3, {30, 220, 250}, 128},
            {w / 2 / 2 * 2 + 4, h / 2, w, h, {250, 240, 20}, 77}};
}

class Mix : public Dump {
protected:
    Image dump_subtitled(const Yuv& picture, const Size& size, Arguments options)
    {
        const auto file = scratch("boxes.ass");
        write_file(file, script(size.width, size.height, boxes(size)));
        options.insert(options.end(), {"--subtitles", file.string()});
        return dump(picture, options);
    }

    using Expected = std::function<Yuv(const Yuv&, const std::vector<Box>&)>;

    // With the controls as they are, and turned. The RGB surfaces differ in how pixels are packed: one has every size.
    void expect_mixed(const Arguments& options, const SurfaceCase& surface, const Expected& expected)
    {
        for (const Size& size : kSizes) {
            SCOPED_TRACE(size.text());
            const Yuv picture = noise(size.width, size.height), mixed = expected(picture, boxes(size));
            expect_similar(dump_subtitled(picture, size, options), render(mixed), surface);
            if (&size != kSizes) continue;
            Arguments both = options;
            both.insert(both.end(), kTurned.begin(), kTurned.end());
            expect_similar(dump_subtitled(picture, size, both), render(turned(mixed)), surface);
            if (is_rgb() && !is("rgb32")) break;
        }
    }

    // mix_ayuy2_rgb16 and so on.
    std::string mixer() const
    {
        return is("yv12") ? "mix_ayv12_yv12" : "mix_ayuy2_" + std::string(GetParam().name).substr(0, is_rgb() ? 5 : 4);
    }
};

TEST_P(Mix, progressive_pictures)
{
    expect_mixed({}, GetParam(), [&](const Yuv& picture, const std::vector<Box>& over) {
        return subtitled(is("yv12") ? picture : chroma_for_every_line(picture), over);
    });
    dump_subtitled(noise(64, 48), {64, 48}, {});
    EXPECT_TRUE(used(mixer() + (is("yv12") ? "_p" : "_p_ajust")));
    dump_subtitled(noise(64, 48), {64, 48}, kTurned);
    EXPECT_TRUE(used(mixer() + "_p_ajust"));
}

TEST_P(Mix, fields)
{
    expect_mixed({"--field"}, GetParam(), [&](const Yuv& picture, const std::vector<Box>& over) {
        if (is("yv12")) return subtitled(planes_of_field_doubled(picture), over);
        return subtitled(field_doubled(picture, false), over, is_rgb() ? ChromaAlpha::average : ChromaAlpha::odd);
    });
    EXPECT_TRUE(used(mixer() + (is("yv12") ? "_i" : "_i_ajust")));
}

// The odd ones of all samples.
TEST_P(Mix, half_width)
{
    if (is_rgb() && !is("rgb32")) return; // becomes yuy2 alike
    expect_mixed({"--half"}, kYuy2, [&](const Yuv& picture, const std::vector<Box>& over) {
        return player_test::half_width(subtitled(is("yv12") ? picture : chroma_for_every_line(picture), over), false);
    });
    EXPECT_TRUE(used(is("yv12") ? "mix_ayv12_yv12_p" : "mix_ayuy2_half_yuy2_p_ajust"));
}

// Whatever enlarges, mixed planes are what it takes.
TEST_P(Mix, enlarged_pictures)
{
    const Size size{70, 22};
    const Yuv picture = noise(size.width, size.height), mixed = subtitled(picture, boxes(size));
    expect_similar(dump_subtitled(picture, size, {"--zoom", "1x2"}),
                   render(is("yv12") ? planes_doubled(mixed) : lines_doubled(mixed)));
    EXPECT_TRUE(used("mix_ayv12_yv12_p"));
    if (is_rgb()) return;
    const Yuv wide = widened(mixed);
    expect_similar(dump_subtitled(picture, size, {"--zoom", "2x2"}),
                   render(is("yv12") ? planes_doubled(wide) : lines_doubled(wide)));
}

// Packed sources go through planes: a gradient, which that hardly changes.
TEST_P(Mix, packed_pictures)
{
    const Size size{64, 48};
    const Yuv source = gradient(size.width, size.height);
    const Image got = dump_subtitled(chroma_for_every_line(source), size, {});
    const Image expected = render(subtitled(is("yv12") ? source : chroma_for_every_line(source), boxes(size)));
    for (std::size_t c = 0; c < 3; c++)
        EXPECT_LE(largest_difference(got, expected)[c], GetParam().tolerance[c] + 4) << "RGB"[c];
}

// The colour key, magenta, where no subtitle is; no opacity.
TEST_P(Mix, nothing_but_the_subpicture)
{
    const Size size{101, 37};
    const Image got = dump_subtitled(noise(size.width, size.height), size, {"--subpicture-alone", "--zoom", "1x2"});
    ASSERT_EQ(got.width, size.width);
    ASSERT_EQ(got.height, size.height);
    int keys = 0;
    for (int y = 0; y < size.height; y++) {
        for (int x = 0; x < size.width; x++) {
            Pixel expected{255, 0, 255};
            for (const Box& box : boxes(size))
                if (box.holds(x, y)) expected = box.colour;
            keys += expected == Pixel{255, 0, 255};
            for (std::size_t c = 0; c < 3; c++)
                ASSERT_NEAR(got.at(x, y)[c], expected[c], GetParam().tolerance[c] + 3) << x << "," << y << "RGB"[c];
        }
    }
    EXPECT_GT(keys, 500);
    EXPECT_TRUE(used("load_subpicture_yuy2_" + (is_rgb() ? std::string(GetParam().name).substr(0, 5) : "rgb32")));
    dump_subtitled(noise(64, 48), {64, 48}, {"--subpicture-alone", "--contrast", "1.1"});
    EXPECT_TRUE(
        used("load_subpicture_yuy2_" + (is_rgb() ? std::string(GetParam().name).substr(0, 5) : "rgb32") + "_ajust"));
}

// The bar covers the top eighteenth, and half way through the source half of it is open.
TEST_P(Mix, overlay_shows_the_video_where_the_key_is)
{
    const Yuv picture = noise(200, 144);
    const Image plain = dump(picture, {});
    write_y4m(scratch("two.y4m"), picture, 2);
    const auto out = scratch("overlay");
    const Result result = play(
        {"--overlay", "--surface", GetParam().name, "--stats", "--dump", out.string(), scratch("two.y4m").string()});
    EXPECT_EQ(result.status, 0) << result.err;
    const Image over = read_png(out / "picture-000002.png");
    ASSERT_EQ(over.width, plain.width);
    for (int y = 0; y < plain.height; y++) {
        for (int x = 0; x < plain.width; x++) {
            const bool bar = y < 8 && !(x < 100 && y >= 2 && y < 6);
            ASSERT_EQ(over.at(x, y), bar ? Pixel{} : plain.at(x, y)) << x << "," << y;
        }
    }
    EXPECT_NE(
        result.out.find(is_rgb() ? "LoadColorKeyRgb" + std::string(GetParam().name).substr(3, 2) : "LoadColorKeyRgb32"),
        std::string::npos);
    EXPECT_NE(result.out.find("RelaceMaskWithColorKey"), std::string::npos);
}

// On the screen above the video the subtitles are there or not; the video itself has none.
TEST_P(Mix, overlay_below_the_subpicture)
{
    const Size size{64, 48};
    const Yuv picture = noise(size.width, size.height);
    const Image plain = dump(picture, {});
    const Image got = dump_subtitled(picture, size, {"--overlay", "--subpicture-alone"});
    ASSERT_EQ(got.width, size.width);
    for (int y = 4; y < size.height; y++) {
        for (int x = 0; x < size.width; x++) {
            Pixel expected = plain.at(x, y);
            int tolerance = 0;
            for (const Box& box : boxes(size)) {
                if (!box.holds(x, y)) continue;
                expected = box.colour;
                tolerance = 3;
            }
            for (std::size_t c = 0; c < 3; c++)
                ASSERT_NEAR(got.at(x, y)[c], expected[c], tolerance ? GetParam().tolerance[c] + tolerance : 0);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Surfaces, Mix, testing::ValuesIn(kSurfaces), surface_name);

} // namespace
} // namespace player_test
