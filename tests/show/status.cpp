// SPDX-License-Identifier: MIT
// Every mistake that a job can have is refused with its own status before a byte is written.
#include "harness/effort.h"
#include "harness/random.h"
#include "model/show_status.h"
#include "show/mistakes.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>

namespace {

using show_test::Good;
using show_test::Mistake;
using show_test::mistakes;

void expect_refused(Good& good, vsurf_status status, const std::string& what)
{
    const auto surface = good.surface.all_bytes();
    const auto picture = good.picture.all_bytes();
    EXPECT_EQ(vsurf_show(&good.job), status) << what;
    EXPECT_EQ(vsurf_show_band(&good.job, 0, 1), status) << what;
    EXPECT_EQ(model::mistake(&good.job), status) << what << ": the model";
    EXPECT_TRUE(good.surface.all_bytes() == surface) << what;
    EXPECT_TRUE(good.picture.all_bytes() == picture) << what;
}

TEST(ShowStatus, a_good_job_is_done)
{
    Good good;
    const auto before = good.surface.all_bytes();
    EXPECT_EQ(vsurf_show(&good.job), VSURF_OK);
    EXPECT_FALSE(good.surface.all_bytes() == before);
}

TEST(ShowStatus, no_job)
{
    EXPECT_EQ(vsurf_show(nullptr), VSURF_NO_JOB);
    EXPECT_EQ(vsurf_show_band(nullptr, 0, 1), VSURF_NO_JOB);
    EXPECT_EQ(vsurf_show_band(nullptr, 3, -1), VSURF_NO_JOB);
}

TEST(ShowStatus, each_mistake)
{
    for (const Mistake& mistake : mistakes()) {
        Good good;
        mistake.make(good);
        expect_refused(good, mistake.status, mistake.name);
    }
}

TEST(ShowStatus, the_first_mistake_wins)
{
    for (const Mistake& first : mistakes()) {
        for (const Mistake& second : mistakes()) {
            if (first.status >= second.status) continue;
            Good good;
            second.make(good);
            first.make(good);
            const vsurf_status status = model::mistake(&good.job);
            EXPECT_LE(status, first.status) << first.name << ", " << second.name;
            expect_refused(good, status, first.name + ", " + second.name);
        }
    }
}

TEST(ShowStatus, what_a_format_has_not_is_not_looked_at)
{
    Good good;
    good.surface->plane[2] = nullptr;
    good.surface->pitch[2] = PTRDIFF_MIN;
    EXPECT_EQ(vsurf_show(&good.job), VSURF_OK);

    show_test::Surface rgb(VSURF_RGB24, Good::kWidth + 1, Good::kHeight + 1);
    good.job.surface = &*rgb;
    show_test::set_number(rgb->matrix, 77);
    show_test::set_number(rgb->range, -77);
    EXPECT_EQ(vsurf_show(&good.job), VSURF_OK);
}

TEST(ShowStatus, pitches_of_single_lines_are_not_looked_at)
{
    show_test::Picture picture(VSURF_I420, 5, 2);
    show_test::Surface surface(VSURF_BGRX, 5, 1);
    for (const ptrdiff_t pitch : {PTRDIFF_MIN, PTRDIFF_MAX, ptrdiff_t{0}, ptrdiff_t{-1}}) {
        picture->pitch[1] = picture->pitch[2] = surface->pitch[0] = pitch;
        vsurf_job job = job_of(picture, surface);
        job.crop_height = 1;
        EXPECT_EQ(vsurf_show(&job), VSURF_OK);
    }
}

TEST(ShowStatus, overlays_that_show_nothing_may_hold_anything)
{
    static constexpr vsurf_overlay kNothing[] = {
        {VSURF_COVERAGE, 0, 0, 0, 5, nullptr, PTRDIFF_MIN, 0},
        {VSURF_STRAIGHT_RGBA, INT_MIN, INT_MAX, 5, 0, nullptr, 0, 0},
        {VSURF_PREMULTIPLIED_BGRA, INT_MAX, INT_MIN, 0, INT_MAX, nullptr, 1, 0},
    };
    for (const vsurf_overlay& nothing : kNothing) {
        Good good;
        good.overlays[1] = nothing;
        EXPECT_EQ(vsurf_show(&good.job), VSURF_OK);
    }
    Good none;
    none.job.overlays = nullptr;
    none.job.overlay_count = 0;
    EXPECT_EQ(vsurf_show(&none.job), VSURF_OK);
}

// Members at random with values at which arithmetic ends.
TEST(ShowStatus, extreme_values_of_several_members)
{
    static constexpr int kInts[] = {INT_MIN, INT_MIN + 1, -65536,       -1,          0,      1,
                                    2,       65535,       INT_MAX - 15, INT_MAX - 1, INT_MAX};
    static constexpr ptrdiff_t kPitches[] = {PTRDIFF_MIN,     PTRDIFF_MIN + 1, PTRDIFF_MIN / 2, -1,         0, 1,
                                             PTRDIFF_MAX / 4, PTRDIFF_MAX / 2, PTRDIFF_MAX - 1, PTRDIFF_MAX};
    static constexpr uintptr_t kAddresses[] = {0, 1, 4096, UINTPTR_MAX / 2, UINTPTR_MAX - 20, UINTPTR_MAX};
    harness::Random random(8);
    int refused = 0;
    for (int i = 0; i < harness::by_effort(60000, 3000); ++i) {
        Good good;
        int* const ints[] = {&good.picture->width,
                             &good.picture->height,
                             &good.surface->width,
                             &good.surface->height,
                             &good.job.crop_x,
                             &good.job.crop_y,
                             &good.job.crop_width,
                             &good.job.crop_height,
                             &good.job.x,
                             &good.job.y,
                             &good.overlays[0].x,
                             &good.overlays[0].y,
                             &good.overlays[1].width,
                             &good.overlays[1].height};
        ptrdiff_t* const pitches[] = {&good.picture->pitch[0], &good.picture->pitch[1], &good.picture->pitch[2],
                                      &good.surface->pitch[0], &good.surface->pitch[1], &good.overlays[1].pitch};
        const auto address = [&] { return reinterpret_cast<uint8_t*>(random.pick(kAddresses)); };
        for (int n = random.between(1, 4); n > 0; --n) *random.pick(ints) = random.pick(kInts);
        for (int n = random.between(0, 2); n > 0; --n) *random.pick(pitches) = random.pick(kPitches);
        if (random.one_in(8)) good.picture->plane[random.between(0, 2)] = address();
        if (random.one_in(8)) good.surface->plane[random.between(0, 1)] = address();
        if (random.one_in(8)) good.overlays[1].pixels = address();
        if (random.one_in(4)) show_test::set_number(good.picture->format, random.between(1, 5));
        if (random.one_in(4)) show_test::set_number(good.surface->format, random.between(1, 15));
        const vsurf_status status = model::mistake(&good.job);
        if (status == VSURF_OK) continue; // there is no memory for what it shows
        ++refused;
        expect_refused(good, status, std::to_string(i));
        if (HasFailure()) return;
    }
    EXPECT_GT(refused, 1000);
}

TEST(ShowStatus, texts)
{
    std::set<std::string> texts;
    for (int status = VSURF_OK; status <= VSURF_BAD_BAND; ++status) {
        const std::string text = vsurf_status_text(static_cast<vsurf_status>(status));
        EXPECT_FALSE(text.empty());
        EXPECT_NE(text, "unknown status");
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), size_t{VSURF_BAD_BAND} + 1) << "each has its own";
    for (const int none : {-1, VSURF_BAD_BAND + 1, INT_MAX, INT_MIN}) {
        EXPECT_STREQ(vsurf_status_text(static_cast<vsurf_status>(none)), "unknown status");
    }
}

} // namespace
