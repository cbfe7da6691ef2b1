// SPDX-License-Identifier: MIT
#include "bench/shows.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "bench/covers.h"
#include "show/dispatch.h"

namespace bench {
namespace {

using vsurf::Kernels;

// Usual sizes, and odd ones with the next size of whole blocks.
constexpr Size kSizes[] = {{333, 217}, {336, 218}, {352, 288}, {720, 576}, {853, 479}, {864, 480}, {1920, 1080}};
constexpr Size kSmallest[] = {{64, 32}}; // where the call itself counts

constexpr Access to_surface(Surface surface, Source source = Source::planar, Colour colour = Colour::bt601)
{
    Access access{source, surface};
    access.colour = colour;
    return access;
}

vsurf_format format_of(Source source)
{
    switch (source) {
    case Source::semi_planar: return VSURF_NV12;
    case Source::packed: return VSURF_YUY2;
    case Source::uyvy: return VSURF_UYVY;
    default: return VSURF_I420;
    }
}

vsurf_format format_of(Surface surface)
{
    switch (surface) {
    case Surface::rgb24: return VSURF_BGR24;
    case Surface::rgb565: return VSURF_RGB565;
    case Surface::nv12: return VSURF_NV12;
    default: return VSURF_BGRX;
    }
}

const vsurf::ShowKernels& kernels_of(const vsurf::Isa& isa)
{
    const auto* end = vsurf::show_isas + vsurf::show_isa_count;
    return *std::find_if(vsurf::show_isas, end, [&](const auto& i) {
                return std::string(i.name) == isa.name;
            })->kernels;
}

// Bitmaps that are blended, and their pixels.
struct Bitmaps {
    std::vector<vsurf_overlay> overlays;
    std::vector<std::vector<uint8_t>> pixels;
};

// The part of an alpha plane from line `top` up to `bottom` without its clear margins, in white.
void add_line(Bitmaps& to, const std::vector<uint8_t>& alpha, int width, int top, int bottom, vsurf_overlay_kind kind)
{
    const auto at = [&](int x, int y) {
        return alpha[static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x)];
    };
    int left = width, right = 0, first = bottom, end = top;
    for (int y = top; y < bottom; y++) {
        for (int x = 0; x < width; x++) {
            if (at(x, y) == 0) continue;
            left = std::min(left, x), right = std::max(right, x + 1);
            first = std::min(first, y), end = y + 1;
        }
    }
    if (left >= right) return;
    const int bytes = kind == VSURF_COVERAGE ? 1 : 4;
    std::vector<uint8_t>& pixels = to.pixels.emplace_back();
    for (int y = first; y < end; y++) {
        for (int x = left; x < right; x++) {
            for (int i = 1; i < bytes; i++) pixels.push_back(255);
            pixels.push_back(static_cast<uint8_t>(at(x, y) * 255 / 16));
        }
    }
    to.overlays.push_back(
        {kind, left, first, right - left, end - first, pixels.data(), (right - left) * bytes, 0xFFFFFFFF});
}

// Two lines of text, a bitmap each.
std::shared_ptr<const Bitmaps> subtitle(Size size, vsurf_overlay_kind kind)
{
    auto bitmaps = std::make_shared<Bitmaps>();
    bitmaps->pixels.reserve(2); // which never move
    const std::vector<uint8_t> alpha = subtitle_alpha(size);
    const int between = size.height * 7 / 8;
    add_line(*bitmaps, alpha, size.width, 0, between, kind);
    add_line(*bitmaps, alpha, size.width, between, size.height, kind);
    return bitmaps;
}

Load load_of(const vsurf::Isa& isa, const Layout& l, std::shared_ptr<const Bitmaps> bitmaps)
{
    const Access& access = l.access;
    const ptrdiff_t chroma = access.source == Source::semi_planar ? l.y_pitch : l.y_pitch / 2;
    vsurf_picture from{format_of(access.source), l.size.width, l.size.height, {}, {l.y_pitch, chroma, chroma}, {}, {}};
    from.matrix = access.colour == Colour::bt709 ? VSURF_BT709 : VSURF_BT601;
    from.range = access.colour == Colour::full ? VSURF_FULL : VSURF_LIMITED;
    const vsurf_surface to{
        format_of(access.surface), l.size.width, l.size.height, {}, {l.dst_pitch, l.dst_pitch}, {}, {}};
    return [=, &kernels = kernels_of(isa), chroma_at = ptrdiff_t{l.dst_pitch} * l.size.height](const Picture& p) {
        vsurf_picture picture = from;
        picture.plane[0] = p.y;
        picture.plane[1] = p.u;
        picture.plane[2] = p.v;
        vsurf_surface surface = to;
        surface.plane[0] = p.surface;
        surface.plane[1] = p.surface + chroma_at;
        vsurf_job job{};
        job.picture = &picture;
        job.surface = &surface;
        if (bitmaps) {
            job.overlays = bitmaps->overlays.data();
            job.overlay_count = static_cast<int>(bitmaps->overlays.size());
        }
        if (vsurf::show_band_with(kernels, &job, 0, 1) != VSURF_OK) std::abort();
    };
}

Load plain(const vsurf::Isa& isa, const Layout& l) { return load_of(isa, l, nullptr); }
template <vsurf_overlay_kind kind> Load with_subtitle(const vsurf::Isa& isa, const Layout& l)
{
    return load_of(isa, l, subtitle(l.size, kind));
}

Group group_of(std::vector<Export> exports, std::optional<Export> loader = {})
{
    Group group{std::move(exports)};
    group.loader = std::move(loader);
    group.own_peers = true;
    return group;
}

Group to_bgrx()
{
    constexpr Access kI420 = to_surface(Surface::rgb32);
    return group_of({{"show_i420_bgrx", plain, kI420},
                     {"show_i420_bgrx-709", plain, to_surface(Surface::rgb32, Source::planar, Colour::bt709)},
                     {"show_i420_bgrx-full", plain, to_surface(Surface::rgb32, Source::planar, Colour::full)},
                     {"show_i420_bgrx-subtitle", with_subtitle<VSURF_STRAIGHT_BGRA>, kI420},
                     {"show_i420_bgrx-coverage", with_subtitle<VSURF_COVERAGE>, kI420},
                     {"show_nv12_bgrx", plain, to_surface(Surface::rgb32, Source::semi_planar)},
                     {"show_uyvy_bgrx", plain, to_surface(Surface::rgb32, Source::uyvy)},
                     {"show_yuy2_bgrx", plain, to_surface(Surface::rgb32, Source::packed)}},
                    Export{"loadimage_rgb32", &Kernels::loadimage_rgb32, kI420});
}

Group to_one(const char* name, Surface surface, const char* loader = nullptr, Loader Kernels::*kernel = nullptr)
{
    Group group = group_of({{name, plain, to_surface(surface)}});
    if (loader) group.loader = Export{loader, kernel, to_surface(surface)};
    return group;
}

Group smallest_call()
{
    Group group = to_one("show_i420_bgrx", Surface::rgb32, "loadimage_rgb32", &Kernels::loadimage_rgb32);
    group.peers = false;
    return group;
}

std::vector<Group> show_groups()
{
    return {
        to_bgrx(),
        to_one("show_i420_bgr24", Surface::rgb24, "loadimage_rgb24", &Kernels::loadimage_rgb24),
        to_one("show_i420_rgb565", Surface::rgb565, "loadimage_rgb16", &Kernels::loadimage_rgb16),
        to_one("show_i420_nv12", Surface::nv12),
    };
}

} // namespace

std::span<const Family> all_families()
{
    static const std::vector<Family> all = [] {
        std::vector<Family> list(families().begin(), families().end());
        list.push_back({"show", kSizes, kSizes, show_groups()});
        list.push_back({"show, one call", kSmallest, {}, {smallest_call()}});
        return list;
    }();
    return all;
}

} // namespace bench
