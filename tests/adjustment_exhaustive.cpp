// SPDX-License-Identifier: MIT
// Every sample under every 16-bit gain, and under every 16-bit offset at telling gains.
#include "harness/effort.h"
#include "harness/random.h"
#include "harness/variants.h"
#include "model/samples.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

using harness::Variant;

constexpr int kWidth = 512;

// One line pair with every luma and every chroma sample (the chroma ones in another order).
class AllSamples {
public:
    AllSamples()
    {
        for (int i = 0; i < kWidth; ++i) y_[i] = static_cast<uint8_t>(i + i / 256);
        for (int i = 0; i < kWidth / 2; ++i) {
            u_[i] = static_cast<uint8_t>(i);
            v_[i] = static_cast<uint8_t>(255 - i);
        }
    }

    // Adjusted YUY2 lines: ten of them, since the loader refuses fewer. All show the same samples.
    void expect_model(const ajust_contrast_info& record, const Variant& table)
    {
        const model::State state = model::state_from(record);
        uint8_t expected[2 * kWidth];
        for (size_t k = 0; k < kWidth / 2; ++k) {
            expected[4 * k] = model::adjust(y_[2 * k], state.luma_gain, state.luma_offset);
            expected[4 * k + 1] = model::adjust(u_[k], state.chroma_gain, state.u_offset);
            expected[4 * k + 2] = model::adjust(y_[2 * k + 1], state.luma_gain, state.luma_offset);
            expected[4 * k + 3] = model::adjust(v_[k], state.chroma_gain, state.v_offset);
        }
        ajust_contrast_info passed = record;
        get_contrast_data(&passed);
        alignas(64) uint8_t lines[10][2 * kWidth] = {};
        table.apply();
        table.kernels->loadimage_yuy2_ajust(y_, u_, v_, lines, kWidth, 10, 0, sizeof lines[0], nullptr);
        bool same = true;
        for (const auto& line : lines) same = same && std::memcmp(line, expected, sizeof line) == 0;
        ASSERT_TRUE(same) << table.name << ": gains " << record.y_gain << " and " << record.uv_gain << ", offsets "
                          << record.y_offset_a << ", " << record.u_offset_a << " and " << record.v_offset_a;
    }

private:
    uint8_t y_[kWidth], u_[kWidth / 2], v_[kWidth / 2 + 8];
};

TEST(AdjustmentExhaustive, every_gain)
{
    AllSamples samples;
    for (const Variant& table : harness::variants()) {
        for (int gain = -32768; gain <= 32767; gain += harness::by_effort(1, 29)) {
            ajust_contrast_info record = {};
            record.y_gain = gain;
            record.uv_gain = -gain;
            ASSERT_NO_FATAL_FAILURE(samples.expect_model(record, table));
            record.uv_gain = gain; // both of the common range, or both beyond it
            ASSERT_NO_FATAL_FAILURE(samples.expect_model(record, table));
        }
    }
}

TEST(AdjustmentExhaustive, every_offset)
{
    AllSamples samples;
    for (const Variant& table : harness::variants()) {
        for (int offset = -32768; offset <= 32767; offset += harness::by_effort(1, 29)) {
            ajust_contrast_info record = {};
            record.y_gain = offset % 2 == 0 ? 64 : 257;
            record.uv_gain = offset % 3 == 0 ? 64 : 250;
            record.y_offset_a = offset;
            record.u_offset_a = -offset;
            record.v_offset_a = offset ^ 0x155;
            ASSERT_NO_FATAL_FAILURE(samples.expect_model(record, table));
        }
    }
}

} // namespace
