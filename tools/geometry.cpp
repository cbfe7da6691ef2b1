#include "tools/geometry.h"
#include <algorithm>
#include <cmath>

namespace player {

Geometry plan(int width, int height, SurfaceFormat wanted, bool half)
{
    Geometry g{};
    const bool yuv_surface = wanted == SurfaceFormat::yuy2 || wanted == SurfaceFormat::yv12;
    g.surface = half && !yuv_surface ? SurfaceFormat::yuy2 : wanted;
    // The half-width YV12 loader takes chroma, too, in blocks of 16.
    g.picture_width = round_up(width, half ? 32 : 16);
    // loadimage_yuy2_ajust leaves pictures of eight lines or fewer alone.
    g.picture_height = std::max(round_up(height, 2), 10);
    g.surface_width = half ? g.picture_width / 2 : g.picture_width;
    g.surface_height = g.picture_height;
    g.shown_width = half ? (width + 1) / 2 : width;
    g.shown_height = height;
    // loadimage_yv12_ajust ignores the pitch of its source.
    g.tight_luma = g.surface == SurfaceFormat::yv12 && !half;
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
