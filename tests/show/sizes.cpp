// SPDX-License-Identifier: MIT
// What to allocate: vsurf_pitch, vsurf_bytes, and the inline functions for callers of the exports.
#include "frame/dispatch.h"
#include "harness/random.h"
#include "harness/show_case.h"
#include "model/show_formats.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(ShowSizes, lines_of_every_format)
{
    static constexpr struct {
        vsurf_format format;
        size_t planes[3];
    } kLines[] = {{VSURF_I420, {333, 167, 167}}, {VSURF_NV12, {333, 334, 0}}, {VSURF_NV21, {333, 334, 0}},
                  {VSURF_YUY2, {668, 0, 0}},     {VSURF_UYVY, {668, 0, 0}},   {VSURF_BGRX, {1332, 0, 0}},
                  {VSURF_RGBX, {1332, 0, 0}},    {VSURF_BGRA, {1332, 0, 0}},  {VSURF_RGBA, {1332, 0, 0}},
                  {VSURF_BGR24, {999, 0, 0}},    {VSURF_RGB24, {999, 0, 0}},  {VSURF_RGB565, {666, 0, 0}},
                  {VSURF_RGB555X, {666, 0, 0}},  {VSURF_RGB664, {666, 0, 0}}, {VSURF_RGB655, {666, 0, 0}}};
    for (const auto& [format, planes] : kLines) {
        for (int plane = 0; plane < 3; ++plane) {
            const size_t line = planes[plane];
            EXPECT_EQ(vsurf_pitch(format, plane, 333, 1), line);
            EXPECT_EQ(vsurf_pitch(format, plane, 333, 64), (line + 63) / 64 * 64);
        }
    }
}

TEST(ShowSizes, bytes_of_some_pictures)
{
    EXPECT_EQ(vsurf_bytes(VSURF_I420, 333, 217, 1), size_t{333 * 217 + 2 * 167 * 109});
    EXPECT_EQ(vsurf_bytes(VSURF_NV12, 333, 217, 1), size_t{333 * 217 + 334 * 109});
    EXPECT_EQ(vsurf_bytes(VSURF_NV12, 333, 217, 64), size_t{384 * 217 + 384 * 109});
    EXPECT_EQ(vsurf_bytes(VSURF_YUY2, 333, 217, 1), size_t{668 * 217});
    EXPECT_EQ(vsurf_bytes(VSURF_BGR24, 333, 217, 4), size_t{1000 * 217});
    EXPECT_EQ(vsurf_bytes(VSURF_RGB555X, 1, 1, 1), size_t{2});
    EXPECT_EQ(vsurf_bytes(VSURF_I420, 1, 1, 1), size_t{3});
}

TEST(ShowSizes, any_size)
{
    harness::Random random(9);
    for (int i = 0; i < 2000; ++i) {
        const vsurf_format format = harness::surface_formats()[static_cast<size_t>(random.between(0, 14))];
        const int width = random.between(1, 9000), height = random.between(1, 9000),
                  alignment = 1 << random.between(0, 12);
        size_t sum = 0;
        for (int plane = 0; plane < model::planes_of(format); ++plane) {
            const model::PlaneShape shape = model::plane_shape(format, plane, width, height);
            const int64_t pitch = (shape.line + alignment - 1) / alignment * alignment;
            EXPECT_EQ(vsurf_pitch(format, plane, width, alignment), static_cast<size_t>(pitch));
            sum += static_cast<size_t>(pitch * shape.lines);
        }
        EXPECT_EQ(vsurf_bytes(format, width, height, alignment), sum);
    }
}

TEST(ShowSizes, unusable_arguments_give_0)
{
    for (const int number : {0, -1, 16, INT_MAX, INT_MIN}) {
        vsurf_format format;
        std::memcpy(&format, &number, sizeof format);
        EXPECT_EQ(vsurf_pitch(format, 0, 16, 1), size_t{0});
        EXPECT_EQ(vsurf_bytes(format, 16, 16, 1), size_t{0});
    }
    for (const int plane : {-1, 3, INT_MAX, INT_MIN}) EXPECT_EQ(vsurf_pitch(VSURF_I420, plane, 16, 1), size_t{0});
    for (const int size : {0, -1, INT_MIN}) {
        EXPECT_EQ(vsurf_pitch(VSURF_I420, 0, size, 1), size_t{0});
        EXPECT_EQ(vsurf_bytes(VSURF_I420, size, 16, 1), size_t{0});
        EXPECT_EQ(vsurf_bytes(VSURF_I420, 16, size, 1), size_t{0});
    }
    for (const int alignment : {0, -1, 3, 48, 65, INT_MAX, INT_MIN}) {
        EXPECT_EQ(vsurf_pitch(VSURF_BGRX, 0, 16, alignment), size_t{0}) << alignment;
        EXPECT_EQ(vsurf_bytes(VSURF_BGRX, 16, 16, alignment), size_t{0}) << alignment;
    }
}

TEST(ShowSizes, the_widest)
{
    if (sizeof(size_t) == 8) {
        EXPECT_EQ(uint64_t{vsurf_pitch(VSURF_BGRX, 0, INT_MAX, 1)}, uint64_t{INT_MAX} * 4);
        EXPECT_EQ(uint64_t{vsurf_pitch(VSURF_YUY2, 0, INT_MAX, 1)}, uint64_t{1} << 32);
        EXPECT_EQ(uint64_t{vsurf_pitch(VSURF_I420, 1, INT_MAX, 1 << 30)}, uint64_t{1} << 30);
        EXPECT_EQ(uint64_t{vsurf_bytes(VSURF_RGB565, INT_MAX, 2, 1)}, uint64_t{INT_MAX} * 4);
    } else {
        EXPECT_EQ(vsurf_pitch(VSURF_BGRX, 0, INT_MAX, 1), size_t{0});
        EXPECT_EQ(vsurf_bytes(VSURF_I420, 1 << 16, 1 << 16, 1), size_t{0});
    }
}

TEST(PaddedSizes, whole_blocks_and_passes)
{
    static constexpr int kWidths[][2] = {{333, 336},        {336, 336},   {1, 16},      {0, 16},
                                         {-5, 16},          {17, 32},     {INT_MAX, 0}, {INT_MAX - 15, INT_MAX - 15},
                                         {INT_MAX - 14, 0}, {INT_MIN, 16}};
    for (const auto& [width, padded] : kWidths) EXPECT_EQ(vsurf_padded_width(width), padded) << width;
    static constexpr int kHeights[][2] = {{217, 218},  {218, 218}, {1, 2},       {0, 2},
                                          {-1, 2},     {3, 4},     {INT_MAX, 0}, {INT_MAX - 1, INT_MAX - 1},
                                          {INT_MIN, 2}};
    for (const auto& [height, padded] : kHeights) EXPECT_EQ(vsurf_padded_height(height), padded) << height;
}

TEST(PaddedSizes, bytes)
{
    EXPECT_EQ(vsurf_padded_surface_bytes(333, 217, 4), size_t{336 * 218 * 4});
    EXPECT_EQ(vsurf_padded_surface_bytes(333, 217, 3), size_t{336 * 218 * 3});
    EXPECT_EQ(vsurf_padded_surface_bytes(333, 217, 0), size_t{0});
    EXPECT_EQ(vsurf_padded_surface_bytes(INT_MAX, 2, 4), size_t{0});
    EXPECT_EQ(vsurf_padded_plane_bytes(333, 217, 0), size_t{336 * 218});
    EXPECT_EQ(vsurf_padded_plane_bytes(333, 217, 1), size_t{168 * 109});
    EXPECT_EQ(vsurf_padded_plane_bytes(16, INT_MAX, 1), size_t{0});
    if (sizeof(size_t) == 4) {
        EXPECT_EQ(vsurf_padded_surface_bytes(1 << 16, 1 << 16, 4), size_t{0});
    }
}

TEST(ShowVersion, is_that_of_the_header)
{
    EXPECT_STREQ(vsurf_show_version(), VSURF_VERSION);
    const std::string numbers = std::to_string(VSURF_VERSION_MAJOR) + "." + std::to_string(VSURF_VERSION_MINOR) + "." +
                                std::to_string(VSURF_VERSION_PATCH);
    EXPECT_EQ(numbers, VSURF_VERSION);
    EXPECT_EQ(std::string(VSURF_VERSION), VSURF_TEST_PROJECT_VERSION);
}

TEST(ShowIsa, is_a_known_one)
{
    const std::string isa = vsurf_show_isa();
    EXPECT_TRUE(isa == "avx512" || isa == "avx2" || isa == "sse2" || isa == "neon" || isa == "scalar") << isa;
}

} // namespace
