// SPDX-License-Identifier: MIT
// The choice of the instruction set that serves a library's exported functions. Each library includes it once.
#pragma once
#include <stdlib.h>
#include <string.h>

namespace vsurf {

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
template <class Isa, int count> static const Isa* best_isa(const Isa (&isas)[count], const char* wanted)
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
// by the lowest set until a constructor, before main or before dlopen returns, has made its choice. Nobody ever sees a
// set that was only looked at, since the one store publishes the result.
template <class Isa, int count> static void choose_isa(const Isa*& active, const Isa (&isas)[count])
{
    __atomic_store_n(&active, best_isa(isas, wanted_isa()), __ATOMIC_RELEASE);
}

// The load is a plain move. It needs no order: what it leads to is constant data, complete before any constructor runs.
template <class Isa> static inline __attribute__((always_inline)) const Isa& isa_in_use(const Isa* const& active)
{
    return *__atomic_load_n(&active, __ATOMIC_RELAXED);
}

} // namespace vsurf
