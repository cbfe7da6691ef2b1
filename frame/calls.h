// SPDX-License-Identifier: MIT
// The arguments of the exports as records. A kernel takes one of them. The members stand in the order of the arguments.
#pragma once
#include "frame/vsurf.h"

#include <stdint.h>

namespace vsurf::VSURF_ISA {

struct Picture {
    void *y, *u, *v; // a packed picture is at y
    void* dst;
    int width, height, y_pitch, dst_pitch;
    const ajust_contrast_info* info;
};

struct PackedEnlargement {
    void *src, *unused_u, *unused_v, *dst;
    int line_bytes, height, dst_pitch;
    const ajust_contrast_info* info = nullptr; // of the adjusted form only
};
using AdjustedPackedEnlargement = PackedEnlargement;

struct PlaneEnlargement {
    const uint8_t* src;
    uint8_t* dst;
    int width, height, src_pitch, dst_pitch;
    const ajust_contrast_info* info = nullptr; // of the adjusted form only
    int plane = 1;                             // likewise
};
using AdjustedPlaneEnlargement = PlaneEnlargement;

struct BandEnlargement {
    const tagVideoFrame* frame;
    int start, lines;
    uint8_t* dst;
    int dst_pitch;
    const ajust_contrast_info* info;
};

using Job = MIX_INFO*;

struct Fill {
    unsigned colour;
    void* surface;
    int width, height, reserved, pitch;
};

struct MaskReplacement {
    uint8_t *dst, *mask;
    unsigned match, key;
    int width, pitch, height;
};

} // namespace vsurf::VSURF_ISA
