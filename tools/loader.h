// SPDX-License-Identifier: MIT
// A picture onto a surface.
#pragma once
#include "frame/dispatch.h"
#include "tools/controls.h"
#include "tools/picture.h"
#include "tools/surface.h"

namespace player {

// What the library gets for a surface: the adjustment, the layout of its pixels, and how high it is.
ajust_contrast_info adjustment(const Surface& surface, const Controls& controls, Scaling scaling);

class Loader {
public:
    explicit Loader(const vsurf::Isa& isa) : isa_(isa) {}

    const char* isa_name() const { return isa_.name; }
    // Picture and surface have the geometry that was planned for the scaling; `packed` is a YUY2 picture. Returns the
    // name of the export that did it.
    const char* load(const Picture& picture, bool packed, Surface& surface, const Controls& controls,
                     Scaling scaling) const;

private:
    const vsurf::Isa& isa_;
};

} // namespace player
