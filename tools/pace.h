// SPDX-License-Identifier: MIT
// When a picture is due.
#pragma once
#include <chrono>

namespace player {

class Pace {
public:
    using Clock = std::chrono::steady_clock;

    void restart() { running_ = false; }
    // The moment for a picture of the given time. Pictures that come much too late, or whose times jump, set the clock
    // again: slow motion instead of a rush to catch up.
    Clock::time_point due(double time);

private:
    bool running_ = false;
    double start_ = 0, last_ = 0;
    Clock::time_point started_;
};

} // namespace player
