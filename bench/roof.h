// SPDX-License-Identifier: MIT
// The streaming roof: loops that read and write exactly the bytes that a loader reads and writes, and compute nothing.
// No loader that moves these bytes through vector registers can be faster.
#pragma once
#include "bench/picture.h"
#include "bench/roof_band.h"

namespace bench {

struct RoofTier {
    const char* name;
    void (*copy)(const Band& band, Stores stores);
    void (*finish)(Stores stores);
    bool (*runs_here)();
};
const RoofTier& best_roof(); // the widest registers that this machine has

void run_roof(const RoofTier& tier, Stores stores, const Layout& layout, const Picture& picture);

struct Traffic {
    size_t read, written; // bytes a picture

    friend bool operator==(const Traffic&, const Traffic&) = default;
};
Traffic traffic_of(const Layout& layout);

} // namespace bench
