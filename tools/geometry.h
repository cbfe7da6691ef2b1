// SPDX-License-Identifier: MIT
// The sizes of one picture's way: what the loader reads, what it writes, what is shown of it.
#pragma once
#include "tools/surface.h"

namespace player {

enum class Scaling { none, half_width, zoom_1x2, zoom_2x2, field };

Scaling next_zoom(Scaling scaling);
const char* scaling_text(Scaling scaling); // for titles: " half width"

// What is over the picture: nothing ever, nothing at the moment, or something.
enum class Layer { none, empty, drawn };

struct Geometry {
    SurfaceFormat surface;             // what is written; not every scaling exists for every format
    bool packed;                       // the loader reads YUY2 as it is
    bool field;                        // the loader reads every other line
    bool mixed;                        // the layer is mixed with the picture
    int picture_width, picture_height; // whole blocks and groups of lines: what the loader reads
    int surface_width, surface_height; // what the loader writes
    int shown_width, shown_height;     // the part that is picture and not padding
    bool tight_picture, tight_surface; // lines follow each other without a gap
};

// Below a layer the surface is the same whether something is drawn or not.
Geometry plan(int width, int height, SurfaceFormat wanted, Scaling scaling, bool packed_source,
              Layer layer = Layer::none);
// Where nothing is to be scaled, mixed or adjusted, and no padding is needed.
Geometry plan_as_it_is(int width, int height, SurfaceFormat surface);
SurfaceFormat rgb_for(SurfaceFormat wanted); // the same, or rgb32

// The largest rectangle of the given aspect in the middle of an area.
struct Rectangle {
    int x, y, width, height;
    bool operator==(const Rectangle&) const = default;
};
Rectangle fit(double aspect, int area_width, int area_height);

} // namespace player
