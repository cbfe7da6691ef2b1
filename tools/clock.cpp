// SPDX-License-Identifier: MIT
#include "tools/clock.h"
#include <algorithm>

namespace player {

void Clock::follow(std::shared_ptr<Sound> sound, double offset)
{
    sound_ = std::move(sound);
    offset_ = offset;
}

void Clock::start(double time)
{
    if (sound_) sound_->play(time + offset_);
    known_ = true;
    held_ = false;
    time_ = time;
    since_ = Wall::now();
}

void Clock::hold()
{
    time_ = now();
    held_ = true;
    if (sound_) sound_->pause();
}

void Clock::forget()
{
    known_ = false;
    if (sound_) sound_->pause();
}

void Clock::resume()
{
    since_ = Wall::now();
    held_ = false;
    if (sound_ && known_) sound_->play(time_ + offset_);
}

void Clock::set_speed(double speed)
{
    time_ = now();
    since_ = Wall::now();
    speed_ = speed;
    if (sound_) sound_->set_speed(speed);
}

double Clock::now() const
{
    if (held_) return time_;
    if (sound_) return sound_->position() - offset_;
    return time_ + speed_ * std::chrono::duration<double>(Wall::now() - since_).count();
}

std::chrono::milliseconds Clock::until(double time) const
{
    constexpr double kLongest = 3600; // what is later is no nearer
    const double left = std::clamp((time - now()) / speed_, 0.0, kLongest);
    return std::chrono::ceil<std::chrono::milliseconds>(std::chrono::duration<double>(left));
}

} // namespace player
