// SPDX-License-Identifier: MIT
// Where the planes of a call are: against which guard page, and at which addresses modulo 64.
#pragma once
#include "harness/arena.h"
#include "harness/random.h"

#include <optional>
#include <string>
#include <vector>

namespace harness {

// The addresses modulo 64 that a call gets: the destination's, and for every other plane one that goes through all
// 64, in an order of its own, as the destination's does.
struct Phases {
    int destination = 0;
    uint64_t others = 0; // six bits for each of up to ten planes: where its own order begins

    int of(size_t plane) const // the destination is plane 0
    {
        if (plane == 0) return destination;
        return static_cast<int>((static_cast<uint64_t>(destination) * (2 * plane + 1) + (others >> 6 * plane)) % 64);
    }
};

struct Placement {
    Edge edge = Edge::kStart;
    std::optional<Phases> phases; // none: the touched bytes are flush against the guard page
};

std::string describe(const Placement& placement);

// The two placements that have a guard page flush against everything that is touched.
std::vector<Placement> flush();

// The destination at a given address modulo 64, all else random.
Placement at_phase(int destination, Random& random);

// The flush ones and one at random addresses.
std::vector<Placement> flush_and_phased(Random& random);

} // namespace harness
