// SPDX-License-Identifier: MIT
// vsurf_show on several threads: bands of one picture, and pictures with looks of their own.
#include "harness/effort.h"
#include "harness/show_checker.h"
#include "model/show.h"
#include "show/picture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using show_test::Bytes;
using show_test::Picture;
using show_test::Surface;

constexpr int kWidth = 203, kHeight = 61;

void in_threads(int count, const std::function<void(int)>& work)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) threads.emplace_back(work, i);
    for (std::thread& thread : threads) thread.join();
}

Bytes any_subtitle() { return harness::bytes_of(harness::Content::kSprites, size_t{4} * 151 * 22); }

vsurf_overlay overlay_of(const Bytes& pixels)
{
    return {VSURF_STRAIGHT_BGRA, 21, 33, 151, 22, pixels.data(), 4 * 151, 0};
}

TEST(ShowConcurrency, bands_of_several_threads_give_one_picture)
{
    Picture picture(VSURF_I420, kWidth, kHeight);
    const Bytes pixels = any_subtitle();
    const vsurf_overlay overlay = overlay_of(pixels);
    for (const vsurf_format format : harness::surface_formats()) {
        Surface expected(format, kWidth, kHeight), surface(format, kWidth, kHeight);
        vsurf_job job = job_of(picture, expected);
        job.look = {0.1f, 0.2f, -0.3f, 0.4f};
        job.overlays = &overlay;
        job.overlay_count = 1;
        model::show(job);
        job.surface = &*surface;
        for (const harness::Variant& table : harness::show_variants()) {
            if (table.apply != nullptr) table.apply();
            for (Bytes* bytes : {&surface.bytes(0), &surface.bytes(1), &surface.bytes(2)}) {
                std::fill(bytes->begin(), bytes->end(), uint8_t{0xAA});
            }
            std::atomic<int> refused{0};
            in_threads(5, [&](int band) { refused += table.show(&job, band, 5) != VSURF_OK; });
            EXPECT_EQ(refused, 0);
            EXPECT_TRUE(surface.all_bytes() == expected.all_bytes())
                << harness::name_of_format(format) << " on " << table.name;
        }
    }
}

// Each thread shows the same picture with its own look and encoding, over and over, and always gets its own result.
TEST(ShowConcurrency, threads_with_different_looks_do_not_disturb_each_other)
{
    Picture picture(VSURF_NV12, kWidth, kHeight);
    const std::vector<harness::Variant>& tables = harness::show_variants();
    std::atomic<int> wrong{0};
    auto work = [&](int number) {
        vsurf_picture own = *picture;
        own.matrix = static_cast<vsurf_matrix>(number % 3);
        own.range = static_cast<vsurf_range>(number % 2);
        const vsurf_format format = number % 2 == 0 ? VSURF_RGBA : VSURF_YUY2;
        Surface expected(format, kWidth, kHeight), surface(format, kWidth, kHeight);
        vsurf_job job = {};
        job.picture = &own;
        job.surface = &*expected;
        job.look = {0.1f * static_cast<float>(number), -0.2f, 0.25f * static_cast<float>(number), 0.3f};
        model::show(job);
        job.surface = &*surface;
        for (int i = 0; i < harness::by_effort(200, 20); ++i) {
            const bool refused = tables[static_cast<size_t>(i) % tables.size()].show(&job, 0, 1) != VSURF_OK;
            wrong += refused || surface.all_bytes() != expected.all_bytes();
            surface.bytes(0)[static_cast<size_t>(i)] ^= 255;
        }
    };
    in_threads(4, work);
    EXPECT_EQ(wrong, 0);
}

// The process's adjustment changes meanwhile: for a sanitizer to watch, and no result changes.
TEST(ShowConcurrency, a_changing_adjustment_has_no_influence)
{
    Picture picture(VSURF_I420, kWidth, kHeight);
    Surface expected(VSURF_BGRX, kWidth, kHeight), surface(VSURF_BGRX, kWidth, kHeight);
    vsurf_job job = job_of(picture, expected);
    model::show(job);
    job.surface = &*surface;
    std::atomic<bool> done{false};
    std::thread writer([&done] {
        for (int turn = 0; !done; ++turn) {
            ajust_contrast_info record = {};
            record.y_gain = record.uv_gain = turn;
            get_contrast_data(&record);
        }
    });
    int wrong = 0;
    for (int i = 0; i < harness::by_effort(50, 5); ++i) {
        for (const harness::Variant& table : harness::show_variants()) {
            std::fill(surface.bytes().begin(), surface.bytes().end(), uint8_t{0});
            wrong += table.show(&job, 0, 1) != VSURF_OK || surface.all_bytes() != expected.all_bytes();
        }
    }
    done = true;
    writer.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
