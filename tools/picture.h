// A decoded 4:2:0 picture as the planes that a loader may read.
#pragma once
#include "tools/ffmpeg.h"
#include "tools/geometry.h"

namespace player {

struct Planes {
    uint8_t *y, *u, *v;
    int width, height, pitch; // of luma; the chroma pitch is half of it
};

// Loaders read whole blocks of pixels and pairs of lines. A frame that consists of them is used where it lies; any
// other is copied into planes of our own, its last column and line repeated into the padding.
class PictureSource {
public:
    // `frame` is yuv420p. The planes are valid until the next call, and as long as the frame.
    Planes planes(const AVFrame& frame, const Geometry& geometry);

private:
    void reserve(const Geometry& geometry);

    AlignedBytes bytes_;
    int pitch_ = 0, height_ = 0;
};

} // namespace player
