// The sizes of one picture's way: what the loader reads, what it writes, what is shown of it.
#pragma once
#include "tools/surface.h"

namespace player {

struct Geometry {
    SurfaceFormat surface;             // what is written; half width exists for YUY2 and YV12 only
    int picture_width, picture_height; // whole blocks and pairs of lines: what the loader reads
    int surface_width, surface_height; // what the loader writes
    int shown_width, shown_height;     // the part that is picture and not padding
    bool tight_luma;                   // luma lines follow each other without a gap
};

Geometry plan(int width, int height, SurfaceFormat wanted, bool half);

// The largest rectangle of the given aspect in the middle of an area.
struct Rectangle {
    int x, y, width, height;
    bool operator==(const Rectangle&) const = default;
};
Rectangle fit(double aspect, int area_width, int area_height);

} // namespace player
