// SPDX-License-Identifier: MIT
// The exported functions.
#include "frame/choice.h"
#include "show/dispatch.h"

namespace vsurf {

// As in frame/entry.cpp: ISA(avx512) ISA(avx2) ISA(sse2).
#define ISA(name)                          \
    namespace name {                       \
    extern const ShowKernels show_kernels; \
    }
VSURF_ISAS
#undef ISA

#define ISA(name) {#name, &name::show_kernels, can_run_##name},
extern constinit const ShowIsa show_isas[] = {VSURF_ISAS};
extern constinit const int show_isa_count = sizeof show_isas / sizeof *show_isas;
#undef ISA

static constinit const ShowIsa* active = &show_isas[show_isa_count - 1];

__attribute__((constructor)) static void choose() { choose_isa(active, show_isas); }

vsurf_status show_band_with(const ShowKernels& kernels, const vsurf_job* job, int band, int bands)
{
    Plan plan;
    const Mistake mistake = examine(job, plan);
    if (mistake.status != VSURF_OK) return mistake.status;
    if (bands < 1 || band < 0 || band >= bands) return VSURF_BAD_BAND;
    const int64_t pairs = plan.end_pair;
    plan.first_pair = static_cast<ptrdiff_t>(pairs * band / bands);
    plan.end_pair = static_cast<ptrdiff_t>(pairs * (band + 1) / bands);
    kernels.show(plan);
    return VSURF_OK;
}

} // namespace vsurf

using namespace vsurf;

extern "C" vsurf_status VSURF_CALL vsurf_show(const vsurf_job* job)
{
    return show_band_with(*isa_in_use(active).kernels, job, 0, 1);
}
extern "C" vsurf_status VSURF_CALL vsurf_show_band(const vsurf_job* job, int band, int bands)
{
    return show_band_with(*isa_in_use(active).kernels, job, band, bands);
}
extern "C" const char* VSURF_CALL vsurf_show_version(void) { return VSURF_VERSION; }
extern "C" const char* VSURF_CALL vsurf_show_isa(void) { return isa_in_use(active).name; }
