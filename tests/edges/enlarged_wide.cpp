// SPDX-License-Identifier: MIT
// Planar pictures onto YUY2 surfaces of twice their width and height: the new samples between two samples.
#include "harness/fixture.h"

#include <algorithm>

namespace {

using harness::Bytes;
using harness::part;
using harness::Picture;
using vsurf::Kernels;

class EnlargedWide : public harness::OnEveryTable {
protected:
    static constexpr size_t kHeight = 16; // which both forms take

    // Every line of the surface of a picture whose lines are all alike.
    Bytes line(Entry entry, const Picture& p, size_t width)
    {
        const int w = static_cast<int>(width);
        const Size size = {w, static_cast<int>(kHeight), w, 4 * w};
        const Bytes surface = load(entry, p, size, 2 * kHeight * 4 * width);
        for (size_t k = 1; k < 2 * kHeight; ++k) {
            EXPECT_EQ(part(surface, 4 * width * k, 4 * width), part(surface, 0, 4 * width)) << k;
        }
        return part(surface, 0, 4 * width);
    }

    // Lines of `luma` samples, and half as many chroma samples, that repeat all the way down.
    template <class Luma, class Chroma> static Picture of_columns(size_t width, const Luma& luma, const Chroma& chroma)
    {
        Picture p;
        p.y.resize(width * kHeight);
        p.u.resize(width * kHeight / 4);
        p.v.resize(p.u.size());
        for (size_t i = 0; i < p.y.size(); ++i) p.y[i] = static_cast<uint8_t>(luma(i % width));
        for (size_t i = 0; i < p.u.size(); ++i) {
            p.u[i] = static_cast<uint8_t>(chroma(i % (width / 2)));
            p.v[i] = static_cast<uint8_t>(255 - p.u[i]);
        }
        return p;
    }
};

constexpr harness::LoaderFunction Kernels::*kBoth[] = {&Kernels::strech_picture_2X2_yuy2,
                                                       &Kernels::strech_picture_2X2_yuy2_ajust};

// Luma counts by 2 and U by 4, so that what lies between is one half of that further; the last is its own neighbour.
TEST_P(EnlargedWide, samples_lie_between_their_neighbours_and_the_last_is_its_own)
{
    for (const size_t width : {32u, 48u, 64u, 112u}) {
        const Picture p = of_columns(
            width, [](size_t x) { return 2 * x; }, [](size_t k) { return 4 * k; });
        for (const Entry entry : kBoth) {
            const Bytes found = line(entry, p, width);
            const size_t last = 2 * width - 2; // what the last sample of a line is
            for (size_t x = 0; x < 2 * width; ++x) EXPECT_EQ(found[2 * x], std::min(x, last)) << x << " of " << width;
            for (size_t k = 0; k < width; ++k) {
                const size_t u = std::min(2 * k, last - 2);
                EXPECT_EQ(found[4 * k + 1], u) << k << " of " << width;
                EXPECT_EQ(found[4 * k + 3], 255 - u) << k << " of " << width;
            }
        }
    }
}

TEST_P(EnlargedWide, a_sample_between_four_is_rounded_twice)
{
    Picture p(0, 0, 0);
    p.y[1] = p.u[1] = p.v[1] = 1;
    for (const Entry entry : kBoth) {
        const Bytes surface = load(entry, p, {32, 16, 32, 128}, 32 * 128);
        EXPECT_EQ(part(surface, 0, 16), (Bytes{0, 0, 1, 0, 1, 1, 1, 1, 0, 1, 0, 1, 0, 1, 0, 1}));
        EXPECT_EQ(part(surface, 128, 16), (Bytes{0, 0, 1, 0, 1, 1, 1, 1, 0, 1, 0, 1, 0, 1, 0, 1}));
        EXPECT_EQ(part(surface, 256, 16), (Bytes{0, 0, 0, 0, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1}));
        EXPECT_EQ(part(surface, 512, 128), Bytes(128, 0));
    }
}

TEST_P(EnlargedWide, samples_are_adjusted_before_they_are_averaged)
{
    harness::set_adjustment({128, 128}, {-10, 0, 0});
    Picture p(0, 200, 0);
    for (size_t i = 0; i < p.y.size(); i += 2) p.y[i] = 200;
    for (size_t i = 0; i < 16; ++i) p.u[i] = 0;
    const Bytes surface = load(&Kernels::strech_picture_2X2_yuy2_ajust, p, {32, 16, 32, 128}, 32 * 128);
    // 200 becomes 255, 0 becomes 0, and 128 lies between; not 100, which would become 190.
    for (size_t x = 0; x < 62; ++x) EXPECT_EQ(surface[2 * x], x % 4 == 0 ? 255 : x % 4 == 2 ? 0 : 128) << x;
    EXPECT_EQ(surface[0 * 128 + 1], 0);
    EXPECT_EQ(surface[2 * 128 + 1], 128); // of the first two chroma lines, 0 and 255
    EXPECT_EQ(surface[4 * 128 + 1], 255);
}

// U becomes 100, but 120 where it takes the offset of V: the first sample of each next eight, as a neighbour.
TEST_P(EnlargedWide, u_ahead_of_eight_samples_takes_the_offset_of_v)
{
    harness::set_adjustment({64, 128}, {5, 0, 20});
    for (const size_t width : {32u, 48u, 64u, 80u, 96u, 112u, 208u}) {
        const Bytes found = line(&Kernels::strech_picture_2X2_yuy2_ajust, Picture(90, 50, 50), width);
        for (size_t k = 0; k < width; ++k) {
            const bool ahead = k % 16 == 15 && k != width - 1;
            EXPECT_EQ(part(found, 4 * k, 4), (Bytes{95, uint8_t(ahead ? 110 : 100), 95, 120})) << k << " of " << width;
        }
    }
}

VSURF_ON_EVERY_TABLE(EnlargedWide);

} // namespace
