// SPDX-License-Identifier: MIT
#include "frame/streaming.h"

namespace vsurf {
constinit size_t streaming_threshold = VSURF_STREAM_FROM; // of the build's configuration
}
