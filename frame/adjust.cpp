// SPDX-License-Identifier: MIT
#include "frame/adjust.h"
#include "frame/vsurf.h"

namespace vsurf {
constinit Adjustment adjustment_state = {}; // all zero until the first `get_contrast_data`
}

// Only the low 16 bits of each field count, and the two addends of an offset wrap.
extern "C" VSURF_API void VSURF_CALL get_contrast_data(void* info)
{
    const auto& from = *static_cast<const ajust_contrast_info*>(info);
    auto write = [](int16_t& to, int32_t a, int32_t b) {
        __atomic_store_n(&to, static_cast<int16_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b)),
                         __ATOMIC_RELAXED);
    };
    auto& state = vsurf::adjustment_state;
    write(state.luma_gain, from.y_gain, 0);
    write(state.chroma_gain, from.uv_gain, 0);
    write(state.luma_offset, from.y_offset_a, from.y_offset_b);
    write(state.u_offset, from.u_offset_a, from.u_offset_b);
    write(state.v_offset, from.v_offset_a, from.v_offset_b);
}
