// SPDX-License-Identifier: MIT
// For tests of the mixers: planes whose bytes are their place, and blends computed by hand.
#pragma once
#include "edges/job.h"

#include <iterator>
#include <numeric>

namespace harness {

constexpr struct Blend {
    uint8_t picture, subpicture, alpha, mixed;
} kBlends[] = {
    {100, 201, 8, 150}, // (800 + 1608) >> 4 = 2408 >> 4
    {100, 201, 0, 100},
    {100, 201, 16, 201},
    {10, 20, 4, 12},  // (120 + 80) >> 4 = 12.5, cut
    {255, 0, 1, 239}, // 3825 >> 4 = 239.06
    {0, 1, 15, 0},
    {1, 1, 5, 1},
    // Beyond the scale of alpha:
    {100, 200, 17, 206},  // (-100 + 3400) >> 4 = 206.25
    {200, 0, 17, 255},    // -200 as 65336 >> 4 = 4083
    {255, 223, 127, 1},   // -28305 + 28321
    {255, 224, 128, 7},   // -28560 + 28672 = 112
    {178, 164, 200, 255}, // -32752 + 32800, which is -32736 in 16 bits: their sum saturates
    {255, 236, 200, 17},  // -46920 and 47200 both wrap: 18616 - 18336 = 280
    {138, 130, 255, 10},  // -32982 and 33150 both wrap: 32554 - 32386 = 168
};

// The first `blends` of them again and again, from one of them on. Some functions depend on whether alphas stay on the
// scale.
constexpr struct Cycle {
    size_t blends, first;
} kCycles[] = {{7, 0}, {14, 0}, {14, 1}};

// Whole cycles, and long enough for every way that a line is taken apart.
constexpr size_t kWideMix = 16 * std::size(kBlends);

class OnEveryMix : public OnEveryJob {
protected:
    struct Line {
        Bytes luma, chroma;
    };

    // Planes whose lines are kWideMix pixels long, and what each line makes. A pair's chroma blends like its odd pixel.
    Line set_blends(const Cycle& cycle)
    {
        auto nth = [&cycle](size_t i) { return kBlends[(i + cycle.first) % cycle.blends]; };
        for (size_t i = 0; i < kRoom; ++i) {
            const Blend luma = nth(i), chroma = nth(2 * i + 1);
            picture_y[i] = luma.picture;
            y[i] = luma.subpicture;
            alpha[i] = luma.alpha;
            picture_u[i] = picture_v[i] = chroma.picture;
            u[i] = v[i] = chroma.subpicture;
        }
        Line line;
        for (size_t i = 0; i < kWideMix; ++i) line.luma.push_back(nth(i).mixed);
        for (size_t i = 1; i < kWideMix; i += 2) line.chroma.push_back(nth(i).mixed);
        return line;
    }

    // The planes stay where they are: records may be filled before.
    void set_places()
    {
        int first = 0;
        for (Bytes* plane : {&picture_y, &picture_u, &picture_v, &y, &u, &v}) {
            std::iota(plane->begin(), plane->end(), static_cast<uint8_t>(first += 37));
        }
    }

    void set_alpha(uint8_t value) { alpha.assign(kRoom, value); }

    // The whole picture, or the whole subpicture, of one value.
    void set_picture(uint8_t value) { assign({&picture_y, &picture_u, &picture_v}, value); }
    void set_subpicture(uint8_t value) { assign({&y, &u, &v}, value); }

private:
    static void assign(std::initializer_list<Bytes*> planes, uint8_t value)
    {
        for (Bytes* plane : planes) plane->assign(kRoom, value);
    }
};

// Where a line's samples lie in their planes.
struct LineAt {
    size_t luma, chroma;
};

// YUY2 of this many pixels from there.
inline Bytes yuy2_from(const Bytes& luma, const Bytes& cb, const Bytes& cr, LineAt at, size_t pixels = 16)
{
    Bytes line;
    for (size_t k = 0; k < pixels / 2; ++k) {
        line.insert(line.end(),
                    {luma[at.luma + 2 * k], cb[at.chroma + k], luma[at.luma + 2 * k + 1], cr[at.chroma + k]});
    }
    return line;
}

// Progressive mixers go over two lines at a time, at least once, and lower the height by 2 each time.
constexpr struct ProgressiveHeight {
    int height, passes, left;
} kProgressiveHeights[] = {{-4, 1, -6}, {-1, 1, -3}, {0, 1, -2}, {1, 1, -1}, {2, 1, 0}, {3, 2, -1},
                           {4, 2, 0},   {5, 3, -1},  {6, 3, 0},  {7, 4, -1}, {8, 4, 0}, {9, 5, -1}};

// Expects lines of `line` bytes each at a surface of `pitch`: this many are written, and nothing else.
inline void expect_lines_written(const Bytes& surface, size_t lines, size_t line, size_t pitch)
{
    for (size_t at = 0; at < surface.size(); ++at) {
        const bool written = at / pitch < lines && at % pitch < line;
        ASSERT_EQ(surface[at] != 0xAA, written) << "byte " << at % pitch << " of line " << at / pitch;
    }
}

} // namespace harness
