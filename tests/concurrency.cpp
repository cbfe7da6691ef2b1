// SPDX-License-Identifier: MIT
// Pixel routines on several threads, and a state that changes under them. Build with -fsanitize=thread to see races:
//   cmake -S . -B build-tsan -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_C_FLAGS=-fsanitize=thread
//         -DCMAKE_CXX_FLAGS=-fsanitize=thread && ctest --test-dir build-tsan -R Concurrency
#include "harness/case.h"
#include "harness/effort.h"
#include "harness/job_case.h"
#include "harness/job_record.h"
#include "harness/variants.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using harness::Export;
using harness::JobExport;
using harness::Variant;
using Bytes = std::vector<uint8_t>;

constexpr int kWidth = 192;
constexpr int kHeight = 32;
constexpr size_t kRoom = size_t{1} << 17; // also for the copies that reach far beyond their planes

struct Picture {
    explicit Picture(uint64_t seed) : y(kRoom), u(kRoom), v(kRoom)
    {
        harness::Random random(seed);
        for (Bytes* plane : {&y, &u, &v}) {
            for (uint8_t& byte : *plane) byte = static_cast<uint8_t>(random.next());
        }
    }
    Bytes y, u, v;
};

Bytes load(const Export& tested, const Variant& table, Picture& p)
{
    Bytes dst(kRoom, 0x77);
    harness::Case c;
    c.tested = &tested;
    c.width = c.y_pitch = kWidth;
    c.height = kHeight;
    c.dst_pitch = harness::line_bytes(tested, kWidth);
    c.info.surface_height = c.info.lines_to_bottom = kHeight;
    tagVideoFrame frame = {0, p.y.data(), p.u.data(), p.v.data(), kWidth};
    tested.call(*table.kernels, c, {p.y.data(), p.u.data(), p.v.data(), dst.data(), &c.info, &frame});
    return dst;
}

// All that a job reads is one plane.
Bytes load(const JobExport& tested, const Variant& table, Picture& p)
{
    Bytes dst(kRoom, 0x77);
    harness::JobCase c;
    c.width = kWidth;
    c.height = kHeight;
    c.surface_pitch = kWidth * tested.pixel_bytes;
    ajust_contrast_info info = {};
    MIX_INFO job = {};
    job.picture_pitch = job.subpicture_pitch = kWidth;
    job.surface_pitch = c.surface_pitch;
    job.width = kWidth;
    job.height = kHeight;
    job.contrast_info = &info;
    for (const harness::PlaneField& each : harness::kPlaneFields) job.*each.pointer = p.y.data();
    size_t at = 0;
    for (const size_t plane : tested.destinations()) {
        job.*harness::kPlaneFields[plane].pointer = dst.data() + at;
        at += kRoom / 4;
    }
    tested.call(*table.kernels, c, &job);
    return dst;
}

template <class Work> void for_each_export(const Work& work)
{
    for (const Export& each : harness::exports()) work(each);
    for (const JobExport& each : harness::job_exports()) work(each);
}

TEST(Concurrency, exports_on_disjoint_memory_do_not_disturb_each_other)
{
    ajust_contrast_info adjustment = {};
    adjustment.y_gain = 70;
    adjustment.uv_gain = 60;
    get_contrast_data(&adjustment);
    std::vector<std::thread> threads;
    std::atomic<int> wrong{0};
    for (uint64_t seed = 0; seed < 4; ++seed) {
        threads.emplace_back([seed, &wrong] {
            Picture picture(seed);
            for (const Variant& table : harness::variants()) {
                for_each_export([&](const auto& tested) {
                    const Bytes first = load(tested, table, picture);
                    if (first == Bytes(kRoom, 0x77)) ++wrong;
                    for (int i = 0; i < harness::by_effort(20, 3); ++i) wrong += load(tested, table, picture) != first;
                });
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
}

// Two adjustments alternate while pictures load. A picture may come out by either, or by a mixture of their values,
// and every call reads each value once: so it equals the result of one of the mixtures throughout.
TEST(Concurrency, a_changing_adjustment_gives_each_picture_one_set_of_values)
{
    auto set = [](int turn) {
        static constexpr int kGain[2] = {64, 128}, kOffset[2] = {0, 20};
        ajust_contrast_info record = {};
        record.y_gain = record.uv_gain = kGain[turn];
        record.y_offset_a = kOffset[turn];
        get_contrast_data(&record);
    };
    set(0);
    std::atomic<bool> done{false};
    std::atomic<int> pictures{0}, neither{0};
    std::thread writer([&done, &set] {
        for (int turn = 0; !done; turn ^= 1) set(turn);
    });
    auto reader = [&pictures, &neither](uint64_t seed) {
        Picture picture(seed);
        std::fill(picture.y.begin(), picture.y.end(), uint8_t{50});
        const Export& mono = harness::export_named("loadimage_yuy2_mono_ajust");
        for (int i = 0; i < harness::by_effort(300, 50); ++i) {
            for (const Variant& table : harness::variants()) {
                const Bytes surface = load(mono, table, picture);
                const int luma = surface[0];
                bool uniform = luma == 50 || luma == 70 || luma == 100 || luma == 120;
                for (size_t at = 0; at < size_t{2} * kWidth * kHeight; at += 2) uniform &= surface[at] == luma;
                neither += !uniform;
                ++pictures;
            }
        }
    };
    std::thread second(reader, 1);
    reader(2);
    second.join();
    done = true;
    writer.join();
    EXPECT_EQ(neither, 0);
    EXPECT_GT(pictures, 0);
}

// Every export, for a sanitizer to watch: what they write is not the question here.
TEST(Concurrency, every_export_runs_beside_a_changing_adjustment)
{
    std::atomic<bool> done{false};
    std::thread writer([&done] {
        for (int turn = 0; !done; ++turn) {
            ajust_contrast_info record = {};
            record.y_gain = record.uv_gain = turn;
            get_contrast_data(&record);
        }
    });
    Picture picture(3);
    const Bytes before = picture.y;
    for (int i = 0; i < harness::by_effort(30, 5); ++i) {
        for (const Variant& table : harness::variants()) {
            for_each_export([&](const auto& tested) { load(tested, table, picture); });
        }
    }
    done = true;
    writer.join();
    EXPECT_EQ(picture.y, before);
}

} // namespace
