// SPDX-License-Identifier: MIT
// vsurf_show on every instruction set against its model: small rectangles of every size.
#include "show/exactness.h"

namespace {

using harness::Random;
using harness::ShowCase;

class ShowExactness : public show_test::EveryPair {
protected:
    ShowExactness() : EveryPair(small()) {}

private:
    static harness::ShowChecker& small()
    {
        static harness::ShowChecker one(size_t{1} << 17);
        return one;
    }
};

// All pairs of formats together go through every size several times, each through a part of them.
TEST_P(ShowExactness, every_size)
{
    constexpr int kWidest = 80, kHighest = 80;
    const int step = harness::by_effort(17, 331);
    Random random(static_cast<uint64_t>(number()));
    for (int at = number() % step; at < kWidest * kHighest; at += step) {
        const int width = 1 + at % kWidest, height = 1 + (at / kWidest + number()) % kHighest;
        const ShowCase c = harness::show_case(picture(), surface(), width, height, random);
        ASSERT_TRUE(check(c, show_test::any_placement(random)));
    }
}

// Destinations at every address modulo 64, with lines of every length modulo 64.
TEST_P(ShowExactness, every_phase_and_remainder)
{
    const int step = harness::by_effort(7, 67);
    Random random(static_cast<uint64_t>(1000 + number()));
    for (int at = number() % step; at < 64 * 64; at += step) {
        const int width = 1 + at / 64 + 64 * random.pick({0, 1, 1, 2, 4});
        const ShowCase c = harness::show_case(picture(), surface(), width, random.between(1, 5), random);
        ASSERT_TRUE(check(c, harness::at_phase(at % 64, random)));
    }
}

// Sizes that are whole blocks, and those around them, with nothing else special.
TEST_P(ShowExactness, plain_pictures)
{
    Random random(static_cast<uint64_t>(2000 + number()));
    for (const int width : {15, 16, 17, 31, 32, 33, 64, 128, 160}) {
        for (const int height : {1, 2, 3, 4, 16}) {
            if (harness::quick() && !random.one_in(8)) continue;
            const ShowCase c =
                harness::show_case(picture(), surface(), width, height, random, {false, false, false, false});
            ASSERT_TRUE(check(c, show_test::any_placement(random)));
        }
    }
}

VSURF_SHOW_EVERY_PAIR(ShowExactness);

} // namespace
