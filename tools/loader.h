// SPDX-License-Identifier: MIT
// A picture onto a surface.
#pragma once
#include "tools/controls.h"
#include "tools/picture.h"
#include "tools/surface.h"
#include <vsurf.h>

namespace player {

// What the library gets for a surface: the adjustment, the layout of its pixels, and how high it is.
ajust_contrast_info adjustment(const Surface& surface, const Controls& controls, Scaling scaling);

class Loader {
public:
    // Picture and surface have the geometry that was planned for the scaling; `packed` is a YUY2 picture. Returns the
    // name of the export that did it.
    const char* load(const Picture& picture, bool packed, Surface& surface, const Controls& controls,
                     Scaling scaling) const;
};

} // namespace player
