// SPDX-License-Identifier: MIT
// The tables of exports, one per instruction set, and the choice among them.
#pragma once
#include "frame/vsurf.h"

namespace vsurf {

// A pointer to a function of each export's type, as the header declares it.
struct Kernels {
#define EXPORT(name, call) decltype(&::name) name;
#include "frame/exports.inc"
#undef EXPORT
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
#include "frame/calls.h"

namespace vsurf::VSURF_ISA {
#define EXPORT(name, call) void name(call);
#include "frame/exports.inc"
#undef EXPORT
extern const Kernels kernels;
} // namespace vsurf::VSURF_ISA
#endif
