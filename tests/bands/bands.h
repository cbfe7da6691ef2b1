// SPDX-License-Identifier: MIT
// A picture that is cut into bands of lines, each done by a call of its own.
#pragma once
#include "harness/content.h"
#include "harness/effort.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace bands {

inline constexpr int kHeight = 48;

// Where bands begin and end: two, three, uneven ones, and some that only exports of single lines can take.
inline const std::vector<std::vector<int>> kCuts = {
    {0, 24, 48}, {0, 16, 32, 48}, {0, 12, 36, 48}, {0, 10, 26, 48}, {0, 20, 38, 48}, {0, 1, 14, 47, 48}, {0, 45, 48},
};

inline bool falls_on(const std::vector<int>& cuts, int step, int least)
{
    for (size_t i = 1; i < cuts.size(); ++i) {
        if (cuts[i] % step != 0 || cuts[i] - cuts[i - 1] < least) return false;
    }
    return true;
}

// The gap between lines, in samples: nothing, odd numbers, whole blocks.
inline std::vector<int> paddings() { return harness::by_effort(std::vector<int>{0, 7, 16}, std::vector<int>{7}); }

// From bottom to top as well as from top to bottom: threads are done in any order.
inline void for_each_band(const std::vector<int>& cuts, bool upwards, const std::function<void(int, int)>& work)
{
    const size_t count = cuts.size() - 1;
    for (size_t i = 0; i < count; ++i) {
        const size_t band = upwards ? count - 1 - i : i;
        work(cuts[band], cuts[band + 1] - cuts[band]);
    }
}

// A plane with room on both sides of the byte that is passed to a call, for lines that run upwards.
class Plane {
public:
    static constexpr size_t kReach = size_t{1} << 16;

    explicit Plane(harness::Content content = harness::Content::kNoise) : bytes_(harness::bytes_of(content, 2 * kReach))
    {
    }
    uint8_t* origin() { return bytes_.data() + kReach; }
    bool operator==(const Plane& other) const = default;

private:
    std::vector<uint8_t> bytes_;
};

} // namespace bands
