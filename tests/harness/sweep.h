// SPDX-License-Identifier: MIT
// Destinations at every address modulo 64, with lines of every length modulo 64: what whole cache lines are cut from.
#pragma once
#include "harness/checker.h"
#include "harness/job_checker.h"

#include <optional>
#include <string>
#include <vector>

namespace harness {

struct SweepPoint {
    int width;
    Placement placement;
};

// Every phase with every legal remainder of the width by 64: once with quick effort, several times with full effort.
std::vector<SweepPoint> sweep_points(const Export& tested, Random& random);
std::vector<SweepPoint> sweep_points(const JobExport& tested, Random& random);

// Lines of 4096 pixels and more, and of twice as many: what is kept of one line for the next ends within them.
std::vector<SweepPoint> long_points(Random& random);

// Some lines of a width, at pitches that make lines lie end to end, closely or loosely, upwards and downwards, and at
// times overlap.
Case sweep_case(const Export& tested, int width, Random& random);
JobCase sweep_case(const JobExport& tested, int width, Random& random);

inline constexpr int kMostTries = 1000;

// What went wrong first, or nothing. Calls that write nothing do not count.
template <class Checker, class Export>
std::optional<std::string> sweep(Checker& checker, const Export& tested, const std::vector<SweepPoint>& points,
                                 Random& random, const std::vector<Variant>& tables = variants())
{
    for (const SweepPoint& point : points) {
        for (int tries = 0; tries == 0 || !checker.wrote(); ++tries) {
            if (tries == kMostTries) return "no call writes anything";
            const auto c = sweep_case(tested, point.width, random);
            if (auto wrong = checker.run(c, {point.placement}, tables)) return wrong;
        }
    }
    return std::nullopt;
}

} // namespace harness
