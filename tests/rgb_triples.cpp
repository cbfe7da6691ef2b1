// SPDX-License-Identifier: MIT
// All 2^24 combinations of Y, U and V through each RGB format, at even and at odd pixels, on both lines of a pass.
#include "harness/exports.h"
#include "harness/variants.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

namespace {

using harness::Variant;

constexpr int kSize = 256; // samples a line, and passes a picture: each pass shows other chroma
constexpr int kLines = 2 * kSize;

struct Sink {
    const char* name;
    harness::LoaderFunction vsurf::Kernels::*entry;
    int pixel_bytes;
    int layout;
};

void PrintTo(const Sink& sink, std::ostream* out) { *out << sink.name; }

constexpr Sink kSinks[] = {
    {"rgb32", &vsurf::Kernels::loadimage_rgb32, 4, 0},     {"rgb24", &vsurf::Kernels::loadimage_rgb24, 3, 0},
    {"rgb16_565", &vsurf::Kernels::loadimage_rgb16, 2, 0}, {"rgb16_555", &vsurf::Kernels::loadimage_rgb16, 2, 1},
    {"rgb16_664", &vsurf::Kernels::loadimage_rgb16, 2, 2}, {"rgb16_655", &vsurf::Kernels::loadimage_rgb16, 2, 3},
};

// Picture n: across all pictures, every pixel position of a line meets every pair of chroma samples. The second line
// of a pass shows the luma values backwards, so that each meets the same chroma at a pixel of the other parity.
uint8_t luma_at(int x, int line) { return static_cast<uint8_t>(line % 2 == 0 ? x : 255 - x); }
uint8_t u_at(int k, int pass) { return static_cast<uint8_t>(pass + k); }
uint8_t v_at(int k, int picture) { return static_cast<uint8_t>(picture + 3 * k); }

// Every pixel of every triple, by the model; four bytes of which a sink uses as many as it stores.
const std::vector<uint32_t>& expected_pixels(const Sink& sink)
{
    static std::vector<uint32_t> pixels(size_t{1} << 24);
    static const Sink* made_for = nullptr;
    if (made_for == &sink) return pixels;
    made_for = &sink;
    for (uint32_t chroma = 0; chroma < 65536; ++chroma) {
        const auto terms = model::chroma_terms(static_cast<uint8_t>(chroma >> 8), static_cast<uint8_t>(chroma));
        for (uint32_t y = 0; y < 256; ++y) {
            const model::Rgb rgb = model::to_rgb(static_cast<uint8_t>(y), terms);
            pixels[chroma * 256 + y] = sink.pixel_bytes == 2 ? model::rgb16(rgb, static_cast<uint32_t>(sink.layout))
                                                             : rgb.b | uint32_t{rgb.g} << 8 | uint32_t{rgb.r} << 16;
        }
    }
    return pixels;
}

std::vector<uint8_t> expected_picture(const Sink& sink, int picture)
{
    const std::vector<uint32_t>& pixels = expected_pixels(sink);
    const auto bytes = static_cast<size_t>(sink.pixel_bytes);
    std::vector<uint8_t> image(kSize * kLines * bytes + 4);
    uint8_t* to = image.data();
    for (int line = 0; line < kLines; ++line) {
        for (int x = 0; x < kSize; ++x, to += bytes) {
            const uint32_t chroma = uint32_t{u_at(x / 2, line / 2)} << 8 | v_at(x / 2, picture);
            std::memcpy(to, &pixels[chroma * 256 + luma_at(x, line)], 4); // the next pixel covers the excess
        }
    }
    image.resize(image.size() - 4);
    return image;
}

class RgbTriples : public testing::TestWithParam<Sink> {};

TEST_P(RgbTriples, equal_the_model)
{
    const Sink& sink = GetParam();
    std::vector<uint8_t> y(kSize * kLines), u(kSize / 2 * kSize), v(kSize / 2 * kSize);
    for (size_t i = 0; i < y.size(); ++i) y[i] = luma_at(static_cast<int>(i % kSize), static_cast<int>(i / kSize));
    for (size_t i = 0; i < u.size(); ++i) u[i] = u_at(static_cast<int>(i % 128), static_cast<int>(i / 128));
    std::vector<uint8_t> image(static_cast<size_t>(kSize * kLines * sink.pixel_bytes));
    ajust_contrast_info info = {};
    info.rgb16_layout = sink.layout;
    for (int picture = 0; picture < 256; ++picture) {
        for (size_t i = 0; i < v.size(); ++i) v[i] = v_at(static_cast<int>(i % 128), picture);
        const std::vector<uint8_t> expected = expected_picture(sink, picture);
        for (const Variant& table : harness::variants()) {
            std::memset(image.data(), 0xA5, image.size());
            table.apply();
            (table.kernels->*sink.entry)(y.data(), u.data(), v.data(), image.data(), kSize, kLines, kSize,
                                         kSize * sink.pixel_bytes, &info);
            ASSERT_EQ(std::memcmp(image.data(), expected.data(), image.size()), 0)
                << sink.name << " on " << table.name << ", picture " << picture;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sinks, RgbTriples, testing::ValuesIn(kSinks),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
