extern "C" {
#include <libavutil/cpu.h>
#include <libavutil/log.h>
#include <libswscale/swscale.h>
}

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
    {"swscale", -1},
#if defined __x86_64__ || defined __i386__
    {"swscale-ssse3",
     AV_CPU_FLAG_MMX | AV_CPU_FLAG_MMXEXT | AV_CPU_FLAG_SSE | AV_CPU_FLAG_SSE2 | AV_CPU_FLAG_SSE3 | AV_CPU_FLAG_SSSE3},
    {"swscale-sse2", AV_CPU_FLAG_MMX | AV_CPU_FLAG_MMXEXT | AV_CPU_FLAG_SSE | AV_CPU_FLAG_SSE2},
#endif
};

AVPixelFormat format_of(Target target)
{
    switch (target) {
    case Target::rgb32: return AV_PIX_FMT_BGRA;
    case Target::rgb24: return AV_PIX_FMT_BGR24;
    case Target::rgb565: return AV_PIX_FMT_RGB565LE;
    case Target::rgb555: return AV_PIX_FMT_RGB555LE;
    case Target::yuy2:
    case Target::half_yuy2: return AV_PIX_FMT_YUYV422;
    case Target::yv12:
    case Target::half_yv12: break;
    }
    return AV_PIX_FMT_YUV420P;
}

bool is_half(Target target) { return target == Target::half_yuy2 || target == Target::half_yv12; }

// Only the RGB converters are chosen per context; the rest of the library decides once per process.
bool has_tiers(Target target)
{
    return target == Target::rgb32 || target == Target::rgb24 || target == Target::rgb565 || target == Target::rgb555;
}

std::shared_ptr<SwsContext> make_context(Target target, Size size)
{
    const int width = is_half(target) ? size.width / 2 : size.width;
    const int flags = target == Target::half_yv12 ? SWS_POINT : SWS_FAST_BILINEAR;
    SwsContext* context = sws_getContext(size.width, size.height, AV_PIX_FMT_YUV420P, width, size.height,
                                         format_of(target), flags, nullptr, nullptr, nullptr);
    if (!context) throw std::runtime_error("libswscale does not know this conversion");
    return {context, sws_freeContext};
}

} // namespace

std::vector<Peer> swscale_peers(Target target, const Layout& layout)
{
    av_log_set_level(AV_LOG_ERROR);
    std::vector<Peer> peers;
    for (const Tier& tier : kTiers) {
        if (tier.flags != -1 && !has_tiers(target)) continue;
        av_force_cpu_flags(-1);
        if (tier.flags != -1 && (av_get_cpu_flags() & tier.flags) != tier.flags) continue;
        if (tier.flags != -1) av_force_cpu_flags(tier.flags);
        auto context = make_context(target, layout.size);
        av_force_cpu_flags(-1);
        peers.push_back({tier.name, [] {},
                         [=](const Picture& p) {
                             const uint8_t* from[] = {p.y, p.u, p.v, nullptr};
                             const int from_pitch[] = {layout.y_pitch, layout.y_pitch / 2, layout.y_pitch / 2, 0};
                             uint8_t* v = p.surface + ptrdiff_t{layout.dst_pitch} * layout.size.height;
                             uint8_t* u = v + ptrdiff_t{layout.dst_pitch / 2} * (layout.size.height / 2);
                             const bool planar = target == Target::yv12 || target == Target::half_yv12;
                             uint8_t* to[] = {p.surface, planar ? u : nullptr, planar ? v : nullptr, nullptr};
                             const int to_pitch[] = {layout.dst_pitch, planar ? layout.dst_pitch / 2 : 0,
                                                     planar ? layout.dst_pitch / 2 : 0, 0};
                             sws_scale(context.get(), from, from_pitch, 0, layout.size.height, to, to_pitch);
                         }});
    }
    return peers;
}

} // namespace bench
