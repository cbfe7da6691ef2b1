// SPDX-License-Identifier: MIT
// libass's layers as one picture.
#pragma once
#include <ass/ass.h>
#include <vector>

namespace player {

struct Box {
    int left = 0, top = 0, right = 0, bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool empty() const { return width() <= 0 || height() <= 0; }
};

class Layers {
public:
    struct Pixel {
        float red = 0, green = 0, blue = 0, opacity = 0; // colours times opacity, which is 0 to 1
    };

    // The part of them that lies within an area of this size.
    void blend(const ASS_Image* first, int width, int height);

    const Box& box() const { return box_; }
    const std::vector<Pixel>& pixels() const { return pixels_; } // of the box

private:
    void blend_one(const ASS_Image& image);

    Box box_;
    std::vector<Pixel> pixels_;
};

} // namespace player
