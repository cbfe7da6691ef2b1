// SPDX-License-Identifier: MIT
// libyuv's nearest calls for subpictures and colour keys.
#pragma once
#include "bench/peers.h"

namespace bench {

Load blend_and_convert(const Layout& layout);
Load convert_drawing(const Layout& layout);
Load fill_surface(const Layout& layout);

} // namespace bench
