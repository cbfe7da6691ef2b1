// SPDX-License-Identifier: MIT
#include "tools/overlay.h"
#include <algorithm>
#include <cmath>
#include <cstring>

namespace player {
namespace {

constexpr uint32_t kBarByte = 0; // black in every format
constexpr uint8_t kPlayed = 1;
constexpr int kBarsPerHeight = 18, kLeastBar = 4;

// Pairs of lines.
int bar_height(const Surface& screen)
{
    return std::min(std::max(kLeastBar, screen.shown_height() / kBarsPerHeight / 2 * 2), screen.height());
}

// The fourth byte of a pixel is not a colour.
int colour_bytes(SurfaceFormat format) { return std::min(traits(format).bytes_per_pixel, 3); }

} // namespace

Surface& Overlay::area(const Surface& video)
{
    screen_.shape(rgb_for(video.format()), video.width(), video.height(), video.shown_width(), video.shown_height());
    return screen_;
}

void Overlay::paint_key(Stats& stats)
{
    stats.time([&] { return fill(kKeyByte, screen_.height()); });
}

void Overlay::paint_bar(std::optional<double> played, Stats& stats)
{
    const int height = bar_height(screen_), border = height / 4;
    fill(kBarByte, height);
    if (!played) return;
    const int bytes_per_pixel = traits(screen_.format()).bytes_per_pixel, line = screen_.width() * bytes_per_pixel;
    const auto pitch = static_cast<std::size_t>(screen_.pitch());
    const auto open = static_cast<std::size_t>(std::lround(*played * screen_.shown_width()) * bytes_per_pixel);
    mask_.assign(pitch * static_cast<std::size_t>(height - 2 * border), 0);
    for (std::size_t y = 0; y < mask_.size(); y += pitch) std::memset(mask_.data() + y, kPlayed, open);
    stats.time([&] {
        RelaceMaskWithColorKey(screen_.bytes() + static_cast<std::ptrdiff_t>(border) * screen_.pitch(), mask_.data(),
                               kPlayed, kKeyByte, line, screen_.pitch(), height - 2 * border);
        return "RelaceMaskWithColorKey";
    });
}

const char* Overlay::fill(uint32_t byte, int height)
{
    auto run = [&](const char* name, auto load, uint32_t colour) {
        load(colour, screen_.bytes(), screen_.width(), height, 0, screen_.pitch());
        return name;
    };
    switch (screen_.format()) {
    case SurfaceFormat::rgb32: return run("LoadColorKeyRgb32", LoadColorKeyRgb32, byte * 0x01010101);
    case SurfaceFormat::rgb24: return run("LoadColorKeyRgb24", LoadColorKeyRgb24, byte * 0x010101);
    default: return run("LoadColorKeyRgb16", LoadColorKeyRgb16, byte * 0x0101);
    }
}

const RgbImage& Overlay::over(const RgbImage& video)
{
    seen_ = converter_.convert(screen_);
    const int bytes_per_pixel = traits(screen_.format()).bytes_per_pixel, compared = colour_bytes(screen_.format());
    for (int y = 0; y < seen_.height; y++) {
        const uint8_t* screen = screen_.bytes() + static_cast<std::ptrdiff_t>(y) * screen_.pitch();
        std::size_t at = 3 * static_cast<std::size_t>(y) * static_cast<std::size_t>(seen_.width);
        for (int x = 0; x < seen_.width; x++, screen += bytes_per_pixel, at += 3)
            if (std::all_of(screen, screen + compared, [](uint8_t byte) { return byte == kKeyByte; }))
                std::memcpy(seen_.bytes.data() + at, video.bytes.data() + at, 3);
    }
    return seen_;
}

} // namespace player
