// SPDX-License-Identifier: MIT
#include "tools/geometry.h"
#include <algorithm>
#include <cmath>

namespace player {
namespace {

bool is_zoom(Scaling scaling) { return scaling == Scaling::zoom_1x2 || scaling == Scaling::zoom_2x2; }

bool is_rgb(SurfaceFormat format) { return format != SurfaceFormat::yuy2 && format != SurfaceFormat::yv12; }

// A field is loaded only onto YUY2, but mixed onto every surface.
SurfaceFormat surface_for(SurfaceFormat wanted, Scaling scaling, Layer layer)
{
    switch (scaling) {
    case Scaling::half_width:
    case Scaling::zoom_2x2: return is_rgb(wanted) ? SurfaceFormat::yuy2 : wanted;
    case Scaling::field: return layer == Layer::none ? SurfaceFormat::yuy2 : wanted;
    default: return wanted;
    }
}

// What a loader demands of a picture's size; spare pixels and lines must be there beyond what is shown.
struct Demand {
    int width_step, least_width, height_step, least_height, spare;

    int width(int shown) const { return round_up(std::max(shown + spare, least_width), width_step); }
    int height(int shown) const { return round_up(std::max(shown + spare, least_height), height_step); }
};

Demand demand(SurfaceFormat surface, Scaling scaling)
{
    // The plane enlargers take chroma in blocks of 16, mix the first sample of the next line into the last of each, and
    // leave out the last line: of chroma, too, where these are two of the picture.
    if (is_zoom(scaling) && surface == SurfaceFormat::yv12) return {32, 32, 2, 4, 2};
    switch (scaling) {
    // The half-width YV12 loader takes chroma, too, in blocks of 16.
    case Scaling::half_width: return {32, 32, 2, 10, 0};
    // The lowest pictures that every enlarger onto any surface writes.
    case Scaling::zoom_1x2: return {16, 16, 2, 12, 0};
    case Scaling::zoom_2x2: return {16, 32, 2, 16, 0};
    // Half of the lines are the field's, and of these there must be pairs.
    // Mixed onto planes, the last one of these is averaged with the line below it, of chroma too.
    case Scaling::field: return {16, 48, 4, 16, surface == SurfaceFormat::yv12 ? 2 : 0};
    // loadimage_yuy2_ajust writes nothing for pictures of eight lines or fewer.
    default: return {16, 16, 2, 10, 0};
    }
}

bool takes_packed(SurfaceFormat surface, Scaling scaling)
{
    return surface != SurfaceFormat::yv12 && (scaling == Scaling::none || scaling == Scaling::zoom_2x2);
}

} // namespace

Scaling next_zoom(Scaling scaling)
{
    switch (scaling) {
    case Scaling::zoom_1x2: return Scaling::zoom_2x2;
    case Scaling::zoom_2x2: return Scaling::none;
    default: return Scaling::zoom_1x2;
    }
}

const char* scaling_text(Scaling scaling)
{
    switch (scaling) {
    case Scaling::half_width: return " half width";
    case Scaling::zoom_1x2: return " zoom 1x2";
    case Scaling::zoom_2x2: return " zoom 2x2";
    case Scaling::field: return " field";
    default: return "";
    }
}

SurfaceFormat rgb_for(SurfaceFormat wanted) { return is_rgb(wanted) ? wanted : SurfaceFormat::rgb32; }

Geometry plan(int width, int height, SurfaceFormat wanted, Scaling scaling, bool packed_source, Layer layer)
{
    Geometry g{};
    g.surface = surface_for(wanted, scaling, layer);
    g.field = scaling == Scaling::field;
    g.mixed = layer == Layer::drawn || (g.field && g.surface != SurfaceFormat::yuy2);
    g.packed = packed_source && !g.mixed && takes_packed(g.surface, scaling);
    const Demand needs = demand(g.surface, scaling);
    g.picture_width = needs.width(width);
    g.picture_height = needs.height(height);

    const int across = scaling == Scaling::zoom_2x2 ? 2 : 1, down = is_zoom(scaling) ? 2 : 1;
    const int divisor = scaling == Scaling::half_width ? 2 : 1;
    g.surface_width = g.picture_width * across / divisor;
    g.surface_height = g.picture_height * down;
    g.shown_width = (width * across + divisor - 1) / divisor;
    g.shown_height = height * down;

    // loadimage_yv12_ajust ignores the pitch of its source, the packed enlargers have no argument for it, and the band
    // enlarger takes it for the width. The plane enlargers drift with any other pitch than the width, on either side.
    // The half width mixer takes the subpicture's for both.
    g.tight_surface = is_zoom(scaling) && g.surface == SurfaceFormat::yv12;
    g.tight_picture = g.tight_surface || g.field || (g.packed && is_zoom(scaling)) ||
                      (g.mixed && scaling == Scaling::half_width) ||
                      (g.surface == SurfaceFormat::yv12 && scaling == Scaling::none);
    return g;
}

Geometry plan_as_it_is(int width, int height, SurfaceFormat surface)
{
    Geometry g{};
    g.surface = surface;
    g.picture_width = g.shown_width = width;
    g.picture_height = g.shown_height = height;
    g.surface_width = is_rgb(surface) ? width : round_up(width, 2); // chroma of two pixels, and of two lines
    g.surface_height = is_rgb(surface) ? height : round_up(height, 2);
    return g;
}

Rectangle fit(double aspect, int area_width, int area_height)
{
    int width = area_width, height = area_height;
    if (aspect * area_height > area_width)
        height = std::clamp(static_cast<int>(std::lround(area_width / aspect)), 1, std::max(area_height, 1));
    else width = std::clamp(static_cast<int>(std::lround(area_height * aspect)), 1, std::max(area_width, 1));
    return {(area_width - width) / 2, (area_height - height) / 2, width, height};
}

} // namespace player
