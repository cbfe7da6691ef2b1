// SPDX-License-Identifier: MIT
#include <libyuv.h>

#include "bench/libyuv_loads.h"

namespace bench {
namespace {

struct Tier {
    const char* name;
    int required; // a flag that the machine has to have
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

} // namespace

std::vector<Peer> libyuv_peers(const Layout& layout, bool every_tier)
{
    std::vector<Peer> peers;
    for (const Tier& tier : kTiers) {
        libyuv::MaskCpuFlags(-1);
        if (!libyuv::TestCpuFlag(tier.required)) continue;
        const bool best = peers.empty(); // other ways to the same surface are worth the time on one tier only
        if (!best && !every_tier && !layout.access.copies()) break;
        for (const auto& [suffix, load] : libyuv_loads(layout)) {
            peers.push_back({std::string(tier.name) + suffix, [&tier] { libyuv::MaskCpuFlags(tier.allowed); }, load});
            if (!best) break;
        }
    }
    return peers;
}

} // namespace bench
