// SPDX-License-Identifier: MIT
// Where vsurf_show and an export mean the same they write the same: BT.601 limited in whole blocks. And neither sees
// the other's adjustment.
#include "harness/exports.h"
#include "harness/fixture.h"
#include "harness/show_case.h"
#include "model/show.h"
#include "show/picture.h"

namespace {

using show_test::Picture;
using show_test::Surface;

struct Twin {
    const char* name; // of the export
    vsurf_format picture, surface;
    int layout; // of 16-bit pixels
};

constexpr Twin kTwins[] = {
    {"loadimage_rgb32", VSURF_I420, VSURF_BGRX, 0},   {"loadimage_rgb24", VSURF_I420, VSURF_BGR24, 0},
    {"loadimage_rgb16", VSURF_I420, VSURF_RGB565, 0}, {"loadimage_rgb16", VSURF_I420, VSURF_RGB555X, 1},
    {"loadimage_rgb16", VSURF_I420, VSURF_RGB664, 2}, {"loadimage_rgb16", VSURF_I420, VSURF_RGB655, 3},
    {"LoadYUY2_YUY2", VSURF_YUY2, VSURF_YUY2, 0},     {"LoadYUY2_RGB32", VSURF_YUY2, VSURF_BGRX, 0},
    {"LoadYUY2_RGB24", VSURF_YUY2, VSURF_BGR24, 0},   {"LoadYUY2_RGB16", VSURF_YUY2, VSURF_RGB664, 2},
};

class SameAsExports : public testing::TestWithParam<Twin> {
protected:
    void SetUp() override { harness::set_adjustment({}); }

    static void load(Picture& picture, Surface& surface)
    {
        const harness::Export& twin = harness::export_named(GetParam().name);
        harness::Case c;
        c.width = c.y_pitch = picture->width;
        c.height = picture->height;
        c.dst_pitch = static_cast<int>(surface->pitch[0]);
        c.info.rgb16_layout = GetParam().layout;
        uint8_t* const y = picture.bytes(0).data();
        twin.call(harness::exported(), c,
                  {y, picture.bytes(1).data(), picture.bytes(2).data(), surface.bytes().data(), &c.info, nullptr});
    }

    // The exports show the chroma of a pair's upper line on both.
    static void share_chroma(Picture& picture)
    {
        if (picture->format != VSURF_YUY2) return;
        const auto pitch = static_cast<size_t>(picture->pitch[0]);
        for (size_t at = 1; at < picture.bytes().size(); at += 2) {
            if (at / pitch % 2 == 1) picture.bytes()[at] = picture.bytes()[at - pitch];
        }
    }
};

TEST_P(SameAsExports, whole_blocks)
{
    for (const int width : {16, 32, 48, 64, 176, 720}) {
        for (const int height : {2, 4, 10, 64}) {
            Picture picture(GetParam().picture, width, height);
            share_chroma(picture);
            Surface loaded(GetParam().surface, width, height);
            load(picture, loaded);
            for (const harness::Variant& table : harness::show_variants()) {
                Surface shown(GetParam().surface, width, height);
                const vsurf_job job = job_of(picture, shown);
                if (table.apply != nullptr) table.apply();
                ASSERT_EQ(table.show(&job, 0, 1), VSURF_OK);
                ASSERT_TRUE(shown.all_bytes() == loaded.all_bytes()) << width << 'x' << height << " on " << table.name;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Exports, SameAsExports, testing::ValuesIn(kTwins), [](const auto& tested) {
    return std::string(tested.param.name) + "_" + harness::name_of_format(tested.param.surface);
});

harness::Bytes load_adjusted(Picture& picture)
{
    harness::Bytes surface(size_t{4} * 32 * 8);
    ajust_contrast_info info = {};
    loadimage_rgb32_ajust(picture.bytes(0).data(), picture.bytes(1).data(), picture.bytes(2).data(), surface.data(), 32,
                          8, 32, 4 * 32, &info);
    return surface;
}

TEST(ShowAndTheAdjustment, neither_sees_the_other)
{
    Picture picture(VSURF_I420, 32, 8);
    Surface expected(VSURF_BGRA, 32, 8), shown(VSURF_BGRA, 32, 8);
    vsurf_job job = job_of(picture, expected);
    job.look = {-0.1f, 0.3f, 0.5f, -0.7f};
    model::show(job);
    job.surface = &*shown;

    harness::set_adjustment({100, 30}, {20, -40, 60});
    const harness::Bytes adjusted = load_adjusted(picture);
    for (const harness::Variant& table : harness::show_variants()) {
        ASSERT_EQ(table.show(&job, 0, 1), VSURF_OK);
        EXPECT_TRUE(shown.all_bytes() == expected.all_bytes()) << table.name;
        EXPECT_EQ(load_adjusted(picture), adjusted) << "after " << table.name;
    }
    harness::set_adjustment({});
}

} // namespace
