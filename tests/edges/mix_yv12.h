// SPDX-License-Identifier: MIT
// The mixers in YV12.
#pragma once
#include "edges/mix.h"

namespace harness {

constexpr auto kYv12 = &vsurf::Kernels::mix_ayv12_yv12_p;
constexpr auto kYv12Adjusted = &vsurf::Kernels::mix_ayv12_yv12_p_ajust;
constexpr auto kYv12Field = &vsurf::Kernels::mix_ayv12_yv12_i;

} // namespace harness
