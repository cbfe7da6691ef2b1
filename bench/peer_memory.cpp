// SPDX-License-Identifier: MIT
#include <cstring>

#include "bench/peers.h"
#include "bench/subpictures.h"

namespace bench {

std::vector<Peer> memory_peers(const Layout& layout)
{
    if (layout.access.source != Source::none) return {};
    const auto bytes = static_cast<size_t>(layout.surface_line());
    const auto fill = [layout, bytes](const Picture& p) {
        for (int y = 0; y < layout.size.height; y++)
            std::memset(p.surface + ptrdiff_t{layout.dst_pitch} * y, kFillColour & 255, bytes);
    };
    return {{"memset", [] {}, fill}};
}

} // namespace bench
