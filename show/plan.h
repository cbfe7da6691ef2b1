// SPDX-License-Identifier: MIT
// What is known of a job once it has been examined: all that the kernels take.
#pragma once
#include "frame/encoding.h"
#include "show/vsurf_show.h"

namespace vsurf {

// A step that samples go through, in 1/4096, where f(c, m) is (c * 16 * m) >> 16:
//
//   Y' = luma_out + f(Y - luma_in, yy) + f(U - 128, yu) + f(V - 128, yv)
//   U' = 128 + f(U - 128, uu) + uv_sign * f(V - 128, uv)
//   V' = 128 + f(U - 128, vu) + f(V - 128, vv)
//
// cut to 0..255. No sum leaves 16 bits.
struct Transform {
    int luma_in, luma_out, yy, yu, yv, uu, uv, uv_sign, vu, vv;
    bool changes_chroma;
};

// How colours of overlays are encoded: for each of Y, U and V the parts of R, G and B in 1/65536, and what is added.
struct OverlayEncoding {
    int parts[3][3], added[3];
};

// Pointers are to the rectangle's first samples. Packed pixels count as two planes: one begins with the first byte of
// luma, the other with the first byte of chroma, and every second byte is theirs. What a format does not have is null.
struct Plan {
    int source, surface; // vsurf_format
    const uint8_t* from[3];
    ptrdiff_t from_pitch[3];
    uint8_t* to[3];
    ptrdiff_t to_pitch[3];
    ptrdiff_t width, height;
    ptrdiff_t first_pair, end_pair; // of the rectangle's pairs of lines
    int x, y;                       // of the rectangle on the surface
    RgbEncoding rgb;
    Transform steps[2];
    int step_count;
    const vsurf_overlay* overlays;
    int overlay_count;
    OverlayEncoding overlay_encoding;
};

struct Mistake {
    vsurf_status status;
    int index = 0;      // of the plane or overlay
    bool large = false; // a pitch with which the plane would not fit into memory
    int read = -1;      // VSURF_OVERLAP: the plane that is read or written there, too; overlays come after kOverlays
    bool both_written = false;
};
constexpr int kOverlayPlanes = 3; // Mistake::read of the first overlay

// Finds the first mistake of a job, or makes a plan of it.
Mistake examine(const vsurf_job* job, Plan& plan);

// colour.cpp: the part of a plan that depends on the look and on how colours are encoded.
void plan_colours(const vsurf_job& job, Plan& plan);

// formats.cpp: what the planes of a format consist of.
struct PlaneShape {
    int bytes; // of a column
    bool half_width, half_height;
};
struct FormatShape {
    const char* name;
    int planes;
    PlaneShape plane[3];
};
const FormatShape* shape_of(int format); // null: unknown
int64_t line_bytes(const PlaneShape& plane, int64_t width);
inline bool has_chroma(int format) { return format >= VSURF_I420 && format <= VSURF_UYVY; }
inline bool is_packed(int format) { return format == VSURF_YUY2 || format == VSURF_UYVY; }

// Members may hold values that their enumerations have not.
template <class Enumeration> inline int value_of(const Enumeration& member)
{
    int value;
    __builtin_memcpy(&value, &member, sizeof value);
    return value;
}

} // namespace vsurf
