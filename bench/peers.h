// SPDX-License-Identifier: MIT
// Other libraries' nearest calls: the same source, the same surface, one thread.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "bench/picture.h"

namespace bench {

using Load = std::function<void(const Picture&)>;

struct Peer {
    std::string name;
    std::function<void()> prepare; // before a measurement, outside the clock
    Load load;
};

// On every instruction set or, except for plain copies, on the best one, which is not always the fastest copy.
std::vector<Peer> libyuv_peers(const Layout& layout, bool every_tier);
std::vector<Peer> swscale_peers(const Layout& layout, bool every_tier); // none for subpictures: it blends nothing
std::vector<Peer> memory_peers(const Layout& layout);                   // the C library's fill

} // namespace bench
