// SPDX-License-Identifier: MIT
#include "tools/drawing.h"
#include <algorithm>
#include <cmath>

namespace player {
namespace {

// libass gives red, green, blue and transparency, from the top byte down.
float component(uint32_t colour, int shift) { return static_cast<float>(colour >> shift & 255); }

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
    const Box box = bounds(first, canvas);
    if (box.width() <= 0 || box.height() <= 0) return;
    pixels_.assign(static_cast<std::size_t>(box.width()) * static_cast<std::size_t>(box.height()), {});
    for (const ASS_Image* each = first; each; each = each->next) blend(*each, box);
    draw(box);
    lend_colour_to_even_pixels(box);
    for (const Surface* each : {&colours_, &opacities_}) extend(*each);
}

void Drawing::fill(Surface& surface, uint32_t pixel, const Canvas& canvas) const
{
    surface.shape(SurfaceFormat::rgb32, canvas.padded_width, canvas.padded_height, canvas.width, canvas.height);
    kernels_.LoadColorKeyRgb32(pixel, surface.bytes(), surface.width(), surface.height(), 0, surface.pitch());
}

Drawing::Box Drawing::bounds(const ASS_Image* first, const Canvas& canvas)
{
    Box box{canvas.width, canvas.height, 0, 0};
    for (const ASS_Image* each = first; each; each = each->next) {
        box.left = std::min(box.left, each->dst_x);
        box.top = std::min(box.top, each->dst_y);
        box.right = std::max(box.right, each->dst_x + each->w);
        box.bottom = std::max(box.bottom, each->dst_y + each->h);
    }
    return {std::max(box.left, 0), std::max(box.top, 0), std::min(box.right, canvas.width),
            std::min(box.bottom, canvas.height)};
}

void Drawing::blend(const ASS_Image& image, const Box& box)
{
    const float red = component(image.color, 24), green = component(image.color, 16), blue = component(image.color, 8);
    const float full = (255 - component(image.color, 0)) / (255 * 255);
    const int left = std::max(image.dst_x, box.left), right = std::min(image.dst_x + image.w, box.right);
    const int top = std::max(image.dst_y, box.top), bottom = std::min(image.dst_y + image.h, box.bottom);
    for (int y = top; y < bottom; y++) {
        const uint8_t* coverage = image.bitmap + static_cast<std::ptrdiff_t>(y - image.dst_y) * image.stride;
        Pixel* pixels = pixels_.data() + static_cast<std::ptrdiff_t>(y - box.top) * box.width();
        for (int x = left; x < right; x++) {
            const float opacity = full * static_cast<float>(coverage[x - image.dst_x]), rest = 1 - opacity;
            Pixel& pixel = pixels[x - box.left];
            pixel = {pixel.red * rest + red * opacity, pixel.green * rest + green * opacity,
                     pixel.blue * rest + blue * opacity, pixel.opacity * rest + opacity};
        }
    }
}

void Drawing::draw(const Box& box)
{
    const Pixel* pixel = pixels_.data();
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
void Drawing::lend_colour_to_even_pixels(const Box& box)
{
    for (int y = box.top; y < box.bottom; y++) {
        uint32_t* colours = line_of(colours_, y);
        for (int x = box.left / 2 * 2; x < box.right; x += 2)
            if (colours[x] == kKey) colours[x] = colours[x + 1];
    }
}

} // namespace player
