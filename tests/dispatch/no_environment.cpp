// SPDX-License-Identifier: MIT
// The library makes its choice in a process whose C library has no environment yet, or none any more.
#include "frame/dispatch.h"

#include <cstdio>
#include <unistd.h>

// Before constructors that have no priority, as the library's does.
__attribute__((constructor(101))) static void remove_environment() { environ = nullptr; }

int main()
{
    const vsurf::Isa* best = vsurf::isas;
    while (!best->runs_here()) ++best;
    std::printf("in use: %s, the best: %s\n", vsurf::active_isa().name, best->name);
    return &vsurf::active_isa() == best ? 0 : 1;
}
