// SPDX-License-Identifier: MIT
// Prints the instruction set that the exported functions use; with an argument, all that run here, best first.
#include "frame/dispatch.h"

#include <cstdio>

int main(int argc, char**)
{
    if (argc < 2) {
        std::puts(vsurf::active_isa().name);
        return 0;
    }
    for (int i = 0; i < vsurf::isa_count; ++i) {
        if (vsurf::isas[i].runs_here()) std::puts(vsurf::isas[i].name);
    }
    return 0;
}
