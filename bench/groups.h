// SPDX-License-Identifier: MIT
// What is measured: families of groups of exports. A group shares a source, a surface and peers, and is run
// interleaved.
#pragma once
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "bench/exports.h"
#include "bench/peers.h"
#include "bench/picture.h"
#include "bench/roof.h"

namespace bench {

struct Contender {
    std::string name;   // "loadimage_rgb32/vsurf:avx2"
    std::string plain;  // the export whose peers and roof this one is compared with, itself if it is not adjusted
    std::string family; // "planar loaders"
    Layout layout;
    Traffic traffic;
    bool own_traffic;         // false for a peer that moves other bytes than the export that it is compared with
    bool same_picture = true; // false for a peer that makes another picture, for want of one that makes the same
    std::function<void()> prepare = [] {};
    Load load = {};
};

// What the exports of a group are measured on.
struct Place {
    Size size;
    Placement placement;
    bool every_tier; // all instruction sets of the library and of its peers, or only the best one of each
};

// The roof, the library, the peers.
std::vector<Contender> contenders(const Family& family, const Group& group, const Place& place);

// From how many bytes on a surface is written with non-temporal stores.
struct Threshold {
    std::string name;
    size_t bytes;
};
std::vector<Threshold> kinds_of_stores(); // never, always and as the library chooses

// The library's best instruction set with each threshold.
std::vector<Contender> store_contenders(const Family& family, const Group& group, const Place& place,
                                        const std::vector<Threshold>& thresholds);

void set_adjustment();         // one that changes every sample
void set_neutral_adjustment(); // one that changes none

} // namespace bench
