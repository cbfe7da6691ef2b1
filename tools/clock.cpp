// SPDX-License-Identifier: MIT
#include "tools/clock.h"
#include <algorithm>

namespace player {

void Clock::start(double time)
{
    known_ = true;
    held_ = false;
    time_ = time;
    since_ = Wall::now();
}

void Clock::hold()
{
    time_ = now();
    held_ = true;
}

void Clock::resume()
{
    since_ = Wall::now();
    held_ = false;
}

void Clock::set_speed(double speed)
{
    time_ = now();
    since_ = Wall::now();
    speed_ = speed;
}

double Clock::now() const
{
    return held_ ? time_ : time_ + speed_ * std::chrono::duration<double>(Wall::now() - since_).count();
}

std::chrono::milliseconds Clock::until(double time) const
{
    constexpr double kLongest = 3600; // what is later is no nearer
    const double left = std::clamp((time - now()) / speed_, 0.0, kLongest);
    return std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(left));
}

} // namespace player
