// SPDX-License-Identifier: MIT
// What is known of the machine that is measured on.
#pragma once
#include <cstddef>
#include <string>

namespace bench {

size_t last_level_cache_bytes();
size_t ring_bytes(); // several times the last-level cache, as far as memory allows
std::string processor_name();

} // namespace bench
