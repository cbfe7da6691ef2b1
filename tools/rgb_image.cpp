// SPDX-License-Identifier: MIT
#include "tools/rgb_image.h"
#include "tools/error.h"
#include <cstring>

namespace player {
namespace {

// Where a component is in a 16-bit pixel.
struct Bits {
    int shift, count;

    // The top bits are repeated below, so that all ones become 255.
    uint8_t widen(int pixel) const
    {
        const int value = pixel >> shift & ((1 << count) - 1);
        const int high = value << (8 - count);
        return static_cast<uint8_t>(high | high >> count);
    }
};

struct Rgb16Layout {
    Bits r, g, b;
};

constexpr Rgb16Layout kRgb16Layouts[] = {
    {{11, 5}, {5, 6}, {0, 5}},
    {{11, 5}, {6, 5}, {1, 5}},
    {{10, 6}, {4, 6}, {0, 4}},
    {{10, 6}, {5, 5}, {0, 5}},
};

void unpack_bytes(const uint8_t* from, int bytes_per_pixel, uint8_t* to, int width)
{
    for (int x = 0; x < width; x++, from += bytes_per_pixel, to += 3) {
        to[0] = from[2];
        to[1] = from[1];
        to[2] = from[0];
    }
}

void unpack_words(const uint8_t* from, const Rgb16Layout& layout, uint8_t* to, int width)
{
    for (int x = 0; x < width; x++, from += 2, to += 3) {
        const int pixel = from[0] | from[1] << 8;
        to[0] = layout.r.widen(pixel);
        to[1] = layout.g.widen(pixel);
        to[2] = layout.b.widen(pixel);
    }
}

} // namespace

const RgbImage& RgbConverter::convert(const Surface& surface)
{
    const auto line_size = 3 * static_cast<std::size_t>(surface.shown_width());
    image_.width = surface.shown_width();
    image_.height = surface.shown_height();
    image_.bytes.resize(line_size * static_cast<std::size_t>(image_.height));
    if (surface.format() == SurfaceFormat::yuy2 || surface.format() == SurfaceFormat::yv12) {
        convert_yuv(surface);
        return image_;
    }
    const FormatTraits& format = traits(surface.format());
    for (int line = 0; line < image_.height; line++) {
        const uint8_t* from = surface.bytes() + static_cast<std::ptrdiff_t>(line) * surface.pitch();
        uint8_t* to = image_.bytes.data() + static_cast<std::size_t>(line) * line_size;
        if (format.rgb16_layout >= 0) unpack_words(from, kRgb16Layouts[format.rgb16_layout], to, image_.width);
        else unpack_bytes(from, format.bytes_per_pixel, to, image_.width);
    }
    return image_;
}

// The whole surface is converted, padding included, and then cropped: swscale wants pairs of pixels and lines.
void RgbConverter::convert_yuv(const Surface& surface)
{
    const bool planar = surface.format() == SurfaceFormat::yv12;
    const int width = surface.width(), height = surface.height();
    scaler_.reset(sws_getCachedContext(scaler_.release(), width, height,
                                       planar ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_YUYV422, width, height,
                                       AV_PIX_FMT_RGB24, SWS_POINT | SWS_ACCURATE_RND, nullptr, nullptr, nullptr));
    if (!scaler_) throw Error("swscale cannot convert the surface to RGB");
    const int* matrix = sws_getCoefficients(SWS_CS_ITU601);
    sws_setColorspaceDetails(scaler_.get(), matrix, 0, matrix, 1, 0, 1 << 16, 1 << 16);

    if (!rgb_ || rgb_->width != width || rgb_->height != height) {
        rgb_ = new_frame();
        rgb_->format = AV_PIX_FMT_RGB24;
        rgb_->width = width;
        rgb_->height = height;
        if (av_frame_get_buffer(rgb_.get(), 0) < 0) throw std::bad_alloc();
    }
    const uint8_t* planes[4] = {surface.bytes()};
    int pitches[4] = {surface.pitch()};
    if (planar) {
        planes[1] = surface.u_plane();
        planes[2] = surface.v_plane();
        pitches[1] = pitches[2] = surface.chroma_pitch();
    }
    sws_scale(scaler_.get(), planes, pitches, 0, height, rgb_->data, rgb_->linesize);

    const auto line_size = 3 * static_cast<std::size_t>(image_.width);
    for (int line = 0; line < image_.height; line++)
        std::memcpy(image_.bytes.data() + static_cast<std::size_t>(line) * line_size,
                    rgb_->data[0] + static_cast<std::ptrdiff_t>(line) * rgb_->linesize[0], line_size);
}

} // namespace player
