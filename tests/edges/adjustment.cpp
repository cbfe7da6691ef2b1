// SPDX-License-Identifier: MIT
// What the adjustment does to a sample, and which parts of its record count.
#include "harness/fixture.h"

namespace {

using harness::Bytes;
using harness::Picture;
using vsurf::Kernels;

class Adjustment : public harness::OnEveryTable {
protected:
    // What comes out of a luma sample, through the grey loader: every second byte.
    int luma(uint8_t sample)
    {
        const Bytes surface = load(&Kernels::loadimage_yuy2_mono_ajust, Picture(sample), {16, 2, 16, 32}, 64);
        for (size_t i = 2; i < 64; i += 2) EXPECT_EQ(surface[i], surface[0]);
        return surface[0];
    }

    std::pair<int, int> chroma(uint8_t u, uint8_t v)
    {
        const Bytes surface = load(&Kernels::loadimage_yuy2_ajust, Picture(16, u, v), {16, 10, 16, 32}, 320);
        return {surface[1], surface[3]};
    }
};

TEST_P(Adjustment, gain_64_leaves_luma_unchanged)
{
    harness::set_adjustment({64, 64});
    for (int x = 0; x < 256; ++x) EXPECT_EQ(luma(static_cast<uint8_t>(x)), x);
}

TEST_P(Adjustment, gain_128_doubles_and_saturates)
{
    harness::set_adjustment({128, 64});
    EXPECT_EQ(luma(100), 200);
    EXPECT_EQ(luma(200), 255);
}

TEST_P(Adjustment, a_negative_offset_saturates_at_zero)
{
    harness::set_adjustment({64, 64}, {-20, 0, 0});
    EXPECT_EQ(luma(10), 0);
    EXPECT_EQ(luma(255), 235);
}

TEST_P(Adjustment, addends_of_an_offset_wrap)
{
    harness::set_adjustment({64, 64}, {30000, 0, 0}, {30000, 0, 0}); // -5536
    for (const int x : {0, 16, 128, 255}) EXPECT_EQ(luma(static_cast<uint8_t>(x)), 0);
    harness::set_adjustment({64, 64}, {-30000, 0, 0}, {-30000, 0, 0}); // 5536
    EXPECT_EQ(luma(0), 255);
    harness::set_adjustment({64, 64}, {32767, 0, 0}, {-32767, 0, 0});
    EXPECT_EQ(luma(77), 77);
}

TEST_P(Adjustment, only_the_low_16_bits_of_a_field_count)
{
    harness::set_adjustment({65536 + 64, 3 * 65536 + 64}, {65536 + 5, -65536, 65536}, {-65536, 131072, 0});
    EXPECT_EQ(luma(100), 105);
    EXPECT_EQ(chroma(90, 91), std::pair(90, 91));
}

TEST_P(Adjustment, a_product_wraps_before_the_unsigned_shift)
{
    harness::set_adjustment({-64, 64});
    EXPECT_EQ(luma(1), 255); // 65472 >> 6 is 1023
    EXPECT_EQ(luma(0), 0);
    harness::set_adjustment({257, 64}, {-1000, 0, 0});
    EXPECT_EQ(luma(255), 23); // 65535 >> 6 is 1023
    harness::set_adjustment({258, 64});
    EXPECT_EQ(luma(255), 3); // wrapped to 254
}

TEST_P(Adjustment, the_offset_is_added_with_signed_saturation)
{
    harness::set_adjustment({-64, 64}, {32767, 0, 0});
    EXPECT_EQ(luma(1), 255); // not a sum wrapped below zero
    harness::set_adjustment({0, 64}, {-32768, 0, 0});
    EXPECT_EQ(luma(255), 0);
}

TEST_P(Adjustment, chroma_takes_its_own_gain_and_each_plane_its_own_offset)
{
    harness::set_adjustment({0, 128}, {99, 7, -9});
    EXPECT_EQ(chroma(60, 70), std::pair(127, 131));
}

TEST_P(Adjustment, the_loaders_record_does_not_adjust)
{
    harness::set_adjustment({64, 64}, {1, 0, 0});
    ajust_contrast_info info = {};
    info.y_gain = 128;
    info.y_offset_a = 50;
    const Bytes surface = load(&Kernels::loadimage_yuy2_mono_ajust, Picture(40), {16, 2, 16, 32}, 64, &info);
    EXPECT_EQ(surface[0], 41);
}

TEST_P(Adjustment, every_call_replaces_all_values)
{
    harness::set_adjustment({128, 128}, {9, 9, 9});
    harness::set_adjustment({64, 64});
    EXPECT_EQ(luma(33), 33);
    EXPECT_EQ(chroma(44, 55), std::pair(44, 55));
}

VSURF_ON_EVERY_TABLE(Adjustment);

} // namespace
