// SPDX-License-Identifier: MIT
// The time in the film. It goes on whatever the pictures do; one that comes late is left out.
#pragma once
#include <chrono>

namespace player {

class Clock {
public:
    using Wall = std::chrono::steady_clock;

    void start(double time);          // this is the time now
    void hold();                      // stands still
    void resume();                    // goes on where it was held
    void forget() { known_ = false; } // until the next start
    void set_speed(double speed);

    bool known() const { return known_; }
    double now() const;
    // Until it is `time`, rounded up; 0 where that is over.
    std::chrono::milliseconds until(double time) const;

private:
    bool known_ = false, held_ = false;
    double time_ = 0, speed_ = 1; // the time at `since_`
    Wall::time_point since_;
};

} // namespace player
