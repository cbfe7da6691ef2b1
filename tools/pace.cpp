// SPDX-License-Identifier: MIT
#include "tools/pace.h"

namespace player {

static constexpr double kLongestGap = 10, kMostLate = 0.5; // seconds

Pace::Clock::time_point Pace::due(double time)
{
    const auto now = Clock::now();
    auto moment = [&] {
        return started_ + std::chrono::round<Clock::duration>(std::chrono::duration<double>(time - start_));
    };
    const bool jump = time < last_ || time - last_ > kLongestGap;
    if (!running_ || jump || now - moment() > std::chrono::duration<double>(kMostLate)) {
        running_ = true;
        started_ = now;
        start_ = time;
    }
    last_ = time;
    return moment();
}

} // namespace player
