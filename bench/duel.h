// SPDX-License-Identifier: MIT
// Two ways to the same surface, timed in turns.
#pragma once
#include <vector>

#include "bench/peers.h"

namespace bench {

struct Times {
    std::vector<double> seconds; // a picture, one entry a turn

    double least() const;
    double median() const;
};

class Duel {
public:
    Duel(Load first, Load second) : loads_{std::move(first), std::move(second)} {}

    // Whether both leave the same bytes on and around a surface in the first slot of the ring.
    bool agree(Ring& ring, const Layout& layout) const;

    // Takes turns for so long, `cold` through the whole ring, otherwise in its first slot. Can be called again for
    // more.
    void run(Ring& ring, const Layout& layout, bool cold, double seconds);

    const Times& first() const { return times_[0]; }
    const Times& second() const { return times_[1]; }

private:
    Load loads_[2];
    Times times_[2];
};

} // namespace bench
