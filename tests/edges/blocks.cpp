// SPDX-License-Identifier: MIT
// How widths and heights round up to blocks and passes, and what that does to the pointers.
#include "harness/fixture.h"

#include <algorithm>

namespace {

using harness::Bytes;
using harness::Picture;
using vsurf::Kernels;

class Blocks : public harness::OnEveryTable {
protected:
    // The bytes of `surface` that are no longer what they were.
    static size_t written(const Bytes& surface)
    {
        size_t count = 0;
        for (const uint8_t byte : surface) count += byte != kUntouched;
        return count;
    }
};

struct Entry {
    harness::LoaderFunction Kernels::*entry;
    size_t block_bytes;
    bool line_by_line = false; // both lines of a pass advance on their own
};

constexpr Entry kLoaders[] = {
    {&Kernels::loadimage_rgb32, 64},
    {&Kernels::loadimage_rgb24, 48},
    {&Kernels::loadimage_rgb16, 32},
    {&Kernels::loadimage_rgb32_ajust, 64},
    {&Kernels::loadimage_rgb24_ajust, 48},
    {&Kernels::loadimage_rgb16_ajust, 32},
    {&Kernels::loadimage_yuy2_mono_ajust, 32, true},
    {&Kernels::loadimage_half_yuy2_ajust, 16, true},
};

TEST_P(Blocks, width_zero_converts_one_block_a_line)
{
    ajust_contrast_info info = {};
    for (const auto& [entry, block, line_by_line] : kLoaders) {
        const Bytes surface = load(entry, Picture(), {0, 2, 64, 256}, 600, &info);
        const size_t second = 256 + (line_by_line ? block : 0); // there the first line's drift already shows
        EXPECT_EQ(written(surface), 2 * block);
        EXPECT_NE(surface[block - 1], kUntouched);
        EXPECT_EQ(surface[block], kUntouched);
        EXPECT_EQ(surface[second - 1], kUntouched);
        EXPECT_NE(surface[second], kUntouched);
        EXPECT_NE(surface[second + block - 1], kUntouched);
        EXPECT_EQ(surface[second + block], kUntouched);
    }
}

TEST_P(Blocks, height_zero_converts_one_pair_of_lines)
{
    ajust_contrast_info info = {};
    for (const auto& [entry, block, line_by_line] : kLoaders) {
        EXPECT_EQ(written(load(entry, Picture(), {16, 0, 16, 100}, 600, &info)), 2 * block);
    }
}

TEST_P(Blocks, height_three_converts_four_lines)
{
    ajust_contrast_info info = {};
    for (const auto& [entry, block, line_by_line] : kLoaders) {
        const Bytes surface = load(entry, Picture(), {16, 3, 16, 64}, 600, &info);
        EXPECT_EQ(written(surface), 4 * block);
        EXPECT_NE(surface[3 * 64], kUntouched);
    }
}

TEST_P(Blocks, width_twenty_converts_32_pixels_and_starts_the_next_pair_12_on)
{
    // Grey of the luma's own value nearly: what counts is that every luma value gives another grey.
    Picture p;
    for (size_t i = 0; i < p.y.size(); ++i) p.y[i] = static_cast<uint8_t>(20 + i % 199);
    const auto grey = [&](size_t i) { return model::to_rgb(p.y[i], model::chroma_terms(128, 128)).g; };
    const Bytes surface = load(&Kernels::loadimage_rgb32, p, {20, 4, 64, 512}, 3000);
    EXPECT_EQ(written(surface), 4u * 32 * 4);
    EXPECT_EQ(surface[31 * 4], grey(31)); // 32 pixels on the first line
    EXPECT_EQ(surface[32 * 4], kUntouched);
    EXPECT_EQ(surface[512], grey(64));
    EXPECT_EQ(surface[2 * 512 + 11 * 4], kUntouched);        // 12 pixels of destination too far on
    EXPECT_EQ(surface[2 * 512 + 12 * 4], grey(2 * 64 + 12)); // from 12 luma bytes too far on
    EXPECT_EQ(surface[3 * 512 + 12 * 4], grey(3 * 64 + 12));
}

TEST_P(Blocks, width_twenty_starts_the_next_chroma_line_6_on)
{
    Picture p(128);
    std::fill(p.u.begin(), p.u.begin() + 32 + 6, uint8_t{0}); // what the first pair and the skipped bytes hold
    const Bytes surface = load(&Kernels::loadimage_rgb32, p, {20, 4, 64, 512}, 3000);
    EXPECT_LT(surface[0], 10);                 // no blue where U is 0
    EXPECT_GT(surface[2 * 512 + 12 * 4], 100); // the second pair starts right behind those bytes
}

TEST_P(Blocks, negative_pitches_turn_a_picture_upside_down)
{
    Picture p;
    for (size_t i = 0; i < 64; ++i) p.y[i] = static_cast<uint8_t>(50 + 40 * (i / 16));
    const Bytes down = load(&Kernels::loadimage_rgb32, p, {16, 4, 16, 64}, 256);
    const Bytes up = load(&Kernels::loadimage_rgb32, p, {16, 4, 16, -64}, 256, nullptr, 192);
    for (size_t line = 0; line < 4; ++line) {
        EXPECT_EQ(harness::part(down, line * 64, 64), harness::part(up, (3 - line) * 64, 64));
    }
}

TEST_P(Blocks, floating_point_works_after_each_call)
{
    ajust_contrast_info info = {};
    info.surface_height = info.lines_to_bottom = 10;
    volatile long double third = 1.0L / 3.0L; // the x87 registers, where there are any
    volatile double eighth = 0.125;
    for (const harness::Export& loader : harness::loaders()) {
        load(loader.entry, Picture(), {32, 10, 32, 128}, 4096, &info);
        EXPECT_EQ(third * 3.0L, 1.0L) << loader.name;
        EXPECT_EQ(eighth * 8.0, 1.0) << loader.name;
    }
}

TEST_P(Blocks, ignored_records_may_be_null)
{
    for (const harness::Export& loader : harness::loaders()) {
        if (loader.reads_layout || loader.reads_geometry) continue;
        EXPECT_GT(written(load(loader.entry, Picture(), {16, 10, 16, 64}, 2048, nullptr)), 0u) << loader.name;
    }
}

VSURF_ON_EVERY_TABLE(Blocks);

} // namespace
