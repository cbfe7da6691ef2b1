// SPDX-License-Identifier: MIT
// The layers of a subtitle as the two RGB32 drawings from which the library makes a subpicture.
#pragma once
#include "tools/layers.h"
#include "tools/surface.h"
#include <vsurf.h>

namespace player {

// A picture, and the whole blocks into which its last column and line are repeated.
struct Canvas {
    int width = 0, height = 0;
    int padded_width = 0, padded_height = 0; // a multiple of 16, an even number
    bool operator==(const Canvas&) const = default;
};

class Drawing {
public:
    // What is drawn has a fourth byte of 0: no colour is the key.
    static constexpr uint32_t kKey = 0xff000000;
    static constexpr int kOpaque = 16;

    void compose(const ASS_Image* first, const Canvas& canvas);
    const Surface& colours() const { return colours_; }     // the key where nothing is seen
    const Surface& opacities() const { return opacities_; } // 0 to 16 as blue

private:
    void draw();
    void lend_colour_to_even_pixels();
    void fill(Surface& surface, uint32_t pixel, const Canvas& canvas) const;

    Layers layers_;
    Surface colours_, opacities_;
};

} // namespace player
