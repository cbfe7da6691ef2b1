// SPDX-License-Identifier: MIT
// Subpictures mixed onto pictures and fields in YV12, plane by plane.
#include "edges/mix_yv12.h"

namespace {

using harness::Bytes;
using harness::flat_lines;
using harness::kWideMix;
using harness::kYv12;
using harness::kYv12Adjusted;
using harness::kYv12Field;
using harness::part;
using harness::Region;

constexpr int kWide = static_cast<int>(kWideMix);

class MixYv12 : public harness::OnEveryMix {
protected:
    template <std::same_as<MIX_INFO> Job> MIX_INFO mix(JobEntry entry, const Job& job)
    {
        for (Bytes* plane : {&surface, &surface_u, &surface_v}) plane->assign(kRoom, kUntouched);
        return run(entry, job);
    }

    MIX_INFO mix(JobEntry entry, const Region& region) { return mix(entry, record(region)); }

    // So many lines, and how far apart they begin.
    struct Apart {
        size_t surface, source, count;
    };

    static void expect_copied(const Bytes& to, const Bytes& from, Apart apart, size_t samples)
    {
        for (size_t k = 0; k < apart.count; ++k) {
            EXPECT_EQ(part(to, apart.surface * k, samples), part(from, apart.source * k, samples)) << "line " << k;
        }
    }

    void expect_written(size_t lines, size_t chroma_lines)
    {
        harness::expect_lines_written(surface, lines, 16, 40);
        harness::expect_lines_written(surface_u, chroma_lines, 8, 20);
        harness::expect_lines_written(surface_v, chroma_lines, 8, 20);
    }
};

TEST_P(MixYv12, alpha_0_copies_the_picture)
{
    set_places();
    for (const auto entry : {kYv12, kYv12Adjusted}) {
        mix(entry, {112, 8, 120, 112, 116});
        expect_copied(surface, picture_y, {116, 120, 8}, 112);
        expect_copied(surface_v, picture_v, {58, 60, 4}, 56);
        expect_copied(surface_u, picture_u, {58, 60, 4}, 56);
        EXPECT_EQ(part(surface, 112, 4), Bytes(4, kUntouched));
        EXPECT_EQ(part(surface, 8 * 116, 116), Bytes(116, kUntouched));
        EXPECT_EQ(part(surface_u, 56, 2), Bytes(2, kUntouched));
        EXPECT_EQ(part(surface_v, 4 * 58, 58), Bytes(58, kUntouched));
    }
}

TEST_P(MixYv12, alpha_16_is_the_subpicture_with_chroma_of_its_even_lines)
{
    set_places();
    set_alpha(16);
    for (const auto entry : {kYv12, kYv12Adjusted, kYv12Field}) {
        mix(entry, {112, 8, 112, 114, 116});
        expect_copied(surface, y, {116, 114, 8}, 112);
        expect_copied(surface_v, v, {58, 114, 4}, 56);
        expect_copied(surface_u, u, {58, 114, 4}, 56);
    }
}

TEST_P(MixYv12, blends_in_sixteenths_and_wraps_beyond_the_scale)
{
    for (const harness::Cycle& cycle : harness::kCycles) {
        const Line line = set_blends(cycle);
        for (const auto entry : {kYv12, kYv12Adjusted, kYv12Field}) {
            mix(entry, {kWide, 4, kWide, kWide, kWide});
            expect_copied(surface, line.luma, {kWideMix, 0, 4}, kWideMix);
            expect_copied(surface_u, line.chroma, {kWideMix / 2, 0, 2}, kWideMix / 2);
            expect_copied(surface_v, line.chroma, {kWideMix / 2, 0, 2}, kWideMix / 2);
        }
    }
}

TEST_P(MixYv12, chroma_takes_the_alpha_of_odd_pixels_on_even_lines)
{
    set_picture(100);
    set_subpicture(201);
    alpha = Bytes(4 * kWideMix, 0);
    for (size_t i = 1; i < kWideMix; i += 2) alpha[i] = 16;                // line 0: odd pixels
    for (size_t i = 0; i < kWideMix; i += 2) alpha[2 * kWideMix + i] = 16; // line 2: even pixels
    for (size_t i = 0; i < kWideMix; ++i) alpha[3 * kWideMix + i] = 16;    // line 3: all
    for (const auto entry : {kYv12, kYv12Adjusted, kYv12Field}) {
        mix(entry, {kWide, 4, kWide, kWide, kWide});
        const Bytes lines = flat_lines(kWideMix / 2, {201, 100});
        EXPECT_EQ(part(surface_u, 0, kWideMix), lines);
        EXPECT_EQ(part(surface_v, 0, kWideMix), lines);
        EXPECT_EQ(part(surface, kWideMix, kWideMix), Bytes(kWideMix, 100));
        EXPECT_EQ(part(surface, 2 * kWideMix, 2), Bytes({201, 100}));
    }
}

TEST_P(MixYv12, one_pixel_of_the_subpicture_changes_itself_and_the_chroma_of_its_pair_if_odd)
{
    set_picture(100);
    set_subpicture(201);
    for (size_t at = 0; at < kWideMix; ++at) {
        set_alpha(0);
        alpha[at] = 16;
        Bytes luma(kWideMix, 100), chroma(kWideMix / 2, 100);
        luma[at] = 201;
        if (at % 2 == 1) chroma[at / 2] = 201;
        for (const auto entry : {kYv12, kYv12Adjusted, kYv12Field}) {
            mix(entry, {kWide, 2, kWide, kWide, kWide});
            ASSERT_EQ(part(surface, 0, kWideMix), luma) << at;
            ASSERT_EQ(part(surface_u, 0, kWideMix / 2), chroma) << at;
            ASSERT_EQ(part(surface_v, 0, kWideMix / 2), chroma) << at;
        }
    }
}

TEST_P(MixYv12, one_mixer_adjusts_after_the_blend_and_the_others_do_not)
{
    harness::set_adjustment({128, 128}, {-100, -110, -120});
    set_picture(200);
    set_subpicture(50);
    set_alpha(8);
    mix(kYv12Adjusted, {16, 2, 16, 16, 16});
    EXPECT_EQ(part(surface, 0, 32), Bytes(32, 150)); // 2 * 125 - 100
    EXPECT_EQ(part(surface_u, 0, 8), Bytes(8, 140));
    EXPECT_EQ(part(surface_v, 0, 8), Bytes(8, 130));
    for (const auto entry : {kYv12, kYv12Field}) {
        mix(entry, {16, 2, 16, 16, 16});
        EXPECT_EQ(part(surface, 0, 32), Bytes(32, 125));
        EXPECT_EQ(part(surface_u, 0, 8), Bytes(8, 125));
        EXPECT_EQ(part(surface_v, 0, 8), Bytes(8, 125));
    }
}

TEST_P(MixYv12, adjusted_products_wrap)
{
    harness::set_adjustment({-64, 300}, {-1000, 0, 0}); // 65472 >> 6 = 1023; 65700 and 9000 modulo 65536, >> 6
    picture_y.assign(kRoom, 1);
    picture_u.assign(kRoom, 219);
    picture_v.assign(kRoom, 30);
    mix(kYv12Adjusted, {16, 2, 16, 16, 16});
    EXPECT_EQ(part(surface, 0, 32), Bytes(32, 23));
    EXPECT_EQ(part(surface_u, 0, 8), Bytes(8, 2));
    EXPECT_EQ(part(surface_v, 0, 8), Bytes(8, 140));
}

TEST_P(MixYv12, progressive_heights_are_halved_with_at_least_one_line_each)
{
    for (const auto entry : {kYv12, kYv12Adjusted}) {
        for (const int height : {0, 1, 2, 3, 4, 5, 8, 9}) {
            SCOPED_TRACE(height);
            const MIX_INFO job = record({16, height, 20, 18, 40});
            MIX_INFO expected = job;
            expected.height = height / 2;
            expect_record(mix(entry, job), expected);
            expect_written(static_cast<size_t>(std::max(height, 1)), static_cast<size_t>(std::max(height / 2, 1)));
        }
    }
}

TEST_P(MixYv12, field_heights_are_rounded_up_to_pairs_and_halved_like_the_width)
{
    constexpr struct {
        int height;
        size_t lines, chroma_lines;
    } kHeights[] = {{0, 2, 2}, {1, 2, 2}, {2, 2, 2}, {3, 4, 2}, {4, 4, 2}, {5, 6, 2}, {6, 6, 4}, {8, 8, 4}, {9, 10, 4}};
    for (const auto& [height, lines, chroma_lines] : kHeights) {
        SCOPED_TRACE(height);
        const MIX_INFO job = record({16, height, 20, 18, 40});
        MIX_INFO expected = job;
        expected.height = height / 2;
        expected.width = 8;
        expect_record(mix(kYv12Field, job), expected);
        expect_written(lines, chroma_lines);
    }
}

TEST_P(MixYv12, each_line_of_a_field_is_followed_by_its_average_with_the_next)
{
    picture_y = flat_lines(112, {10, 21, 40, 61});
    picture_u = flat_lines(56, {100, 121, 150});
    picture_v = flat_lines(56, {50, 60, 71});
    mix(kYv12Field, {112, 6, 112, 112, 112});
    EXPECT_EQ(part(surface, 0, 672), flat_lines(112, {10, 16, 21, 31, 40, 51}));
    EXPECT_EQ(part(surface_u, 0, 224), flat_lines(56, {100, 111, 121, 136}));
    EXPECT_EQ(part(surface_v, 0, 224), flat_lines(56, {50, 55, 60, 66}));
}

TEST_P(MixYv12, lines_of_a_field_are_averaged_before_they_are_blended)
{
    picture_y = flat_lines(16, {10, 21}); // 16 between them
    picture_u = picture_v = flat_lines(8, {10, 21});
    set_subpicture(0);
    set_alpha(8);
    mix(kYv12Field, {16, 2, 16, 16, 16});
    EXPECT_EQ(part(surface, 0, 32), flat_lines(16, {5, 8}));
    EXPECT_EQ(part(surface_u, 0, 16), flat_lines(8, {5, 8}));
    EXPECT_EQ(part(surface_v, 0, 16), flat_lines(8, {5, 8}));
}

TEST_P(MixYv12, the_picture_may_be_its_own_destination)
{
    for (const auto entry : {kYv12, kYv12Adjusted}) {
        for (const harness::Cycle& cycle : harness::kCycles) {
            const Line line = set_blends(cycle);
            MIX_INFO job = record({kWide, 4, kWide, kWide, kWide});
            job.surface = job.picture_y;
            job.surface_u = job.picture_u;
            job.surface_v = job.picture_v;
            run(entry, job);
            expect_copied(picture_y, line.luma, {kWideMix, 0, 4}, kWideMix);
            expect_copied(picture_u, line.chroma, {kWideMix / 2, 0, 2}, kWideMix / 2);
            expect_copied(picture_v, line.chroma, {kWideMix / 2, 0, 2}, kWideMix / 2);
        }
    }
}

TEST_P(MixYv12, v_is_mixed_before_u)
{
    set_alpha(16);
    u.assign(kRoom, 11);
    v.assign(kRoom, 22);
    for (const auto entry : {kYv12, kYv12Adjusted, kYv12Field}) {
        MIX_INFO job = record({16, 2, 16, 16, 16});
        job.surface_v = job.surface_u;
        mix(entry, job);
        EXPECT_EQ(part(surface_u, 0, 8), Bytes(8, 11));
    }
}

VSURF_ON_EVERY_TABLE(MixYv12);

} // namespace
