// SPDX-License-Identifier: MIT
// A band of a frame to twice its height, along the edges where two lines differ, as YUY2.
#include "model/band.h"

#include <algorithm>
#include <cstdlib>

namespace model {
namespace {

// The two lines of one plane that an output line lies between, the same line twice for one that is taken as it is.
struct Between {
    Pointer a, b;
    bool along_edges;
};

bool differ_little(const Between& lines, int group)
{
    int sum = 0;
    for (int i = 0; i < 4; ++i) sum += std::abs(lines.a[group + i] - lines.b[group + i]);
    return sum <= 32;
}

// Among equals the smallest displacement, and so the first, stays.
int best_direction(const Between& lines, int at)
{
    int best = 0, best_cost = 0x7FFF;
    for (int k = -2; k <= 2; ++k) {
        int cost = 0;
        for (int i = 0; i < 4; ++i) cost += std::abs(lines.a[at + i + k] - lines.b[at + i - k]);
        if (cost >= best_cost) continue;
        best = k;
        best_cost = cost;
    }
    return best;
}

// Sample `at` of a plane whose blocks have `block` samples: the first block of a line and the last ignore edges.
uint8_t sample(const Between& lines, int at, int block, int blocks)
{
    if (!lines.along_edges) return lines.a[at];
    const bool edge_of_picture = at < block || at >= (blocks - 1) * block;
    int k = 0;
    if (!edge_of_picture && !differ_little(lines, at & ~3)) k = best_direction(lines, at);
    return average(lines.a[at + k], lines.b[at - k]);
}

struct Lines {
    Between y, u, v;
};

void build_line(Pointer dst, const Lines& from, const Call& call)
{
    const State& s = call.state;
    const bool interpolates = from.y.along_edges || from.u.along_edges;
    const int whole = std::max(1, (call.y_pitch + 15) / 16);
    const int blocks = interpolates ? std::max(3, whole) : whole;
    for (int i = 0; i < 8 * blocks; ++i) {
        dst.store(4 * i, adjust(sample(from.y, 2 * i, 16, blocks), s.luma_gain, s.luma_offset));
        dst.store(4 * i + 1, adjust(sample(from.u, i, 8, blocks), s.chroma_gain, s.u_offset));
        dst.store(4 * i + 2, adjust(sample(from.y, 2 * i + 1, 16, blocks), s.luma_gain, s.luma_offset));
        dst.store(4 * i + 3, adjust(sample(from.v, i, 8, blocks), s.chroma_gain, s.v_offset));
    }
}

Between just(const Pointer& line) { return {line, line, false}; }

Between line_and_next(const Pointer& line, int32_t step) { return {line, line.plus(step), true}; }

// Where a band stands, and how far apart its source lines are.
struct Band {
    Pointer y, u, v, dst;
    int32_t luma_step, chroma_step;
};

// Two luma lines, the chroma line that they share, and an interpolated line below each; at the bottom of the band the
// lower line instead once more.
void build_group(Band& band, const Call& call, bool bottom)
{
    const Pointer upper = band.y, lower = band.y.plus(band.luma_step);
    const Between u = just(band.u), v = just(band.v);
    const Between u_below = bottom ? u : line_and_next(band.u, band.chroma_step);
    const Between v_below = bottom ? v : line_and_next(band.v, band.chroma_step);
    const Between y_below = bottom ? just(lower) : line_and_next(lower, band.luma_step);
    for (const Lines& lines : {Lines{just(upper), u, v}, Lines{line_and_next(upper, band.luma_step), u, v},
                               Lines{just(lower), u_below, v_below}, Lines{y_below, u_below, v_below}}) {
        build_line(band.dst, lines, call);
        band.dst.advance(call.dst_pitch);
    }
    band.y.advance(wrap(2 * int64_t{band.luma_step}));
    band.u.advance(band.chroma_step);
    band.v.advance(band.chroma_step);
}

} // namespace

void strech_opt_yuy2_ajust(Planes& planes, const Call& call)
{
    if (call.lines < 8) return;
    const bool field = call.field_mode == 1;
    const int32_t pitch = call.y_pitch;
    const int32_t to_start = wrap(int64_t{pitch} * call.start);
    const int32_t luma_step = field ? wrap(2 * int64_t{pitch}) : pitch;
    const int32_t luma_offset = field ? to_start : shift_arithmetic(to_start, 1);
    const int32_t chroma_offset = shift_arithmetic(luma_offset, 2);
    Band band{Pointer(planes.y).plus(luma_offset),
              Pointer(planes.u).plus(chroma_offset),
              Pointer(planes.v).plus(chroma_offset),
              Pointer(planes.dst),
              luma_step,
              shift_arithmetic(luma_step, 1)};
    for (int groups = call.lines >> 1; groups > 0; --groups) build_group(band, call, groups == 1);
}

} // namespace model
