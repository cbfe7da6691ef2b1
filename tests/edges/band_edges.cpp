// SPDX-License-Identifier: MIT
// How the lines between two lines follow the edges in them: by which threshold, in which direction, by which window.
#include "edges/band.h"

namespace {

using harness::Bytes;
using harness::part;
using harness::Picture;

class BandEdges : public harness::OnEveryBand {
protected:
    struct Between {
        Bytes downwards, upwards; // from the first line to the second, and from the second to the next, again the first
    };

    // What lies between two luma lines that alternate.
    Between luma_between(const Bytes& a, const Bytes& b)
    {
        const size_t width = a.size();
        Picture p;
        p.y.clear();
        for (int i = 0; i < 4; ++i) {
            p.y.insert(p.y.end(), a.begin(), a.end());
            p.y.insert(p.y.end(), b.begin(), b.end());
        }
        const int pitch = static_cast<int>(width);
        const Bytes surface = band(p, 0, 0, 8, 32 * width, 2 * pitch, pitch);
        return {every(surface, 2 * width, 2, width), every(surface, 6 * width, 2, width)};
    }

    struct Chroma {
        Bytes u, v;
    };

    // What lies between two chroma lines.
    Chroma chroma_between(const Chroma& a, const Chroma& b)
    {
        const size_t width = 2 * a.u.size();
        Picture p;
        std::copy(a.u.begin(), a.u.end(), p.u.begin());
        std::copy(b.u.begin(), b.u.end(), p.u.begin() + static_cast<long>(width / 2));
        std::copy(a.v.begin(), a.v.end(), p.v.begin());
        std::copy(b.v.begin(), b.v.end(), p.v.begin() + static_cast<long>(width / 2));
        const int pitch = static_cast<int>(width);
        const Bytes surface = band(p, 0, 0, 8, 32 * width, 2 * pitch, pitch);
        for (size_t i = 1; i < 2 * width; i += 2) { // two lines have it
            EXPECT_EQ(surface[4 * width + i], surface[6 * width + i]) << i;
        }
        return {every(surface, 4 * width + 1, 4, width / 2), every(surface, 4 * width + 3, 4, width / 2)};
    }

    static Bytes every(const Bytes& bytes, size_t from, size_t step, size_t count)
    {
        Bytes found;
        for (size_t i = 0; i < count; ++i) found.push_back(bytes[from + i * step]);
        return found;
    }

    template <class Value> static Bytes line(size_t width, const Value& value)
    {
        Bytes samples;
        for (size_t x = 0; x < width; ++x) samples.push_back(static_cast<uint8_t>(value(static_cast<int>(x))));
        return samples;
    }

    // `inside` between the first and the last block of the line, `outside` in them.
    template <class Inside, class Outside>
    static Bytes line(size_t width, size_t block, const Inside& inside, const Outside& outside)
    {
        const int first = static_cast<int>(block), last = static_cast<int>(width - block);
        return line(width, [&](int x) { return x >= first && x < last ? inside(x) : outside(x); });
    }

    // Samples without repetition, so that lines match in only one place.
    static int texture(int x) { return ((x + 9) * (x + 9) * 37 + 90 * (x % 3)) & 255; }

    static int average(int a, int b) { return (a + b + 1) / 2; }
};

TEST_P(BandEdges, a_group_that_differs_by_32_is_averaged)
{
    for (size_t x = 16; x < 32; ++x) {
        for (const auto& [value, between] : {std::pair(131, 116), {132, 116}, {69, 85}, {68, 84}}) {
            Bytes other(48, 100), expected(48, 100);
            other[x] = static_cast<uint8_t>(value);
            expected[x] = static_cast<uint8_t>(between);
            EXPECT_EQ(luma_between(Bytes(48, 100), other).downwards, expected) << x << ", " << value;
            EXPECT_EQ(luma_between(Bytes(48, 100), other).upwards, expected) << x << ", " << value;
        }
    }
}

// Some direction misses the odd sample completely.
TEST_P(BandEdges, a_group_that_differs_by_33_is_not)
{
    for (size_t x = 16; x < 32; ++x) {
        for (const int value : {133, 67}) {
            Bytes other(48, 100);
            other[x] = static_cast<uint8_t>(value);
            EXPECT_EQ(luma_between(Bytes(48, 100), other).downwards, Bytes(48, 100)) << x << ", " << value;
            EXPECT_EQ(luma_between(Bytes(48, 100), other).upwards, Bytes(48, 100)) << x << ", " << value;
        }
    }
}

TEST_P(BandEdges, differences_of_both_signs_add_up)
{
    const Bytes flat(48, 100);
    Bytes other = flat;
    other[16] = 108, other[17] = 92, other[18] = 108, other[19] = 92; // 32
    EXPECT_EQ(part(luma_between(flat, other).downwards, 16, 4), (Bytes{104, 96, 104, 96}));
    other[19] = 91; // costs, the least in brackets: 17 25 33 24 [16]; [9] 17 25 33 24; [0]; [0]
    EXPECT_EQ(part(luma_between(flat, other).downwards, 16, 4), (Bytes{100, 96, 100, 100}));
}

TEST_P(BandEdges, each_group_of_four_counts_for_itself)
{
    const Bytes flat(48, 100);
    Bytes other = flat;
    other[19] = 131, other[20] = 131, other[27] = 133;
    Bytes expected = flat;
    expected[19] = expected[20] = 116;
    EXPECT_EQ(luma_between(flat, other).downwards, expected);
}

TEST_P(BandEdges, the_first_and_the_last_block_are_averaged_whatever_they_hold)
{
    for (const size_t width : {48u, 64u, 80u, 176u}) {
        const Bytes expected = line(
            width, 16, [](int) { return 150; }, [](int) { return 150; });
        EXPECT_EQ(luma_between(Bytes(width, 50), Bytes(width, 250)).downwards, expected);
        Bytes steps = line(width, [](int x) { return x % 16 == 7 ? 250 : 50; });
        Bytes between = luma_between(steps, Bytes(width, 50)).downwards;
        for (size_t x = 0; x < width; ++x) {
            const bool averaged = x % 16 == 7 && (x < 16 || x >= width - 16);
            EXPECT_EQ(between[x], averaged ? 150 : 50) << x << " of " << width;
        }
    }
}

TEST_P(BandEdges, an_edge_stays_sharp_in_each_direction)
{
    for (const auto& [left, right] : {std::pair(20, 220), {220, 20}}) {
        for (int k = -2; k <= 2; ++k) {
            auto step_at = [&, l = left, r = right](int edge) {
                return line(48, [&](int x) { return x < edge ? l : r; });
            };
            const Between found = luma_between(step_at(24 + k), step_at(24 - k));
            EXPECT_EQ(found.downwards, step_at(24)) << k;
            EXPECT_EQ(found.upwards, step_at(24)) << k;
        }
    }
}

TEST_P(BandEdges, luma_follows_each_direction)
{
    for (const size_t width : {48u, 64u, 80u, 96u, 112u, 160u, 208u}) {
        for (int k = -2; k <= 2; ++k) {
            const Bytes a = line(width, [k](int x) { return texture(x - k); });
            const Bytes b = line(width, [k](int x) { return texture(x + k); });
            const Bytes expected =
                line(width, 16, texture, [k](int x) { return average(texture(x - k), texture(x + k)); });
            EXPECT_EQ(luma_between(a, b).downwards, expected) << k << ", " << width;
            EXPECT_EQ(luma_between(a, b).upwards, expected) << k << ", " << width;
        }
    }
}

TEST_P(BandEdges, each_chroma_plane_follows_its_own_direction)
{
    auto between = [](int x, int k) { return average(texture(x - k), texture(x + k)); };
    for (const size_t width : {24u, 32u, 40u, 48u, 56u, 80u, 104u}) {
        for (int k = -2; k <= 2; ++k) {
            const int other = k == 2 ? -2 : k + 1;
            auto shifted = [width](int by) { return line(width, [by](int x) { return texture(x - by); }); };
            const Chroma found = chroma_between({shifted(k), shifted(other)}, {shifted(-k), shifted(-other)});
            EXPECT_EQ(found.u, line(width, 8, texture, [&](int x) { return between(x, k); })) << k << ", " << width;
            EXPECT_EQ(found.v, line(width, 8, texture, [&](int x) { return between(x, other); })) << k << ", " << width;
        }
    }
}

// One line rises as the other falls: all five directions cost the same.
TEST_P(BandEdges, of_five_equal_directions_the_first_is_taken)
{
    for (const size_t width : {48u, 96u}) {
        const Bytes rising = line(width, [](int x) { return 50 + x; });
        const Bytes falling = line(width, [](int x) { return 250 - x; });
        const Bytes expected = line(
            width, 16, [](int) { return 148; }, [](int) { return 150; });
        EXPECT_EQ(luma_between(rising, falling).downwards, expected);
    }
    const Bytes rising = line(24, [](int x) { return 50 + x; }), falling = line(24, [](int x) { return 250 - x; });
    const Bytes expected = line(
        24, 8, [](int) { return 148; }, [](int) { return 150; });
    EXPECT_EQ(chroma_between({rising, rising}, {falling, falling}).u, expected);
    EXPECT_EQ(chroma_between({rising, rising}, {falling, falling}).v, expected);
}

// Patterns that repeat after as many samples as two directions are apart match in both.
TEST_P(BandEdges, of_two_equal_directions_the_one_further_left_is_taken)
{
    for (const int k : {1, 2}) {
        auto stripes = [k](int x) { return (x + 64) % (4 * k) < 2 * k ? 100 : 200; };
        const Bytes a = line(112, [&](int x) { return stripes(x - k); });
        const Bytes b = line(112, [&](int x) { return stripes(x + k); });
        const Bytes expected = line(
            112, 16, [&](int x) { return stripes(x - 2 * k); }, [](int) { return 150; });
        EXPECT_EQ(luma_between(a, b).downwards, expected) << k;
    }
}

// Sample 17 is best two to the right, which leaves out both odd samples of a window from 17 to 20 in the lower line. A
// window around it would be content with one to the right, and so find the 104.
TEST_P(BandEdges, the_window_begins_at_the_sample_itself)
{
    Bytes other(48, 100);
    other[16] = 104;
    other[19] = 133;
    EXPECT_EQ(luma_between(Bytes(48, 100), other).downwards, Bytes(48, 100));
}

// Directions cost 1020 but where their window takes in the one sample that matches, which costs 765. Each of 18 to 22
// begins a window there: it is left of one such window after another.
TEST_P(BandEdges, costs_do_not_saturate_at_the_extremes)
{
    for (const int dark : {0, 255}) {
        const Bytes upper(48, static_cast<uint8_t>(dark));
        Bytes lower(48, static_cast<uint8_t>(255 - dark)), expected(48, 128);
        lower[20] = upper[20];
        for (size_t x = 18; x <= 22; ++x) expected[x] = upper[20];
        EXPECT_EQ(luma_between(upper, lower).downwards, expected);
    }
}

VSURF_ON_EVERY_TABLE(BandEdges);

} // namespace
