// SPDX-License-Identifier: MIT
#include "tools/picture.h"
#include <cstring>

namespace player {
namespace {

// The plane enlargers read one sample beyond the last one of a plane, mixers of a field one of its lines.
constexpr std::size_t kReadSlack = 64;

struct Plane {
    uint8_t* bytes;
    std::ptrdiff_t pitch;
    int width, height; // in bytes and lines
};

void extend_samples(uint8_t* line, int from, int to)
{
    std::memset(line + from, line[from - 1], static_cast<std::size_t>(to - from));
}

// An odd number of pixels ends in the middle of a pair, whose V is behind them.
void extend_pixels(uint8_t* line, int from, int to)
{
    const uint8_t luma = line[from - 2];
    const uint8_t* pair = line + (from - 2) / 4 * 4;
    const uint8_t u = pair[1], v = pair[3];
    for (int x = from; x < to; x += 2) {
        line[x] = luma;
        line[x + 1] = x % 4 ? v : u;
    }
}

// `last` is the line of the source that is repeated below it, and `extend` lengthens a line.
void copy_padded(const Plane& from, const Plane& to, int last, void (*extend)(uint8_t*, int, int))
{
    const int whole = extend == extend_pixels ? round_up(from.width, 4) : from.width;
    for (int line = 0; line < to.height; line++) {
        uint8_t* out = to.bytes + line * to.pitch;
        if (line < from.height) {
            std::memcpy(out, from.bytes + line * from.pitch, static_cast<std::size_t>(whole));
            extend(out, from.width, to.width);
        } else {
            std::memcpy(out, to.bytes + last * to.pitch, static_cast<std::size_t>(to.width));
        }
    }
}

// A field ends with the last of its own lines, not with one of the other field's.
int last_line(int height, const Geometry& geometry) { return geometry.field ? (height - 1) / 2 * 2 : height - 1; }

bool usable_in_place(const AVFrame& frame, const Geometry& geometry)
{
    if (frame.width != geometry.picture_width || frame.height != geometry.picture_height) return false;
    const int pitch = frame.linesize[0], line = geometry.packed ? 2 * frame.width : frame.width;
    if (pitch < line || (geometry.tight_picture && pitch != line)) return false;
    if (geometry.packed) return pitch % 2 == 0;
    return frame.linesize[1] * 2 == pitch && frame.linesize[2] * 2 == pitch;
}

} // namespace

Picture PictureSource::take(const AVFrame& frame, const Geometry& geometry)
{
    if (!usable_in_place(frame, geometry))
        return geometry.packed ? copy_packed(frame, geometry) : copy_planes(frame, geometry);
    const int pitch = geometry.packed ? frame.linesize[0] / 2 : frame.linesize[0];
    return {frame.data[0], frame.data[1], frame.data[2], frame.width, frame.height, pitch};
}

Picture PictureSource::copy_planes(const AVFrame& frame, const Geometry& geometry)
{
    const int width = geometry.picture_width, height = geometry.picture_height;
    const int pitch = geometry.tight_picture ? width : round_up(width, 128);
    const auto luma_size = static_cast<std::size_t>(pitch) * static_cast<std::size_t>(height);
    reserve(luma_size / 2 * 3 + static_cast<std::size_t>(pitch) / 2);
    const Picture picture{bytes_.get(), bytes_.get() + luma_size, bytes_.get() + luma_size / 4 * 5, width, height,
                          pitch};

    copy_padded({frame.data[0], frame.linesize[0], frame.width, frame.height}, {picture.y, pitch, width, height},
                last_line(frame.height, geometry), extend_samples);
    const int chroma_width = (frame.width + 1) / 2, chroma_height = (frame.height + 1) / 2;
    for (const int plane : {1, 2})
        copy_padded({frame.data[plane], frame.linesize[plane], chroma_width, chroma_height},
                    {plane == 1 ? picture.u : picture.v, pitch / 2, width / 2, height / 2},
                    last_line(chroma_height, geometry), extend_samples);
    return picture;
}

Picture PictureSource::copy_packed(const AVFrame& frame, const Geometry& geometry)
{
    const int width = geometry.picture_width, height = geometry.picture_height;
    const int pitch = geometry.tight_picture ? width : round_up(width, 32);
    reserve(2 * static_cast<std::size_t>(pitch) * static_cast<std::size_t>(height));
    copy_padded({frame.data[0], frame.linesize[0], 2 * frame.width, frame.height},
                {bytes_.get(), 2 * pitch, 2 * width, height}, last_line(frame.height, geometry), extend_pixels);
    return {bytes_.get(), nullptr, nullptr, width, height, pitch};
}

void PictureSource::reserve(std::size_t size)
{
    if (size <= size_) return;
    bytes_ = nullptr;
    bytes_ = allocate_aligned(size + kReadSlack);
    size_ = size;
}

} // namespace player
