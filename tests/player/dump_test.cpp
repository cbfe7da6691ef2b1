// SPDX-License-Identifier: MIT
// Dumped pictures against the same pictures computed here, with real numbers, from the clip's own samples.
#include "frame/dispatch.h"
#include "tests/player/dump.h"
#include "tests/player/enlarged.h"

namespace player_test {
namespace {

constexpr Size kSizes[] = {{64, 48}, {853, 479}, {17, 3}, {1, 1}, {2, 2}, {48, 8}, {33, 10}, {1, 40}, {100, 1}};

TEST_P(Dump, shows_the_picture_at_every_size)
{
    for (const Size& size : kSizes) {
        SCOPED_TRACE(size.text());
        const Yuv picture = noise(size.width, size.height);
        expect_similar(dump(picture, {}), render(picture));
    }
}

TEST_P(Dump, obeys_the_picture_controls)
{
    const Yuv picture = noise(70, 21);
    expect_similar(dump(picture, {"--brightness", "20"}), render(adjusted(picture, 20, 64, 64)));
    expect_similar(dump(picture, {"--contrast", "0.5", "--brightness", "-30"}), render(adjusted(picture, -30, 32, 64)));
    expect_similar(dump(picture, {"--saturation", "1.5"}), render(adjusted(picture, 0, 64, 96)));
    expect_similar(dump(picture, {"--saturation", "0", "--contrast", "1.25"}), render(adjusted(picture, 0, 80, 0)));
}

// RGB surfaces become YUY2, which averages neighbours; YV12 keeps each second sample.
TEST_P(Dump, halves_the_width)
{
    for (const Size& size : kSizes) {
        SCOPED_TRACE(size.text());
        const Yuv picture = noise(size.width, size.height);
        const Image got = dump(picture, {"--half"}), expected = render(half_width(picture, !is("yv12")));
        ASSERT_EQ(got.width, expected.width);
        for (int difference : largest_difference(got, expected)) EXPECT_LE(difference, 3);
    }
}

INSTANTIATE_TEST_SUITE_P(Surfaces, Dump, testing::ValuesIn(kSurfaces), surface_name);

TEST(DumpRun, test_pattern_moves_and_numbers_its_pictures)
{
    const ScratchDirectory scratch;
    const auto directory = scratch / "pictures";
    const Result result = play({"--size", "353x289", "--frames", "3", "--stats", "--dump", directory.string()});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    const Image first = read_png(directory / "picture-000001.png"), third = read_png(directory / "picture-000003.png");
    EXPECT_EQ(first.width, 353);
    EXPECT_EQ(first.height, 289);
    EXPECT_GT(largest_difference(first, third)[0], 50);
    EXPECT_GT(distinct_values(first)[0], 10);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory), {}), 3);
    EXPECT_NE(result.out.find("3 pictures, ms per picture: min "), std::string::npos) << result.out;
}

// The card in the lower left corner: the middle of the zone plate is its brightest spot, the corners are grey.
TEST(DumpRun, test_pattern_has_a_card_where_there_is_room)
{
    const ScratchDirectory scratch;
    auto first_picture = [&](const char* size) {
        EXPECT_EQ(play({"--size", size, "--frames", "1", "--dump", (scratch / "out").string()}).status, 0);
        return read_png(scratch / "out" / "picture-000001.png");
    };
    for (const char* size : {"320x240", "641x480"}) {
        const Image picture = first_picture(size);
        const int left = 16, top = picture.height - 112;
        EXPECT_GT(picture.at(left + 143, top + 47)[1], 230) << size;
        const Pixel corner = picture.at(left + 184, top + 88);
        EXPECT_NEAR(corner[0], 128, 3) << size;
        EXPECT_NEAR(corner[2], 128, 3) << size;
    }
    EXPECT_LT(first_picture("319x240").at(159, 175)[2], 10); // a yellow bar
}

TEST(DumpRun, seconds_make_the_pattern_as_long)
{
    const ScratchDirectory scratch;
    const auto directory = scratch / "pictures";
    EXPECT_EQ(play({"--size", "32x32", "--seconds", "0.4", "--dump", directory.string()}).status, 0);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory), {}), 10);
}

TEST(DumpRun, every_instruction_set_gives_the_same_picture)
{
    const ScratchDirectory scratch;
    std::string expected;
    for (int i = vsurf::isa_count - 1; i >= 0; i--) {
        if (!vsurf::isas[i].runs_here()) continue;
        const auto directory = scratch / vsurf::isas[i].name;
        const Result result = play({"--size", "355x97", "--frames", "1", "--contrast", "1.2", "--stats", "--isa",
                                    vsurf::isas[i].name, "--dump", directory.string()});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_TRUE(result.out.starts_with(std::string("vsurf ") + vsurf::isas[i].name + ", ")) << result.out;
        const std::string png = contents(directory / "picture-000001.png");
        EXPECT_FALSE(png.empty());
        if (expected.empty()) expected = png;
        EXPECT_EQ(png, expected) << vsurf::isas[i].name;
    }
}

TEST(DumpRun, the_environment_lowers_the_instruction_set_in_use)
{
    for (int i = 0; i < vsurf::isa_count; i++) {
        if (!vsurf::isas[i].runs_here()) continue;
        const ScratchDirectory scratch;
        const std::string name = vsurf::isas[i].name;
        const Result result =
            play({"--size", "32x32", "--frames", "1", "--stats", "--dump", (scratch / "out").string()},
                 {"VSURF_ISA=" + name});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_TRUE(result.out.starts_with("vsurf " + name + ", ")) << result.out;
    }
}

} // namespace
} // namespace player_test
