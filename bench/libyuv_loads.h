// SPDX-License-Identifier: MIT
// libyuv's nearest calls, one or several after the other.
#pragma once
#include <vector>

#include "bench/peers.h"

namespace bench {

struct LibyuvLoad {
    const char* suffix; // the name of this way to the surface, where there are several
    Load load;
};
std::vector<LibyuvLoad> libyuv_loads(const Layout& layout);

} // namespace bench
