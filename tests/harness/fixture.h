// SPDX-License-Identifier: MIT
// For tests with expectations computed by hand: each runs on every table and through the exported functions.
#pragma once
#include "harness/exports.h"
#include "harness/variants.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace harness {

using Bytes = std::vector<uint8_t>;

// A planar picture with room for everything that rounding up and drift may read.
struct Picture {
    explicit Picture(uint8_t luma = 16, uint8_t cb = 128, uint8_t cr = 128) : y(kRoom, luma), u(kRoom, cb), v(kRoom, cr)
    {
    }
    static constexpr size_t kRoom = 4096;
    Bytes y, u, v;
};

// Bytes that count up from `first`, so that each shows where it came from.
inline Bytes counting(size_t size, int first = 0)
{
    Bytes bytes(size);
    for (size_t i = 0; i < size; ++i) bytes[i] = static_cast<uint8_t>(first + static_cast<int>(i));
    return bytes;
}

inline Bytes part(const Bytes& bytes, size_t from, size_t count)
{
    const auto start = bytes.begin() + static_cast<std::ptrdiff_t>(from);
    return {start, start + static_cast<std::ptrdiff_t>(count)};
}

// Lines of `pitch` bytes, each of one value throughout.
inline Bytes flat_lines(size_t pitch, const Bytes& values)
{
    Bytes plane;
    for (const uint8_t value : values) plane.insert(plane.end(), pitch, value);
    return plane;
}

// `pixels` pixels of YUY2, all the same.
inline Bytes flat_yuy2(size_t pixels, uint8_t luma, uint8_t cb, uint8_t cr)
{
    Bytes bytes;
    for (size_t i = 0; i < pixels; i += 2) bytes.insert(bytes.end(), {luma, cb, luma, cr});
    return bytes;
}

struct Gains {
    int y = 64, uv = 64;
};

struct Offsets {
    int y = 0, u = 0, v = 0;
};

inline void set_adjustment(Gains gains, Offsets a = {}, Offsets b = {})
{
    ajust_contrast_info record = {};
    record.y_gain = gains.y;
    record.uv_gain = gains.uv;
    record.y_offset_a = a.y;
    record.u_offset_a = a.u;
    record.v_offset_a = a.v;
    record.y_offset_b = b.y;
    record.u_offset_b = b.u;
    record.v_offset_b = b.v;
    get_contrast_data(&record);
}

inline std::vector<Variant> variants_and_exports()
{
    std::vector<Variant> all = variants();
    if (all.front().kernels != &exported()) all.push_back({"exports", &exported(), all.front().apply});
    return all;
}

class OnEveryTable : public testing::TestWithParam<Variant> {
protected:
    void SetUp() override { set_adjustment({}); }

    static constexpr uint8_t kUntouched = 0xAA;
    const vsurf::Kernels& table() const { return *GetParam().kernels; }
    using Entry = LoaderFunction vsurf::Kernels::*;

    struct Size {
        int width, height, y_pitch, dst_pitch;
    };

    // The destination after the call, which starts `before` bytes into the surface of `bytes` bytes.
    Bytes load(Entry entry, const Picture& p, Size size, size_t bytes, ajust_contrast_info* info = nullptr,
               size_t before = 0)
    {
        Bytes surface(bytes, kUntouched);
        load_onto(surface, entry, p, size, info, before);
        return surface;
    }

    // The destination after `call`, which gets its address: for functions that take other arguments.
    template <class Call> Bytes surface_after(size_t bytes, const Call& call)
    {
        Bytes surface(bytes, kUntouched);
        GetParam().apply();
        call(surface.data());
        return surface;
    }

    void load_onto(Bytes& surface, Entry entry, const Picture& p, Size size, ajust_contrast_info* info = nullptr,
                   size_t before = 0)
    {
        GetParam().apply();
        (table().*entry)(plane(p.y), plane(p.u), plane(p.v), surface.data() + before, size.width, size.height,
                         size.y_pitch, size.dst_pitch, info);
    }

    // The exports take pointers to mutable planes, yet write to none of them.
    static uint8_t* plane(const Bytes& bytes) { return const_cast<uint8_t*>(bytes.data()); }
};

#define VSURF_ON_EVERY_TABLE(suite)                                                             \
    INSTANTIATE_TEST_SUITE_P(Tables, suite, testing::ValuesIn(harness::variants_and_exports()), \
                             [](const auto& tested) {                                           \
                                 std::string name = tested.param.name;                          \
                                 for (char& c : name) c = c == '-' ? '_' : c;                   \
                                 return name;                                                   \
                             })

} // namespace harness
