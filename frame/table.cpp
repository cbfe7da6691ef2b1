// SPDX-License-Identifier: MIT
#include "frame/dispatch.h"

namespace vsurf::VSURF_ISA {

// Hands the arguments of an exported function to its kernel as a record. A kernel that takes them as they are needs no
// such entry.
template <class Function> struct Entry;
template <class... Arguments> struct Entry<void (*)(Arguments...)> {
    template <class Call, void (*kernel)(Call)> static void enter(Arguments... arguments)
    {
        kernel(Call{arguments...});
    }
};

template <class Function, class Call, void (*kernel)(Call)> constexpr Function entry()
{
    if constexpr (__is_same(Function, void (*)(Call))) return kernel;
    else return Entry<Function>::template enter<Call, kernel>;
}

constinit const Kernels kernels = {
#define EXPORT(name, call) entry<decltype(&::name), vsurf::VSURF_ISA::call, name>(),
#include "frame/exports.inc"
};

} // namespace vsurf::VSURF_ISA
