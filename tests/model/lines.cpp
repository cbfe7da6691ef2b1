// SPDX-License-Identifier: MIT
#include "model/lines.h"

#include <algorithm>

namespace model {
namespace {

uint8_t filtered(int a, int b, int c, int d)
{
    return static_cast<uint8_t>(std::clamp((5 * b + 5 * c - (a + d)) >> 3, 0, 255));
}

} // namespace

Line take(Plane& plane, int64_t at, int count, int step)
{
    Line line;
    for (int i = 0; i < count; ++i) line.push_back(plane.read(at + int64_t{i} * step));
    return line;
}

Line treated(Line line, const Treat& treat)
{
    for (uint8_t& sample : line) sample = treat(sample);
    return line;
}

Line average(const Line& a, const Line& b)
{
    Line line;
    for (size_t i = 0; i < a.size(); ++i) line.push_back(average(a[i], b[i]));
    return line;
}

Line doubled(const Line& line, const Treat& treat, const Treat& ahead, size_t block)
{
    Line wide;
    for (size_t i = 0; i < line.size(); ++i) {
        const uint8_t own = treat(line[i]);
        uint8_t right = own;
        if (i + 1 < line.size()) right = ((i + 1) % block == 0 ? ahead : treat)(line[i + 1]);
        wide.push_back(own);
        wide.push_back(average(own, right));
    }
    return wide;
}

Line between(const Lines& lines, size_t s) { return s + 1 < lines.size() ? average(lines[s], lines[s + 1]) : lines[s]; }

Line between_filtered(const Lines& lines, size_t s, size_t first)
{
    if (s < first || s + 3 > lines.size()) return between(lines, s);
    Line line;
    for (size_t i = 0; i < lines[s].size(); ++i) {
        line.push_back(filtered(lines[s - 1][i], lines[s][i], lines[s + 1][i], lines[s + 2][i]));
    }
    return line;
}

} // namespace model
