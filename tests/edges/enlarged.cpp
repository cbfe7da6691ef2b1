// SPDX-License-Identifier: MIT
// Planar pictures onto YUY2 surfaces of twice their height: which lines, filtered how, adjusted when.
#include "harness/fixture.h"

namespace {

using harness::Bytes;
using harness::flat_lines;
using harness::flat_yuy2;
using harness::part;
using harness::Picture;
using vsurf::Kernels;

class Enlarged : public harness::OnEveryTable {
protected:
    // A picture of flat lines. A chroma line holds the same for U and for V.
    static Picture of_lines(size_t pitch, const Bytes& luma, const Bytes& chroma)
    {
        Picture p;
        p.y = flat_lines(pitch, luma);
        p.u = p.v = flat_lines(pitch / 2, chroma);
        return p;
    }

    struct Content {
        Bytes luma, chroma; // of the surface's lines
    };

    // Each line of the surface must be flat.
    Content lines(Entry entry, const Picture& p, int height)
    {
        constexpr int kWidth = 112; // steps of 64, 32 and 16 pixels, where there are such
        const size_t count = 2 * static_cast<size_t>(height);
        const bool doubles =
            entry == &Kernels::strech_picture_2X2_yuy2 || entry == &Kernels::strech_picture_2X2_yuy2_ajust;
        const size_t line = (doubles ? 4 : 2) * kWidth;
        const Bytes surface = load(entry, p, {kWidth, height, kWidth, static_cast<int>(line)}, (count + 1) * line);
        Content found;
        for (size_t at = 0; at < count * line; at += line) {
            EXPECT_EQ(part(surface, at, line), flat_yuy2(line / 2, surface[at], surface[at + 1], surface[at + 1]));
            found.luma.push_back(surface[at]);
            found.chroma.push_back(surface[at + 1]);
        }
        EXPECT_EQ(part(surface, count * line, line), Bytes(line, kUntouched));
        return found;
    }

    Content lines(Entry entry, const Bytes& luma, const Bytes& chroma)
    {
        return lines(entry, of_lines(112, luma, chroma), static_cast<int>(luma.size()));
    }
};

struct Guarded {
    harness::LoaderFunction Kernels::*entry;
    int least_height;
    size_t widened; // how many times
};

constexpr Guarded kAll[] = {
    {&Kernels::strech_picture_1X2_yuy2, 8, 1},
    {&Kernels::strech_picture_1X2_yuy2_ajust, 8, 1},
    {&Kernels::strech_picture_2X2_yuy2, 8, 2},
    {&Kernels::strech_picture_2X2_yuy2_ajust, 16, 2},
};

TEST_P(Enlarged, heights_below_the_guard_leave_the_surface_untouched)
{
    for (const auto& [entry, least, widened] : kAll) {
        const size_t line = 64 * widened;
        const Size size = {32, least, 32, static_cast<int>(line)};
        for (const int height : {INT32_MIN, -16, -1, 0, 2, 6, 7, least - 2, least - 1}) {
            EXPECT_EQ(load(entry, Picture(), {32, height, 32, size.dst_pitch}, 40 * line), Bytes(40 * line, kUntouched))
                << height;
        }
        const size_t written = 2 * static_cast<size_t>(least) * line;
        Bytes expected = flat_yuy2(written / 2, 50, 60, 70);
        expected.resize(40 * line, kUntouched);
        EXPECT_EQ(load(entry, Picture(50, 60, 70), size, 40 * line), expected);
    }
}

TEST_P(Enlarged, lines_lie_between_the_sources_and_the_last_is_there_twice)
{
    const Bytes luma = {0, 10, 20, 31, 40, 50, 60, 255}, chroma = {100, 120, 141, 200};
    for (const Entry entry : {&Kernels::strech_picture_1X2_yuy2, &Kernels::strech_picture_2X2_yuy2}) {
        const Content found = lines(entry, luma, chroma);
        EXPECT_EQ(found.luma, (Bytes{0, 5, 10, 15, 20, 26, 31, 36, 40, 45, 50, 55, 60, 158, 255, 255}));
        EXPECT_EQ(found.chroma,
                  (Bytes{100, 100, 110, 110, 120, 120, 131, 131, 141, 141, 171, 171, 200, 200, 200, 200}));
    }
}

TEST_P(Enlarged, the_adjusted_2x2_form_has_the_same_lines)
{
    Bytes luma, chroma, between;
    for (int s = 0; s < 16; ++s) {
        luma.push_back(static_cast<uint8_t>(s * s));
        between.push_back(static_cast<uint8_t>(s * s));
        between.push_back(static_cast<uint8_t>(s < 15 ? s * s + s + 1 : s * s)); // (s*s + (s+1)*(s+1) + 1) / 2
    }
    for (int c = 0; c < 8; ++c) chroma.push_back(static_cast<uint8_t>(100 + 20 * c));
    const Content found = lines(&Kernels::strech_picture_2X2_yuy2_ajust, luma, chroma);
    EXPECT_EQ(found.luma, between);
    for (size_t k = 0; k < 32; ++k) EXPECT_EQ(found.chroma[k], k < 30 ? 100 + 10 * (k / 2) : 240) << k;
}

TEST_P(Enlarged, uniform_pictures_stay_uniform)
{
    for (const auto& [entry, least, widened] : kAll) {
        for (const int value : {0, 1, 77, 254, 255}) {
            const uint8_t level = static_cast<uint8_t>(value);
            const Content found = lines(entry, Bytes(18, level), Bytes(9, level));
            EXPECT_EQ(found.luma, Bytes(36, level));
            EXPECT_EQ(found.chroma, Bytes(36, level));
        }
    }
}

TEST_P(Enlarged, the_adjusted_1x2_form_filters_away_from_the_borders)
{
    const Bytes luma = {10, 20, 40, 80, 160, 80, 40, 20, 10, 200}, chroma = {10, 20, 40, 200, 100};
    const Content found = lines(&Kernels::strech_picture_1X2_yuy2_ajust, luma, chroma);
    // 52 is (5 * 120 - 170 - 10) / 8 = 420 / 8, and so on; the averages are 15, 30 and 105.
    EXPECT_EQ(found.luma, (Bytes{10, 15, 20, 30, 40, 52, 80, 135, 160, 135, 80, 52, 40, 26, 20, 0, 10, 105, 200, 200}));
    EXPECT_EQ(found.chroma,
              (Bytes{10, 10, 15, 15, 20, 20, 11, 11, 40, 40, 135, 135, 200, 200, 150, 150, 100, 100, 100, 100}));
}

TEST_P(Enlarged, the_adjusted_1x2_form_of_height_8_filters_four_lines)
{
    const Bytes luma = {0, 8, 80, 80, 8, 80, 80, 0}, chroma = {8, 80, 80, 0};
    const Content found = lines(&Kernels::strech_picture_1X2_yuy2_ajust, luma, chroma);
    EXPECT_EQ(found.luma, (Bytes{0, 4, 8, 44, 80, 98, 80, 35, 8, 35, 80, 99, 80, 40, 0, 0}));
    EXPECT_EQ(found.chroma, (Bytes{8, 8, 44, 44, 80, 80, 99, 99, 80, 80, 40, 40, 0, 0, 0, 0}));
}

TEST_P(Enlarged, a_bright_line_darkens_what_lies_one_and_a_half_lines_away)
{
    Bytes luma(20, 100);
    luma[10] = 200;
    Bytes filtered(40, 100), averaged(40, 100);
    filtered[17] = filtered[23] = 87; // (1000 - 300) / 8, downwards
    filtered[19] = filtered[21] = 162;
    averaged[19] = averaged[21] = 150;
    filtered[20] = averaged[20] = 200;
    EXPECT_EQ(lines(&Kernels::strech_picture_1X2_yuy2_ajust, luma, Bytes(10, 128)).luma, filtered);
    EXPECT_EQ(lines(&Kernels::strech_picture_1X2_yuy2, luma, Bytes(10, 128)).luma, averaged);
}

TEST_P(Enlarged, the_filter_is_cut_at_0_and_255)
{
    const Bytes luma = {0, 0, 255, 255, 0, 0, 255, 255, 0, 0}, chroma = {255, 0, 0, 255, 255};
    const Content found = lines(&Kernels::strech_picture_1X2_yuy2_ajust, luma, chroma);
    EXPECT_EQ(found.luma, (Bytes{0, 0, 0, 128, 255, 255, 255, 127, 0, 0, 0, 127, 255, 255, 255, 127, 0, 0, 0, 0}));
    EXPECT_EQ(found.chroma,
              (Bytes{255, 255, 128, 128, 0, 0, 0, 0, 0, 0, 127, 127, 255, 255, 255, 255, 255, 255, 255, 255}));
}

// (5 * (b + c) - (a + d)) / 8 without a rounding term: 7 and -1 become 0, 15 becomes 1.
TEST_P(Enlarged, the_filter_rounds_down)
{
    const auto between = [&](uint8_t a, uint8_t b, uint8_t c, uint8_t d) {
        return lines(&Kernels::strech_picture_1X2_yuy2_ajust, {0, 0, a, b, c, d, 0, 0}, Bytes(4, 128)).luma[7];
    };
    EXPECT_EQ(between(3, 1, 1, 0), 0);       // 7
    EXPECT_EQ(between(3, 1, 1, 8), 0);       // -1
    EXPECT_EQ(between(0, 2, 1, 0), 1);       // 15
    EXPECT_EQ(between(1, 1, 1, 1), 1);       // 8
    EXPECT_EQ(between(2, 1, 1, 1), 0);       // 7
    EXPECT_EQ(between(1, 255, 154, 5), 254); // 2039
    EXPECT_EQ(between(0, 255, 154, 5), 255); // 2040
}

TEST_P(Enlarged, the_1x2_form_adjusts_after_it_filters)
{
    harness::set_adjustment({128, 128}, {-100, 0, 0});
    const Bytes luma = {200, 0, 10, 100, 140, 170, 0, 200}, chroma = {200, 0, 10, 100};
    const Content found = lines(&Kernels::strech_picture_1X2_yuy2_ajust, luma, chroma);
    EXPECT_EQ(found.luma[0], 255);
    EXPECT_EQ(found.luma[1], 100); // of 100: adjusted first it would be 128
    EXPECT_EQ(found.luma[7], 154); // of 127, (5 * 240 - 180) / 8: adjusted first it would be 145
    EXPECT_EQ(found.luma[8], 180);
    EXPECT_EQ(found.luma[13], 100);
    EXPECT_EQ(found.chroma[0], 255);
    EXPECT_EQ(found.chroma[2], 200);
    EXPECT_EQ(found.chroma[7], 0); // of (5 * 10 - 300) / 8
}

TEST_P(Enlarged, pairs_of_pixels_show_u_and_then_v_of_their_own_place)
{
    Picture p;
    for (size_t i = 0; i < Picture::kRoom; ++i) {
        p.y[i] = static_cast<uint8_t>(i % 80);
        p.u[i] = static_cast<uint8_t>(100 + i % 40);
        p.v[i] = static_cast<uint8_t>(200 - i % 40);
    }
    Bytes line;
    for (int pair = 0; pair < 40; ++pair) {
        for (const int byte : {2 * pair, 100 + pair, 2 * pair + 1, 200 - pair}) {
            line.push_back(static_cast<uint8_t>(byte));
        }
    }
    harness::set_adjustment({64, 64}, {1, 2, 3});
    Bytes adjusted = line;
    for (size_t i = 0; i < line.size(); ++i) {
        adjusted[i] = static_cast<uint8_t>(line[i] + (i % 2 == 0 ? 1 : i % 4 == 1 ? 2 : 3));
    }
    const Bytes plain_surface = load(&Kernels::strech_picture_1X2_yuy2, p, {80, 8, 80, 171}, 16 * 171);
    const Bytes adjusted_surface = load(&Kernels::strech_picture_1X2_yuy2_ajust, p, {80, 8, 80, 171}, 16 * 171);
    for (size_t k = 0; k < 16; ++k) {
        EXPECT_EQ(part(plain_surface, 171 * k, 160), line) << k;
        EXPECT_EQ(part(plain_surface, 171 * k + 160, 11), Bytes(11, kUntouched)) << k;
        EXPECT_EQ(part(adjusted_surface, 171 * k, 160), adjusted) << k;
    }
}

VSURF_ON_EVERY_TABLE(Enlarged);

} // namespace
