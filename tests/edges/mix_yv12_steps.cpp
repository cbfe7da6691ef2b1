// SPDX-License-Identifier: MIT
// Subpictures mixed in YV12: where lines begin when pitches are odd and widths are not whole blocks.
#include "edges/mix_yv12.h"

namespace {

using harness::Bytes;
using harness::kYv12;
using harness::kYv12Adjusted;
using harness::kYv12Field;
using harness::part;
using harness::Region;

// How far apart lines begin in a plane, and how many samples each has.
struct Steps {
    int picture, subpicture, surface;
    size_t samples;
};

class MixYv12Steps : public harness::OnEveryMix {
protected:
    // Up to four lines of luma and two of chroma, first from the picture and then from the subpicture.
    void expect_steps(JobEntry entry, const MIX_INFO& job, const Steps& luma, const Steps& chroma)
    {
        set_places();
        for (const bool over : {false, true}) {
            set_alpha(over ? 16 : 0);
            for (Bytes* plane : {&surface, &surface_u, &surface_v}) plane->assign(kRoom, kUntouched);
            run(entry, job);
            expect_lines(job.surface, over ? y : picture_y, luma, over, 4);
            expect_lines(job.surface_u, over ? u : picture_u, chroma, over, 2);
            expect_lines(job.surface_v, over ? v : picture_v, chroma, over, 2);
        }
    }

    static void expect_lines(const uint8_t* to, const Bytes& from, const Steps& steps, bool over, int lines)
    {
        for (int k = 0; k < lines; ++k) {
            const uint8_t* line = to + k * steps.surface;
            const int source = k * (over ? steps.subpicture : steps.picture);
            EXPECT_EQ(Bytes(line, line + steps.samples), part(from, static_cast<size_t>(source), steps.samples)) << k;
        }
    }
};

TEST_P(MixYv12Steps, odd_pitches_are_rounded_down_for_halved_lines)
{
    for (const auto entry : {kYv12, kYv12Adjusted}) {
        expect_steps(entry, record({16, 4, 33, 21, 35}), {33, 21, 35, 16}, {16, 21, 17, 8});
    }
}

TEST_P(MixYv12Steps, the_surface_may_run_upwards_and_odd_pitches_are_rounded_down_there_too)
{
    MIX_INFO job = record({16, 4, 32, 32, -35});
    job.surface += 500;
    job.surface_u += 500;
    job.surface_v += 500;
    expect_steps(kYv12, job, {32, 32, -35, 16}, {16, 32, -18, 8}); // 8 + (-51 >> 1) - 8 of each 8 samples
}

TEST_P(MixYv12Steps, a_width_of_20_takes_24_pixels_and_32_of_chroma)
{
    for (const auto entry : {kYv12, kYv12Adjusted}) {
        // Chroma: 16 + (20 >> 1), 16 + 36 - 10, 16 + (30 >> 1).
        expect_steps(entry, record({20, 4, 40, 36, 50}), {44, 40, 54, 24}, {26, 42, 31, 16});
    }
}

TEST_P(MixYv12Steps, an_odd_width_loses_its_last_pixel_in_chroma)
{
    // Luma: 24 - 17 further. Chroma: 8 + (23 >> 1), 8 + 36 - 8, 8 + (33 >> 1).
    expect_steps(kYv12, record({17, 4, 40, 36, 50}), {47, 43, 57, 24}, {19, 36, 24, 8});
}

TEST_P(MixYv12Steps, widths_of_0_and_1_take_a_block)
{
    expect_steps(kYv12, record({0, 4, 40, 36, 50}), {48, 44, 58, 8}, {28, 44, 33, 8});
    expect_steps(kYv12, record({1, 4, 40, 36, 50}), {47, 43, 57, 8}, {27, 44, 32, 8});
}

TEST_P(MixYv12Steps, a_width_of_24_takes_32_pixels_of_chroma)
{
    expect_steps(kYv12, record({24, 4, 40, 36, 50}), {40, 36, 50, 24}, {24, 40, 29, 16});
}

TEST_P(MixYv12Steps, alpha_of_chroma_drifts_with_its_own_blocks)
{
    set_picture(100);
    set_subpicture(201);
    // 2 * 36 - 20 + 32 bytes from one line of chroma to the next.
    alpha[84 + 1] = 16;
    for (const auto entry : {kYv12, kYv12Adjusted, kYv12Field}) {
        run(entry, {20, 4, 40, 36, 50});
        Bytes expected(16, 100);
        EXPECT_EQ(part(surface_u, 0, 16), expected);
        expected[0] = 201;
        EXPECT_EQ(part(surface_u, 31, 16), expected);
        EXPECT_EQ(part(surface_v, 31, 16), expected);
    }
}

TEST_P(MixYv12Steps, alpha_of_chroma_drifts_by_the_whole_of_an_odd_width)
{
    set_picture(100);
    set_subpicture(201);
    alpha[71 + 1] = 16; // 2 * 36 - 17 + 16 bytes further
    for (const auto entry : {kYv12, kYv12Adjusted, kYv12Field}) {
        run(entry, {17, 4, 40, 36, 50});
        EXPECT_EQ(part(surface_u, 24, 2), Bytes({201, 100}));
        EXPECT_EQ(part(surface_v, 24, 2), Bytes({201, 100}));
    }
}

// Fields move on by a line of the picture after two of the surface.
class MixYv12FieldSteps : public MixYv12Steps {
protected:
    // Lines 2j of planes that count up, and line 1 as the average of two lines `below` apart.
    static void expect_field(const uint8_t* to, const Bytes& from, const Steps& steps, int drift, int below)
    {
        for (const int k : {0, 2}) {
            const uint8_t* line = to + k * steps.surface;
            const auto source = static_cast<size_t>(k / 2 * steps.picture);
            EXPECT_EQ(Bytes(line, line + steps.samples), part(from, source, steps.samples)) << k;
        }
        for (size_t i = 0; i < steps.samples; ++i) {
            const int above = from[static_cast<size_t>(drift) + i];
            EXPECT_EQ(to[steps.surface + static_cast<int>(i)], above + (below + 1) / 2) << i;
        }
    }

    void expect_field_steps(const Region& region, const Steps& luma, const Steps& chroma, int luma_drift,
                            int chroma_drift)
    {
        set_places();
        run(kYv12Field, region);
        expect_field(surface.data(), picture_y, luma, luma_drift, region.picture_pitch);
        expect_field(surface_u.data(), picture_u, chroma, chroma_drift, region.picture_pitch / 2);
        expect_field(surface_v.data(), picture_v, chroma, chroma_drift, region.picture_pitch / 2);
    }
};

TEST_P(MixYv12FieldSteps, odd_pitches)
{
    expect_field_steps({16, 8, 33, 21, 35}, {33, 21, 35, 16}, {16, 21, 17, 8}, 0, 0);
}

TEST_P(MixYv12FieldSteps, a_width_of_20_drifts_with_both_lines_of_a_pair)
{
    // Luma: 4 with the first line, 44 with the second. Chroma: 16 - 10, then 16 + (20 >> 1).
    expect_field_steps({20, 8, 40, 36, 50}, {48, 40, 54, 24}, {32, 42, 31, 16}, 4, 6);
}

TEST_P(MixYv12FieldSteps, an_odd_width_drifts_less_in_chroma)
{
    // Luma: 7, then 47. Chroma: 8 - 8, then 8 + (23 >> 1).
    expect_field_steps({17, 8, 40, 36, 50}, {54, 43, 57, 24}, {19, 36, 24, 8}, 7, 0);
}

TEST_P(MixYv12FieldSteps, the_record_keeps_half_of_an_odd_width)
{
    for (const int width : {0, 1, 17, 20, 33}) {
        const MIX_INFO job = record({width, 4, 64, 64, 80});
        MIX_INFO expected = job;
        expected.width = width / 2;
        expected.height = 2;
        expect_record(run(kYv12Field, job), expected);
    }
}

TEST_P(MixYv12FieldSteps, the_subpicture_moves_on_with_every_line)
{
    set_places();
    set_alpha(16);
    run(kYv12Field, {20, 8, 40, 36, 50});
    for (size_t k = 0; k < 8; ++k) EXPECT_EQ(part(surface, 54 * k, 24), part(y, 40 * k, 24)) << k;
    for (size_t k = 0; k < 4; ++k) {
        EXPECT_EQ(part(surface_u, 31 * k, 16), part(u, 42 * k, 16)) << k;
        EXPECT_EQ(part(surface_v, 31 * k, 16), part(v, 42 * k, 16)) << k;
    }
}

VSURF_ON_EVERY_TABLE(MixYv12Steps);
VSURF_ON_EVERY_TABLE(MixYv12FieldSteps);

} // namespace
