// SPDX-License-Identifier: MIT
// Whether peers and roofs do the work that their figures stand for.
#pragma once
#include <regex>

#include "bench/picture.h"

namespace bench {

// Compares every peer's picture with the library's, and the bytes that every roof writes with those that the library
// writes; prints a line each and returns whether all agree within the differences of rounding and filters.
bool check(Ring& ring, const std::regex& wanted);

} // namespace bench
