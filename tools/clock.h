// SPDX-License-Identifier: MIT
// The time in the film: that of the sound which is heard, or of the system where there is none. It goes on whatever the
// pictures do; one that comes late is left out.
#pragma once
#include "tools/sound.h"
#include <chrono>

namespace player {

class Clock {
public:
    using Wall = std::chrono::steady_clock;

    // `offset` is what the file adds to a time.
    void follow(std::shared_ptr<Sound> sound, double offset);
    void start(double time); // this is the time now
    void hold();             // stands still
    void resume();           // goes on where it was held
    void forget();           // until the next start
    void set_speed(double speed);
    double speed() const { return speed_; }

    bool known() const { return known_; }
    double now() const;
    // Until it is `time`, rounded up; 0 where that is over.
    std::chrono::milliseconds until(double time) const;

private:
    bool known_ = false, held_ = false;
    double time_ = 0, speed_ = 1; // the time at `since_`
    Wall::time_point since_;
    std::shared_ptr<Sound> sound_;
    double offset_ = 0;
};

} // namespace player
