// SPDX-License-Identifier: MIT
// Every loader on every instruction set against the model, over the whole range of small pictures.
#include "harness/exactness.h"

namespace {

using harness::Case;
using harness::Pitch;
using harness::Random;

class LoaderExactness : public harness::Exactness {};

TEST_P(LoaderExactness, every_width_and_height)
{
    const int cases = harness::by_effort(20, 2);
    Random random(10);
    for (int width = 0; width <= 160; ++width) {
        for (int height = 0; height <= 20; height += harness::by_effort(1, 1 + (width + height) % 5)) {
            for (int i = 0; i < cases; ++i) {
                const int number = (width * 21 + height) * cases + i;
                const Case c = harness::any_case(GetParam(), width, height, static_cast<uint64_t>(number));
                ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
            }
        }
    }
}

TEST_P(LoaderExactness, every_pair_of_pitches)
{
    static constexpr int kWidths[] = {0,  1,  7,  8,  15, 16, 17,  20,  24,  31,  32,  33,  40,  47,  48,  56,  63,
                                      64, 65, 72, 80, 95, 96, 104, 111, 112, 120, 127, 128, 129, 136, 144, 145, 160};
    Random random(11);
    for (const int width : kWidths) {
        for (int pair = 0; pair < 100; pair += harness::by_effort(1, 7)) {
            const Case c = harness::case_of(GetParam(), width, random.between(0, 14), static_cast<Pitch>(pair % 10),
                                            static_cast<Pitch>(pair / 10), random);
            ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
        }
    }
}

// Lines that end in the middle of a block reach over into the next line, so the order of stores shows.
TEST_P(LoaderExactness, tight_lines_that_overlap_the_next)
{
    Random random(13);
    for (int width = 1; width <= 320; width += harness::by_effort(1, 9)) {
        Case c = harness::case_of(GetParam(), width, random.between(1, 12), Pitch::kTight, Pitch::kTight, random);
        ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
        if (!GetParam().signed_pitches) continue;
        c.dst_pitch = -c.dst_pitch;
        ASSERT_TRUE(check(c, harness::flush()));
    }
}

TEST_P(LoaderExactness, wide_pictures)
{
    static constexpr int kWidths[] = {161,  176,  255,  256,  257,  320,  352,  511,  512,  513,  640,
                                      719,  720,  854,  1000, 1023, 1024, 1279, 1280, 1366, 1440, 1919,
                                      1920, 1921, 2048, 2560, 3000, 3840, 4000, 4080, 4095, 4096};
    Random random(14);
    for (const int width : kWidths) {
        for (int i = 0; i < harness::by_effort(30, 1); ++i) {
            const Case c = harness::any_case(GetParam(), width, random.between(0, 10), random.next());
            ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Loaders, LoaderExactness, testing::ValuesIn(harness::loaders()),
                         harness::name_of<harness::Export>);

} // namespace
