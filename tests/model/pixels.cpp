// SPDX-License-Identifier: MIT
#include "model/pixels.h"

namespace model {
int bytes_per_pixel(Format format) { return format == Format::kRgb32 ? 4 : format == Format::kRgb24 ? 3 : 2; }

uint32_t packed(const Rgb& pixel, PixelFormat format)
{
    if (format.format == Format::kRgb16) return rgb16(pixel, format.layout);
    return uint32_t{pixel.r} << 16 | uint32_t{pixel.g} << 8 | pixel.b;
}

uint32_t read_number(const Pointer& from, int bytes)
{
    uint32_t number = 0;
    for (int i = 0; i < bytes; ++i) number |= uint32_t{from[i]} << 8 * i;
    return number;
}

void store_number(Pointer to, uint64_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i) to.store(i, static_cast<uint8_t>(number >> 8 * i & 0xFF));
}

void store_pixels(Pointer to, const Luma16& luma, const Terms8& terms, PixelFormat format)
{
    const int bytes = bytes_per_pixel(format.format);
    for (size_t i = 0; i < luma.size(); ++i) {
        store_number(to, packed(to_rgb(luma[i], terms[i / 2]), format), bytes);
        to.advance(bytes);
    }
}

Luma16 read_luma(const Pointer& y, const State* adjustment)
{
    Luma16 luma;
    for (int i = 0; i < 16; ++i) {
        const uint8_t sample = y[i];
        luma[static_cast<size_t>(i)] =
            adjustment ? adjust(sample, adjustment->luma_gain, adjustment->luma_offset) : sample;
    }
    return luma;
}

Terms8 read_terms(const Pointer& u, const Pointer& v, const State* adjustment)
{
    Terms8 terms;
    for (int k = 0; k < 8; ++k) {
        uint8_t su = u[k], sv = v[k];
        if (adjustment) {
            su = adjust(su, adjustment->chroma_gain, adjustment->u_offset);
            sv = adjust(sv, adjustment->chroma_gain, adjustment->v_offset);
        }
        terms[static_cast<size_t>(k)] = chroma_terms(su, sv);
    }
    return terms;
}

} // namespace model
