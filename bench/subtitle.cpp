// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <utility>

#include "bench/covers.h"

namespace bench {
namespace {

struct Point {
    double x, y;
};
struct Stroke {
    Point from, to;
};

// Within a glyph's box, 0 to 1: stems, bars and diagonals, as letters have them.
constexpr Stroke kStrokes[] = {
    {{0.1, 0}, {0.1, 1}}, {{0.9, 0}, {0.9, 1}}, {{0.1, 0}, {0.9, 0}}, {{0.1, 0.5}, {0.9, 0.5}}, {{0.1, 1}, {0.9, 1}},
    {{0.1, 0}, {0.9, 1}}, {{0.9, 0}, {0.1, 1}}, {{0.5, 0}, {0.5, 1}}, {{0.1, 0.5}, {0.5, 1.0}}, {{0.5, 0}, {0.9, 0.5}},
};

double distance(Point p, const Stroke& s)
{
    const double dx = s.to.x - s.from.x, dy = s.to.y - s.from.y;
    const double along = ((p.x - s.from.x) * dx + (p.y - s.from.y) * dy) / (dx * dx + dy * dy);
    const double t = std::clamp(along, 0.0, 1.0);
    return std::hypot(p.x - s.from.x - t * dx, p.y - s.from.y - t * dy);
}

struct Text {
    Size size;
    std::vector<uint8_t>& alpha;
    double height = size.height / 22.0, width = 0.62 * height; // of a glyph's box
    double thickness = 0.2 * height;                           // of a stroke and its outline

    void glyph(Point corner, const std::vector<Stroke>& strokes) const
    {
        const int margin = static_cast<int>(thickness) + 1;
        const auto first = [&](double at) { return std::max(0, static_cast<int>(at) - margin); };
        const int right = std::min(size.width, static_cast<int>(corner.x + width) + margin);
        const int bottom = std::min(size.height, static_cast<int>(corner.y + height) + margin);
        for (int y = first(corner.y); y < bottom; y++) {
            for (int x = first(corner.x); x < right; x++) pixel(x, y, strokes);
        }
    }

    void pixel(int x, int y, const std::vector<Stroke>& strokes) const
    {
        double nearest = thickness;
        for (const Stroke& stroke : strokes) nearest = std::min(nearest, distance({x + 0.5, y + 0.5}, stroke));
        // An edge is as wide as a pixel and a half.
        const double value = std::clamp((thickness / 2 - nearest) / 1.5 + 0.5, 0.0, 1.0);
        uint8_t& to = alpha[static_cast<size_t>(y) * static_cast<size_t>(size.width) + static_cast<size_t>(x)];
        to = std::max(to, static_cast<uint8_t>(std::lround(16 * value)));
    }

    void line(double top, double left, double right, std::minstd_rand& letters) const
    {
        for (double x = left; x + width < right; x += 1.35 * width) {
            if (letters() % 6 == 0) continue; // between words
            std::vector<Stroke> strokes;
            for (int i = 0; i < 3; i++) {
                Stroke stroke = kStrokes[letters() % std::size(kStrokes)];
                for (Point* end : {&stroke.from, &stroke.to}) *end = {x + end->x * width, top + end->y * height};
                strokes.push_back(stroke);
            }
            glyph({x, top}, strokes);
        }
    }
};

} // namespace

std::vector<uint8_t> subtitle_alpha(Size size)
{
    std::vector<uint8_t> alpha(static_cast<size_t>(size.width) * static_cast<size_t>(size.height));
    std::minstd_rand letters(1);
    const Text text{size, alpha};
    text.line(0.82 * size.height, 0.15 * size.width, 0.85 * size.width, letters);
    text.line(0.89 * size.height, 0.22 * size.width, 0.78 * size.width, letters);
    return alpha;
}

Coverage coverage_of(const std::vector<uint8_t>& alpha)
{
    constexpr size_t kBlock = 16;
    size_t pixels = 0, blocks = 0;
    for (size_t i = 0; i + kBlock <= alpha.size(); i += kBlock) {
        const auto block = alpha.begin() + static_cast<ptrdiff_t>(i);
        const auto opaque = std::count_if(block, block + kBlock, [](uint8_t a) { return a != 0; });
        pixels += static_cast<size_t>(opaque);
        blocks += opaque != 0;
    }
    const auto count = static_cast<double>(alpha.size());
    return {static_cast<double>(pixels) / count, static_cast<double>(blocks * kBlock) / count};
}

} // namespace bench
