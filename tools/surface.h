// SPDX-License-Identifier: MIT
// A display surface in memory: the format, the bytes, and how much of it is picture.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace player {

enum class SurfaceFormat { rgb32, rgb24, rgb16_565, rgb16_555, rgb16_664, rgb16_655, yuy2, yv12 };

struct FormatTraits {
    const char* name;
    int bytes_per_pixel; // of the luma plane where the format is planar
    int rgb16_layout;    // -1 where the format is not RGB16
};

inline constexpr std::array<FormatTraits, 8> kFormatTraits{{
    {"rgb32", 4, -1},
    {"rgb24", 3, -1},
    {"rgb16-565", 2, 0},
    {"rgb16-555", 2, 1},
    {"rgb16-664", 2, 2},
    {"rgb16-655", 2, 3},
    {"yuy2", 2, -1},
    {"yv12", 1, -1},
}};

constexpr const FormatTraits& traits(SurfaceFormat format) { return kFormatTraits[static_cast<std::size_t>(format)]; }

std::optional<SurfaceFormat> format_named(std::string_view name);
SurfaceFormat next_format(SurfaceFormat format);
std::string format_names(); // "rgb32, rgb24, ..."

constexpr int round_up(int value, int multiple) { return (value + multiple - 1) / multiple * multiple; }

struct AlignedDelete {
    void operator()(uint8_t* bytes) const { std::free(bytes); }
};
using AlignedBytes = std::unique_ptr<uint8_t, AlignedDelete>;

// Zeroed, and on a boundary of 64 bytes.
AlignedBytes allocate_aligned(std::size_t size);

class Surface {
public:
    // Keeps its memory, and what it holds, when nothing changes. The lines of a tight surface have no gap between them.
    void shape(SurfaceFormat format, int width, int height, int shown_width, int shown_height, bool tight = false);

    SurfaceFormat format() const { return format_; }
    int width() const { return width_; }
    int height() const { return height_; }
    int shown_width() const { return shown_width_; }
    int shown_height() const { return shown_height_; }
    int pitch() const { return pitch_; }
    uint8_t* bytes() const { return bytes_.get(); }

    // YV12: the V plane follows the luma plane, the U plane follows V.
    int chroma_pitch() const { return pitch_ / 2; }
    uint8_t* v_plane() const { return bytes() + luma_size(); }
    uint8_t* u_plane() const { return v_plane() + luma_size() / 4; }

private:
    std::size_t luma_size() const { return static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(height_); }

    SurfaceFormat format_ = SurfaceFormat::rgb32;
    int width_ = 0, height_ = 0, shown_width_ = 0, shown_height_ = 0, pitch_ = 0;
    AlignedBytes bytes_;
};

} // namespace player
