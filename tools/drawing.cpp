// SPDX-License-Identifier: MIT
#include "tools/drawing.h"
#include <algorithm>
#include <cmath>

namespace player {
namespace {

uint32_t* line_of(const Surface& surface, int y)
{
    return reinterpret_cast<uint32_t*>(surface.bytes() + static_cast<std::ptrdiff_t>(y) * surface.pitch());
}

uint32_t byte(float value) { return static_cast<uint32_t>(std::clamp(std::lround(value), 0L, 255L)); }

// Mixers and enlargers look beyond the edge, as they do in the picture.
void extend(const Surface& surface)
{
    const int width = surface.shown_width(), height = surface.shown_height();
    for (int y = 0; y < height; y++) {
        uint32_t* line = line_of(surface, y);
        std::fill(line + width, line + surface.width(), line[width - 1]);
    }
    for (int y = height; y < surface.height(); y++)
        std::copy_n(line_of(surface, height - 1), surface.width(), line_of(surface, y));
}

} // namespace

void Drawing::compose(const ASS_Image* first, const Canvas& canvas)
{
    fill(colours_, kKey, canvas);
    fill(opacities_, 0, canvas);
    layers_.blend(first, canvas.width, canvas.height);
    if (layers_.box().empty()) return;
    draw();
    lend_colour_to_even_pixels();
    for (const Surface* each : {&colours_, &opacities_}) extend(*each);
}

void Drawing::fill(Surface& surface, uint32_t pixel, const Canvas& canvas) const
{
    surface.shape(SurfaceFormat::rgb32, canvas.padded_width, canvas.padded_height, canvas.width, canvas.height);
    LoadColorKeyRgb32(pixel, surface.bytes(), surface.width(), surface.height(), 0, surface.pitch());
}

void Drawing::draw()
{
    const Box& box = layers_.box();
    const Layers::Pixel* pixel = layers_.pixels().data();
    for (int y = box.top; y < box.bottom; y++) {
        uint32_t *colours = line_of(colours_, y), *opacities = line_of(opacities_, y);
        for (int x = box.left; x < box.right; x++, pixel++) {
            const auto opacity = static_cast<uint32_t>(std::lround(pixel->opacity * kOpaque));
            if (opacity == 0) continue;
            const float share = 1 / pixel->opacity;
            opacities[x] = opacity;
            colours[x] = byte(pixel->red * share) << 16 | byte(pixel->green * share) << 8 | byte(pixel->blue * share);
        }
    }
}

// Two pixels share the chroma of the even one. Where only the odd one is seen, that must be its own.
void Drawing::lend_colour_to_even_pixels()
{
    const Box& box = layers_.box();
    for (int y = box.top; y < box.bottom; y++) {
        uint32_t* colours = line_of(colours_, y);
        for (int x = box.left / 2 * 2; x < box.right; x += 2)
            if (colours[x] == kKey) colours[x] = colours[x + 1];
    }
}

} // namespace player
