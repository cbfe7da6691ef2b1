// SPDX-License-Identifier: MIT
// The exported functions, and the choice of their instruction set.
#include "frame/choice.h"
#include "frame/dispatch.h"

namespace vsurf {

// The build lists its instruction sets, best first, as VSURF_ISAS: ISA(avx512) ISA(avx2) ISA(sse2). The last runs on
// every processor that the build is for.
#define ISA(name)                 \
    namespace name {              \
    extern const Kernels kernels; \
    }
VSURF_ISAS
#undef ISA

#define ISA(name) {#name, &name::kernels, can_run_##name},
extern constinit const Isa isas[] = {VSURF_ISAS};
extern constinit const int isa_count = sizeof isas / sizeof *isas;

static constinit const Isa* active = &isas[isa_count - 1];

__attribute__((constructor)) static void choose() { choose_isa(active, isas); }

static inline __attribute__((always_inline)) const Isa& in_use() { return isa_in_use(active); }

const Isa& active_isa() { return in_use(); }

} // namespace vsurf

// The arguments of the exports, as the header has them, by the record that their kernels take.
#define ENTRY_Picture                                                                         \
    (void* y, void* u, void* v, void* dst, int width, int height, int y_pitch, int dst_pitch, \
     ajust_contrast_info* info),                                                              \
        (y, u, v, dst, width, height, y_pitch, dst_pitch, info)
#define ENTRY_PlaneEnlargement                                                                     \
    (unsigned char* src, unsigned char* dst, int width, int height, int src_pitch, int dst_pitch), \
        (src, dst, width, height, src_pitch, dst_pitch)
#define ENTRY_AdjustedPlaneEnlargement                                                            \
    (unsigned char* src, unsigned char* dst, int width, int height, int src_pitch, int dst_pitch, \
     ajust_contrast_info* info, int plane),                                                       \
        (src, dst, width, height, src_pitch, dst_pitch, info, plane)
#define ENTRY_BandEnlargement                                                                                    \
    (tagVideoFrame * frame, int start, int lines, unsigned char* dst, int dst_pitch, ajust_contrast_info* info), \
        (frame, start, lines, dst, dst_pitch, info)
#define ENTRY_PackedEnlargement                                                                        \
    (void* src, void* unused_u, void* unused_v, void* dst, int line_bytes, int height, int dst_pitch), \
        (src, unused_u, unused_v, dst, line_bytes, height, dst_pitch)
#define ENTRY_AdjustedPackedEnlargement                                                               \
    (void* src, void* unused_u, void* unused_v, void* dst, int line_bytes, int height, int dst_pitch, \
     ajust_contrast_info* info),                                                                      \
        (src, unused_u, unused_v, dst, line_bytes, height, dst_pitch, info)
#define ENTRY_Job (MIX_INFO * job), (job)
#define ENTRY_Fill                                                                        \
    (unsigned int colour, void* surface, int width, int height, int reserved, int pitch), \
        (colour, surface, width, height, reserved, pitch)
#define ENTRY_MaskReplacement                                                                                          \
    (unsigned char* dst, unsigned char* mask, unsigned int match, unsigned int key, int width, int pitch, int height), \
        (dst, mask, match, key, width, pitch, height)

extern "C" {
#define EXPORT(name, call) DEFINE(name, ENTRY_##call)
#define DEFINE(...) DEFINE_ENTRY(__VA_ARGS__)
#define DEFINE_ENTRY(name, parameters, arguments) \
    VSURF_API void VSURF_CALL name parameters { vsurf::in_use().kernels->name arguments; }
#include "frame/exports.inc"
}
