// SPDX-License-Identifier: MIT
// What happens to single samples on their way from a picture to a surface: look, encodings, RGB.
#pragma once
#include "model/samples.h"
#include "show/vsurf_show.h"

#include <cstdint>

namespace model {

struct Yuv {
    uint8_t y, u, v;
};

// How samples stand for colours.
struct Encoding {
    int matrix = VSURF_BT601, range = VSURF_LIMITED;

    bool operator==(const Encoding&) const = default;
    double kr() const;
    double kb() const;
    double kg() const { return 1 - kr() - kb(); }
    int black() const { return range == VSURF_LIMITED ? 16 : 0; }
    double luma_steps() const { return range == VSURF_LIMITED ? 219 : 255; }
    double chroma_steps() const { return range == VSURF_LIMITED ? 224 : 255; }
};

// Rows R, G, B over columns luma above black, U - 128, V - 128; and the way back.
struct Matrix {
    double at[3][3];
};
Matrix yuv_to_rgb(const Encoding& encoding);
Matrix rgb_to_yuv(const Encoding& encoding);

int64_t rounded(double value); // to the nearest integer, halves up
uint8_t cut(int64_t value);    // to 0..255

// Brightness, contrast, saturation and hue as integers.
class Look {
public:
    explicit Look(const vsurf_look& look);
    Yuv operator()(const Yuv& sample) const;

private:
    int64_t contrast_, brightness_, cosine_, sine_;
};

// From one encoding to another.
class Conversion {
public:
    Conversion(const Encoding& from, const Encoding& to);
    Yuv operator()(const Yuv& sample) const;

private:
    int black_in_, black_out_;
    bool same_;
    int64_t m_[3][3]; // in 1/4096
};

class ToRgb {
public:
    explicit ToRgb(const Encoding& encoding);
    Rgb operator()(const Yuv& sample) const;

private:
    int black_;
    int64_t luma_, red_v_, green_u_, green_v_, blue_u_;
};

} // namespace model
