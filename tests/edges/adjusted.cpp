// SPDX-License-Identifier: MIT
// What is special about the adjusted loaders: a guard on the height, a grey picture, exchanged chroma offsets.
#include "harness/arena.h"
#include "harness/fixture.h"
#include "harness/random.h"

namespace {

using harness::Bytes;
using harness::Picture;
using vsurf::Kernels;

class Adjusted : public harness::OnEveryTable {
protected:
    static Picture noise()
    {
        Picture p;
        harness::Random random(31);
        for (Bytes* plane : {&p.y, &p.u, &p.v}) {
            for (uint8_t& byte : *plane) byte = static_cast<uint8_t>(random.next());
        }
        return p;
    }

    static ajust_contrast_info surface(int height, int to_bottom)
    {
        ajust_contrast_info info = {};
        info.surface_height = height;
        info.lines_to_bottom = to_bottom;
        return info;
    }
};

TEST_P(Adjusted, yuy2_refuses_small_and_odd_heights)
{
    for (const int height : {-10, -1, 0, 1, 2, 6, 7, 8, 9, 11, 21}) {
        EXPECT_EQ(load(&Kernels::loadimage_yuy2_ajust, Picture(), {16, height, 16, 32}, 1024), Bytes(1024, kUntouched))
            << height;
    }
}

TEST_P(Adjusted, yuy2_of_height_ten_writes_ten_lines)
{
    const Bytes surface = load(&Kernels::loadimage_yuy2_ajust, Picture(77, 78, 79), {16, 10, 16, 32}, 400);
    for (size_t i = 0; i < 320; ++i) EXPECT_EQ(surface[i], i % 2 == 0 ? 77 : i % 4 == 1 ? 78 : 79);
    EXPECT_EQ(harness::part(surface, 320, 80), Bytes(80, kUntouched));
}

TEST_P(Adjusted, at_unity_the_rgb_loaders_equal_their_plain_twins)
{
    static constexpr std::pair<Entry, Entry> kTwins[] = {
        {&Kernels::loadimage_rgb32, &Kernels::loadimage_rgb32_ajust},
        {&Kernels::loadimage_rgb24, &Kernels::loadimage_rgb24_ajust},
        {&Kernels::loadimage_rgb16, &Kernels::loadimage_rgb16_ajust},
    };
    ajust_contrast_info info = {};
    for (const auto& [plain, adjusted] : kTwins) {
        for (info.rgb16_layout = 0; info.rgb16_layout < 4; ++info.rgb16_layout) {
            EXPECT_EQ(load(plain, noise(), {48, 12, 48, 200}, 2600, &info),
                      load(adjusted, noise(), {48, 12, 48, 200}, 2600, &info));
        }
    }
}

TEST_P(Adjusted, at_unity_yuy2_equals_its_plain_twin_with_both_lines_complete)
{
    const Bytes plain = load(&Kernels::loadimage_yuy2, noise(), {48, 12, 48, 96}, 1152);
    const Bytes adjusted = load(&Kernels::loadimage_yuy2_ajust, noise(), {48, 12, 48, 96}, 1152);
    const Picture p = noise();
    for (size_t at = 0; at < plain.size(); ++at) {
        if (at / 96 % 2 == 1 && at % 32 < 8) {
            const size_t pixel = at % 96 / 2, chroma = at / 192 * 24 + pixel / 2;
            const uint8_t expected = at % 2 == 0 ? p.y[at / 96 * 48 + pixel] : at % 4 == 1 ? p.u[chroma] : p.v[chroma];
            EXPECT_EQ(adjusted[at], expected) << at;
        } else {
            EXPECT_EQ(adjusted[at], plain[at]) << at;
        }
    }
}

TEST_P(Adjusted, mono_never_reads_chroma)
{
    harness::set_adjustment({64, 200}, {0, 99, -99});
    Bytes y = harness::counting(16 * 4), surface(32 * 4, kUntouched);
    const harness::Arena none(4096);
    for (void* chroma : {static_cast<void*>(nullptr), static_cast<void*>(none.forbidden())}) {
        table().loadimage_yuy2_mono_ajust(y.data(), chroma, chroma, surface.data(), 16, 4, 16, 32, nullptr);
        for (size_t i = 0; i < surface.size(); ++i) EXPECT_EQ(surface[i], i % 2 == 0 ? y[i / 2] : 0x80);
    }
}

TEST_P(Adjusted, mono_has_no_guard_on_the_height)
{
    const Bytes surface = load(&Kernels::loadimage_yuy2_mono_ajust, Picture(50), {16, 3, 16, 32}, 160);
    EXPECT_EQ(surface[0], 50);
    EXPECT_EQ(surface[127], 0x80);
    EXPECT_EQ(surface[128], kUntouched);
}

TEST_P(Adjusted, yv12_adds_the_u_offset_to_the_v_plane)
{
    harness::set_adjustment({64, 64}, {0, 10, 0});
    ajust_contrast_info info = surface(4, 4);
    Bytes image = load(&Kernels::loadimage_yv12_ajust, Picture(20, 30, 40), {16, 4, 16, 16}, 96, &info);
    EXPECT_EQ(harness::part(image, 0, 64), Bytes(64, 20));
    EXPECT_EQ(harness::part(image, 64, 16), Bytes(16, 50)); // V, raised
    EXPECT_EQ(harness::part(image, 80, 16), Bytes(16, 30)); // U, not
    harness::set_adjustment({64, 64}, {0, 0, 10});
    image = load(&Kernels::loadimage_yv12_ajust, Picture(20, 30, 40), {16, 4, 16, 16}, 96, &info);
    EXPECT_EQ(image[64], 40);
    EXPECT_EQ(image[80], 40); // U, raised by the other plane's offset
}

TEST_P(Adjusted, yv12_reads_rows_without_regard_to_their_pitch)
{
    Picture p;
    p.y = harness::counting(Picture::kRoom);
    ajust_contrast_info info = surface(2, 2);
    const Bytes image = load(&Kernels::loadimage_yv12_ajust, p, {16, 2, 100, 16}, 64, &info);
    EXPECT_EQ(harness::part(image, 0, 32), harness::counting(32));
}

TEST_P(Adjusted, yv12_rows_take_the_width_rounded_up_to_eight)
{
    Picture p;
    p.y = harness::counting(Picture::kRoom);
    ajust_contrast_info info = surface(8, 8);
    const Bytes image = load(&Kernels::loadimage_yv12_ajust, p, {12, 2, 12, 32}, 512, &info);
    EXPECT_EQ(harness::part(image, 0, 16), harness::counting(16));
    EXPECT_EQ(image[32], kUntouched);
    EXPECT_EQ(harness::part(image, 36, 16), harness::counting(16, 16)); // 4 bytes of drift
}

TEST_P(Adjusted, yv12_addresses_the_chroma_planes_of_a_taller_surface)
{
    // A surface of 8 lines of 32 bytes with V at 256 and U at 320; the picture starts on line 2.
    ajust_contrast_info info = surface(8, 6);
    const Bytes image = load(&Kernels::loadimage_yv12_ajust, Picture(20, 30, 40), {16, 4, 16, 32}, 384, &info, 64);
    Bytes expected(384, kUntouched);
    for (long line = 2; line < 6; ++line) std::fill_n(expected.begin() + 32 * line, 16, uint8_t{20});
    for (long line = 1; line < 3; ++line) {
        std::fill_n(expected.begin() + 256 + 16 * line, 8, uint8_t{40});
        std::fill_n(expected.begin() + 320 + 16 * line, 8, uint8_t{30});
    }
    EXPECT_EQ(image, expected);
}

TEST_P(Adjusted, yv12_geometry_wraps_in_32_bits)
{
    ajust_contrast_info plain = surface(8, 6), wrapping = surface(8 + (1 << 30), 6 - (1 << 30));
    EXPECT_EQ(load(&Kernels::loadimage_yv12_ajust, noise(), {16, 4, 16, 32}, 384, &plain, 64),
              load(&Kernels::loadimage_yv12_ajust, noise(), {16, 4, 16, 32}, 384, &wrapping, 64));
}

TEST_P(Adjusted, yv12_of_width_and_height_zero_converts_one_block_a_plane)
{
    ajust_contrast_info info = surface(4, 4);
    const Bytes image = load(&Kernels::loadimage_yv12_ajust, Picture(20, 30, 40), {0, 0, 16, 16}, 128, &info);
    Bytes expected(128, kUntouched);
    std::fill_n(expected.begin(), 8, uint8_t{20});
    std::fill_n(expected.begin() + 64, 8, uint8_t{40});
    std::fill_n(expected.begin() + 80, 8, uint8_t{30});
    EXPECT_EQ(image, expected);
}

VSURF_ON_EVERY_TABLE(Adjusted);

} // namespace
