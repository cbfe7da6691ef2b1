// SPDX-License-Identifier: MIT
// Dumped pictures of every surface, and how near they must be to what is expected.
#pragma once
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include <gtest/gtest.h>
#include <iosfwd>

namespace player_test {

struct SurfaceCase {
    const char* name;
    std::array<int, 3> tolerance; // R, G, B: rounding, plus the bits that a format drops
    std::array<int, 3> values;    // how many values a component of the format can take
};

inline constexpr SurfaceCase kYuy2{"yuy2", {3, 3, 3}, {256, 256, 256}};
inline constexpr SurfaceCase kSurfaces[] = {
    {"rgb32", {2, 2, 2}, {256, 256, 256}},
    {"rgb24", {2, 2, 2}, {256, 256, 256}},
    {"rgb16-565", {9, 5, 9}, {32, 64, 32}},
    {"rgb16-555", {9, 9, 9}, {32, 32, 32}},
    {"rgb16-664", {5, 5, 17}, {64, 64, 16}},
    {"rgb16-655", {5, 9, 9}, {64, 32, 32}},
    kYuy2,
    {"yv12", {3, 3, 3}, {256, 256, 256}},
};

void PrintTo(const SurfaceCase& surface, std::ostream* out);
std::string surface_name(const testing::TestParamInfo<SurfaceCase>& info);

struct Size {
    int width, height;
    std::string text() const { return std::to_string(width) + "x" + std::to_string(height); }
};

class Dump : public testing::TestWithParam<SurfaceCase> {
protected:
    // The picture as a file of its own: 4:2:0 with a header, 4:2:2 as YUY2 without one.
    Image dump(const Yuv& picture, Arguments options);
    // The export that made the last dump, or the first one of several.
    const std::string& exported() const { return exported_; }
    bool used(const std::string& name) const { return stats_.find(", " + name + ": ") != std::string::npos; }
    std::filesystem::path scratch(const std::string& name) const { return scratch_ / name; }

    void expect_similar(const Image& got, const Image& expected) const { expect_similar(got, expected, GetParam()); }
    static void expect_similar(const Image& got, const Image& expected, const SurfaceCase& surface);
    bool is(const std::string& name) const { return name == GetParam().name; }
    bool is_rgb() const { return !is("yuy2") && !is("yv12"); }

private:
    const ScratchDirectory scratch_;
    std::string exported_, stats_;
};

} // namespace player_test
