// SPDX-License-Identifier: MIT
// Every enlarger on every instruction set against the model, over the whole range of small pictures.
#include "harness/exactness.h"

#include <climits>

namespace {

using harness::Case;
using harness::Pitch;
using harness::Random;

class EnlargerExactness : public harness::Exactness {};

TEST_P(EnlargerExactness, every_width_and_height)
{
    const int cases = harness::by_effort(1 + 24 * GetParam().sizes.width_step / 16, 1);
    Random random(30);
    int number = 0;
    for (const int width : harness::widths(GetParam(), 160)) {
        for (const int height : harness::heights(GetParam(), 24)) {
            if (harness::quick() && (width + height) % 5 != 0) continue;
            for (int i = 0; i < cases; ++i) {
                const Case c = harness::any_case(GetParam(), width, height, static_cast<uint64_t>(++number));
                ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
            }
        }
    }
}

TEST_P(EnlargerExactness, every_pair_of_pitches)
{
    static constexpr int kWidths[] = {1, 16, 32, 40, 48, 64, 72, 96, 112, 128, 136, 160};
    Random random(31);
    for (const int width : kWidths) {
        for (int pair = 0; pair < 100; pair += harness::by_effort(1, 23)) {
            const int height = harness::legal_height(GetParam(), random.between(1, 20));
            const Case c = harness::case_of(GetParam(), harness::legal_width(GetParam(), width), height,
                                            static_cast<Pitch>(pair % 10), static_cast<Pitch>(pair / 10), random);
            ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
        }
    }
}

TEST_P(EnlargerExactness, wide_pictures)
{
    static constexpr int kWidths[] = {168, 176, 192,  240,  256,  272,  320,  352,  504,  512,  528,  640,  720,
                                      854, 960, 1000, 1024, 1280, 1366, 1440, 1920, 2048, 2064, 3840, 4080, 4096};
    Random random(33);
    for (const int width : kWidths) {
        for (int i = 0; i < harness::by_effort(4, 1); ++i) {
            const Case c = harness::any_case(GetParam(), harness::legal_width(GetParam(), width),
                                             harness::legal_height(GetParam(), random.between(2, 18)), random.next());
            ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
            if (harness::quick()) break;
        }
    }
}

TEST_P(EnlargerExactness, heights_far_below_the_guard)
{
    if (!GetParam().sizes.guarded) GTEST_SKIP() << "there is no guard";
    Random random(34);
    for (const int height : {-1, -8, -1000, INT_MIN, INT_MIN + 20}) {
        const Case c = harness::case_of(GetParam(), harness::legal_width(GetParam(), 48), height, Pitch::kTight,
                                        Pitch::kTight, random);
        ASSERT_TRUE(check(c, harness::flush()));
    }
}

INSTANTIATE_TEST_SUITE_P(Enlargers, EnlargerExactness, testing::ValuesIn(harness::enlargers()),
                         harness::name_of<harness::Export>);

} // namespace
