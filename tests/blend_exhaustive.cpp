// SPDX-License-Identifier: MIT
// Every sample of a picture under every sample of a subpicture at every alpha, as luma and as chroma.
#include "harness/effort.h"
#include "harness/variants.h"
#include "model/samples.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

using harness::Variant;
using Bytes = std::vector<uint8_t>;
using Mixer = void (*vsurf::Kernels::*)(MIX_INFO*);

constexpr int kSamples = 256;
constexpr int kSize = 2 * kSamples; // of luma: chroma has all samples in a line, and every second line of a subpicture

// Picture samples run along the lines, subpicture samples down the lines.
class AllBlends {
public:
    AllBlends()
    {
        for (size_t i = 0; i < kSize; ++i) {
            picture_[i] = static_cast<uint8_t>(i);
            std::memset(&luma_[i * kSize], static_cast<int>(i / 2), kSize);
            std::memset(&chroma_[i * kSamples], static_cast<int>(i / 2), kSamples);
        }
    }

    void expect_model(Mixer mixer, uint8_t alpha, const ajust_contrast_info* adjustment)
    {
        std::fill(alpha_.begin(), alpha_.end(), alpha);
        for (size_t s = 0; s < kSamples; ++s) {
            for (size_t p = 0; p < kSamples; ++p) {
                blends_[s * kSamples + p] = model::blend(static_cast<uint8_t>(p), static_cast<uint8_t>(s), alpha);
            }
        }
        const model::State state = adjustment != nullptr ? model::state_from(*adjustment) : model::State{};
        const Bytes y = adjusted(adjustment, state.luma_gain, state.luma_offset);
        const Bytes u = adjusted(adjustment, state.chroma_gain, state.u_offset);
        const Bytes v = adjusted(adjustment, state.chroma_gain, state.v_offset);
        for (const Variant& table : harness::variants()) {
            table.apply();
            mix(*table.kernels, mixer);
            bool same = u_ == u && v_ == v;
            for (size_t at = 0; at < y_.size(); at += kSamples) {
                same = same && std::memcmp(&y_[at], &y[at / (2 * kSize) * kSamples], kSamples) == 0;
            }
            ASSERT_TRUE(same) << table.name << ": alpha " << int{alpha} << ", gains " << state.luma_gain << " and "
                              << state.chroma_gain;
        }
    }

private:
    Bytes adjusted(const ajust_contrast_info* adjustment, int16_t gain, int16_t offset) const
    {
        Bytes bytes = blends_;
        if (adjustment == nullptr) return bytes;
        for (uint8_t& byte : bytes) byte = model::adjust(byte, gain, offset);
        return bytes;
    }

    void mix(const vsurf::Kernels& table, Mixer mixer)
    {
        MIX_INFO job = {};
        job.subpicture_pitch = job.surface_pitch = job.width = job.height = kSize; // the picture is one line
        job.picture_y = job.picture_u = job.picture_v = picture_;
        job.subpic_alpha = alpha_.data();
        job.subpic_y = luma_.data();
        job.subpic_u = job.subpic_v = chroma_.data();
        job.surface = y_.data();
        job.surface_u = u_.data();
        job.surface_v = v_.data();
        (table.*mixer)(&job);
    }

    uint8_t picture_[kSize];
    Bytes alpha_ = Bytes(kSize * kSize), luma_ = alpha_, chroma_ = Bytes(kSize * kSamples), y_ = alpha_;
    Bytes blends_ = Bytes(kSamples * kSamples), u_ = blends_, v_ = blends_;
};

TEST(BlendExhaustive, every_alpha)
{
    AllBlends blends;
    for (int alpha = 0; alpha < 256; alpha += harness::by_effort(1, alpha < 17 ? 1 : 17)) {
        ASSERT_NO_FATAL_FAILURE(
            blends.expect_model(&vsurf::Kernels::mix_ayv12_yv12_p, static_cast<uint8_t>(alpha), nullptr));
    }
}

TEST(BlendExhaustive, every_alpha_of_the_scale_before_an_adjustment)
{
    AllBlends blends;
    for (const int gain : {64, 63, 75, 100, 128, 201, 257, 258, -64}) {
        ajust_contrast_info record = {};
        record.y_gain = gain;
        record.uv_gain = 300 - gain;
        record.y_offset_a = gain / 2 - 60;
        record.u_offset_a = 128 - gain;
        get_contrast_data(&record);
        for (int alpha = 0; alpha <= 17; alpha += harness::by_effort(1, 5)) {
            ASSERT_NO_FATAL_FAILURE(
                blends.expect_model(&vsurf::Kernels::mix_ayv12_yv12_p_ajust, static_cast<uint8_t>(alpha), &record));
        }
    }
}

} // namespace
