// SPDX-License-Identifier: MIT
// What the exports do not define, through vsurf_show: other matrices and ranges, other formats, odd sizes as they are.
#pragma once
#include "tools/colours.h"
#include "tools/surface.h"
#include <vsurf_show.h>

namespace player {

class Shower {
public:
    explicit Shower(int threads) : threads_(threads) {}

    // Several bands at once are for pictures of any kind.
    bool has_bands() const { return threads_ > 1; }
    // Whether the loaders take such a frame as it is.
    static bool is_of_exports(const AVFrame& frame, bool packed);

    // `frame` has a format that the library knows. Onto the shown part of the surface. Returns the name of the export.
    const char* show(const AVFrame& frame, const Colours& colours, const Surface& surface) const;
    // As 4:2:0 of BT.601 in limited range, valid until the next call.
    const AVFrame& to_planes(const AVFrame& frame, const Colours& colours);

private:
    const char* run(const vsurf_picture& picture, const vsurf_surface& surface) const;

    int threads_;
    FramePtr planes_;
};

} // namespace player
