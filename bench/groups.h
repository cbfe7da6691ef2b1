// What is measured: groups of exports that share a source, a surface and a peer, and are run interleaved.
#pragma once
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "bench/peers.h"
#include "bench/picture.h"
#include "bench/roof.h"
#include "frame/dispatch.h"

namespace bench {

using Loader = void (*)(void*, void*, void*, void*, int, int, int, int, ajust_contrast_info*);

struct Contender {
    std::string name;  // "loadimage_rgb32/vsurf:avx2"
    std::string plain; // the export whose peers and roof this one is compared with, itself if it is not adjusted
    Layout layout;
    Traffic traffic;
    bool own_traffic; // false for a peer that moves other bytes than the loader beside it
    std::function<void()> prepare;
    std::function<void(const Picture&)> load;
};

struct Export {
    const char* name;
    Loader vsurf::Kernels::*loader;
    Access access;
    int rgb16_layout = 0;
};

struct Group {
    Target target;
    std::vector<Export> exports; // the plain one first, then what is compared with it
};
std::span<const Group> groups();
// The roof, the library on every instruction set that runs here, the peers.
std::vector<Contender> contenders(const Group& group, Size size);

// The library's best instruction set with each kind of stores, and with those that it chooses itself.
std::vector<Contender> store_contenders(const Group& group, Size size);

void set_adjustment(); // one that changes every sample

} // namespace bench
