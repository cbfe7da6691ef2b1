// Other libraries' nearest calls: the same source, the same surface, one thread.
#pragma once
#include <functional>
#include <string>
#include <vector>

#include "bench/picture.h"

namespace bench {

// What a peer is asked to produce.
enum class Target { rgb32, rgb24, rgb565, rgb555, yuy2, half_yuy2, yv12, half_yv12 };

struct Peer {
    std::string name;
    std::function<void()> prepare; // before a measurement, outside the clock
    std::function<void(const Picture&)> load;
};

std::vector<Peer> libyuv_peers(Target target, const Layout& layout);
std::vector<Peer> swscale_peers(Target target, const Layout& layout);

} // namespace bench
