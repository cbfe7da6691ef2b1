// SPDX-License-Identifier: MIT
#include "frame/streaming.h"

namespace vsurf {
constinit size_t streaming_threshold = size_t{256} << 10;
}
