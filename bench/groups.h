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
    bool own_traffic;         // false for a peer that moves other bytes than the export beside it
    bool same_picture = true; // false for a peer that makes another picture, for want of one that makes the same
    std::function<void()> prepare = [] {};
    Load load = {};
};

// The roof, the library on every instruction set that runs here, the peers.
std::vector<Contender> contenders(const Family& family, const Group& group, Size size);

// The library's best instruction set with each kind of stores, and with those that it chooses itself.
std::vector<Contender> store_contenders(const Family& family, const Group& group, Size size);

void set_adjustment();         // one that changes every sample
void set_neutral_adjustment(); // one that changes none

} // namespace bench
