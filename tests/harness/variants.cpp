// SPDX-License-Identifier: MIT
#include "harness/variants.h"

#include "frame/streaming.h"
#include "harness/effort.h"
#include "show/dispatch.h"

#ifdef VSURF_TEST_SIMDE
namespace vsurf::avx512_simde {
extern const Kernels kernels;
extern const ShowKernels show_kernels;
}
#endif

namespace harness {
namespace {

const size_t chosen_threshold = vsurf::streaming_threshold;

void store_as_chosen() { vsurf::streaming_threshold = chosen_threshold; }

void store_past_caches_always() { vsurf::streaming_threshold = 0; }

Variant table_of(const std::string& name, const vsurf::Kernels& kernels) { return {name, &kernels}; }

Variant table_of(const std::string& name, const vsurf::ShowKernels& kernels)
{
    auto show = [&kernels](const vsurf_job* job, int band, int bands) {
        return vsurf::show_band_with(kernels, job, band, bands);
    };
    return {name, nullptr, nullptr, show};
}

void add(std::vector<Variant>& to, Variant table)
{
    const bool streams_too = !quick() || table.name != "scalar";
    table.apply = store_as_chosen;
    to.push_back(table);
    table.name += "_streaming";
    table.apply = store_past_caches_always;
    if (streams_too) to.push_back(table);
}

// The sets that run here, and a translated one in place of AVX-512.
template <class Isa, class Kernels>
std::vector<Variant> tables_of(const Isa* isas, int count, const Kernels* translated)
{
    std::vector<Variant> found;
    bool avx512 = false, avx2 = false;
    for (int i = 0; i < count; ++i) {
        if (!isas[i].runs_here()) continue;
        add(found, table_of(isas[i].name, *isas[i].kernels));
        avx512 |= std::string(isas[i].name) == "avx512";
        avx2 |= std::string(isas[i].name) == "avx2";
    }
    if (translated != nullptr && avx2 && !avx512) add(found, table_of("avx512_simde", *translated));
    return found;
}

#ifdef VSURF_TEST_SIMDE
const vsurf::Kernels* const translated = &vsurf::avx512_simde::kernels;
const vsurf::ShowKernels* const translated_show = &vsurf::avx512_simde::show_kernels;
#else
const vsurf::Kernels* const translated = nullptr;
const vsurf::ShowKernels* const translated_show = nullptr;
#endif

} // namespace

const std::vector<Variant>& variants()
{
    static const std::vector<Variant> all = tables_of(vsurf::isas, vsurf::isa_count, translated);
    return all;
}

const std::vector<Variant>& show_variants()
{
    static const std::vector<Variant> all = tables_of(vsurf::show_isas, vsurf::show_isa_count, translated_show);
    return all;
}

} // namespace harness
