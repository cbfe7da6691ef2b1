// SPDX-License-Identifier: MIT
// The formats' planes, and what has to be allocated for them.
#include "show/plan.h"

namespace vsurf {

constexpr PlaneShape kLuma = {1, false, false}, kChroma = {1, true, true}, kPairs = {2, true, true};
constexpr PlaneShape kPacked = {4, true, false};
constexpr PlaneShape pixels_of(int bytes) { return {bytes, false, false}; }

static constexpr FormatShape kShapes[] = {
    {"I420", 3, {kLuma, kChroma, kChroma}},
    {"NV12", 2, {kLuma, kPairs}},
    {"NV21", 2, {kLuma, kPairs}},
    {"YUY2", 1, {kPacked}},
    {"UYVY", 1, {kPacked}},
    {"BGRX", 1, {pixels_of(4)}},
    {"RGBX", 1, {pixels_of(4)}},
    {"BGRA", 1, {pixels_of(4)}},
    {"RGBA", 1, {pixels_of(4)}},
    {"BGR24", 1, {pixels_of(3)}},
    {"RGB24", 1, {pixels_of(3)}},
    {"RGB565", 1, {pixels_of(2)}},
    {"RGB555X", 1, {pixels_of(2)}},
    {"RGB664", 1, {pixels_of(2)}},
    {"RGB655", 1, {pixels_of(2)}},
};

const FormatShape* shape_of(int format)
{
    return format >= VSURF_I420 && format <= VSURF_RGB655 ? &kShapes[format - VSURF_I420] : nullptr;
}

int64_t line_bytes(const PlaneShape& plane, int64_t width)
{
    return (plane.half_width ? (width + 1) / 2 : width) * plane.bytes;
}

// A line's bytes rounded up; 0 where an argument is unusable.
static uint64_t pitch_of(const FormatShape* shape, int plane, int width, int alignment)
{
    if (!shape || plane < 0 || plane >= shape->planes || width < 1) return 0;
    if (alignment < 1 || (alignment & (alignment - 1)) != 0) return 0;
    const auto step = static_cast<uint64_t>(alignment);
    return (static_cast<uint64_t>(line_bytes(shape->plane[plane], width)) + step - 1) & -step;
}

} // namespace vsurf

using namespace vsurf;

extern "C" size_t VSURF_CALL vsurf_pitch(vsurf_format format, int plane, int width, int alignment)
{
    const uint64_t pitch = pitch_of(shape_of(value_of(format)), plane, width, alignment);
    return pitch > PTRDIFF_MAX ? 0 : static_cast<size_t>(pitch);
}

extern "C" size_t VSURF_CALL vsurf_bytes(vsurf_format format, int width, int height, int alignment)
{
    const FormatShape* shape = shape_of(value_of(format));
    uint64_t sum = 0;
    for (int i = 0; shape && i < shape->planes; i++) {
        const uint64_t pitch = pitch_of(shape, i, width, alignment);
        if (pitch == 0 || height < 1) return 0;
        const int64_t lines = shape->plane[i].half_height ? (int64_t{height} + 1) / 2 : height;
        uint64_t bytes;
        if (__builtin_mul_overflow(pitch, static_cast<uint64_t>(lines), &bytes) ||
            __builtin_add_overflow(sum, bytes, &sum) || sum > PTRDIFF_MAX)
            return 0;
    }
    return static_cast<size_t>(sum);
}
