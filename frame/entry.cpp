// SPDX-License-Identifier: MIT
// The exported functions, and the choice of the instruction set that serves them.
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

// The operating system's register state counts, not the processor's word alone: the builtins ask both.
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

extern "C" {
#define EXPORT_(name, params, args) \
    VSURF_API void VSURF_CALL name params { vsurf::in_use().kernels->name args; }
#include "frame/exports.inc"
}
