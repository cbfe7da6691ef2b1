// SPDX-License-Identifier: MIT
// Bands: all of them together are one call, each writes its own lines only. Compared with the model, which writes all
// bands at once.
#include "show/exactness.h"
#include "show/picture.h"

#include <climits>

namespace {

using harness::Random;
using harness::ShowCase;

class ShowBands : public show_test::EveryPair {
protected:
    ShowBands() : EveryPair(all()) {}

    ShowCase any_case(int width, int height, Random& random)
    {
        return harness::show_case(picture(), surface(), width, height, random, {true, true, true, false});
    }

private:
    static harness::ShowChecker& all()
    {
        static harness::ShowChecker one(size_t{1} << 16);
        return one;
    }
};

TEST_P(ShowBands, together_equal_one_call)
{
    Random random(static_cast<uint64_t>(6000 + number()));
    for (int bands = 1; bands <= 9; ++bands) {
        for (const int height : {1, 2, 3, 7, 10, 17}) {
            if (harness::quick() && !random.one_in(9)) continue;
            ShowCase c = any_case(random.between(1, 40), height, random);
            c.bands = bands;
            ASSERT_TRUE(check(c, show_test::any_placement(random)));
        }
    }
}

TEST_P(ShowBands, each_writes_its_own_lines)
{
    Random random(static_cast<uint64_t>(7000 + number()));
    for (const int bands : {2, 3, 5, 12, INT_MAX}) {
        for (const int band : {0, 1, bands / 2, bands - 1}) {
            if (harness::quick() && !random.one_in(5)) continue;
            ShowCase c = any_case(random.between(1, 40), random.between(1, 20), random);
            c.bands = bands;
            c.band = band;
            ASSERT_TRUE(check(c, show_test::any_placement(random)));
        }
    }
}

VSURF_SHOW_EVERY_PAIR(ShowBands);

TEST(ShowBand, is_refused_without_a_band_of_that_number)
{
    show_test::Picture picture(VSURF_NV12, 8, 8);
    show_test::Surface surface(VSURF_BGRX, 8, 8);
    const vsurf_job job = job_of(picture, surface);
    const auto before = surface.all_bytes();
    static constexpr int kBad[][2] = {{0, 0},        {0, -1},      {-1, 1},           {1, 1},       {7, 7},
                                      {8, 7},        {0, INT_MIN}, {INT_MIN, 1},      {INT_MAX, 1}, {INT_MAX, INT_MAX},
                                      {-1, INT_MAX}, {-1, -1},     {INT_MIN, INT_MIN}};
    for (const auto& [band, bands] : kBad) {
        EXPECT_EQ(vsurf_show_band(&job, band, bands), VSURF_BAD_BAND) << band << " of " << bands;
    }
    vsurf_job bad = job;
    bad.x = 1;
    EXPECT_EQ(vsurf_show_band(&bad, 1, 1), VSURF_BAD_POSITION) << "a job's mistakes come first";
    EXPECT_EQ(surface.all_bytes(), before);
}

} // namespace
