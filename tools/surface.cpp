// SPDX-License-Identifier: MIT
#include "tools/surface.h"
#include <cstring>
#include <new>

namespace player {

// swscale's vector code may read a little beyond the last pixel when a surface is converted for a PNG.
static constexpr std::size_t kReadSlack = 64;

std::optional<SurfaceFormat> format_named(std::string_view name)
{
    for (std::size_t i = 0; i < kFormatTraits.size(); i++)
        if (name == kFormatTraits[i].name) return static_cast<SurfaceFormat>(i);
    return std::nullopt;
}

SurfaceFormat next_format(SurfaceFormat format)
{
    return static_cast<SurfaceFormat>((static_cast<std::size_t>(format) + 1) % kFormatTraits.size());
}

std::string format_names()
{
    std::string names;
    for (const FormatTraits& each : kFormatTraits) names.append(names.empty() ? "" : ", ").append(each.name);
    return names;
}

AlignedBytes allocate_aligned(std::size_t size)
{
    size = (size + 63) / 64 * 64;
    auto* bytes = static_cast<uint8_t*>(std::aligned_alloc(64, size));
    if (!bytes) throw std::bad_alloc();
    std::memset(bytes, 0, size);
    return AlignedBytes(bytes);
}

void Surface::shape(SurfaceFormat format, int width, int height, int shown_width, int shown_height, bool tight)
{
    shown_width_ = shown_width;
    shown_height_ = shown_height;
    const bool planar = format == SurfaceFormat::yv12;
    const int line = width * traits(format).bytes_per_pixel;
    const int pitch = tight ? line : round_up(line, planar ? 128 : 64); // 64 for the chroma lines too
    if (bytes_ && format == format_ && width == width_ && height == height_ && pitch == pitch_) return;
    format_ = format;
    width_ = width;
    height_ = height;
    pitch_ = pitch;
    const std::size_t size = planar ? luma_size() / 2 * 3 : luma_size();
    bytes_ = nullptr;
    bytes_ = allocate_aligned(size + kReadSlack);
}

} // namespace player
