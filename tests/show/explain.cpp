// SPDX-License-Identifier: MIT
// What vsurf_explain says, and into how much room.
#include "show/mistakes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using show_test::Good;
using show_test::Picture;
using show_test::Surface;

std::string explained(const vsurf_job* job)
{
    std::string text(vsurf_explain(job, nullptr, 0) + 1, '?');
    EXPECT_EQ(vsurf_explain(job, text.data(), text.size()), text.size() - 1);
    EXPECT_EQ(text.back(), '\0');
    text.pop_back();
    return text;
}

TEST(ShowExplain, a_good_job)
{
    Picture picture(VSURF_I420, 640, 360);
    Surface surface(VSURF_BGRX, 640, 360);
    picture->matrix = VSURF_BT709;
    const vsurf_job job = job_of(picture, surface);
    EXPECT_EQ(explained(&job), "640x360 of I420, BT.709 limited, to BGRX 640x360 at 0,0");
}

TEST(ShowExplain, a_pitch_that_is_short)
{
    Picture picture(VSURF_NV12, 333, 217);
    Surface surface(VSURF_BGRX, 333, 217);
    surface->pitch[0] = 1000;
    const vsurf_job job = job_of(picture, surface);
    EXPECT_EQ(explained(&job), "surface.pitch[0] is 1000, a line of 333 BGRX pixels takes 1332 bytes");
    picture->pitch[1] = -333;
    EXPECT_EQ(explained(&job), "picture.pitch[1] is -333, a line of 333 NV12 pixels takes 334 bytes");
}

TEST(ShowExplain, no_job) { EXPECT_EQ(explained(nullptr), vsurf_status_text(VSURF_NO_JOB)); }

TEST(ShowExplain, every_mistake_differs_from_a_good_job)
{
    Good good;
    const std::string fine = explained(&good.job);
    for (const show_test::Mistake& mistake : show_test::mistakes()) {
        Good bad;
        mistake.make(bad);
        const std::string text = explained(&bad.job);
        EXPECT_NE(text, fine) << mistake.name;
        EXPECT_GT(text.size(), 10u) << mistake.name;
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; })) << text;
    }
}

// The mistake's own number is in the text.
TEST(ShowExplain, names_numbers)
{
    auto text_with = [](void (*make)(Good & good)) {
        Good bad;
        make(bad);
        return explained(&bad.job);
    };
    auto expect = [](const std::string& text, std::initializer_list<const char*> parts) {
        for (const char* part : parts) EXPECT_NE(text.find(part), std::string::npos) << text << ": " << part;
    };
    expect(text_with([](Good& g) { show_test::set_number(g.picture->format, 77); }), {"picture.format", "77"});
    expect(text_with([](Good& g) { show_test::set_number(g.surface->matrix, 9); }), {"surface.matrix", "9"});
    expect(text_with([](Good& g) { g.surface->height = -12345; }), {"surface", "-12345"});
    expect(text_with([](Good& g) { g.picture->plane[2] = nullptr; }), {"picture.plane[2]", "null", "I420"});
    expect(text_with([](Good& g) { g.job.crop_width = 12345; }), {"crop", "12345", "21"});
    expect(text_with([](Good& g) { g.job.y = 2345; }), {"2345", "surface"});
    expect(text_with([](Good& g) { g.job.look.hue = 2.5f; }), {"look.hue", "2.5"});
    expect(text_with([](Good& g) { g.job.overlay_count = -3; }), {"overlay_count", "-3"});
    expect(text_with([](Good& g) { g.overlays[1].pitch = 7; }), {"overlays[1].pitch", "7", "20"});
    expect(text_with([](Good& g) { g.overlays[0].pixels = g.surface->plane[1]; }), {"surface.plane[1]", "overlays[0]"});
    expect(text_with([](Good& g) { g.picture->pitch[0] = PTRDIFF_MIN; }), {"picture.pitch[0]"});
}

TEST(ShowExplain, returns_the_whole_length_in_any_room)
{
    Good good, bad;
    bad.job.x = -1;
    for (const vsurf_job* job : std::initializer_list<const vsurf_job*>{&good.job, &bad.job, nullptr}) {
        const std::string whole = explained(job);
        for (size_t room = 0; room <= whole.size() + 3; ++room) {
            std::string text(whole.size() + 8, '#');
            EXPECT_EQ(vsurf_explain(job, text.data(), room), whole.size());
            std::string expected(text.size(), '#');
            const size_t kept = std::min(room, whole.size() + 1);
            if (kept > 0) expected.replace(0, kept, whole.c_str(), kept).at(kept - 1) = '\0';
            EXPECT_TRUE(text == expected) << room;
        }
    }
}

} // namespace
