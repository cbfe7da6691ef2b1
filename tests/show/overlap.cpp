// SPDX-License-Identifier: MIT
// Memory that is written must not lie in memory that is read or written elsewhere: to the byte.
#include "show/picture.h"

#include <gtest/gtest.h>

namespace {

using show_test::Bytes;
using show_test::job_of;
using show_test::Picture;
using show_test::Surface;

// A job whose planes are put into one buffer.
class ShowOverlap : public testing::Test {
protected:
    static constexpr int kWidth = 16, kHeight = 8;
    static constexpr ptrdiff_t kPitch = 24;
    static constexpr ptrdiff_t kSize = kPitch * (kHeight - 1) + kWidth; // of a plane of luma

    ShowOverlap()
    {
        picture->pitch[0] = surface->pitch[0] = kPitch;
        put(&picture->plane[0], 1024);
        put(&surface->plane[0], 3072);
    }

    template <class Pointer> void put(Pointer* plane, ptrdiff_t at) { *plane = buffer.data() + at; }

    void expect(vsurf_status status, const char* what)
    {
        const Bytes before = buffer;
        EXPECT_EQ(vsurf_show(&job), status) << what;
        if (status != VSURF_OK) {
            EXPECT_TRUE(buffer == before) << what;
        }
    }

    Bytes buffer = Picture::noise(4096);
    Picture picture{VSURF_NV12, kWidth, kHeight};
    Surface surface{VSURF_I420, kWidth, kHeight};
    vsurf_job job = job_of(picture, surface);
};

TEST_F(ShowOverlap, with_the_picture)
{
    put(&surface->plane[0], 1024 + kSize);
    expect(VSURF_OK, "right behind it");
    put(&surface->plane[0], 1024 - kSize);
    expect(VSURF_OK, "right before it");
    put(&surface->plane[0], 1024 + kSize - 1);
    expect(VSURF_OVERLAP, "its last byte");
    put(&surface->plane[0], 1024 - kSize + 1);
    expect(VSURF_OVERLAP, "its first byte");
    put(&surface->plane[0], 1024);
    expect(VSURF_OVERLAP, "in place");
    surface->plane[2] = const_cast<uint8_t*>(picture->plane[1]);
    put(&surface->plane[0], 2048);
    expect(VSURF_OVERLAP, "chroma in the place of chroma");
}

TEST_F(ShowOverlap, of_planes_that_run_upwards)
{
    surface->pitch[0] = -kPitch;
    put(&surface->plane[0], 1024 - kWidth);
    expect(VSURF_OK, "right before the picture");
    put(&surface->plane[0], 1024 - kWidth + 1);
    expect(VSURF_OVERLAP, "the picture's first byte");
    put(&surface->plane[0], 1024 + kSize + kPitch * (kHeight - 1));
    expect(VSURF_OK, "right behind it");
    put(&surface->plane[0], 1024 + kSize + kPitch * (kHeight - 1) - 1);
    expect(VSURF_OVERLAP, "its last byte");
}

// What counts is what is read and written, not the whole planes.
TEST_F(ShowOverlap, counts_the_rectangles_only)
{
    job.crop_height = kHeight / 2;
    put(&surface->plane[0], 1024 + kPitch * kHeight / 2);
    surface->height = kHeight / 2;
    expect(VSURF_OK, "the picture's lower half is not read");
    surface->height = kHeight;
    job.y = kHeight / 2;
    put(&surface->plane[0], 1024);
    expect(VSURF_OK, "the surface's upper half is not written");
    job.crop_y = kHeight / 2;
    expect(VSURF_OVERLAP, "the same half");
}

TEST_F(ShowOverlap, with_an_overlay)
{
    vsurf_overlay overlay = {VSURF_COVERAGE, 0, 0, 4, 1, buffer.data() + 2048, 4, 0xffffffff};
    job.overlays = &overlay;
    job.overlay_count = 1;
    put(&surface->plane[0], 2048 + 4);
    expect(VSURF_OK, "right behind it");
    put(&surface->plane[0], 2048 + 3);
    expect(VSURF_OVERLAP, "its last byte");
    overlay.width = 0;
    expect(VSURF_OK, "nothing of it is read");
}

TEST_F(ShowOverlap, of_the_surface_with_itself)
{
    put(&surface->plane[0], 2048);
    put(&surface->plane[1], 2048 + kSize);
    expect(VSURF_OK, "right behind each other");
    put(&surface->plane[1], 2048 + kSize - 1);
    expect(VSURF_OVERLAP, "one byte of luma and U");
    surface->plane[1] = surface->plane[2];
    expect(VSURF_OVERLAP, "U and V");
}

// U in the left half of each line and V in its right half, or the other way round.
TEST_F(ShowOverlap, of_chroma_side_by_side)
{
    surface->pitch[1] = surface->pitch[2] = kWidth;
    put(&surface->plane[1], 2048);
    put(&surface->plane[2], 2048 + kWidth / 2);
    expect(VSURF_OK, "V behind U");
    std::swap(surface->plane[1], surface->plane[2]);
    expect(VSURF_OK, "U behind V");
    put(&surface->plane[1], 2048 + kWidth / 2 - 1);
    expect(VSURF_OVERLAP, "a column of both");
    put(&surface->plane[1], 2048 + kWidth / 2);
    surface->pitch[1] = kWidth + 1;
    expect(VSURF_OVERLAP, "of different pitches");
}

// The source's planes may lie wherever they like: they are only read.
TEST_F(ShowOverlap, of_the_picture_with_itself_is_none)
{
    picture->plane[1] = picture->plane[0];
    expect(VSURF_OK, "");
}

} // namespace
