// SPDX-License-Identifier: MIT
// What ends the program with one line on stderr.
#pragma once
#include <stdexcept>

namespace player {

struct Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace player
