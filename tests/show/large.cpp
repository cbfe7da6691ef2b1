// SPDX-License-Identifier: MIT
// Surfaces large enough for stores past the caches, long lines among them.
#include "show/exactness.h"

namespace {

using harness::Random;
using harness::ShowCase;

struct Size {
    int width, height;
};

harness::ShowChecker& large()
{
    static harness::ShowChecker one(size_t{9} << 20);
    return one;
}

class LargePairs : public show_test::EveryPair {
protected:
    LargePairs() : EveryPair(large()) {}

    void check_sizes(std::initializer_list<Size> sizes, Random& random)
    {
        for (const Size& size : sizes) {
            const ShowCase c = harness::show_case(picture(), surface(), size.width, size.height, random);
            ASSERT_TRUE(check(c, show_test::any_placement(random)));
        }
    }
};

TEST_P(LargePairs, surfaces_that_are_streamed)
{
    Random random(static_cast<uint64_t>(3000 + number()));
    if (harness::quick()) return check_sizes({{853, 32}}, random);
    check_sizes({random.pick({Size{853, 479}, Size{720, 288}}), random.pick({Size{333, 217}, Size{1366, 130}})},
                random);
}

TEST_P(LargePairs, long_lines)
{
    Random random(static_cast<uint64_t>(4000 + number()));
    const int width = random.between(4096, 8704);
    if (harness::quick()) return check_sizes({{width, 3}}, random);
    check_sizes({{width, 5}, {16 * (width / 16), 2}}, random);
}

VSURF_SHOW_EVERY_PAIR(LargePairs);

// A subtitle of two lines on a picture of this size.
TEST(LargeShow, high_definition)
{
    static constexpr std::pair<vsurf_format, vsurf_format> kPairs[] = {
        {VSURF_NV12, VSURF_BGRA},   {VSURF_I420, VSURF_BGRX}, {VSURF_I420, VSURF_YUY2}, {VSURF_UYVY, VSURF_RGB24},
        {VSURF_NV21, VSURF_RGB565}, {VSURF_YUY2, VSURF_NV12}, {VSURF_NV12, VSURF_I420}};
    Random random(5000);
    for (const auto& [picture, surface] : kPairs) {
        ShowCase c = harness::show_case(picture, surface, 1920, 1080, random, {true, false, true, true});
        c.overlays = {{VSURF_COVERAGE, c.job.x + 501, c.job.y + 901, 917, 133, nullptr, 960, 0xfff0e0d0}};
        c.overlay_content = harness::Content::kMask;
        const auto wrong = large().run(c, {show_test::any_placement(random)});
        ASSERT_FALSE(wrong) << *wrong;
        if (harness::quick()) break;
    }
}

} // namespace
