// SPDX-License-Identifier: MIT
// A small generator with the same sequence everywhere, so that a seed in a failure report means something.
#pragma once
#include <cstddef>
#include <cstdint>

namespace harness {

class Random {
public:
    explicit Random(uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15u + 0xD1B54A32D192ED03u) {}

    uint64_t next()
    {
        state_ += 0x9E3779B97F4A7C15u;
        uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    // From low to high, both included.
    int between(int low, int high)
    {
        const uint64_t span = static_cast<uint64_t>(int64_t{high} - low) + 1;
        return static_cast<int>(low + static_cast<int64_t>(next() % span));
    }

    bool one_in(int n) { return between(1, n) == 1; }

    template <class T, size_t N> T pick(const T (&choices)[N]) { return choices[next() % N]; }

private:
    uint64_t state_;
};

} // namespace harness
