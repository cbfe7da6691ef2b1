// SPDX-License-Identifier: MIT
// The record that a subpicture's exports get, filled again for every call.
#pragma once
#include "bench/picture.h"
#include "frame/vsurf.h"

namespace bench {

MIX_INFO job_for(const Layout& layout, const Picture& picture, ajust_contrast_info* info);

} // namespace bench
