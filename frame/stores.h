// SPDX-License-Identifier: MIT
#pragma once
#include "simd/simd.h"

namespace vsurf::VSURF_ISA {

enum class Stores { cached, streaming };
template <Stores S> ALWAYS_INLINE auto to(uint8_t* p)
{
    if constexpr (S == Stores::streaming && kStoresPastCaches) return Uncached{p};
    else return p;
}

} // namespace vsurf::VSURF_ISA
