// SPDX-License-Identifier: MIT
#include "harness/variants.h"

#include "frame/streaming.h"
#include "harness/effort.h"

#ifdef VSURF_TEST_SIMDE
namespace vsurf::avx512_simde {
extern const Kernels kernels;
}
#endif

namespace harness {
namespace {

const size_t chosen_threshold = vsurf::streaming_threshold;

void store_as_chosen() { vsurf::streaming_threshold = chosen_threshold; }

void store_past_caches_always() { vsurf::streaming_threshold = 0; }

void add(std::vector<Variant>& to, const std::string& name, const vsurf::Kernels& kernels)
{
    to.push_back({name, &kernels, store_as_chosen});
    if (quick() && name == "scalar") return;
    to.push_back({name + "_streaming", &kernels, store_past_caches_always});
}

} // namespace

const std::vector<Variant>& variants()
{
    static const std::vector<Variant> all = [] {
        std::vector<Variant> found;
        bool avx512 = false, avx2 = false;
        for (int i = 0; i < vsurf::isa_count; ++i) {
            const vsurf::Isa& isa = vsurf::isas[i];
            if (!isa.runs_here()) continue;
            add(found, isa.name, *isa.kernels);
            avx512 |= std::string(isa.name) == "avx512";
            avx2 |= std::string(isa.name) == "avx2";
        }
#ifdef VSURF_TEST_SIMDE
        if (avx2 && !avx512) add(found, "avx512_simde", vsurf::avx512_simde::kernels);
#else
        static_cast<void>(avx2 && avx512);
#endif
        return found;
    }();
    return all;
}

} // namespace harness
