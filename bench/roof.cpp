// SPDX-License-Identifier: MIT
#include "bench/roof.h"

#include "bench/roof_walk.h"

namespace bench {

#define TIER(isa, test)                              \
    namespace isa {                                  \
    void copy_band(const Band& band, Stores stores); \
    void finish(Stores stores);                      \
    }
#include "bench/roof_tiers.inc"
#undef TIER

namespace {

constexpr RoofTier kTiers[] = {
#define TIER(isa, test) {#isa, isa::copy_band, isa::finish, [] { return static_cast<bool>(test); }},
#include "bench/roof_tiers.inc"
#undef TIER
};

size_t read_once(int lines, int every, int bytes)
{
    return every == 0 ? 0 : static_cast<size_t>(lines / every) * static_cast<size_t>(bytes);
}

} // namespace

const RoofTier& best_roof()
{
    const RoofTier* tier = kTiers;
    while (!tier->runs_here()) tier++;
    return *tier;
}

void run_roof(const RoofTier& tier, Stores stores, const Layout& layout, const Picture& picture)
{
    Walk{layout, picture}.bands([&](const Band& band) { tier.copy(band, stores); });
    tier.finish(stores);
}

Traffic traffic_of(const Layout& layout)
{
    Traffic sum{0, 0};
    const Picture nowhere{};
    Walk{layout, nowhere}.bands([&](const Band& band) {
        const int whole = band.lines * band.luma_bytes * band.written_for_two / 2;
        sum.read += read_once(band.lines, band.luma_every, band.luma_times * band.luma_bytes);
        sum.read += read_once(band.lines, band.chroma_every, 2 * band.chroma_bytes);
        for (const Stream& other : band.also) sum.read += read_once(band.lines, 1, other.bytes);
        sum.written += static_cast<size_t>(band.gaps ? whole - whole / 8 : whole);
    });
    return sum;
}

} // namespace bench
