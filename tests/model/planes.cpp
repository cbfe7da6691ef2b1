// SPDX-License-Identifier: MIT
// Single planes to twice their size, plain in strips and adjusted line by line, and YV12 pictures that consist of them.
#include "model/planes.h"

#include <algorithm>
#include <array>

namespace model {
namespace {

template <size_t N> using Block = std::array<uint8_t, N>;

template <size_t N> Block<N> take(const Pointer& src)
{
    Block<N> block{};
    for (size_t i = 0; i < N; ++i) block[i] = src[static_cast<int>(i)];
    return block;
}

template <size_t N> void put(Pointer dst, const Block<N>& block)
{
    for (size_t i = 0; i < N; ++i) dst.store(static_cast<int>(i), block[i]);
}

template <size_t N> Block<N> between(const Block<N>& a, const Block<N>& b)
{
    Block<N> block{};
    for (size_t i = 0; i < N; ++i) block[i] = average(a[i], b[i]);
    return block;
}

// Eight samples, each followed by its average with its right neighbour; the last one's neighbour is given.
Block<16> doubled(const Pointer& src, uint8_t right)
{
    const Block<8> samples = take<8>(src);
    Block<16> block{};
    for (size_t i = 0; i < 8; ++i) {
        block[2 * i] = samples[i];
        block[2 * i + 1] = average(samples[i], i < 7 ? samples[i + 1] : right);
    }
    return block;
}

// The right neighbour is read wherever it is, also beyond the end of the line.
Block<16> doubled(const Pointer& src) { return doubled(src, src[8]); }

// Down one strip of eight samples. All strips except the rightmost leave a gap in the line above the last.
void enlarge_strip(Pointer src, Pointer dst, const Call& call, int32_t lines, bool rightmost)
{
    auto line = [rightmost](const Pointer& at) { return doubled(at, at[rightmost ? 7 : 8]); };
    Block<16> upper = line(src);
    for (int32_t j = 1; j < lines; ++j) {
        src.advance(call.y_pitch);
        const Block<16> lower = line(src);
        put(dst, upper);
        put(dst.plus(call.dst_pitch), between(upper, lower));
        dst.advance(wrap(2 * int64_t{call.dst_pitch}));
        upper = lower;
    }
    put(dst, upper);
    put(dst.plus(wrap((rightmost ? 1 : 2) * int64_t{call.dst_pitch})), upper);
}

// One plane and what is done to its samples.
struct Job {
    Pointer src, dst;
    int32_t width, height, src_pitch, dst_pitch;
    int16_t gain, offset;

    template <size_t N> void store(const Pointer& to, Block<N> block) const
    {
        for (uint8_t& sample : block) sample = adjust(sample, gain, offset);
        put(to, block);
    }

    template <size_t N> void store_pair(const Pointer& to, const Block<N>& upper, const Block<N>& lower) const
    {
        store(to, upper);
        store(to.plus(dst_pitch), between(upper, lower));
    }

    int32_t rounds() const { return std::max(1, height - 1); }
};

void double_line(const Job& job, Pointer& src, Pointer& dst)
{
    Counter columns(job.width);
    do {
        job.store(dst, doubled(src));
        src.advance(8);
        dst.advance(16);
    } while (columns.more_after(8));
}

// A line and its average with the line below. What is left of the width is not doubled.
void double_line_pair(const Job& job, Pointer src, Pointer& dst)
{
    const int32_t rest = job.width & 15;
    Counter columns(job.width - rest);
    do {
        for (int half = 0; half < 2; ++half) {
            job.store_pair(dst, doubled(src), doubled(src.plus(job.src_pitch)));
            src.advance(8);
            dst.advance(16);
        }
    } while (columns.more_after(16));
    if (rest == 0) return;
    src.advance(rest - 16);
    dst.advance(rest - 16);
    job.store_pair(dst, take<16>(src), take<16>(src.plus(job.src_pitch)));
    dst.advance(16);
}

// The source goes on by the width from round to round, whatever its pitch.
void enlarge_both_ways(const Job& job)
{
    Pointer src = job.src, dst = job.dst;
    double_line(job, src, dst);
    dst.advance(wrap(job.dst_pitch - 2 * int64_t{job.width}));
    src = job.src;
    for (int32_t round = 0; round < job.rounds(); ++round) {
        double_line_pair(job, src, dst);
        src.advance(job.width);
        dst.advance(wrap(2 * (int64_t{job.dst_pitch} - job.width)));
    }
    dst.advance(wrap(-int64_t{job.dst_pitch}));
    for (int copy = 0; copy < 2; ++copy) {
        src.advance(wrap(-int64_t{job.src_pitch}));
        double_line(job, src, dst);
    }
}

void adjust_line(const Job& job, Pointer src, Pointer& dst)
{
    Counter columns(job.width);
    do {
        job.store(dst, take<8>(src));
        src.advance(8);
        dst.advance(8);
    } while (columns.more_after(8));
}

void adjust_line_pair(const Job& job, Pointer src, Pointer dst)
{
    const int32_t rest = job.width & 15;
    auto block = [&] {
        job.store_pair(dst, take<16>(src), take<16>(src.plus(job.src_pitch)));
        src.advance(16);
        dst.advance(16);
    };
    Counter columns(job.width - rest);
    do block();
    while (columns.more_after(16));
    if (rest == 0) return;
    src.advance(rest - 16);
    dst.advance(rest - 16);
    block();
}

void enlarge_down(const Job& job)
{
    Pointer src = job.src, dst = job.dst;
    adjust_line(job, src, dst);
    dst.advance(wrap(int64_t{job.dst_pitch} - job.width));
    for (int32_t round = 0; round < job.rounds(); ++round) {
        adjust_line_pair(job, src, dst);
        src.advance(job.src_pitch);
        dst.advance(wrap(2 * int64_t{job.dst_pitch}));
    }
    src.advance(wrap(-int64_t{job.src_pitch}));
    dst.advance(wrap(-int64_t{job.dst_pitch}));
    adjust_line(job, src, dst);
    adjust_line(job, src, dst); // right behind the first
}

// Every plane takes the gain of luma.
Job job_for(const Pointer& src, const Pointer& dst, const Call& call, int plane)
{
    const State& s = call.state;
    const int16_t offset = plane == 1 ? s.luma_offset : plane == 2 ? s.u_offset : s.v_offset;
    return {src, dst, call.width, call.height, call.y_pitch, call.dst_pitch, s.luma_gain, offset};
}

// The plane numbers give V the offset of U, and U that of V.
void enlarge_picture(Planes& planes, const Call& call, void (*enlarge)(const Job&))
{
    const int32_t luma_bytes = wrap(wrap(2 * int64_t{call.height}) * int64_t{call.dst_pitch});
    const Pointer dst_v = Pointer(planes.dst).plus(luma_bytes);
    const Pointer dst_u = dst_v.plus(shift_arithmetic(luma_bytes, 2));
    Call chroma = call;
    for (int* each : {&chroma.width, &chroma.height, &chroma.y_pitch, &chroma.dst_pitch}) {
        *each = shift_arithmetic(*each, 1);
    }
    enlarge(job_for(Pointer(planes.y), Pointer(planes.dst), call, 1));
    enlarge(job_for(Pointer(planes.v), dst_v, chroma, 2));
    enlarge(job_for(Pointer(planes.u), dst_u, chroma, 3));
}

} // namespace

void strech_pic_2X2(Planes& planes, const Call& call)
{
    const int32_t lines = std::max(2, call.height);
    const int32_t strips = std::max(2, (call.width + 7) / 8);
    Pointer src(planes.y), dst(planes.dst);
    for (int32_t strip = 1; strip <= strips; ++strip) {
        enlarge_strip(src, dst, call, lines, strip == strips);
        // Down by the lines done and back by those asked for, which are fewer where the height is 1.
        const int64_t beyond = int64_t{lines} - call.height;
        src.advance(wrap(8 + beyond * call.y_pitch));
        dst.advance(wrap(16 + 2 * beyond * call.dst_pitch));
    }
}

void strech_pic_2X2_adjust(Planes& planes, const Call& call)
{
    enlarge_both_ways(job_for(Pointer(planes.y), Pointer(planes.dst), call, call.plane));
}

void strech_pic_1X2_adjust(Planes& planes, const Call& call)
{
    enlarge_down(job_for(Pointer(planes.y), Pointer(planes.dst), call, call.plane));
}

void strech_picture_2X2_yv12_ajust(Planes& planes, const Call& call)
{
    enlarge_picture(planes, call, enlarge_both_ways);
}

void strech_picture_1X2_yv12_ajust(Planes& planes, const Call& call) { enlarge_picture(planes, call, enlarge_down); }

} // namespace model
