// SPDX-License-Identifier: MIT
// A good job, and ways to make a bad one of it.
#pragma once
#include "show/picture.h"

#include <string>

namespace show_test {

// 17x9 pixels of I420 onto NV12 with two overlays: every member counts.
struct Good {
    static constexpr int kWidth = 17, kHeight = 9;

    Picture picture{VSURF_I420, kWidth + 4, kHeight + 3};
    Surface surface{VSURF_NV12, kWidth + 2, kHeight + 1};
    Bytes pixels = harness::bytes_of(harness::Content::kSprites, 4 * 5 * 3);
    vsurf_overlay overlays[2] = {{VSURF_COVERAGE, 3, 3, 5, 3, pixels.data(), 5, 0xff00ff00},
                                 {VSURF_PREMULTIPLIED_RGBA, -2, 5, 5, 3, pixels.data(), 20, 0}};
    vsurf_job job = good_job();

    Good() = default;
    Good(const Good&) = delete;
    Good& operator=(const Good&) = delete;

private:
    vsurf_job good_job()
    {
        vsurf_job good = job_of(picture, surface);
        good.crop_x = 3;
        good.crop_y = 2;
        good.crop_width = kWidth;
        good.crop_height = kHeight;
        good.x = good.y = 1;
        good.overlays = overlays;
        good.overlay_count = 2;
        return good;
    }
};

struct Mistake {
    vsurf_status status;
    std::string name;
    void (*make)(Good& good);
};

const std::vector<Mistake>& mistakes();

template <class Enumeration> void set_number(Enumeration& member, int value)
{
    std::memcpy(&member, &value, sizeof value);
}

} // namespace show_test
