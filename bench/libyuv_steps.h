// SPDX-License-Identifier: MIT
// The steps of libyuv's ways to a surface.
#pragma once
#include <libyuv.h>

#include <memory>
#include <vector>

#include "bench/picture.h"

namespace bench {

using Convert = int (*)(const uint8_t*, int, const uint8_t*, int, const uint8_t*, int, uint8_t*, int, int, int);
using Unpack = int (*)(const uint8_t*, int, uint8_t*, int, uint8_t*, int, uint8_t*, int, int, int);

// What the steps of a load pass to each other; allocated with the load, outside the clock.
class Scratch {
public:
    Scratch(int line, int lines)
        : pitch_(line), lines_(lines),
          bytes_(std::make_shared<std::vector<uint8_t>>(static_cast<size_t>(line) * static_cast<size_t>(lines)))
    {
    }
    uint8_t* bytes() const { return bytes_->data(); }
    int pitch() const { return pitch_; }
    int lines() const { return lines_; }

private:
    int pitch_, lines_;
    std::shared_ptr<std::vector<uint8_t>> bytes_;
};

// A picture whose chroma has half the luma's width and, with 4:2:0, half its height.
struct Yuv {
    Planes planes;
    Size size;
    int chroma_height;
};
Yuv yuv420(uint8_t* memory, int pitch, Size size);
Yuv yuv422(uint8_t* memory, Size size);
Yuv source_of(const Picture& p, const Layout& l);
Scratch room_for(Size size); // a picture of either kind

Convert conversion_to(const Access& access); // from 4:2:0
void convert_with(Convert convert, const Yuv& from, const Picture& p, const Layout& l);
void unpack_with(Unpack unpack, const Picture& p, const Layout& l, const Yuv& to);

libyuv::FilterMode filter_for(const Access& access);
void scale(const Yuv& from, const Yuv& to, libyuv::FilterMode filter);

} // namespace bench
