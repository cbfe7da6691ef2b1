// SPDX-License-Identifier: MIT
// Enlarged pictures, and pictures that come as YUY2, against the same pictures computed here.
#include "tests/player/dump.h"
#include "tests/player/enlarged.h"

namespace player_test {
namespace {

// Whole blocks, one more and one less, and what is lower than the enlargers take.
constexpr Size kEnlarged[] = {{64, 48}, {1, 1},   {17, 3},  {33, 10}, {70, 22}, {32, 16},
                              {31, 30}, {96, 12}, {48, 18}, {1, 40},  {213, 59}};

// Cases that give the same surface as another one need only one size.
template <class Check> void at_every_size(bool same_as_another, Check&& check)
{
    for (const Size& size : kEnlarged) {
        SCOPED_TRACE(size.text());
        check(size);
        if (same_as_another) break;
    }
}

const Arguments kTurned{"--brightness", "20", "--contrast", "0.75", "--saturation", "1.5"};

Arguments turned(Arguments options)
{
    options.insert(options.end(), kTurned.begin(), kTurned.end());
    return options;
}

Yuv turned(const Yuv& picture) { return adjusted(picture, 20, 48, 96); }

class Enlarge : public Dump {
protected:
    std::string bits() const { return is_rgb() ? std::string(GetParam().name).substr(3, 2) : ""; }

    std::string either(const char* yuy2, const char* yv12, const std::string& rgb) const
    {
        return is("yuy2") ? yuy2 : is("yv12") ? yv12 : rgb;
    }
};

TEST_P(Enlarge, doubles_the_height)
{
    at_every_size(false, [&](const Size& size) {
        const Yuv picture = noise(size.width, size.height);
        expect_similar(dump(picture, {"--zoom", "1x2"}),
                       render(is("yv12") ? planes_doubled(picture) : lines_doubled(picture)));
    });
    EXPECT_EQ(exported(), either("strech_picture_1X2_yuy2", "strech_picture_1X2_yv12_ajust",
                                 "strech_picture_1X2_yuy2_ajust_rgb" + bits()));
}

// Into RGB samples are adjusted first; into YUY2 last, and new lines are filtered; into YV12 last, every plane by
// luma's gain.
TEST_P(Enlarge, doubles_the_height_of_an_adjusted_picture)
{
    at_every_size(false, [&](const Size& size) {
        const Yuv picture = noise(size.width, size.height);
        const Yuv expected = is("yuy2")   ? turned(lines_filtered(picture))
                             : is("yv12") ? adjusted(planes_doubled(picture), 20, 48, 48)
                                          : lines_doubled(turned(picture));
        expect_similar(dump(picture, turned({"--zoom", "1x2"})), render(expected));
    });
    EXPECT_EQ(exported(), either("strech_picture_1X2_yuy2_ajust", "strech_picture_1X2_yv12_ajust",
                                 "strech_picture_1X2_yuy2_ajust_rgb" + bits()));
}

TEST_P(Enlarge, doubles_width_and_height)
{
    at_every_size(is_rgb(), [&](const Size& size) {
        const Yuv picture = noise(size.width, size.height), wide = widened(picture);
        expect_similar(dump(picture, {"--zoom", "2x2"}),
                       render(is("yv12") ? planes_doubled(wide) : lines_doubled(wide)), kYuy2);
    });
    EXPECT_EQ(exported(), is("yv12") ? "strech_picture_2X2_yv12_ajust" : "strech_picture_2X2_yuy2");
}

TEST_P(Enlarge, doubles_width_and_height_of_an_adjusted_picture)
{
    at_every_size(is_rgb(), [&](const Size& size) {
        const Yuv picture = noise(size.width, size.height);
        expect_similar(dump(picture, turned({"--zoom", "2x2"})),
                       render(is("yv12") ? adjusted(planes_doubled(widened(picture)), 20, 48, 48)
                                         : lines_doubled(widened(turned(picture)))),
                       kYuy2);
    });
    EXPECT_EQ(exported(), is("yv12") ? "strech_picture_2X2_yv12_ajust" : "strech_picture_2X2_yuy2_ajust");
}

TEST_P(Enlarge, doubles_a_field_along_edges)
{
    at_every_size(!is("yuy2"), [&](const Size& size) {
        const Yuv picture = noise(size.width, size.height);
        expect_similar(dump(picture, {"--field"}), render(field_doubled(picture)), kYuy2);
        expect_similar(dump(picture, turned({"--field"})), render(turned(field_doubled(picture))), kYuy2);
    });
    EXPECT_EQ(exported(), "strech_opt_yuy2_ajust");
}

class Packed : public Enlarge {};

// Both lines of a pair show the chroma of the upper one.
TEST_P(Packed, goes_to_the_surface_directly)
{
    at_every_size(false, [&](const Size& size) {
        const Yuv picture = noise(size.width, size.height, 1), shown = chroma_of_upper_lines(picture);
        expect_similar(dump(picture, {}), render(shown));
        expect_similar(dump(picture, turned({})), render(turned(shown)));
    });
    const std::string name = is("yuy2") ? "YUY2" : "RGB" + bits();
    EXPECT_EQ(exported(), "LoadYUY2_" + name + "_adjust");
    dump(noise(32, 16, 1), {});
    EXPECT_EQ(exported(), "LoadYUY2_" + name);
}

TEST_P(Packed, doubles_width_and_height)
{
    at_every_size(is_rgb(), [&](const Size& size) {
        const Yuv picture = noise(size.width, size.height, 1);
        expect_similar(dump(picture, {"--zoom", "2x2"}), render(packed_lines_doubled(widened(picture))), kYuy2);
        EXPECT_EQ(exported(), "yuy2_strech_picture_2X2_yuy2");
        expect_similar(dump(picture, turned({"--zoom", "2x2"})), render(packed_lines_doubled(widened(turned(picture)))),
                       kYuy2);
        EXPECT_EQ(exported(), "yuy2_strech_picture_2X2_yuy2_ajust");
    });
}

INSTANTIATE_TEST_SUITE_P(Surfaces, Packed, testing::ValuesIn(std::begin(kSurfaces), std::end(kSurfaces) - 1),
                         surface_name); // the last one is yv12

// A gradient, which halving and doubling its chroma lines hardly changes.
TEST_P(Enlarge, takes_yuy2_through_planes_where_nothing_else_does)
{
    const Yuv source = gradient(120, 64), picture = chroma_for_every_line(source);
    auto expect_near = [&](const Arguments& options, const Yuv& expected) {
        const Image got = dump(picture, options);
        for (int difference : largest_difference(got, render(expected)))
            EXPECT_LE(difference, is_rgb() ? 20 : 6) << exported();
    };
    expect_near({"--zoom", "1x2"}, is("yv12") ? planes_doubled(source) : lines_doubled(source));
    EXPECT_TRUE(exported().starts_with("strech_picture_1X2_y")) << exported();
    expect_near({"--field"}, field_doubled(source));
    EXPECT_EQ(exported(), "strech_opt_yuy2_ajust");
    if (!is("yv12")) return;
    expect_near({}, source);
    EXPECT_EQ(exported(), "vsurf_show");
    expect_near({"--zoom", "2x2"}, planes_doubled(widened(source)));
    EXPECT_EQ(exported(), "strech_picture_2X2_yv12_ajust");
}

INSTANTIATE_TEST_SUITE_P(Surfaces, Enlarge, testing::ValuesIn(kSurfaces), surface_name);

TEST(PackedFile, is_recognised_in_every_container)
{
    const ScratchDirectory scratch;
    std::string expected;
    for (const char* name : {"clip.avi", "clip.mov", "clip.nut", "clip.mkv"}) {
        encode(scratch / name, {"rawvideo", "yuyv422", 100, 50, 2});
        const Result result = play({"--stats", "--dump", (scratch / "out").string(), (scratch / name).string()});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_NE(result.out.find("LoadYUY2_RGB32: 2 pictures"), std::string::npos) << name << ": " << result.out;
        const std::string png = contents(scratch / "out" / "picture-000002.png");
        if (expected.empty()) expected = png;
        EXPECT_EQ(png, expected) << name;
    }
}

TEST(PackedFile, may_be_the_test_pattern)
{
    const ScratchDirectory scratch;
    const Result result = play({"--pixel-format", "yuyv422", "--size", "320x240", "--frames", "1", "--stats", "--dump",
                                (scratch / "out").string()});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find("LoadYUY2_RGB32: 1 picture,"), std::string::npos) << result.out;
    EXPECT_GT(distinct_values(read_png(scratch / "out" / "picture-000001.png"))[0], 100);
}

} // namespace
} // namespace player_test
