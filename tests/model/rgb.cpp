// SPDX-License-Identifier: MIT
// Planar pictures to RGB surfaces, plain and adjusted.
#include "model/pixels.h"
#include "model/planar.h"

namespace model {
namespace {

void load_rgb(Planes& planes, const Call& call, Format format, bool adjusted)
{
    PixelFormat pixels{format, 0};
    if (format == Format::kRgb16) {
        pixels.layout = static_cast<uint32_t>(call.info->rgb16_layout);
        if (pixels.layout > 3) return;
    }
    const State* const adjustment = adjusted ? &call.state : nullptr;
    const int pixel = bytes_per_pixel(format);
    Pointer y(planes.y), u(planes.u), v(planes.v), dst(planes.dst);
    Counter lines(call.height);
    do {
        Counter columns(call.width);
        do {
            const Terms8 terms = read_terms(u, v, adjustment);
            store_pixels(dst, read_luma(y, adjustment), terms, pixels);
            store_pixels(dst.plus(call.dst_pitch), read_luma(y.plus(call.y_pitch), adjustment), terms, pixels);
            y.advance(16);
            u.advance(8);
            v.advance(8);
            dst.advance(16 * pixel);
        } while (columns.more_after(16));
        const int32_t chroma_step = shift_arithmetic(wrap(int64_t{call.y_pitch} - call.width), 1);
        y.advance(wrap(2 * int64_t{call.y_pitch} - call.width));
        u.advance(chroma_step);
        v.advance(chroma_step);
        dst.advance(wrap(2 * int64_t{call.dst_pitch} - int64_t{call.width} * pixel));
    } while (lines.more_after(2));
}

} // namespace

void loadimage_rgb32(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb32, false); }
void loadimage_rgb24(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb24, false); }
void loadimage_rgb16(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb16, false); }
void loadimage_rgb32_ajust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb32, true); }
void loadimage_rgb24_ajust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb24, true); }
void loadimage_rgb16_ajust(Planes& planes, const Call& call) { load_rgb(planes, call, Format::kRgb16, true); }

} // namespace model
