// When stores go past the caches.
#pragma once
#include <stddef.h>

namespace vsurf {

// Destinations of at least this many bytes are written with streaming stores where their lines allow it: half a MiB,
// beyond which a surface and its picture no longer share a usual second-level cache. Set by tests and benches alone.
extern size_t streaming_threshold;

} // namespace vsurf
