#include "model/pixels.h"

namespace model {
namespace {

void store_pixel(Pointer to, const Rgb& pixel, PixelFormat format)
{
    if (format.format == Format::kRgb16) {
        const uint16_t word = rgb16(pixel, format.layout);
        to.store(0, static_cast<uint8_t>(word & 0xFF));
        to.store(1, static_cast<uint8_t>(word >> 8));
        return;
    }
    to.store(0, pixel.b);
    to.store(1, pixel.g);
    to.store(2, pixel.r);
    if (format.format == Format::kRgb32) to.store(3, 0);
}

} // namespace

int bytes_per_pixel(Format format) { return format == Format::kRgb32 ? 4 : format == Format::kRgb24 ? 3 : 2; }

void store_pixels(Pointer to, const Luma16& luma, const Terms8& terms, PixelFormat format)
{
    for (size_t i = 0; i < luma.size(); ++i) {
        store_pixel(to, to_rgb(luma[i], terms[i / 2]), format);
        to.advance(bytes_per_pixel(format.format));
    }
}

} // namespace model
