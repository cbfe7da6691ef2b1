// SPDX-License-Identifier: MIT
// RGB drawings to the Y, U and V planes of a subpicture, in blocks of 8 pixels.
#include "model/job.h"
#include "model/pixels.h"

#include <algorithm>
#include <array>

namespace model {
namespace {

struct Components {
    int blue, green, red, fourth;
};

Components whole_bytes(uint32_t pixel)
{
    const auto byte = [=](int i) { return static_cast<int>(pixel >> 8 * i & 0xFF); };
    return {byte(0), byte(1), byte(2), byte(3)};
}

Components spread_565(uint32_t pixel)
{
    return {static_cast<int>((pixel & 0x001F) << 3), static_cast<int>((pixel & 0x07E0) >> 3),
            static_cast<int>((pixel & 0xF800) >> 8), 0};
}

// How a drawing's pixels are read, and what counts of them and of the key.
struct Drawing {
    int pixel_bytes, read_bytes;
    uint32_t pixel_mask, key_mask;
    Components (*components)(uint32_t pixel);
};

constexpr Drawing kRgb32{4, 4, 0xFFFFFFFF, 0xFFFFFFFF, whole_bytes};
constexpr Drawing kRgb24{3, 4, 0xFFFFFF, 0xFFFFFFFF, whole_bytes};
constexpr Drawing kRgb565{2, 2, 0xFFFF, 0xFFFF, spread_565};

// In 1/1024. The last one is a part of the fourth byte, whose weight is a whole.
struct Weights {
    int blue, green, red, offset;
};

constexpr Weights kY{100, 516, 263, 16};
constexpr Weights kU{449, -297, -151, 128};
constexpr Weights kV{-72, -376, 449, 128};

uint8_t weighted(const Components& of, const Weights& by)
{
    const int sum = by.blue * of.blue + by.green * of.green + by.red * of.red + 1024 * (of.fourth | by.offset);
    return static_cast<uint8_t>(std::clamp(sum >> 10, 0, 255));
}

struct Walk {
    Pointer surface, y, u, v;

    explicit Walk(JobPlanes& planes) : surface(planes.surface), y(planes.y), u(planes.u), v(planes.v) {}

    void advance(int32_t drawing, int32_t luma, int32_t chroma)
    {
        surface.advance(drawing);
        y.advance(luma);
        u.advance(chroma);
        v.advance(chroma);
    }
};

using Block = std::array<uint32_t, 8>;

Block read_block(const Pointer& surface, const Drawing& drawing)
{
    Block block;
    for (int i = 0; i < 8; ++i) {
        const Pointer pixel = surface.plus(i * drawing.pixel_bytes);
        block[static_cast<size_t>(i)] = read_number(pixel, drawing.read_bytes) & drawing.pixel_mask;
    }
    return block;
}

void convert_block(Walk& at, const Drawing& drawing, uint32_t key)
{
    const Block block = read_block(at.surface, drawing);
    const auto is_key = [=](uint32_t pixel) { return pixel == (key & drawing.key_mask); };
    if (std::all_of(block.begin(), block.end(), is_key)) return;
    for (int i = 0; i < 8; ++i) {
        const Components pixel = drawing.components(block[static_cast<size_t>(i)]);
        at.y.store(i, weighted(pixel, kY));
        if (i % 2 == 1) continue;
        at.u.store(i / 2, weighted(pixel, kU));
        at.v.store(i / 2, weighted(pixel, kV));
    }
}

void convert(JobPlanes& planes, Job& job, const Drawing& drawing)
{
    Walk at(planes);
    const int32_t rest = wrap(int64_t{job.subpicture_pitch} - job.width);
    const int32_t surface_rest = wrap(job.surface_pitch - int64_t{drawing.pixel_bytes} * job.width);
    for (int32_t lines = std::max(job.height, 1); lines > 0; --lines) {
        for (int32_t blocks = shift_logical(job.width, 3); blocks > 0; --blocks) {
            convert_block(at, drawing, job.color_key);
            at.advance(8 * drawing.pixel_bytes, 8, 4);
        }
        at.advance(surface_rest, rest, shift_logical(rest, 1));
        job.moved.alpha += rest;
    }
    job.moved.y = at.y.at();
    job.moved.u = at.u.at();
    job.moved.v = at.v.at();
}

} // namespace

void Convert_RGB32_To_AYUY2(JobPlanes& planes, Job& job) { convert(planes, job, kRgb32); }
void Convert_RGB24_To_AYUY2(JobPlanes& planes, Job& job) { convert(planes, job, kRgb24); }
void Convert_RGB16_565_To_AYUY2(JobPlanes& planes, Job& job) { convert(planes, job, kRgb565); }

} // namespace model
