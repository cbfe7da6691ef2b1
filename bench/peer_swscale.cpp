// SPDX-License-Identifier: MIT
extern "C" {
#include <libavutil/cpu.h>
#include <libavutil/log.h>
#include <libswscale/swscale.h>
}

#include <array>
#include <memory>
#include <stdexcept>

#include "bench/peers.h"

namespace bench {
namespace {

struct Tier {
    const char* name;
    int flags; // as av_force_cpu_flags takes them; -1 is everything that the machine has
};

constexpr Tier kTiers[] = {
    {"", -1},
#if defined __x86_64__ || defined __i386__
    {"-ssse3",
     AV_CPU_FLAG_MMX | AV_CPU_FLAG_MMXEXT | AV_CPU_FLAG_SSE | AV_CPU_FLAG_SSE2 | AV_CPU_FLAG_SSE3 | AV_CPU_FLAG_SSSE3},
    {"-sse2", AV_CPU_FLAG_MMX | AV_CPU_FLAG_MMXEXT | AV_CPU_FLAG_SSE | AV_CPU_FLAG_SSE2},
#endif
};

AVPixelFormat format_of(Source source)
{
    switch (source) {
    case Source::packed: return AV_PIX_FMT_YUYV422;
    case Source::uyvy: return AV_PIX_FMT_UYVY422;
    case Source::semi_planar: return AV_PIX_FMT_NV12;
    case Source::luma: return AV_PIX_FMT_GRAY8;
    default: break;
    }
    return AV_PIX_FMT_YUV420P;
}

AVPixelFormat format_of(Surface surface)
{
    switch (surface) {
    case Surface::rgb32: return AV_PIX_FMT_BGRA;
    case Surface::rgb24: return AV_PIX_FMT_BGR24;
    case Surface::rgb565: return AV_PIX_FMT_RGB565LE;
    case Surface::rgb555: return AV_PIX_FMT_RGB555LE;
    case Surface::yuy2: return AV_PIX_FMT_YUYV422;
    case Surface::plane: return AV_PIX_FMT_GRAY8;
    case Surface::nv12: return AV_PIX_FMT_NV12;
    case Surface::yv12:
    case Surface::planes: break;
    }
    return AV_PIX_FMT_YUV420P;
}

bool same_size(const Access& access) { return access.half_widths == 2 && access.heights == 1; }

bool is_rgb(Surface surface)
{
    return surface == Surface::rgb32 || surface == Surface::rgb24 || surface == Surface::rgb565 ||
           surface == Surface::rgb555;
}

// Where planar YUV becomes RGB of the same size it has converters of their own, at several instruction sets. What goes
// through its general scaler is measured only at the best one.
bool has_tiers(const Access& access)
{
    return access.source == Source::planar && is_rgb(access.surface) && same_size(access);
}

struct Quality {
    const char* name;
    int flags;
};

std::vector<Quality> qualities_of(const Access& access)
{
    if (access.surface == Surface::yv12 && access.half_widths == 1) return {{"swscale", SWS_POINT}};
    const bool other_chroma = access.source != Source::planar && access.source != Source::luma;
    const bool scaler = access.enlarges() || (other_chroma && is_rgb(access.surface));
    if (!scaler) return {{"swscale", SWS_FAST_BILINEAR}};
    return {{"swscale", SWS_BILINEAR}, {"swscale-fast", SWS_FAST_BILINEAR}};
}

void encode(SwsContext* context, Colour colour)
{
    if (colour == Colour::bt601) return; // as it begins
    const int* matrix = sws_getCoefficients(colour == Colour::bt709 ? SWS_CS_ITU709 : SWS_CS_ITU601);
    sws_setColorspaceDetails(context, matrix, colour == Colour::full, matrix, 1, 0, 1 << 16, 1 << 16);
}

std::shared_ptr<SwsContext> make_context(const Layout& l, int quality, int cpu)
{
    av_force_cpu_flags(cpu);
    const Size to = l.enlarged();
    SwsContext* context = sws_getContext(l.size.width, l.size.height, format_of(l.access.source), to.width, to.height,
                                         format_of(l.access.surface), quality, nullptr, nullptr, nullptr);
    av_force_cpu_flags(-1);
    if (!context) throw std::runtime_error("libswscale does not know this conversion");
    encode(context, l.access.colour);
    return {context, sws_freeContext};
}

bool machine_has(int cpu)
{
    av_force_cpu_flags(-1);
    return cpu == -1 || (av_get_cpu_flags() & cpu) == cpu;
}

template <class Byte> struct Image {
    std::array<Byte*, 4> planes{};
    std::array<int, 4> pitches{};
};

// Of the format's planes; the others are not looked at.
template <class Byte> Image<Byte> image(const Planes& p, AVPixelFormat format)
{
    const int chroma = format == AV_PIX_FMT_NV12 ? p.pitch : p.pitch / 2;
    return {{p.y, p.u, p.v}, {p.pitch, chroma, chroma}};
}

Planes planes_on(uint8_t* surface, const Layout& l)
{
    const int height = l.enlarged().height;
    if (l.access.surface != Surface::nv12) return planes_of(surface, l.dst_pitch, height);
    return {surface, surface + ptrdiff_t{l.dst_pitch} * height, nullptr, l.dst_pitch};
}

Load load_with(const std::shared_ptr<SwsContext>& context, const Layout& l)
{
    return [=](const Picture& p) {
        const auto from = image<const uint8_t>({p.y, p.u, p.v, l.y_pitch}, format_of(l.access.source));
        const auto to = image<uint8_t>(planes_on(p.surface, l), format_of(l.access.surface));
        sws_scale(context.get(), from.planes.data(), from.pitches.data(), 0, l.size.height, to.planes.data(),
                  to.pitches.data());
    };
}

} // namespace

std::vector<Peer> swscale_peers(const Layout& layout, bool every_tier)
{
    const Access& access = layout.access;
    if (access.cover != Cover::none || access.source == Source::none) return {};
    av_log_set_level(AV_LOG_ERROR);
    std::vector<Peer> peers;
    for (const Quality& quality : qualities_of(access)) {
        for (const Tier& tier : kTiers) {
            if ((tier.flags != -1 && !(every_tier && has_tiers(access))) || !machine_has(tier.flags)) continue;
            peers.push_back({std::string(quality.name) + tier.name, [] {},
                             load_with(make_context(layout, quality.flags, tier.flags), layout)});
        }
    }
    return peers;
}

} // namespace bench
