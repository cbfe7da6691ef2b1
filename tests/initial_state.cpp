// SPDX-License-Identifier: MIT
// The state before the first `get_contrast_data`; a program of its own, since nothing brings that state back.
#include "harness/variants.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(InitialState, every_sample_is_adjusted_to_zero)
{
    std::vector<uint8_t> y(1024, 200), u(1024, 90), v(1024, 210);
    for (const harness::Variant& table : harness::variants()) {
        std::vector<uint8_t> rgb(64 * 2, 0xAA), yuy2(32 * 10, 0xAA);
        table.kernels->loadimage_rgb32_ajust(y.data(), u.data(), v.data(), rgb.data(), 16, 2, 16, 64, nullptr);
        table.kernels->loadimage_yuy2_ajust(y.data(), u.data(), v.data(), yuy2.data(), 16, 10, 16, 32, nullptr);
        EXPECT_EQ(yuy2, std::vector<uint8_t>(32 * 10, 0)) << table.name;
        for (size_t i = 0; i < rgb.size(); ++i) EXPECT_EQ(rgb[i], i % 4 == 1 ? 137 : 0) << table.name;
    }
}

} // namespace
