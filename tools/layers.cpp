// SPDX-License-Identifier: MIT
#include "tools/layers.h"
#include <algorithm>
#include <cstdint>

namespace player {
namespace {

// libass gives red, green, blue and transparency, from the top byte down.
float component(uint32_t colour, int shift) { return static_cast<float>(colour >> shift & 255); }

Box bounds(const ASS_Image* first, int width, int height)
{
    Box box{width, height, 0, 0};
    for (const ASS_Image* each = first; each; each = each->next) {
        box.left = std::min(box.left, each->dst_x);
        box.top = std::min(box.top, each->dst_y);
        box.right = std::max(box.right, each->dst_x + each->w);
        box.bottom = std::max(box.bottom, each->dst_y + each->h);
    }
    return {std::max(box.left, 0), std::max(box.top, 0), std::min(box.right, width), std::min(box.bottom, height)};
}

} // namespace

void Layers::blend(const ASS_Image* first, int width, int height)
{
    box_ = bounds(first, width, height);
    pixels_.clear();
    if (box_.empty()) return;
    pixels_.resize(static_cast<std::size_t>(box_.width()) * static_cast<std::size_t>(box_.height()));
    for (const ASS_Image* each = first; each; each = each->next) blend_one(*each);
}

void Layers::blend_one(const ASS_Image& image)
{
    const float red = component(image.color, 24), green = component(image.color, 16), blue = component(image.color, 8);
    const float full = (255 - component(image.color, 0)) / (255 * 255);
    const int left = std::max(image.dst_x, box_.left), right = std::min(image.dst_x + image.w, box_.right);
    const int top = std::max(image.dst_y, box_.top), bottom = std::min(image.dst_y + image.h, box_.bottom);
    for (int y = top; y < bottom; y++) {
        const uint8_t* coverage = image.bitmap + static_cast<std::ptrdiff_t>(y - image.dst_y) * image.stride;
        Pixel* pixels = pixels_.data() + static_cast<std::ptrdiff_t>(y - box_.top) * box_.width();
        for (int x = left; x < right; x++) {
            const float opacity = full * static_cast<float>(coverage[x - image.dst_x]), rest = 1 - opacity;
            Pixel& pixel = pixels[x - box_.left];
            pixel = {pixel.red * rest + red * opacity, pixel.green * rest + green * opacity,
                     pixel.blue * rest + blue * opacity, pixel.opacity * rest + opacity};
        }
    }
}

} // namespace player
