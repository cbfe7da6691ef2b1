// SPDX-License-Identifier: MIT
// What the player says of itself, on the screen and in the title.
#include "tools/player.h"
#include <cmath>
#include <cstdio>
#include <vsurf_show.h>
extern "C" {
#include <libavutil/pixdesc.h>
}

namespace player {
namespace {

constexpr double kBarSteps = 1000;

std::string time_text(double seconds)
{
    const auto whole = static_cast<long long>(std::max(seconds, 0.0));
    char text[32];
    if (whole >= 3600)
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60, whole % 60);
    else std::snprintf(text, sizeof text, "%lld:%02lld", whole / 60, whole % 60);
    return text;
}

std::vector<std::string> key_lines()
{
    std::vector<std::string> lines;
    for (const KeyText& each : key_texts()) lines.push_back(std::string(each.keys) + "\t" + each.meaning);
    return lines;
}

std::string formatted(const char* format, auto... values)
{
    char text[160];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

} // namespace

std::string Player::title() const
{
    std::string title = state()[0] + ", " + state()[1];
    if (about_.subtitles && !view_.subtitles) title += ", subtitles hidden";
    if (about_.subtitles && view_.alone) title += ", subpicture alone";
    if (view_.overlay) title += ", overlay";
    if (paused_) title += ", paused";
    if (!refused_.empty()) title += ", refused: " + refused_;
    return title + " - " + options_.source.name();
}

// Surface, controls, and what is heard.
std::vector<std::string> Player::state() const
{
    const Surface& surface = renderer_.surface();
    const Controls& controls = view_.controls;
    std::vector<std::string> lines{formatted("%s %dx%d%s", traits(surface.format()).name, surface.shown_width(),
                                             surface.shown_height(), scaling_text(view_.scaling)),
                                   formatted("brightness %+d, contrast %.2f, saturation %.2f", controls.brightness,
                                             controls.contrast / double{Controls::kUnity},
                                             controls.saturation / double{Controls::kUnity})};
    std::string sound = formatted("speed %.2f", clock_.speed());
    if (about_.sound) sound += mute_ ? ", mute" : formatted(", volume %d %%", volume_);
    if (about_.sound_tracks > 1)
        sound += formatted(", sound track %d of %d", input_.sound_track(), about_.sound_tracks);
    if (subtitle_delay_ != 0) sound += formatted(", subtitles %+.1f s", subtitle_delay_);
    lines.push_back(sound);
    return lines;
}

std::string Player::picture_text() const
{
    const AVFrame& frame = *shown_.frame;
    const char* format = av_get_pix_fmt_name(static_cast<AVPixelFormat>(frame.format));
    return formatted("%s, %dx%d, ", format ? format : "unknown format", frame.width, frame.height) +
           renderer_.colours().text();
}

std::vector<std::string> Player::info() const
{
    return {
        options_.source.name(),
        about_.stream,
        picture_text(),
        formatted("%s, %s, %.3f ms per picture", stats_.last().c_str(), vsurf_show_isa(), stats_.mean(stats_.last())),
        formatted("%lld pictures shown, %lld dropped", static_cast<long long>(pictures_),
                  static_cast<long long>(dropped_)),
    };
}

OsdContent Player::osd() const
{
    OsdContent content;
    const double played = about_.duration && *about_.duration > 0 ? shown_.time / *about_.duration : 0;
    if (about_.duration && window_ && window_->mouse_is_near())
        content.played = std::round(std::min(played, 1.0) * kBarSteps) / kBarSteps;
    const bool fresh = Clock::Wall::now() < state_until_;
    if (fresh || content.played || keys_shown_ || info_shown_) {
        content.message = time_text(shown_.time);
        if (about_.duration) content.message += " / " + time_text(*about_.duration);
        if (paused_) content.message += ", paused";
        if (!refused_.empty()) content.message += ": " + refused_;
    }
    if (keys_shown_) content.lines = key_lines();
    else if (info_shown_) content.lines = info();
    else if (fresh) content.lines = state();
    return content;
}

} // namespace player
