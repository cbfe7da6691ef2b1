// SPDX-License-Identifier: MIT
#include "harness/variants.h"

namespace harness {

const vsurf::Kernels& exported()
{
    static const vsurf::Kernels table = {
#define EXPORT_(name, params, args) ::name,
#include "frame/exports.inc"
#undef EXPORT_
    };
    return table;
}

} // namespace harness
