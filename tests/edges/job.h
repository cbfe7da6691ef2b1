// SPDX-License-Identifier: MIT
// For tests of the functions that take a MIX_INFO: planes with room for what rounding up and drift may touch, records
// that describe them, and the call.
#pragma once
#include "harness/fixture.h"

#include <climits>
#include <concepts>

namespace harness {

struct Region {
    int width = 16, height = 2;
    int picture_pitch = 16, subpicture_pitch = 16, surface_pitch = 64;
    uint32_t color_key = 0;
};

// Where the record's pointers stand after a call that moved them by this many bytes.
struct Moves {
    std::ptrdiff_t picture_chroma = 0, luma = 0, chroma = 0; // luma: the subpicture's alpha as well
};

class OnEveryJob : public OnEveryTable {
protected:
    using JobEntry = void (*vsurf::Kernels::*)(MIX_INFO*);
    static constexpr size_t kRoom = 8192;
    static constexpr int kUnread = INT_MIN + 3; // where a function may not look

    // A record of these planes. What no function may look at faults or shows when it changes.
    MIX_INFO record(const Region& region)
    {
        MIX_INFO job = {};
        job.picture_pitch = region.picture_pitch;
        job.subpicture_pitch = region.subpicture_pitch;
        job.surface_pitch = region.surface_pitch;
        job.width = region.width;
        job.height = region.height;
        job.picture_y = picture_y.data();
        job.picture_v = picture_v.data();
        job.picture_u = picture_u.data();
        job.subpic_alpha = alpha.data();
        job.subpic_y = y.data();
        job.subpic_v = v.data();
        job.subpic_u = u.data();
        job.surface = surface.data();
        job.surface_u = surface_u.data();
        job.surface_v = surface_v.data();
        job.color_key = region.color_key;
        job.reserved1 = 0x11223344;
        job.reserved2 = 0x55667788;
        job.contrast_info = nullptr;
        return job;
    }

    // The record after the call. What is written in braces is a region.
    template <std::same_as<MIX_INFO> Job> MIX_INFO run(JobEntry entry, Job job)
    {
        GetParam().apply();
        (table().*entry)(&job);
        return job;
    }

    MIX_INFO run(JobEntry entry, const Region& region) { return run(entry, record(region)); }

    // The surface after the call, untouched before.
    template <std::same_as<MIX_INFO> Job> Bytes drawn(JobEntry entry, const Job& job)
    {
        surface.assign(surface.size(), kUntouched);
        run(entry, job);
        return surface;
    }

    Bytes drawn(JobEntry entry, const Region& region) { return drawn(entry, record(region)); }

    // Field by field: a record has gaps between its fields.
    static void expect_record(const MIX_INFO& actual, const MIX_INFO& expected)
    {
        EXPECT_EQ(actual.picture_pitch, expected.picture_pitch);
        EXPECT_EQ(actual.subpicture_pitch, expected.subpicture_pitch);
        EXPECT_EQ(actual.surface_pitch, expected.surface_pitch);
        EXPECT_EQ(actual.width, expected.width);
        EXPECT_EQ(actual.height, expected.height);
        EXPECT_EQ(actual.picture_y - expected.picture_y, 0);
        EXPECT_EQ(actual.picture_v - expected.picture_v, 0);
        EXPECT_EQ(actual.picture_u - expected.picture_u, 0);
        EXPECT_EQ(actual.subpic_alpha - expected.subpic_alpha, 0);
        EXPECT_EQ(actual.subpic_y - expected.subpic_y, 0);
        EXPECT_EQ(actual.subpic_v - expected.subpic_v, 0);
        EXPECT_EQ(actual.subpic_u - expected.subpic_u, 0);
        EXPECT_EQ(actual.surface - expected.surface, 0);
        EXPECT_EQ(actual.surface_u - expected.surface_u, 0);
        EXPECT_EQ(actual.surface_v - expected.surface_v, 0);
        EXPECT_EQ(actual.color_key, expected.color_key);
        EXPECT_EQ(actual.reserved1, expected.reserved1);
        EXPECT_EQ(actual.reserved2, expected.reserved2);
        EXPECT_EQ(actual.contrast_info, expected.contrast_info);
    }

    static MIX_INFO moved(MIX_INFO job, const Moves& by)
    {
        job.picture_u += by.picture_chroma;
        job.picture_v += by.picture_chroma;
        job.subpic_alpha += by.luma;
        job.subpic_y += by.luma;
        job.subpic_u += by.chroma;
        job.subpic_v += by.chroma;
        return job;
    }

    Bytes picture_y = Bytes(kRoom, 16), picture_u = Bytes(kRoom, 128), picture_v = Bytes(kRoom, 128);
    Bytes alpha = Bytes(kRoom, 0), y = Bytes(kRoom, 16), u = Bytes(kRoom, 128), v = Bytes(kRoom, 128);
    Bytes surface = Bytes(kRoom, kUntouched);
    Bytes surface_u = Bytes(kRoom, kUntouched), surface_v = Bytes(kRoom, kUntouched);
};

} // namespace harness
