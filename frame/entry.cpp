// SPDX-License-Identifier: MIT
// The exported functions, and the choice of their instruction set.
#include "frame/dispatch.h"

#include <stdlib.h>
#include <string.h>

namespace vsurf {

// The build lists its instruction sets, best first, as VSURF_ISAS: ISA(avx512) ISA(avx2) ISA(sse2). The last runs on
// every processor that the build is for.
#define ISA(name)                 \
    namespace name {              \
    extern const Kernels kernels; \
    }
VSURF_ISAS
#undef ISA

// It is not enough that the processor has the registers: the operating system must save them. The builtins ask both.
#if defined __x86_64__ || defined __i386__
[[maybe_unused]] static bool can_run_avx512()
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl") &&
           __builtin_cpu_supports("avx512vbmi");
}
[[maybe_unused]] static bool can_run_avx2()
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2");
}
[[maybe_unused]] static bool can_run_sse2()
{
    __builtin_cpu_init();
    return __builtin_cpu_supports("sse2");
}
#endif
[[maybe_unused]] static bool can_run_neon() { return true; }
[[maybe_unused]] static bool can_run_scalar() { return true; }

#define ISA(name) {#name, &name::kernels, can_run_##name},
extern constinit const Isa isas[] = {VSURF_ISAS};
extern constinit const int isa_count = sizeof isas / sizeof *isas;

// The value of the environment variable VSURF_ISA, or null. A program that runs with more rights than its caller has no
// such variable. Nor has one whose C library has not set up its environment yet: the look-up gives null then.
static const char* wanted_isa()
{
#ifdef __GLIBC__
    return secure_getenv("VSURF_ISA");
#else
    return getenv("VSURF_ISA");
#endif
}

// The set of that name where this build has it and it runs here, else the best one that does. A named set is never
// better than what the processor has, so the variable can only lower the choice.
static const Isa* best_isa(const char* wanted)
{
    const Isa* best = nullptr;
    for (const Isa& isa : isas) {
        if (!isa.runs_here()) continue;
        if (wanted && strcmp(wanted, isa.name) == 0) return &isa;
        if (!best) best = &isa;
    }
    return best;
}

// Exports may be called from the first instruction on, also by another library's early constructor or by its threads:
// by the lowest set until the constructor here, before main or before dlopen returns, has made its choice. Nobody ever
// sees a set that was only looked at, since the one store publishes the result.
static constinit const Isa* active = &isas[isa_count - 1];

__attribute__((constructor)) static void choose()
{
    __atomic_store_n(&active, best_isa(wanted_isa()), __ATOMIC_RELEASE);
}

// The load is a plain move. It needs no order: what it leads to is constant data, complete before any constructor runs.
static inline __attribute__((always_inline)) const Isa& in_use() { return *__atomic_load_n(&active, __ATOMIC_RELAXED); }

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
