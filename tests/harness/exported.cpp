// SPDX-License-Identifier: MIT
#include "harness/variants.h"

namespace harness {

const vsurf::Kernels& exported()
{
    static const vsurf::Kernels table = {
#define EXPORT(name, call) ::name,
#include "frame/exports.inc"
#undef EXPORT
    };
    return table;
}

} // namespace harness
