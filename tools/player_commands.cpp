// SPDX-License-Identifier: MIT
// What the viewer asks of the player.
#include "tools/player.h"
#include <algorithm>
#include <cmath>

namespace player {

using namespace std::chrono_literals;

namespace {

constexpr double kSeekSeconds = 5, kFarSeconds = 60;
constexpr double kSpeedStep = 1.1, kLeastSpeed = 0.1, kMostSpeed = 8;
constexpr double kDelayStep = 0.1; // seconds
constexpr int kVolumeStep = 5;
constexpr auto kStateStays = 2s; // on the screen

} // namespace

void Player::obey(Command command)
{
    refused_.clear();
    switch (command) {
    case Command::quit: quit_ = true; break;
    case Command::pause: pause(!paused_); break;
    case Command::step:
        pause(true);
        show_next_ = true;
        break;
    case Command::step_back:
        pause(true);
        seek(shown_.time - about_.frame_seconds);
        break;
    case Command::back: seek(shown_.time - kSeekSeconds); break;
    case Command::forward: seek(shown_.time + kSeekSeconds); break;
    case Command::full_screen: window_->toggle_full_screen(); break;
    case Command::far_back: seek(shown_.time - kFarSeconds); break;
    case Command::far_forward: seek(shown_.time + kFarSeconds); break;
    case Command::seek_to: seek(window_->target() * about_.duration.value_or(0)); break;
    case Command::play_file:
        next_file_ = window_->dropped_file();
        finished_ = true;
        break;
    case Command::slower: set_speed(clock_.speed() / kSpeedStep); break;
    case Command::faster: set_speed(clock_.speed() * kSpeedStep); break;
    case Command::usual_speed: set_speed(1); break;
    case Command::mute: set_volume(volume_, !mute_); break;
    case Command::quieter: set_volume(volume_ - kVolumeStep, false); break;
    case Command::louder: set_volume(volume_ + kVolumeStep, false); break;
    case Command::next_sound: turn_to_next_sound(); break;
    case Command::earlier_subtitles: delay_subtitles(-kDelayStep); break;
    case Command::later_subtitles: delay_subtitles(kDelayStep); break;
    case Command::keys: keys_shown_ = !keys_shown_; break;
    case Command::info: info_shown_ = !info_shown_; break;
    default: turn(command);
    }
    state_until_ = Clock::Wall::now() + kStateStays;
    window_->title(title());
}

void Player::turn(Command command)
{
    const View before = view_;
    view_.turn(command);
    try {
        render();
        show();
    } catch (const std::exception& error) {
        take_back(before, error);
    }
}

// What cannot be shown is refused, and playing goes on.
void Player::take_back(const View& before, const std::exception& error)
{
    view_ = before;
    render();
    show();
    refused_ = error.what();
    window_->title(title());
}

void Player::pause(bool wanted)
{
    if (wanted == paused_) return;
    paused_ = wanted;
    if (paused_) clock_.hold();
    else clock_.resume();
}

void Player::seek(double time)
{
    if (!about_.seekable) {
        refused_ = "cannot seek in " + options_.source.name();
        return;
    }
    if (about_.duration) time = std::min(time, *about_.duration - 2 * about_.frame_seconds);
    shown_.time = std::max(time, 0.0); // another key goes on from there
    input_.seek(std::max(time, 0.0));
    jumped();
}

void Player::set_speed(double speed)
{
    constexpr double kNearlyUsual = 0.03; // steps up and down again end here
    speed = std::clamp(speed, kLeastSpeed, kMostSpeed);
    if (std::abs(speed - 1) < kNearlyUsual) speed = 1;
    clock_.set_speed(speed);
    input_.set_speed(speed);
}

void Player::delay_subtitles(double by)
{
    if (!about_.subtitles) refused_ = "no subtitles";
    subtitle_delay_ = std::round((subtitle_delay_ + by) / kDelayStep) * kDelayStep;
    render();
    show();
}

void Player::set_volume(int volume, bool mute)
{
    volume_ = std::clamp(volume, 0, Sound::kMaxVolume);
    mute_ = mute;
    if (about_.sound) about_.sound->set_gain(mute_ ? 0 : static_cast<float>(volume_) / Sound::kMaxVolume);
    else refused_ = "no sound";
}

// What was read ahead is of the track before.
void Player::turn_to_next_sound()
{
    if (about_.sound_tracks < 2 || !about_.sound) {
        refused_ = "no other sound track";
        return;
    }
    input_.next_sound_track();
    if (about_.seekable) seek(shown_.time);
}

// What comes next is shown at once, and sets the clock.
void Player::jumped()
{
    coming_.reset();
    ended_ = false;
    clock_.forget();
    show_next_ = paused_;
}

} // namespace player
