// SPDX-License-Identifier: MIT
// Bytes of pixels and planes as tests put them together.
#pragma once
#include "harness/fixture.h"

#include <algorithm>

namespace harness {

// A number's bytes, the low one first.
inline Bytes little_endian(uint64_t number, size_t bytes)
{
    Bytes found;
    for (size_t i = 0; i < bytes; ++i) found.push_back(static_cast<uint8_t>(number >> 8 * i & 0xFF));
    return found;
}

inline void place(Bytes& into, size_t at, const Bytes& bytes)
{
    std::copy(bytes.begin(), bytes.end(), into.begin() + static_cast<std::ptrdiff_t>(at));
}

} // namespace harness
