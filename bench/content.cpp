// SPDX-License-Identifier: MIT
#include "bench/content.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>

namespace bench {
namespace {

struct Point {
    double x, y; // 0 to 1 over the picture
};

bool in_disc(Point at) { return std::hypot(at.x - 0.35, at.y - 0.45) < 0.2; }
bool in_bar(Point at) { return at.x > 0.6 && at.y > 0.5 && std::fmod(at.x + 0.7 * at.y, 0.1) < 0.05; }

double luma(Point at)
{
    const double shade = 70 + 60 * at.x + 35 * std::sin(4 * at.y);
    return shade + (in_disc(at) ? 55 : 0) + (in_bar(at) ? 60 : 0);
}
double u(Point at) { return 110 + 50 * at.y - (in_disc(at) ? 30 : 0); }
double v(Point at) { return 100 + 60 * std::cos(3 * at.x); }

Point point(int x, int y, Size size)
{
    return {static_cast<double>(x) / size.width, static_cast<double>(y) / size.height};
}

uint8_t sample(double value) { return static_cast<uint8_t>(std::clamp(value, 0.0, 255.0)); }

uint8_t grainy(double value, std::minstd_rand& grain) { return sample(value + static_cast<double>(grain() % 5) - 2); }

void paint_plane(uint8_t* plane, int pitch, Size size, double (*shade)(Point), std::minstd_rand& grain, int step = 1)
{
    for (int y = 0; y < size.height; y++) {
        for (int x = 0; x < size.width; x++)
            plane[ptrdiff_t{pitch} * y + step * x] = grainy(shade(point(x, y, size)), grain);
    }
}

void paint_packed(const Layout& layout, uint8_t* picture, std::minstd_rand& grain)
{
    const int at_luma = layout.access.source == Source::uyvy ? 1 : 0;
    for (int y = 0; y < layout.size.height; y++) {
        uint8_t* line = picture + ptrdiff_t{layout.y_pitch} * y;
        for (int x = 0; x < layout.size.width; x++) {
            const Point shared = point(x / 2 * 2, y / 2 * 2, layout.size);
            line[2 * x + at_luma] = grainy(luma(point(x, y, layout.size)), grain);
            line[2 * x + 1 - at_luma] = sample(x % 2 == 0 ? u(shared) : v(shared));
        }
    }
}

// What is blended onto the picture: its opposite, in other colours.
double overlay_luma(Point at) { return 255 - luma(at); }
double overlay_chroma(Point at) { return 170 - 40 * at.x; }

void paint_overlay(const Layout& layout, const Picture& picture, std::minstd_rand& grain)
{
    const Size region = layout.region(), half{region.width / 2, region.height};
    paint_plane(picture.overlay_y, layout.y_pitch, region, overlay_luma, grain);
    paint_plane(picture.overlay_u, layout.y_pitch / 2, half, overlay_chroma, grain);
    paint_plane(picture.overlay_v, layout.y_pitch / 2, half, overlay_chroma, grain);
}

void select_all(const Layout& layout, uint8_t* mask) { std::memset(mask, kSelected, layout.luma_bytes); }

} // namespace

void make_noise(std::span<uint8_t> memory)
{
    std::mt19937_64 noise(1);
    for (size_t i = 0; i + sizeof(uint64_t) <= memory.size(); i += sizeof(uint64_t)) {
        const uint64_t word = noise();
        std::memcpy(memory.data() + i, &word, sizeof word);
    }
}

void make_natural(const Layout& layout, const Picture& picture)
{
    std::minstd_rand grain(1);
    const Access& access = layout.access;
    if (access.converts() || access.source == Source::none) return;
    if (access.oddity == Oddity::merge) return select_all(layout, picture.y);
    if (bytes_per_pixel(access.source) == 2) return paint_packed(layout, picture.y, grain);
    paint_plane(picture.y, layout.y_pitch, layout.size, luma, grain);
    if (access.mixes()) paint_overlay(layout, picture, grain);
    if (layout.chroma_bytes == 0) return;
    const Size half{layout.size.width / 2, layout.size.height / (access.source == Source::subpicture ? 1 : 2)};
    if (access.source == Source::semi_planar) {
        paint_plane(picture.u, layout.y_pitch, half, u, grain, 2);
        paint_plane(picture.u + 1, layout.y_pitch, half, v, grain, 2);
        return;
    }
    paint_plane(picture.u, layout.y_pitch / 2, half, u, grain);
    paint_plane(picture.v, layout.y_pitch / 2, half, v, grain);
}

double edge_share(const Layout& layout, const Picture& picture)
{
    int edges = 0, groups = 0;
    for (int y = 0; y + 1 < layout.size.height; y++) {
        const uint8_t* upper = picture.y + ptrdiff_t{layout.y_pitch} * y;
        const uint8_t* lower = upper + layout.y_pitch;
        for (int x = 16; x + 16 < layout.size.width; x += 4, groups++) {
            int sum = 0;
            for (int i = x; i < x + 4; i++) sum += std::abs(upper[i] - lower[i]);
            edges += sum > 32;
        }
    }
    return static_cast<double>(edges) / std::max(1, groups);
}

} // namespace bench
