// SPDX-License-Identifier: MIT
// The kernels of each instruction set, and the choice among them.
#pragma once
#include "show/plan.h"

namespace vsurf {

struct ShowKernels {
    void (*show)(const Plan& plan);
};

struct ShowIsa {
    const char* name; // "avx512", "avx2", "sse2", "neon" or "scalar"
    const ShowKernels* kernels;
    bool (*runs_here)(); // whether processor and operating system support it
};

extern const ShowIsa show_isas[]; // best first; the last one always runs
extern const int show_isa_count;

// What vsurf_show_band() does with the kernels in use.
vsurf_status show_band_with(const ShowKernels& kernels, const vsurf_job* job, int band, int bands);

} // namespace vsurf

#ifdef VSURF_ISA
namespace vsurf::VSURF_ISA {
extern const ShowKernels show_kernels;
}
#endif
