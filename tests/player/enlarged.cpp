// SPDX-License-Identifier: MIT
#include "tests/player/enlarged.h"
#include <algorithm>
#include <cstdlib>

namespace player_test {
namespace {

int average(int a, int b) { return (a + b + 1) / 2; }

int up_to(int value, int multiple) { return (value + multiple - 1) / multiple * multiple; }

// `sample` is asked for plane (0 luma, 1 U, 2 V), column and line.
template <class Sample> Yuv make(int width, int height, int chroma_step, Sample&& sample)
{
    Yuv picture(width, height, chroma_step);
    std::size_t next = 0;
    for (int line = 0; line < height; line++)
        for (int x = 0; x < width; x++) picture.y[next++] = static_cast<uint8_t>(sample(0, x, line));
    next = 0;
    for (int line = 0; line < picture.chroma_height(); line++) {
        for (int x = 0; x < picture.chroma_width(); x++, next++) {
            picture.u[next] = static_cast<uint8_t>(sample(1, x, line));
            picture.v[next] = static_cast<uint8_t>(sample(2, x, line));
        }
    }
    return picture;
}

// Two lines of a plane of which every second one is missing between them.
struct Edges {
    const Yuv& picture;
    int plane, upper, lower, width, border; // border: samples on either side that are not looked into

    int a(int x) const { return picture.at(plane, x, upper); }
    int b(int x) const { return picture.at(plane, x, lower); }

    int between(int x) const
    {
        int difference = 0;
        for (int i = x / 4 * 4; i < x / 4 * 4 + 4; i++) difference += std::abs(a(i) - b(i));
        if (x < border || x >= width - border || difference <= 32) return average(a(x), b(x));
        int best = -2;
        for (int lean = -1; lean <= 2; lean++)
            if (cost(x, lean) < cost(x, best)) best = lean;
        return average(a(x + best), b(x - best));
    }

    int cost(int x, int lean) const
    {
        int sum = 0;
        for (int i = x; i < x + 4; i++) sum += std::abs(a(i + lean) - b(i - lean));
        return sum;
    }
};

} // namespace

Yuv widened(const Yuv& from)
{
    return make(2 * from.width, from.height, from.chroma_step, [&](int plane, int x, int line) {
        const int left = from.at(plane, x / 2, line);
        return x % 2 ? average(left, from.at(plane, x / 2 + 1, line)) : left;
    });
}

Yuv lines_doubled(const Yuv& from)
{
    return make(from.width, 2 * from.height, 1, [&](int plane, int x, int line) {
        const int each = plane ? 4 : 2, source = line / each;
        const int upper = from.at(plane, x, source);
        return line % each < each / 2 ? upper : average(upper, from.at(plane, x, source + 1));
    });
}

Yuv lines_filtered(const Yuv& from)
{
    const int padded = std::max(12, up_to(from.height, 2));
    return make(from.width, 2 * from.height, 1, [&](int plane, int x, int line) {
        const int each = plane ? 4 : 2, s = line / each;
        const int first = plane ? 1 : 2, last = plane ? padded / 2 - 3 : padded - 3;
        auto at = [&](int source) { return from.at(plane, x, source); };
        if (line % each < each / 2) return at(s);
        if (s < first || s > last) return average(at(s), at(s + 1));
        return std::clamp((5 * (at(s) + at(s + 1)) - at(s - 1) - at(s + 2)) >> 3, 0, 255);
    });
}

Yuv packed_lines_doubled(const Yuv& from)
{
    return make(from.width, 2 * from.height, 1, [&](int plane, int x, int line) {
        const int upper = from.at(plane, x, line / 2);
        return line % 2 ? average(upper, from.at(plane, x, line / 2 + 1)) : upper;
    });
}

Yuv planes_doubled(const Yuv& from)
{
    return make(from.width, 2 * from.height, 2, [&](int plane, int x, int line) {
        const int lower = from.at(plane, x, line / 2);
        return line == 0 || line % 2 ? lower : average(from.at(plane, x, line / 2 - 1), lower);
    });
}

Yuv chroma_of_upper_lines(const Yuv& from)
{
    return make(from.width, from.height, 2,
                [&](int plane, int x, int line) { return from.at(plane, x, plane ? 2 * line : line); });
}

Yuv chroma_for_every_line(const Yuv& from)
{
    return make(from.width, from.height, 1,
                [&](int plane, int x, int line) { return from.at(plane, x, plane ? line / 2 : line); });
}

Yuv field_doubled(const Yuv& from, bool along_edges)
{
    const int width = std::max(48, up_to(from.width, 16)), height = std::max(16, up_to(from.height, 4));
    const int border = along_edges ? 16 : width;
    return make(from.width, from.height, 1, [&](int plane, int x, int line) {
        const int lines = plane ? from.chroma_height() : from.height, own_last = (lines - 1) / 2 * 2;
        auto own = [&](int number) { return std::min(2 * number, own_last); };
        const bool closing = line >= height - 4, lower_half = line % 4 >= 2;
        const int above = plane ? line / 4 : line / 2;
        const bool mixed = plane ? lower_half && !closing : line % 2 && !(closing && lower_half);
        if (!mixed) return from.at(plane, x, own(above));
        return Edges{from, plane, own(above), own(above + 1), plane ? width / 2 : width, plane ? border / 2 : border}
            .between(x);
    });
}

Yuv planes_of_field_doubled(const Yuv& from)
{
    return make(from.width, from.height, 2, [&](int plane, int x, int line) {
        const int lines = plane ? from.chroma_height() : from.height, own_last = (lines - 1) / 2 * 2;
        const int above = from.at(plane, x, line / 2 * 2);
        return line % 2 ? average(above, from.at(plane, x, std::min(line + 1, own_last))) : above;
    });
}

Yuv half_width(const Yuv& from, bool averaged)
{
    return make((from.width + 1) / 2, from.height, from.chroma_step, [&](int plane, int x, int line) {
        const int even = from.at(plane, 2 * x, line), odd = from.at(plane, 2 * x + 1, line);
        return averaged ? average(even, odd) : odd;
    });
}

} // namespace player_test
