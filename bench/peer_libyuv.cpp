#include <libyuv.h>

#include <memory>

#include "bench/peers.h"

namespace bench {
namespace {

struct Tier {
    const char* name;
    int required; // one flag that tells whether the machine has it
    int allowed;
};

#if defined __x86_64__ || defined __i386__
using namespace libyuv;
constexpr int kUpToSse2 = kCpuInitialized | kCpuHasX86 | kCpuHasSSE2;
constexpr int kUpToSsse3 = kUpToSse2 | kCpuHasSSSE3 | kCpuHasSSE41 | kCpuHasSSE42;
constexpr int kUpToAvx2 = kUpToSsse3 | kCpuHasAVX | kCpuHasAVX2 | kCpuHasERMS | kCpuHasFMA3 | kCpuHasF16C;
constexpr Tier kTiers[] = {
    {"libyuv-avx512", kCpuHasAVX512BW, -1},
    {"libyuv-avx2", kCpuHasAVX2, kUpToAvx2},
    {"libyuv-ssse3", kCpuHasSSSE3, kUpToSsse3},
    {"libyuv-sse2", kCpuHasSSE2, kUpToSse2},
};
#elif defined __aarch64__
constexpr Tier kTiers[] = {{"libyuv-neon", libyuv::kCpuHasNEON, -1}};
#else
constexpr Tier kTiers[] = {{"libyuv", libyuv::kCpuInitialized, -1}};
#endif

using Convert = int (*)(const uint8_t*, int, const uint8_t*, int, const uint8_t*, int, uint8_t*, int, int, int);
using Load = std::function<void(const Picture&)>;

Load packed(Convert convert, const Layout& l)
{
    const int chroma = l.y_pitch / 2;
    return [=](const Picture& p) {
        convert(p.y, l.y_pitch, p.u, chroma, p.v, chroma, p.surface, l.dst_pitch, l.size.width, l.size.height);
    };
}

// A YV12 surface of `height` lines: luma, V, U.
struct Planes {
    uint8_t *y, *v, *u;
    int pitch;
};
Planes planes_of(uint8_t* surface, int pitch, int height)
{
    uint8_t* v = surface + ptrdiff_t{pitch} * height;
    return {surface, v, v + ptrdiff_t{pitch / 2} * (height / 2), pitch};
}

void halve_width(const Picture& p, const Layout& l, const Planes& to, libyuv::FilterMode filter)
{
    const auto [width, height] = l.size;
    const int chroma = l.y_pitch / 2;
    libyuv::I420Scale(p.y, l.y_pitch, p.u, chroma, p.v, chroma, width, height, to.y, to.pitch, to.u, to.pitch / 2, to.v,
                      to.pitch / 2, width / 2, height, filter);
}

// No single call does it: halve the planes into a small picture of their own, then pack that.
Load half_yuy2(const Layout& l)
{
    const int pitch = l.y_pitch / 2;
    const auto bytes = static_cast<size_t>(pitch) * static_cast<size_t>(l.size.height) * 3 / 2;
    auto scratch = std::make_shared<std::vector<uint8_t>>(bytes);
    return [=](const Picture& p) {
        const Planes half = planes_of(scratch->data(), pitch, l.size.height);
        halve_width(p, l, half, libyuv::kFilterLinear);
        libyuv::I420ToYUY2(half.y, pitch, half.u, pitch / 2, half.v, pitch / 2, p.surface, l.dst_pitch,
                           l.size.width / 2, l.size.height);
    };
}

Load half_yv12(const Layout& l)
{
    return [=](const Picture& p) {
        halve_width(p, l, planes_of(p.surface, l.dst_pitch, l.size.height), libyuv::kFilterNone);
    };
}

Load yv12(const Layout& l)
{
    const int chroma = l.y_pitch / 2;
    return [=](const Picture& p) {
        const Planes to = planes_of(p.surface, l.dst_pitch, l.size.height);
        libyuv::I420Copy(p.y, l.y_pitch, p.u, chroma, p.v, chroma, to.y, to.pitch, to.u, to.pitch / 2, to.v,
                         to.pitch / 2, l.size.width, l.size.height);
    };
}

Load load_for(Target target, const Layout& layout)
{
    switch (target) {
    case Target::rgb32: return packed(libyuv::I420ToARGB, layout);
    case Target::rgb24: return packed(libyuv::I420ToRGB24, layout);
    case Target::rgb565: return packed(libyuv::I420ToRGB565, layout);
    case Target::rgb555: return packed(libyuv::I420ToARGB1555, layout);
    case Target::yuy2: return packed(libyuv::I420ToYUY2, layout);
    case Target::half_yuy2: return half_yuy2(layout);
    case Target::yv12: return yv12(layout);
    case Target::half_yv12: return half_yv12(layout);
    }
    return {};
}

} // namespace

std::vector<Peer> libyuv_peers(Target target, const Layout& layout)
{
    std::vector<Peer> peers;
    for (const Tier& tier : kTiers) {
        libyuv::MaskCpuFlags(-1);
        if (!libyuv::TestCpuFlag(tier.required)) continue;
        peers.push_back({tier.name, [&tier] { libyuv::MaskCpuFlags(tier.allowed); }, load_for(target, layout)});
    }
    return peers;
}

} // namespace bench
