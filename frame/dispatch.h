// SPDX-License-Identifier: MIT
// The tables of exports, one per instruction set, and the choice among them.
#pragma once
#include "frame/vsurf.h"

// One family per parameter list; exports.inc gives every export its family.
#define LOADER                                                                                \
    (void* y, void* u, void* v, void* dst, int width, int height, int y_pitch, int dst_pitch, \
     ajust_contrast_info* info),                                                              \
        (y, u, v, dst, width, height, y_pitch, dst_pitch, info)
#define PACKED_LOADER                                                                                           \
    (void* src, void* unused_u, void* unused_v, void* dst, int width, int height, int src_pitch, int dst_pitch, \
     ajust_contrast_info* info),                                                                                \
        (src, unused_u, unused_v, dst, width, height, src_pitch, dst_pitch, info)
#define PLANE_ENLARGER                                                                             \
    (unsigned char* src, unsigned char* dst, int width, int height, int src_pitch, int dst_pitch), \
        (src, dst, width, height, src_pitch, dst_pitch)
#define ADJUSTED_PLANE_ENLARGER                                                                   \
    (unsigned char* src, unsigned char* dst, int width, int height, int src_pitch, int dst_pitch, \
     ajust_contrast_info* info, int plane),                                                       \
        (src, dst, width, height, src_pitch, dst_pitch, info, plane)
#define BAND_ENLARGER                                                                                            \
    (tagVideoFrame * frame, int start, int lines, unsigned char* dst, int dst_pitch, ajust_contrast_info* info), \
        (frame, start, lines, dst, dst_pitch, info)
#define PACKED_ENLARGER                                                                                \
    (void* src, void* unused_u, void* unused_v, void* dst, int line_bytes, int height, int dst_pitch), \
        (src, unused_u, unused_v, dst, line_bytes, height, dst_pitch)
#define ADJUSTED_PACKED_ENLARGER                                                                      \
    (void* src, void* unused_u, void* unused_v, void* dst, int line_bytes, int height, int dst_pitch, \
     ajust_contrast_info* info),                                                                      \
        (src, unused_u, unused_v, dst, line_bytes, height, dst_pitch, info)
#define JOB (MIX_INFO * job), (job)
#define FILL                                                                              \
    (unsigned int colour, void* surface, int width, int height, int reserved, int pitch), \
        (colour, surface, width, height, reserved, pitch)
#define MASK                                                                                                           \
    (unsigned char* dst, unsigned char* mask, unsigned int match, unsigned int key, int width, int pitch, int height), \
        (dst, mask, match, key, width, pitch, height)
#define EXPORT(...) EXPORT_(__VA_ARGS__)

namespace vsurf {

// A pointer to a function of each export's type, as the header declares it.
struct Kernels {
#define EXPORT_(name, ...) decltype(&::name) name;
#include "frame/exports.inc"
#undef EXPORT_
};

struct Isa {
    const char* name; // "avx512", "avx2", "sse2", "neon" or "scalar"
    const Kernels* kernels;
    bool (*runs_here)(); // whether processor and operating system support it
};

extern const Isa isas[]; // best first; the last one always runs
extern const int isa_count;
// The one that the exported functions use: the best that runs here, or the one that the environment variable VSURF_ISA
// names. (The compile definition of that name below is another thing: the namespace that a kernel is compiled for.)
const Isa& active_isa();

} // namespace vsurf

#ifdef VSURF_ISA
namespace vsurf::VSURF_ISA {
#define EXPORT_(name, params, args) void name params;
#include "frame/exports.inc"
#undef EXPORT_
extern const Kernels kernels;
} // namespace vsurf::VSURF_ISA
#endif
