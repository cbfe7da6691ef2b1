// SPDX-License-Identifier: MIT
// What the viewer can ask for, and the keys for it.
#pragma once
#include <SDL_keyboard.h>
#include <string>
#include <vector>

namespace player {

enum class Command {
    none,
    quit,
    pause,
    step,
    step_back,
    darker,
    brighter,
    less_contrast,
    more_contrast,
    less_saturation,
    more_saturation,
    reset,
    next_surface,
    half_width,
    zoom,
    field,
    subtitles,
    alone,
    overlay,
    back,
    forward,
    far_back,
    far_forward,
    slower,
    faster,
    usual_speed,
    mute,
    quieter,
    louder,
    next_sound,
    earlier_subtitles,
    later_subtitles,
    full_screen,
    keys,
    info,
    seek_to,  // the window knows where
    play_file // and which
};

Command key_command(const SDL_Keysym& key);
// Whether a key that is held down asks again and again.
bool repeats(Command command);

struct KeyText {
    const char *keys, *meaning;
};
const std::vector<KeyText>& key_texts();
std::string key_list(std::size_t column); // a line each, with the meanings in one column

} // namespace player
