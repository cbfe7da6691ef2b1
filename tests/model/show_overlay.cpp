// SPDX-License-Identifier: MIT
#include "model/show_overlay.h"

#include "model/show_formats.h"

#include <algorithm>

namespace model {
namespace {

int divided(int value) { return (value + 127) / 255; }

} // namespace

bool is_premultiplied(const vsurf_overlay& overlay)
{
    return number(overlay.kind) == VSURF_PREMULTIPLIED_RGBA || number(overlay.kind) == VSURF_PREMULTIPLIED_BGRA;
}

std::optional<OverlayPixel> overlay_pixel(const vsurf_overlay& overlay, int64_t x, int64_t y)
{
    const int64_t column = x - overlay.x, line = y - overlay.y;
    if (column < 0 || line < 0 || column >= overlay.width || line >= overlay.height) return std::nullopt;
    const uint8_t* const start = overlay.pixels + static_cast<ptrdiff_t>(line) * overlay.pitch;
    if (number(overlay.kind) == VSURF_COVERAGE) {
        const auto byte = [&](int shift) { return static_cast<int>(overlay.colour >> shift & 255); };
        return OverlayPixel{byte(16), byte(8), byte(0), divided(start[column] * byte(24))};
    }
    const uint8_t* const p = start + 4 * static_cast<ptrdiff_t>(column);
    const bool blue_first =
        number(overlay.kind) == VSURF_STRAIGHT_BGRA || number(overlay.kind) == VSURF_PREMULTIPLIED_BGRA;
    return blue_first ? OverlayPixel{p[2], p[1], p[0], p[3]} : OverlayPixel{p[0], p[1], p[2], p[3]};
}

uint8_t blended(bool premultiplied, int over, int alpha, int below)
{
    if (premultiplied) return cut(over + divided(below * (255 - alpha)));
    return cut(divided(over * alpha + below * (255 - alpha)));
}

OverlayToYuv::OverlayToYuv(const Encoding& encoding) : black_(encoding.black())
{
    const Matrix exact = rgb_to_yuv(encoding);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) m_[row][column] = rounded(65536 * exact.at[row][column]);
    }
}

Yuv OverlayToYuv::operator()(const OverlayPixel& p, bool premultiplied) const
{
    const int alpha = premultiplied ? p.a : 255;
    auto sample = [&](int row, int origin) {
        const int64_t sum = m_[row][0] * p.r + m_[row][1] * p.g + m_[row][2] * p.b + 32768;
        return cut((sum >> 16) + divided(origin * alpha));
    };
    return {sample(0, black_), sample(1, 128), sample(2, 128)};
}

uint8_t blended_chroma(bool premultiplied, std::span<const ChromaPart> parts, int below)
{
    const int full = 255 * static_cast<int>(parts.size());
    int alphas = 0, overs = 0;
    for (const ChromaPart& part : parts) {
        alphas += part.alpha;
        overs += part.over * (premultiplied ? 255 : part.alpha);
    }
    return cut((overs + below * (full - alphas) + full / 2) / full);
}

} // namespace model
