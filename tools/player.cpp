// SPDX-License-Identifier: MIT
#include "tools/player.h"
#include "tools/error.h"
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace player {

using namespace std::chrono_literals;

static constexpr double kSeekSeconds = 5;
static constexpr int kBrightnessStep = 4, kGainStep = 4;
static constexpr auto kLongestWait = 100ms; // between looks at the signals

Player::Player(const Options& options, const StopSignals& stop)
    : options_(options), stop_(stop), decoder_(options.source), renderer_(*options.isa, stats_),
      progress_(!options.quiet), coming_(new_frame()), shown_(new_frame()), view_(options.view)
{
    if (options.subtitles.wanted) open_subtitles();
    if (options.dump) dump_.emplace(*options.dump);
}

void Player::open_subtitles()
{
    const SubtitleChoice& choice = options_.subtitles;
    if (!choice.file.empty()) {
        Source source;
        source.file = choice.file;
        source.content = "subtitles";
        subtitles_ = read_subtitles(source, choice.track);
        return;
    }
    subtitles_ = std::make_unique<Subtitles>(decoder_.file(), choice.track, options_.source.name());
    decoder_.divert(subtitles_->stream(), [this](AVPacket& packet) { subtitles_->take(packet); });
}

void Player::run()
{
    while (!options_.frames || pictures_ < *options_.frames) {
        if (!read()) {
            hold_last();
            break;
        }
        const Next next = wait_for(decoder_.time());
        if (next == Next::quit) break;
        if (next == Next::show) take_picture();
    }
    finish();
}

// The next picture, from the start again where the source is to be repeated.
bool Player::read()
{
    if (stop_.pending()) return false;
    if (decoder_.next(*coming_)) return true;
    if (!options_.loop || pictures_ == pictures_at_start_) return false;
    pictures_at_start_ = pictures_;
    decoder_.rewind();
    pace_.restart();
    return decoder_.next(*coming_);
}

// Obeys keys until the picture of this time is due.
Player::Next Player::wait_for(double time)
{
    if (!window_) return stop_.pending() ? Next::quit : Next::show;
    auto due = pace_.due(time);
    for (;;) {
        if (stop_.pending()) return Next::quit;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - Pace::Clock::now());
        const bool still = paused_ && !step_;
        const Command command = window_->wait(still ? kLongestWait : std::clamp(left, 0ms, kLongestWait));
        const Next next = obey(command);
        if (next != Next::show) return next;
        if (paused_ && !step_) continue;
        if (command == Command::pause || paused_) {
            pace_.restart();
            due = pace_.due(time);
        }
        if (due <= Pace::Clock::now() && command == Command::none) break;
    }
    step_ = false;
    return Next::show;
}

Player::Next Player::obey(Command command)
{
    switch (command) {
    case Command::none: return Next::show;
    case Command::quit: return Next::quit;
    case Command::pause: paused_ = !paused_; break;
    case Command::step: step_ = paused_; break;
    case Command::back: return seek(-kSeekSeconds) ? Next::read_again : Next::show;
    case Command::forward: return seek(kSeekSeconds) ? Next::read_again : Next::show;
    case Command::full_screen: window_->toggle_full_screen(); break;
    case Command::keys: keys_in_title_ = !keys_in_title_; break;
    default:
        turn(command);
        render();
        show();
    }
    window_->title(title());
    return Next::show;
}

void Player::turn(Command command)
{
    switch (command) {
    case Command::darker: view_.controls.turn_brightness(-kBrightnessStep); break;
    case Command::brighter: view_.controls.turn_brightness(kBrightnessStep); break;
    case Command::less_contrast: view_.controls.turn_contrast(-kGainStep); break;
    case Command::more_contrast: view_.controls.turn_contrast(kGainStep); break;
    case Command::less_saturation: view_.controls.turn_saturation(-kGainStep); break;
    case Command::more_saturation: view_.controls.turn_saturation(kGainStep); break;
    case Command::reset: view_.controls = {}; break;
    case Command::next_surface: view_.surface = next_format(view_.surface); break;
    case Command::half_width: toggle(Scaling::half_width); break;
    case Command::zoom: view_.scaling = next_zoom(view_.scaling); break;
    case Command::field: toggle(Scaling::field); break;
    case Command::subtitles: view_.subtitles = !view_.subtitles; break;
    case Command::alone: view_.alone = !view_.alone; break;
    case Command::overlay: view_.overlay = !view_.overlay; break;
    default: break;
    }
}

void Player::toggle(Scaling scaling) { view_.scaling = view_.scaling == scaling ? Scaling::none : scaling; }

bool Player::seek(double by)
{
    double target = shown_time_ + by;
    if (const auto duration = decoder_.duration()) target = std::min(target, *duration - 2 * decoder_.frame_seconds());
    if (!decoder_.seek(target)) return false;
    pace_.restart();
    step_ = paused_;
    return true;
}

void Player::take_picture()
{
    av_frame_unref(shown_.get());
    av_frame_move_ref(shown_.get(), coming_.get());
    shown_time_ = decoder_.time();
    pictures_++;
    render();
    if (dump_) dump_->write(renderer_.image());
    if (options_.window) show();
    progress_.update(shown_time_, decoder_.duration(), pictures_);
}

void Player::render()
{
    Renderer::Moment moment{shown_time_, av_q2d(decoder_.sample_aspect(*shown_)), std::nullopt};
    // Events in the clip's own tracks count its time, which need not start at 0.
    if (options_.subtitles.file.empty()) moment.time += decoder_.start();
    if (const auto duration = decoder_.duration()) moment.played = std::clamp(shown_time_ / *duration, 0.0, 1.0);
    renderer_.render(*shown_, moment, view_, subtitles_.get());
}

void Player::show()
{
    const Surface& surface = renderer_.surface();
    const AVRational sample = decoder_.sample_aspect(*shown_);
    const double width = surface.shown_width() * av_q2d(sample), height = surface.shown_height();
    if (!window_) {
        // Stretched, never shrunk, so that every pixel of the picture is seen.
        const double scale = std::max(1.0, surface.shown_width() / width);
        window_.emplace(std::max(1, static_cast<int>(std::lround(width * scale))),
                        std::max(1, static_cast<int>(std::lround(height * scale))), title());
        if (progress_.shown()) std::fprintf(stderr, "%s\n", key_text());
    }
    window_->title(title());
    if (view_.overlay) window_->show(renderer_.image(), width / height);
    else window_->show(surface, width / height);
}

// The last picture stays for its time; the only picture of a still stays until the viewer closes it.
void Player::hold_last()
{
    if (!window_ || stop_.pending()) return;
    paused_ = paused_ || (pictures_ == 1 && !options_.source.is_pattern());
    window_->title(title());
    wait_for(shown_time_ + decoder_.frame_seconds());
}

void Player::finish() const
{
    if (options_.stats)
        for (const std::string& line : stats_.lines())
            std::printf("vsurf %s, %s\n", renderer_.isa_name(), line.c_str());
    std::fflush(stdout);
    const Damage& damage = decoder_.damage();
    if (damage.any()) throw Error(options_.source.name() + ": " + damage.text());
    const std::string lost = subtitles_ ? subtitles_->damage() : "";
    if (!lost.empty()) throw Error(lost);
    if (pictures_ == 0 && !stop_.pending()) throw Error(options_.source.name() + ": no picture could be decoded");
}

std::string Player::title() const
{
    if (keys_in_title_) return key_text();
    const Surface& surface = renderer_.surface();
    char text[160];
    std::snprintf(
        text, sizeof text, "%s %dx%d%s, brightness %+d, contrast %.2f, saturation %.2f", traits(surface.format()).name,
        surface.shown_width(), surface.shown_height(), scaling_text(view_.scaling), view_.controls.brightness,
        view_.controls.contrast / double{Controls::kUnity}, view_.controls.saturation / double{Controls::kUnity});
    std::string title = text;
    if (subtitles_ && !view_.subtitles) title += ", subtitles hidden";
    if (subtitles_ && view_.alone) title += ", subpicture alone";
    if (view_.overlay) title += ", overlay";
    if (paused_) title += ", paused";
    return title + " - " + options_.source.name();
}

} // namespace player
