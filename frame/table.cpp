// SPDX-License-Identifier: MIT
#include "frame/dispatch.h"

namespace vsurf::VSURF_ISA {
const Kernels kernels = {
#define EXPORT_(name, params, args) name,
#include "frame/exports.inc"
};
} // namespace vsurf::VSURF_ISA
