// SPDX-License-Identifier: MIT
// What is measured of vsurf_show().
#pragma once
#include "bench/exports.h"

namespace bench {

std::span<const Family> all_families(); // of the exports and of vsurf_show()

} // namespace bench
