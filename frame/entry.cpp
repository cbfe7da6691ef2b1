// SPDX-License-Identifier: MIT
// The exported functions, and the choice of the instruction set that serves them.
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

// Callable from the first instruction on; the constructor raises it to the best before main, or before dlopen returns.
static constinit const Isa* active = &isas[isa_count - 1];

__attribute__((constructor)) static void choose()
{
    active = isas;
    while (!active->runs_here()) active++;
}

const Isa& active_isa() { return *active; }

} // namespace vsurf

extern "C" {
#define EXPORT_(name, params, args) \
    VSURF_API void VSURF_CALL name params { vsurf::active->kernels->name args; }
#include "frame/exports.inc"
}
