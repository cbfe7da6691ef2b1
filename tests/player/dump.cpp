// SPDX-License-Identifier: MIT
#include "tests/player/dump.h"
#include <algorithm>
#include <ostream>

namespace player_test {

void PrintTo(const SurfaceCase& surface, std::ostream* out) { *out << surface.name; }

std::string surface_name(const testing::TestParamInfo<SurfaceCase>& info)
{
    std::string name = info.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

// "vsurf avx2, loadimage_rgb32: 1 picture, ..."
static std::string export_in(const std::string& stats)
{
    const std::size_t from = stats.find(", ") + 2, to = stats.find(':');
    return to != std::string::npos && from < to ? stats.substr(from, to - from) : "";
}

Image Dump::dump(const Yuv& picture, Arguments options)
{
    const bool packed = picture.chroma_step == 1;
    const auto file = scratch_ / (packed ? "clip.yuy2" : "clip.y4m"), directory = scratch_ / "made" / "on" / "demand";
    if (packed) {
        write_file(file, packed_bytes(picture));
        options.insert(options.end(), {"--format", "rawvideo", "--pixel-format", "yuyv422", "--video-size",
                                       Size{picture.width, picture.height}.text()});
    } else {
        write_y4m(file, picture, 1);
    }
    options.insert(options.end(),
                   {"--surface", GetParam().name, "--stats", "--dump", directory.string(), file.string()});
    const Result result = play(options);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    exported_ = export_in(result.out);
    stats_ = result.out;
    return read_png(directory / "picture-000001.png");
}

void Dump::expect_similar(const Image& got, const Image& expected, const SurfaceCase& surface)
{
    ASSERT_EQ(got.width, expected.width);
    ASSERT_EQ(got.height, expected.height);
    const auto difference = largest_difference(got, expected);
    const auto values = distinct_values(got);
    for (std::size_t c = 0; c < 3; c++) {
        EXPECT_LE(difference[c], surface.tolerance[c]) << "RGB"[c];
        EXPECT_LE(values[c], surface.values[c]) << "RGB"[c];
    }
}

} // namespace player_test
