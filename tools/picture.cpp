#include "tools/picture.h"
#include <cstring>

namespace player {
namespace {

struct Plane {
    uint8_t* bytes;
    std::ptrdiff_t pitch;
    int width, height;
};

void copy_padded(Plane from, Plane to)
{
    const auto width = static_cast<std::size_t>(from.width);
    const auto padding = static_cast<std::size_t>(to.width - from.width);
    for (int line = 0; line < to.height; line++) {
        uint8_t* out = to.bytes + line * to.pitch;
        if (line < from.height) {
            std::memcpy(out, from.bytes + line * from.pitch, width);
            std::memset(out + width, out[width - 1], padding);
        } else {
            std::memcpy(out, out - to.pitch, static_cast<std::size_t>(to.width));
        }
    }
}

bool usable_in_place(const AVFrame& frame, const Geometry& geometry)
{
    const int pitch = frame.linesize[0];
    return frame.width == geometry.picture_width && frame.height == geometry.picture_height && pitch > 0 &&
           frame.linesize[1] * 2 == pitch && frame.linesize[2] * 2 == pitch &&
           (!geometry.tight_luma || pitch == frame.width);
}

} // namespace

Planes PictureSource::planes(const AVFrame& frame, const Geometry& geometry)
{
    const int width = geometry.picture_width, height = geometry.picture_height;
    if (usable_in_place(frame, geometry))
        return {frame.data[0], frame.data[1], frame.data[2], width, height, frame.linesize[0]};

    reserve(geometry);
    const auto luma_size = static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(height_);
    uint8_t* y = bytes_.get();
    uint8_t* u = y + luma_size;
    uint8_t* v = u + luma_size / 4;
    const int chroma_width = (frame.width + 1) / 2, chroma_height = (frame.height + 1) / 2;
    copy_padded({frame.data[0], frame.linesize[0], frame.width, frame.height}, {y, pitch_, width, height});
    copy_padded({frame.data[1], frame.linesize[1], chroma_width, chroma_height},
                {u, pitch_ / 2, width / 2, height / 2});
    copy_padded({frame.data[2], frame.linesize[2], chroma_width, chroma_height},
                {v, pitch_ / 2, width / 2, height / 2});
    return {y, u, v, width, height, pitch_};
}

void PictureSource::reserve(const Geometry& geometry)
{
    const int pitch = geometry.tight_luma ? geometry.picture_width : round_up(geometry.picture_width, 128);
    if (bytes_ && pitch == pitch_ && geometry.picture_height == height_) return;
    pitch_ = pitch;
    height_ = geometry.picture_height;
    bytes_ = nullptr;
    bytes_ = allocate_aligned(static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(height_) / 2 * 3);
}

} // namespace player
