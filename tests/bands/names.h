// SPDX-License-Identifier: MIT
// The exports that may be cut into bands.
#pragma once
#include <string>
#include <vector>

namespace bands {

std::vector<std::string> loads();
std::vector<std::string> jobs();

} // namespace bands
