// SPDX-License-Identifier: MIT
#include "model/show_samples.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace model {
namespace {

// (a * 2^shift * factor) / 65536, towards minus infinity.
int64_t product(int64_t a, int shift, int64_t factor) { return (a * (int64_t{1} << shift) * factor) >> 16; }

Matrix multiplied(const Matrix& a, const Matrix& b)
{
    Matrix result = {};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            for (int i = 0; i < 3; ++i) result.at[row][column] += a.at[row][i] * b.at[i][column];
        }
    }
    return result;
}

} // namespace

int64_t rounded(double value) { return static_cast<int64_t>(std::floor(value + 0.5)); }

uint8_t cut(int64_t value) { return static_cast<uint8_t>(std::clamp<int64_t>(value, 0, 255)); }

double Encoding::kr() const { return matrix == VSURF_BT601 ? 0.299 : matrix == VSURF_BT709 ? 0.2126 : 0.2627; }

double Encoding::kb() const { return matrix == VSURF_BT601 ? 0.114 : matrix == VSURF_BT709 ? 0.0722 : 0.0593; }

Matrix yuv_to_rgb(const Encoding& e)
{
    const double l = 255 / e.luma_steps(), c = 255 / e.chroma_steps();
    const double red = 2 * (1 - e.kr()) * c, blue = 2 * (1 - e.kb()) * c;
    return {{{l, 0, red}, {l, -blue * e.kb() / e.kg(), -red * e.kr() / e.kg()}, {l, blue, 0}}};
}

Matrix rgb_to_yuv(const Encoding& e)
{
    const double l = e.luma_steps() / 255, c = e.chroma_steps() / 255;
    const double u = c / (2 * (1 - e.kb())), v = c / (2 * (1 - e.kr()));
    return {{{e.kr() * l, e.kg() * l, e.kb() * l},
             {-e.kr() * u, -e.kg() * u, 0.5 * c},
             {0.5 * c, -e.kg() * v, -e.kb() * v}}};
}

Look::Look(const vsurf_look& look)
    : contrast_(rounded(4096 * (1 + double{look.contrast}))), brightness_(rounded(255 * double{look.brightness}))
{
    const double scale = 4096 * (1 + double{look.saturation}), angle = std::numbers::pi * double{look.hue};
    cosine_ = rounded(scale * std::cos(angle));
    sine_ = rounded(scale * std::sin(angle));
}

Yuv Look::operator()(const Yuv& s) const
{
    const int y = s.y - 128, u = s.u - 128, v = s.v - 128;
    return {cut(product(y, 4, contrast_) + 128 + brightness_), cut(128 + product(u, 4, cosine_) - product(v, 4, sine_)),
            cut(128 + product(u, 4, sine_) + product(v, 4, cosine_))};
}

Conversion::Conversion(const Encoding& from, const Encoding& to)
    : black_in_(from.black()), black_out_(to.black()), same_(from == to)
{
    const Matrix exact = multiplied(rgb_to_yuv(to), yuv_to_rgb(from));
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) m_[row][column] = rounded(4096 * exact.at[row][column]);
    }
}

Yuv Conversion::operator()(const Yuv& s) const
{
    if (same_) return s;
    const int y = s.y - black_in_, u = s.u - 128, v = s.v - 128;
    return {cut(black_out_ + product(y, 4, m_[0][0]) + product(u, 4, m_[0][1]) + product(v, 4, m_[0][2])),
            cut(128 + product(u, 4, m_[1][1]) + product(v, 4, m_[1][2])),
            cut(128 + product(u, 4, m_[2][1]) + product(v, 4, m_[2][2]))};
}

ToRgb::ToRgb(const Encoding& encoding) : black_(encoding.black())
{
    if (encoding == Encoding{}) { // the exports' own
        luma_ = 19071;
        red_v_ = 26149;
        green_u_ = 3204;
        green_v_ = 13321;
        blue_u_ = 16532;
        return;
    }
    const Matrix exact = yuv_to_rgb(encoding);
    luma_ = rounded(16384 * exact.at[0][0]);
    red_v_ = rounded(16384 * exact.at[0][2]);
    green_u_ = rounded(8192 * -exact.at[1][1]);
    green_v_ = rounded(16384 * -exact.at[1][2]);
    blue_u_ = rounded(8192 * exact.at[2][1]);
}

Rgb ToRgb::operator()(const Yuv& s) const
{
    const int64_t l = product(s.y - black_, 2, luma_);
    const int u = s.u - 128, v = s.v - 128;
    return {cut(l + product(v, 2, red_v_)), cut(l - (product(u, 3, green_u_) + product(v, 2, green_v_))),
            cut(l + product(u, 3, blue_u_))};
}

} // namespace model
