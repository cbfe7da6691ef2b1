// SPDX-License-Identifier: MIT
// Planar pictures onto RGB surfaces of twice their height: adjusted first, then averaged, then converted.
#include "edges/pixels.h"

namespace {

using harness::Bytes;
using harness::flat_lines;
using harness::packed_pixel;
using harness::part;
using harness::Picture;
using vsurf::Kernels;

constexpr struct Format {
    harness::LoaderFunction Kernels::*entry;
    size_t bytes; // a pixel
} kFormats[] = {
    {&Kernels::strech_picture_1X2_yuy2_ajust_rgb32, 4},
    {&Kernels::strech_picture_1X2_yuy2_ajust_rgb24, 3},
    {&Kernels::strech_picture_1X2_yuy2_ajust_rgb16, 2},
};

class EnlargedRgb : public harness::OnEveryTable {
protected:
    static constexpr size_t kWidth = 112; // steps of 64, 32 and 16 pixels, where there are such

    static Picture of_lines(const Bytes& luma, const Bytes& chroma)
    {
        Picture p;
        p.y = flat_lines(kWidth, luma);
        p.u = p.v = flat_lines(kWidth / 2, chroma);
        return p;
    }

    // Each line of the surface shows its luma with its chroma (for U and V the same).
    void expect_lines(const Picture& p, int height, const Bytes& luma, const Bytes& chroma)
    {
        ajust_contrast_info info = {};
        for (const auto& [entry, bytes] : kFormats) {
            const size_t line = kWidth * bytes + 5, count = 2 * static_cast<size_t>(height);
            const Size size = {kWidth, height, kWidth, static_cast<int>(line)};
            const Bytes surface = load(entry, p, size, (count + 1) * line, &info);
            for (size_t k = 0; k < count; ++k) {
                const Bytes pixel =
                    packed_pixel(model::to_rgb(luma[k], model::chroma_terms(chroma[k], chroma[k])), bytes);
                for (size_t x = 0; x < kWidth; ++x) {
                    ASSERT_EQ(part(surface, k * line + x * bytes, bytes), pixel) << x << ", line " << k;
                }
                EXPECT_EQ(part(surface, k * line + kWidth * bytes, 5), Bytes(5, kUntouched));
            }
            EXPECT_EQ(part(surface, count * line, line), Bytes(line, kUntouched));
        }
    }
};

TEST_P(EnlargedRgb, heights_below_twelve_leave_the_surface_untouched_and_need_no_record)
{
    for (const auto& [entry, bytes] : kFormats) {
        for (const int height : {INT32_MIN, -12, 0, 2, 8, 10, 11}) {
            EXPECT_EQ(load(entry, Picture(), {16, height, 16, 64}, 25 * 64), Bytes(25 * 64, kUntouched)) << height;
        }
    }
}

TEST_P(EnlargedRgb, height_twelve_writes_24_lines)
{
    expect_lines(Picture(235, 128, 128), 12, Bytes(24, 235), Bytes(24, 128));
}

TEST_P(EnlargedRgb, unknown_layouts_leave_the_surface_untouched)
{
    for (const int layout : {4, -1, 5, 256, INT32_MIN}) {
        ajust_contrast_info info = {};
        info.rgb16_layout = layout;
        EXPECT_EQ(load(&Kernels::strech_picture_1X2_yuy2_ajust_rgb16, Picture(235), {16, 12, 16, 32}, 25 * 32, &info),
                  Bytes(25 * 32, kUntouched));
    }
}

TEST_P(EnlargedRgb, rgb16_has_four_layouts)
{
    // Only blue 240, and white of 254.
    const Picture blue(16, 247, 128), white(235);
    const int blues[] = {0x001E, 0x003C, 0x000F, 0x001E}, whites[] = {0xFFFF, 0xFFFE, 0xFFFF, 0xFFFF};
    ajust_contrast_info info = {};
    for (int layout = 0; layout < 4; ++layout) {
        info.rgb16_layout = layout;
        for (const auto& [p, words] : {std::pair(&blue, blues), std::pair(&white, whites)}) {
            const Bytes surface =
                load(&Kernels::strech_picture_1X2_yuy2_ajust_rgb16, *p, {16, 12, 16, 32}, 24 * 32, &info);
            for (size_t at = 0; at < surface.size(); at += 2) {
                EXPECT_EQ(surface[at] | surface[at + 1] << 8, words[layout]) << at;
            }
        }
    }
}

TEST_P(EnlargedRgb, lines_lie_between_the_sources_and_the_last_is_there_twice)
{
    const Bytes luma = {20, 30, 40, 51, 60, 70, 80, 90, 100, 110, 120, 235}, chroma = {100, 120, 141, 200, 90, 80};
    const Bytes all_luma = {20, 25, 30, 35, 40,  46,  51,  56,  60,  65,  70,  75,
                            80, 85, 90, 95, 100, 105, 110, 115, 120, 178, 235, 235};
    const Bytes all_chroma = {100, 100, 110, 110, 120, 120, 131, 131, 141, 141, 171, 171,
                              200, 200, 145, 145, 90,  90,  85,  85,  80,  80,  80,  80};
    expect_lines(of_lines(luma, chroma), 12, all_luma, all_chroma);
}

// The gain of 3/2 makes 151 and 153 of 101 and 102, and 152 is between; the average, 102, would become 153.
TEST_P(EnlargedRgb, samples_are_adjusted_before_they_are_averaged)
{
    harness::set_adjustment({96, 128});
    const Bytes luma = {101, 102, 101, 102, 101, 102, 101, 102, 101, 102, 101, 102},
                chroma = {60, 200, 60, 200, 60, 60};
    const Bytes all_luma = {151, 152, 153, 152, 151, 152, 153, 152, 151, 152, 153, 152,
                            151, 152, 153, 152, 151, 152, 153, 152, 151, 152, 153, 153};
    const Bytes all_chroma = {120, 120, 188, 188, 255, 255, 188, 188, 120, 120, 188, 188,
                              255, 255, 188, 188, 120, 120, 120, 120, 120, 120, 120, 120};
    expect_lines(of_lines(luma, chroma), 12, all_luma, all_chroma);
}

TEST_P(EnlargedRgb, each_plane_has_its_own_adjustment)
{
    harness::set_adjustment({128, 64}, {0, -20, 68});
    ajust_contrast_info info = {};
    for (const auto& [entry, bytes] : kFormats) { // 200, 128, 128: 214 throughout
        const Bytes surface = load(entry, Picture(100, 148, 60), {16, 12, 16, 64}, 24 * 64, &info);
        for (size_t k = 0; k < 24; ++k)
            EXPECT_EQ(part(surface, 64 * k, bytes), packed_pixel({214, 214, 214}, bytes)) << k;
    }
}

TEST_P(EnlargedRgb, pixels_show_luma_and_chroma_of_their_own_place)
{
    Picture p;
    for (size_t i = 0; i < Picture::kRoom; ++i) {
        p.y[i] = static_cast<uint8_t>(40 + i % kWidth);
        p.u[i] = static_cast<uint8_t>(100 + i % (kWidth / 2));
        p.v[i] = static_cast<uint8_t>(180 - i % (kWidth / 2));
    }
    ajust_contrast_info info = {};
    for (const auto& [entry, bytes] : kFormats) {
        const Size size = {kWidth, 12, kWidth, static_cast<int>(kWidth * bytes)};
        const Bytes surface = load(entry, p, size, 24 * kWidth * bytes, &info);
        for (size_t pixel = 0; pixel < 24 * kWidth; ++pixel) {
            const size_t x = pixel % kWidth;
            const auto terms = model::chroma_terms(p.u[x / 2], p.v[x / 2]);
            ASSERT_EQ(part(surface, pixel * bytes, bytes), packed_pixel(model::to_rgb(p.y[x], terms), bytes)) << pixel;
        }
    }
}

VSURF_ON_EVERY_TABLE(EnlargedRgb);

} // namespace
