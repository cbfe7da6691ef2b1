// SPDX-License-Identifier: MIT
#include "tools/player.h"
#include "tools/error.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>
#include <vsurf_show.h>

namespace player {

using namespace std::chrono_literals;

namespace {

constexpr auto kLongestWait = 50ms;  // between looks at the signals
constexpr auto kInputWait = 5ms;     // between looks at the input
constexpr double kLongestGap = 10;   // in seconds; a clock that jumps further is another one
constexpr double kLateSeconds = 0.5; // where every picture counts, the clock waits for those that come later
constexpr auto kRarest = 250ms;      // late or not, a picture is shown as often

} // namespace

Player::Player(const Options& options, const StopSignals& stop)
    : options_(options), stop_(stop), renderer_(stats_, options.threads),
      input_(options.source, options.subtitles, options.sound), progress_(!options.quiet), view_(options.view),
      mute_(options.mute)
{
    if (options.dump) dump_.emplace(*options.dump);
}

void Player::run()
{
    while (!over()) {
        fetch();
        if (window_) {
            wait_for_viewer();
            window_->set_osd(osd());
            window_->refresh();
        }
        if (!over()) advance();
    }
    finish();
}

bool Player::over() const
{
    return quit_ || finished_ || stop_.pending() || (options_.frames && pictures_ >= *options_.frames);
}

void Player::fetch()
{
    if (coming_ || ended_) return;
    TimedPicture picture;
    switch (input_.next(picture, window_ ? 0ms : kInputWait)) {
    case DecodeThread::Got::picture: coming_ = std::move(picture); break;
    case DecodeThread::Got::end: ended_ = true; break;
    // The viewer missed nothing while there was no input.
    case DecodeThread::Got::nothing_yet:
        if (input_.stalled()) clock_.forget();
        break;
    }
    if ((coming_ || ended_) && !known_) {
        known_ = true;
        about_ = input_.about();
        if (about_.sound) set_volume(volume_, mute_);
    }
    if (coming_) keep_within_limits();
    if (input_.seek_failed()) refused_ = "cannot seek";
}

// What lies before the start and behind the end is not shown.
void Player::keep_within_limits()
{
    const double half = about_.frame_seconds / 2, time = coming_->time;
    if (options_.end && time >= *options_.end - half) ended_ = true;
    else if (started_ || !options_.start || time >= *options_.start - half) return;
    coming_.reset();
    if (!ended_ && about_.seekable) {
        input_.seek(*options_.start);
        started_ = true;
    }
}

void Player::wait_for_viewer()
{
    auto longest = kLongestWait;
    if (!coming_ && !ended_) longest = kInputWait;
    else if (!paused_ || show_next_) {
        const double next = coming_ ? coming_->time : shown_.time + about_.frame_seconds;
        longest = clock_.known() && !show_next_ ? std::min(clock_.until(next), kLongestWait) : 0ms;
    }
    for (Command command; (command = window_->wait(longest)) != Command::none && !over(); longest = 0ms) obey(command);
}

void Player::advance()
{
    if (coming_ && (!paused_ || show_next_)) advance_to_coming();
    else if (!coming_ && ended_) end();
}

void Player::advance_to_coming()
{
    const double time = coming_->time;
    const bool jump = time < shown_.time || time - shown_.time > kLongestGap;
    if (!window_ || show_next_ || !clock_.known() || (jump && pictures_)) {
        start_clock(*coming_);
        if (paused_) clock_.hold();
    }
    if (window_ && clock_.now() < time) return;
    if (late()) {
        dropped_++;
        coming_.reset();
        return;
    }
    take_picture();
    show_next_ = false;
}

void Player::start_clock(const TimedPicture& picture)
{
    clock_.follow(about_.sound, picture.file_time - picture.time);
    clock_.start(picture.time);
}

// Where every picture is written, or the viewer would see none for long, it is not left out.
bool Player::late() const
{
    const double by = clock_.now() - coming_->time;
    if (!window_ || dump_) return false;
    return by > about_.frame_seconds && Clock::Wall::now() - shown_since_ < kRarest;
}

// The last picture stays for its time; the only picture of a still stays until the viewer closes it.
void Player::end()
{
    if (window_) {
        const bool still = pictures_ == 1 && !options_.source.is_pattern() && !options_.loop;
        if (still && !std::exchange(still_, true)) {
            pause(true);
            window_->title(title());
        }
        if (paused_ || clock_.now() < shown_.time + about_.frame_seconds) return;
        if (about_.sound && !options_.end && about_.sound->buffered() > 0) return;
    }
    finished_ = !options_.loop || pictures_ == pictures_at_start_;
    if (finished_) return;
    pictures_at_start_ = pictures_;
    input_.rewind();
    started_ = false;
    jumped();
}

void Player::take_picture()
{
    shown_ = std::move(*coming_);
    coming_.reset();
    shown_since_ = Clock::Wall::now();
    pictures_++;
    render();
    if (dump_) dump_->write(renderer_.image());
    const bool first = !window_;
    if (options_.window) show_or_shrink();
    if (first) start_clock(shown_); // a new window takes its time
    progress_.update(shown_.time, about_.duration, pictures_);
    if (dump_ && window_ && clock_.now() - shown_.time > kLateSeconds) clock_.forget();
}

// A picture may be too large for the window's textures when it is enlarged.
void Player::show_or_shrink()
try {
    show();
} catch (const Error& error) {
    if (!window_ || view_.scaling == Scaling::none) throw;
    View smaller = view_;
    smaller.scaling = Scaling::none;
    take_back(smaller, error);
}

void Player::render()
{
    // Events in the clip's own tracks count its time, which need not start at 0.
    Renderer::Moment moment{(about_.own_subtitles ? shown_.file_time : shown_.time) - subtitle_delay_,
                            av_q2d(shown_.sample_aspect), std::nullopt};
    if (about_.duration) moment.played = std::clamp(shown_.time / *about_.duration, 0.0, 1.0);
    renderer_.render(*shown_.frame, moment, view_, about_.subtitles.get());
}

void Player::show()
{
    const Surface& surface = renderer_.surface();
    const double aspect = av_q2d(shown_.sample_aspect) * shown_.frame->width / shown_.frame->height;
    if (!window_) {
        // Stretched, never shrunk, so that every pixel of the picture is seen.
        const double width = std::max(double(surface.shown_width()), aspect * surface.shown_height());
        window_.emplace(std::max(1, static_cast<int>(std::lround(width))),
                        std::max(1, static_cast<int>(std::lround(width / aspect))), title());
        if (progress_.shown()) std::fputs("h shows the keys\n", stderr);
    }
    window_->title(title());
    window_->set_osd(osd());
    if (view_.overlay) window_->show(renderer_.image(), aspect);
    else window_->show(surface, aspect);
}

void Player::finish() const
{
    if (options_.stats) {
        for (const std::string& line : stats_.lines()) std::printf("vsurf %s, %s\n", vsurf_show_isa(), line.c_str());
        if (pictures_) std::printf("picture: %s\n", picture_text().c_str());
        if (window_) std::printf("late pictures dropped: %lld\n", static_cast<long long>(dropped_));
    }
    const Damage damage = input_.damage();
    if (damage.any()) throw Error(options_.source.name() + ": " + damage.text());
    const std::string lost = about_.subtitles ? about_.subtitles->damage() : "";
    if (!lost.empty()) throw Error(lost);
    if (pictures_ == 0 && !stop_.pending()) throw Error(options_.source.name() + ": no picture could be decoded");
}

} // namespace player
