// SPDX-License-Identifier: MIT
#include "bench/duel.h"

#include <algorithm>
#include <chrono>
#include <cstring>

#include "bench/content.h"

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

double since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

double turn(const Load& load, Ring& ring, const Layout& layout, bool cold, int calls)
{
    const Picture first = ring.first(layout);
    if (!cold) load(first); // brings the caches into the state that its own calls leave
    const auto start = Clock::now();
    for (int i = 0; i < calls; i++) load(cold ? ring.next(layout) : first);
    return since(start) / calls;
}

// As many calls as make a turn long enough for the clock.
int calls_of(double seconds)
{
    constexpr double kTurn = 60e-6;
    return std::max(1, static_cast<int>(kTurn / seconds));
}

} // namespace

double Times::least() const { return *std::min_element(seconds.begin(), seconds.end()); }

double Times::median() const
{
    std::vector<double> sorted = seconds;
    const auto middle = sorted.begin() + static_cast<ptrdiff_t>(sorted.size() / 2);
    std::nth_element(sorted.begin(), middle, sorted.end());
    return *middle;
}

bool Duel::agree(Ring& ring, const Layout& layout) const
{
    const Picture picture = ring.first(layout);
    uint8_t* from = picture.surface - layout.base;
    const size_t count = layout.surface_bytes + static_cast<size_t>(layout.base + layout.dst_pitch);
    std::vector<uint8_t> before(count), after(count);
    make_noise(before);
    std::memcpy(from, before.data(), count);
    loads_[0](picture);
    std::memcpy(after.data(), from, count);
    std::memcpy(from, before.data(), count);
    loads_[1](picture);
    const bool nothing_to_write = layout.access.converts() && layout.access.cover == Cover::clear;
    const bool written = std::memcmp(before.data(), from, count) != 0;
    return std::memcmp(after.data(), from, count) == 0 && (written || nothing_to_write);
}

void Duel::run(Ring& ring, const Layout& layout, bool cold, double seconds)
{
    const auto start = Clock::now();
    turn(loads_[0], ring, layout, cold, 1);
    const int calls = calls_of(turn(loads_[1], ring, layout, cold, 1));
    constexpr int kLeastTurns = 4;
    for (int i = 0; i < kLeastTurns || since(start) < seconds; i++) {
        const int first = i % 2;
        for (const int side : {first, 1 - first})
            times_[side].seconds.push_back(turn(loads_[side], ring, layout, cold, calls));
    }
}

} // namespace bench
