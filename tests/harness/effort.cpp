// SPDX-License-Identifier: MIT
#include "harness/effort.h"

#include <cstdlib>
#include <cstring>

namespace harness {

bool quick()
{
    static const bool is_quick = [] {
        const char* effort = std::getenv("VSURF_TEST_EFFORT");
        return effort != nullptr && std::strcmp(effort, "quick") == 0;
    }();
    return is_quick;
}

} // namespace harness
