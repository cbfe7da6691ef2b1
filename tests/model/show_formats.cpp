// SPDX-License-Identifier: MIT
#include "model/show_formats.h"

namespace model {
namespace {

bool has_packed_chroma(int format) { return format == VSURF_YUY2 || format == VSURF_UYVY; }

} // namespace

bool is_known(int format) { return format >= VSURF_I420 && format <= VSURF_RGB655; }

bool is_yuv(int format) { return format >= VSURF_I420 && format <= VSURF_UYVY; }

bool is_planar(int format) { return is_yuv(format) && !has_packed_chroma(format); }

int planes_of(int format)
{
    if (!is_known(format)) return 0;
    if (format == VSURF_I420) return 3;
    return is_planar(format) ? 2 : 1;
}

PlaneShape plane_shape(int format, int plane, int width, int height)
{
    const int64_t half_width = (int64_t{width} + 1) / 2, half_height = (int64_t{height} + 1) / 2;
    if (has_packed_chroma(format)) return {4 * half_width, height};
    if (!is_planar(format)) return {int64_t{width} * pixel_bytes(format), height};
    if (plane == 0) return {width, height};
    return {format == VSURF_I420 ? half_width : 2 * half_width, half_height};
}

Place luma_place(int format, int64_t x, int64_t line)
{
    if (format == VSURF_YUY2) return {0, line, 2 * x};
    if (format == VSURF_UYVY) return {0, line, 2 * x + 1};
    return {0, line, x};
}

Place chroma_place(int format, Chroma which, int64_t column, int64_t line)
{
    const bool is_v = which == kV;
    switch (format) {
    case VSURF_I420: return {is_v ? 2 : 1, line, column};
    case VSURF_NV12: return {1, line, 2 * column + is_v};
    case VSURF_NV21: return {1, line, 2 * column + !is_v};
    case VSURF_YUY2: return {0, line, 4 * column + (is_v ? 3 : 1)};
    default: return {0, line, 4 * column + (is_v ? 2 : 0)};
    }
}

int pixel_bytes(int format)
{
    switch (format) {
    case VSURF_BGRX:
    case VSURF_RGBX:
    case VSURF_BGRA:
    case VSURF_RGBA: return 4;
    case VSURF_BGR24:
    case VSURF_RGB24: return 3;
    default: return 2;
    }
}

} // namespace model
