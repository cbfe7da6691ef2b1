// SPDX-License-Identifier: MIT
// When stores go past the caches.
#pragma once
#include <stddef.h>

namespace vsurf {

// Destinations of at least this many bytes are written with streaming stores where their lines allow it: a quarter
// MiB, beyond which a surface and the picture that it shows soon outgrow a second-level cache, unless the build is
// configured for another size (VSURF_STREAM_FROM). Where lines do not begin with cache lines it takes four times as
// much. Only tests and benches change it at run time.
extern size_t streaming_threshold;

} // namespace vsurf
