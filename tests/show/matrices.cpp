// SPDX-License-Identifier: MIT
// Every matrix and range on all 2^24 combinations of samples: how far the formula lies from exact arithmetic, and that
// vsurf_show computes the formula.
#include "harness/effort.h"
#include "harness/variants.h"
#include "model/show_samples.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using model::Encoding;
using model::Yuv;
using Bytes = std::vector<uint8_t>;

std::vector<Encoding> encodings()
{
    std::vector<Encoding> all;
    for (const int matrix : {VSURF_BT601, VSURF_BT709, VSURF_BT2020}) {
        for (const int range : {VSURF_LIMITED, VSURF_FULL}) all.push_back({matrix, range});
    }
    return all;
}

std::string name_of(const Encoding& encoding)
{
    static constexpr const char* kMatrices[] = {"BT601", "BT709", "BT2020"};
    return std::string(kMatrices[encoding.matrix]) + (encoding.range == VSURF_FULL ? "_full" : "_limited");
}

uint8_t byte(int value) { return static_cast<uint8_t>(value); }

// Calls work(y, u, v) for all of them, or for some V only.
template <class Work> void for_each_sample(int v_step, const Work& work)
{
    for (int v = 0; v < 256; v += v_step) {
        for (int u = 0; u < 256; ++u) {
            for (int y = 0; y < 256; ++y) work(Yuv{byte(y), byte(u), byte(v)});
        }
    }
}

struct Exact {
    double at[3];
};

// A matrix's row times the sample, cut to what a byte holds.
double exact_row(const double (&row)[3], double origin, const Yuv& s, int black)
{
    const double value = origin + row[0] * (s.y - black) + row[1] * (s.u - 128) + row[2] * (s.v - 128);
    return value < 0 ? 0 : value > 255 ? 255 : value;
}

int error(uint8_t value, double exact) { return std::abs(value - static_cast<int>(std::floor(exact + 0.5))); }

class Matrices : public testing::TestWithParam<Encoding> {};

TEST_P(Matrices, rgb_is_within_two_levels_of_exact_arithmetic)
{
    const Encoding& encoding = GetParam();
    const model::Matrix exact = model::yuv_to_rgb(encoding);
    const model::ToRgb to_rgb(encoding);
    int greatest = 0;
    for_each_sample(harness::by_effort(1, 15), [&](const Yuv& s) {
        const model::Rgb rgb = to_rgb(s);
        const uint8_t values[] = {rgb.r, rgb.g, rgb.b};
        for (size_t i = 0; i < 3; ++i) {
            greatest = std::max(greatest, error(values[i], exact_row(exact.at[i], 0, s, encoding.black())));
        }
    });
    RecordProperty("greatest_error", greatest);
    EXPECT_LE(greatest, 2);
}

// A line for each U, a column for each Y, all of one V, in lines that have chroma of their own.
struct Slice {
    static constexpr int kSize = 256;

    explicit Slice(int v) : bytes(size_t{2} * kSize * kSize)
    {
        for (size_t at = 0; at < bytes.size(); at += 4) {
            const int y = static_cast<int>(at / 2 % kSize), u = static_cast<int>(at / (2 * kSize));
            bytes[at] = byte(y);
            bytes[at + 1] = byte(u);
            bytes[at + 2] = byte(y + 1);
            bytes[at + 3] = byte(v);
        }
    }

    vsurf_picture picture(const Encoding& encoding) const
    {
        return {VSURF_YUY2,
                kSize,
                kSize,
                {bytes.data()},
                {2 * kSize},
                static_cast<vsurf_matrix>(encoding.matrix),
                static_cast<vsurf_range>(encoding.range)};
    }

    Bytes bytes;
};

Bytes shown(const harness::Variant& table, const vsurf_picture& picture, vsurf_surface surface)
{
    Bytes bytes(static_cast<size_t>(surface.pitch[0]) * Slice::kSize, 0xAA);
    surface.plane[0] = bytes.data();
    vsurf_job job = {};
    job.picture = &picture;
    job.surface = &surface;
    if (table.apply != nullptr) table.apply();
    EXPECT_EQ(table.show(&job, 0, 1), VSURF_OK);
    return bytes;
}

TEST_P(Matrices, the_function_computes_the_formula_of_rgb)
{
    const model::ToRgb to_rgb(GetParam());
    const vsurf_surface surface = {VSURF_BGRX,         Slice::kSize, Slice::kSize, {},
                                   {4 * Slice::kSize}, VSURF_BT601,  VSURF_LIMITED};
    for (int v = 0; v < 256; v += harness::by_effort(1, 15)) {
        const Slice slice(v);
        Bytes expected;
        for (int u = 0; u < 256; ++u) {
            for (int y = 0; y < 256; ++y) {
                const model::Rgb rgb = to_rgb({byte(y), byte(u), byte(v)});
                expected.insert(expected.end(), {rgb.b, rgb.g, rgb.r, 0});
            }
        }
        for (const harness::Variant& table : harness::show_variants()) {
            ASSERT_TRUE(shown(table, slice.picture(GetParam()), surface) == expected) << table.name << ", V = " << v;
        }
    }
}

// From each encoding to every other one: three products are rounded down for luma, two for chroma.
TEST_P(Matrices, other_encodings_are_within_three_levels_of_exact_arithmetic)
{
    int greatest = 0;
    for (const Encoding& to : encodings()) {
        if (to == GetParam()) continue;
        const model::Matrix out = model::rgb_to_yuv(to), in = model::yuv_to_rgb(GetParam());
        model::Matrix both = {};
        for (int i = 0; i < 27; ++i) both.at[i / 9][i / 3 % 3] += out.at[i / 9][i % 3] * in.at[i % 3][i / 3 % 3];
        const model::Conversion conversion(GetParam(), to);
        for_each_sample(harness::by_effort(5, 51), [&](const Yuv& s) {
            const Yuv converted = conversion(s);
            const uint8_t values[] = {converted.y, converted.u, converted.v};
            for (int i = 0; i < 3; ++i) {
                const double exact = exact_row(both.at[i], i == 0 ? to.black() : 128, s, GetParam().black());
                greatest = std::max(greatest, error(values[i], exact));
            }
        });
    }
    RecordProperty("greatest_error", greatest);
    EXPECT_LE(greatest, 3);
}

TEST_P(Matrices, the_function_computes_the_formula_of_other_encodings)
{
    for (const Encoding& to : encodings()) {
        const model::Conversion conversion(GetParam(), to);
        const vsurf_surface surface = {VSURF_UYVY,
                                       Slice::kSize,
                                       Slice::kSize,
                                       {},
                                       {2 * Slice::kSize},
                                       static_cast<vsurf_matrix>(to.matrix),
                                       static_cast<vsurf_range>(to.range)};
        for (int v = 0; v < 256; v += harness::by_effort(5, 51)) {
            const Slice slice(v);
            Bytes expected;
            for (int u = 0; u < 256; ++u) {
                for (int y = 0; y < 256; y += 2) {
                    const Yuv a = conversion({byte(y), byte(u), byte(v)}),
                              b = conversion({byte(y + 1), byte(u), byte(v)});
                    expected.insert(expected.end(), {a.u, a.y, a.v, b.y});
                }
            }
            for (const harness::Variant& table : harness::show_variants()) {
                ASSERT_TRUE(shown(table, slice.picture(GetParam()), surface) == expected)
                    << table.name << ", V = " << v << ", to " << name_of(to);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Encodings, Matrices, testing::ValuesIn(encodings()),
                         [](const auto& tested) { return name_of(tested.param); });

} // namespace
