// SPDX-License-Identifier: MIT
// Overlays: their pixels, and how one is blended onto what lies below.
#pragma once
#include "model/show_samples.h"

#include <optional>
#include <span>

namespace model {

struct OverlayPixel {
    int r, g, b, a;
};

bool is_premultiplied(const vsurf_overlay& overlay);

// The pixel over (x, y) of the surface, or nothing.
std::optional<OverlayPixel> overlay_pixel(const vsurf_overlay& overlay, int64_t x, int64_t y);

uint8_t blended(bool premultiplied, int over, int alpha, int below);

// Overlays in the encoding of a surface.
class OverlayToYuv {
public:
    explicit OverlayToYuv(const Encoding& encoding);
    // Y, U and V as the colour bytes of the pixel are: multiplied by the alpha or not.
    Yuv operator()(const OverlayPixel& pixel, bool premultiplied) const;

private:
    int black_;
    int64_t m_[3][3]; // in 1/65536
};

// One sample of chroma and its alpha.
struct ChromaPart {
    int over, alpha;
};

// Chroma below the pixels that share it: one part for each of them, {0, 0} where the overlay does not cover it.
uint8_t blended_chroma(bool premultiplied, std::span<const ChromaPart> parts, int below);

} // namespace model
