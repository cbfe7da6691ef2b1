// Dumped pictures against the same pictures computed here, with real numbers, from the clip's own samples.
#include "frame/dispatch.h"
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <ostream>

namespace player_test {
namespace {

struct SurfaceCase {
    const char* name;
    std::array<int, 3> tolerance; // R, G, B: rounding, plus the bits that a format drops
    std::array<int, 3> values;    // how many values a component of the format can take
};

const SurfaceCase kSurfaces[] = {
    {"rgb32", {2, 2, 2}, {256, 256, 256}},   {"rgb24", {2, 2, 2}, {256, 256, 256}},
    {"rgb16-565", {9, 5, 9}, {32, 64, 32}},  {"rgb16-555", {9, 9, 9}, {32, 32, 32}},
    {"rgb16-664", {5, 5, 17}, {64, 64, 16}}, {"rgb16-655", {5, 9, 9}, {64, 32, 32}},
    {"yuy2", {3, 3, 3}, {256, 256, 256}},    {"yv12", {3, 3, 3}, {256, 256, 256}},
};

void PrintTo(const SurfaceCase& surface, std::ostream* out) { *out << surface.name; }

struct Size {
    int width, height;
};
const Size kSizes[] = {{64, 48}, {853, 479}, {17, 3}, {1, 1}, {2, 2}, {48, 8}, {33, 10}, {1, 40}, {100, 1}};

class Dump : public testing::TestWithParam<SurfaceCase> {
protected:
    Image dump(const Yuv& picture, Arguments options)
    {
        const auto file = scratch_ / "clip.y4m", directory = scratch_ / "made" / "on" / "demand";
        write_y4m(file, picture, 1);
        options.insert(options.end(), {"--surface", GetParam().name, "--dump", directory.string(), file.string()});
        const Result result = play(options);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.err, "");
        return read_png(directory / "picture-000001.png");
    }

    void expect_similar(const Image& got, const Image& expected) const
    {
        ASSERT_EQ(got.width, expected.width);
        ASSERT_EQ(got.height, expected.height);
        const auto difference = largest_difference(got, expected);
        const auto values = distinct_values(got);
        for (std::size_t c = 0; c < 3; c++) {
            EXPECT_LE(difference[c], GetParam().tolerance[c]) << "RGB"[c];
            EXPECT_LE(values[c], GetParam().values[c]) << "RGB"[c];
        }
    }

    bool is(const char* name) const { return !std::strcmp(GetParam().name, name); }

private:
    const ScratchDirectory scratch_;
};

TEST_P(Dump, shows_the_picture_at_every_size)
{
    for (const auto& [width, height] : kSizes) {
        SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height));
        const Yuv picture = noise(width, height);
        expect_similar(dump(picture, {}), render(picture));
    }
}

int adjusted(int value, int gain, int offset) { return std::clamp(value * gain / 64 + offset, 0, 255); }

Yuv adjusted(Yuv picture, int brightness, int contrast, int saturation)
{
    const int luma_offset = 128 - 2 * contrast + brightness, chroma_offset = 128 - 2 * saturation;
    for (auto& each : picture.y) each = static_cast<uint8_t>(adjusted(each, contrast, luma_offset));
    for (auto* plane : {&picture.u, &picture.v})
        for (auto& each : *plane) each = static_cast<uint8_t>(adjusted(each, saturation, chroma_offset));
    return picture;
}

TEST_P(Dump, obeys_the_picture_controls)
{
    const Yuv picture = noise(70, 21);
    expect_similar(dump(picture, {"--brightness", "20"}), render(adjusted(picture, 20, 64, 64)));
    expect_similar(dump(picture, {"--contrast", "0.5", "--brightness", "-30"}), render(adjusted(picture, -30, 32, 64)));
    expect_similar(dump(picture, {"--saturation", "1.5"}), render(adjusted(picture, 0, 64, 96)));
    expect_similar(dump(picture, {"--saturation", "0", "--contrast", "1.25"}), render(adjusted(picture, 0, 80, 0)));
}

// YUY2 averages neighbours, YV12 keeps each second sample.
Yuv half_width(const Yuv& from, bool average)
{
    Yuv to((from.width + 1) / 2, from.height);
    auto mix = [&](int even, int odd) { return static_cast<uint8_t>(average ? (even + odd + 1) / 2 : odd); };
    for (int line = 0; line < to.height; line++)
        for (int x = 0; x < to.width; x++)
            to.y[static_cast<std::size_t>(line * to.width + x)] =
                mix(from.luma(2 * x, line), from.luma(2 * x + 1, line));
    for (int line = 0; line < to.chroma_height(); line++) {
        for (int x = 0; x < to.chroma_width(); x++) {
            const auto even = from.chroma(2 * x, line), odd = from.chroma(2 * x + 1, line);
            const auto at = static_cast<std::size_t>(line * to.chroma_width() + x);
            to.u[at] = mix(even[0], odd[0]);
            to.v[at] = mix(even[1], odd[1]);
        }
    }
    return to;
}

// RGB surfaces become YUY2.
TEST_P(Dump, halves_the_width)
{
    for (const auto& [width, height] : kSizes) {
        SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height));
        const Yuv picture = noise(width, height);
        const Image got = dump(picture, {"--half"}), expected = render(half_width(picture, !is("yv12")));
        ASSERT_EQ(got.width, expected.width);
        for (int difference : largest_difference(got, expected)) EXPECT_LE(difference, 3);
    }
}

std::string case_name(const testing::TestParamInfo<SurfaceCase>& info)
{
    std::string name = info.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Surfaces, Dump, testing::ValuesIn(kSurfaces), case_name);

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
        EXPECT_TRUE(result.out.starts_with(std::string("vsurf ") + vsurf::isas[i].name + ":")) << result.out;
        const std::string png = contents(directory / "picture-000001.png");
        EXPECT_FALSE(png.empty());
        if (expected.empty()) expected = png;
        EXPECT_EQ(png, expected) << vsurf::isas[i].name;
    }
}

} // namespace
} // namespace player_test
