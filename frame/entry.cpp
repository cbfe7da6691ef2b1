// The exported functions, and the choice of the instruction set that serves them.
#include "frame/dispatch.h"

namespace vsurf {

#define TIER(isa, test) {#isa, &isa::kernels, []() -> bool { return test; }},
// The operating system's register state counts, not the processor's word alone: this builtin asks both.
#define CAN(feature) (__builtin_cpu_init(), __builtin_cpu_supports(feature))

#define DECLARE(isa) namespace isa { extern const Kernels kernels; }
DECLARE(scalar)
#ifdef VSURF_HAS_NEON
DECLARE(neon)
#endif
#ifdef VSURF_HAS_SSE2
DECLARE(sse2)
#endif
#ifdef VSURF_HAS_AVX2
DECLARE(avx2)
#endif
#ifdef VSURF_HAS_AVX512
DECLARE(avx512)
#endif

extern constinit const Isa isas[] = {
#ifdef VSURF_HAS_AVX512
    TIER(avx512, CAN("avx512bw") && CAN("avx512vl") && CAN("avx512vbmi"))
#endif
#ifdef VSURF_HAS_AVX2
    TIER(avx2, CAN("avx2"))
#endif
#ifdef VSURF_HAS_SSE2
    TIER(sse2, CAN("sse2"))
#endif
#ifdef VSURF_HAS_NEON
    TIER(neon, true)
#endif
    TIER(scalar, true)
};
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
#define EXPORT_(name, params, args) VSURF_API void name params { vsurf::active->kernels->name args; }
#include "frame/exports.inc"
}
