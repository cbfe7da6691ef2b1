// SPDX-License-Identifier: MIT
// A decoded picture as a loader may read it.
#pragma once
#include "tools/ffmpeg.h"
#include "tools/geometry.h"

namespace player {

// 4:2:0 planes, or YUY2 only in `y`.
struct Picture {
    uint8_t *y, *u, *v;
    int width, height;
    int pitch; // in pixels: bytes of luma, whose chroma has half, or pairs of bytes of YUY2
};

// Loaders read whole blocks of pixels and groups of lines. A frame that consists of them is used where it is; any
// other is copied into memory of our own, its last column and line repeated into the padding.
class PictureSource {
public:
    // `frame` is yuyv422 where the geometry says packed, else yuv420p. The picture is valid until the next call, and as
    // long as the frame.
    Picture take(const AVFrame& frame, const Geometry& geometry);

private:
    Picture copy_planes(const AVFrame& frame, const Geometry& geometry);
    Picture copy_packed(const AVFrame& frame, const Geometry& geometry);
    void reserve(std::size_t size);

    AlignedBytes bytes_;
    std::size_t size_ = 0;
};

} // namespace player
