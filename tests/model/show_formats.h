// SPDX-License-Identifier: MIT
// Where the samples of each format lie.
#pragma once
#include "show/vsurf_show.h"

#include <cstdint>
#include <cstring>

namespace model {

// A member that holds any number, whatever its enumeration names.
template <class Enumeration> int number(const Enumeration& member)
{
    static_assert(sizeof member == sizeof(int));
    int value;
    std::memcpy(&value, &member, sizeof value);
    return value;
}

bool is_known(int format);
bool is_yuv(int format);
bool is_planar(int format); // chroma of every other line: I420, NV12, NV21
int planes_of(int format);  // 0 where the format is unknown

struct PlaneShape {
    int64_t line; // bytes of a line
    int64_t lines;
};

// Of a plane that the format has, at a size from 1 on.
PlaneShape plane_shape(int format, int plane, int width, int height);

// A byte of a plane.
struct Place {
    int plane;
    int64_t line, column;
};

enum Chroma { kU, kV };

// The luma of pixel x of a line, and its chroma by the column and line that the format counts chroma in.
Place luma_place(int format, int64_t x, int64_t line);
Place chroma_place(int format, Chroma which, int64_t column, int64_t line);

// RGB pixels: their bytes.
int pixel_bytes(int format);

// A picture's or a surface's byte.
template <class Planes> auto& at(const Planes& planes, const Place& place)
{
    return planes.plane[place.plane][static_cast<ptrdiff_t>(place.line) * planes.pitch[place.plane] +
                                     static_cast<ptrdiff_t>(place.column)];
}

} // namespace model
