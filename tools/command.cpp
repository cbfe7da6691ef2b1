// SPDX-License-Identifier: MIT
#include "tools/command.h"
#include <algorithm>

namespace player {
namespace {

struct Binding {
    Command command;
    SDL_Keycode key, other; // the other may be 0
    bool repeats;
};

constexpr Binding kBindings[] = {
    {Command::quit, SDLK_q, SDLK_ESCAPE, false},
    {Command::pause, SDLK_SPACE, 0, false},
    {Command::step, SDLK_PERIOD, 0, true},
    {Command::step_back, SDLK_COMMA, 0, true},
    {Command::darker, SDLK_1, SDLK_KP_1, true},
    {Command::brighter, SDLK_2, SDLK_KP_2, true},
    {Command::less_contrast, SDLK_3, SDLK_KP_3, true},
    {Command::more_contrast, SDLK_4, SDLK_KP_4, true},
    {Command::less_saturation, SDLK_5, SDLK_KP_5, true},
    {Command::more_saturation, SDLK_6, SDLK_KP_6, true},
    {Command::reset, SDLK_0, SDLK_KP_0, false},
    {Command::next_surface, SDLK_s, 0, false},
    {Command::half_width, SDLK_w, 0, false},
    {Command::zoom, SDLK_z, 0, false},
    {Command::field, SDLK_d, 0, false},
    {Command::subtitles, SDLK_v, 0, false},
    {Command::alone, SDLK_a, 0, false},
    {Command::overlay, SDLK_o, 0, false},
    {Command::back, SDLK_LEFT, 0, true},
    {Command::forward, SDLK_RIGHT, 0, true},
    {Command::far_back, SDLK_DOWN, 0, true},
    {Command::far_forward, SDLK_UP, 0, true},
    {Command::slower, SDLK_LEFTBRACKET, 0, true},
    {Command::faster, SDLK_RIGHTBRACKET, 0, true},
    {Command::usual_speed, SDLK_BACKSPACE, 0, false},
    {Command::mute, SDLK_m, 0, false},
    {Command::quieter, SDLK_MINUS, SDLK_KP_MINUS, true},
    {Command::louder, SDLK_EQUALS, SDLK_PLUS, true},
    {Command::louder, SDLK_KP_PLUS, 0, true},
    {Command::next_sound, SDLK_HASH, 0, false},
    {Command::earlier_subtitles, SDLK_x, 0, true},
    {Command::later_subtitles, SDLK_c, 0, true},
    {Command::full_screen, SDLK_f, 0, false},
    {Command::keys, SDLK_h, 0, false},
    {Command::info, SDLK_i, 0, false},
};

} // namespace

Command key_command(const SDL_Keysym& key)
{
    // Where the keyboard has it above the 3.
    if (key.sym == SDLK_3 && key.mod & KMOD_SHIFT) return Command::next_sound;
    for (const Binding& each : kBindings)
        if (key.sym == each.key || (each.other && key.sym == each.other)) return each.command;
    return Command::none;
}

bool repeats(Command command)
{
    return std::any_of(std::begin(kBindings), std::end(kBindings),
                       [&](const Binding& each) { return each.command == command && each.repeats; });
}

const std::vector<KeyText>& key_texts()
{
    static const std::vector<KeyText> texts{
        {"space", "pause"},
        {". ,", "next picture, the one before"},
        {"left right", "5 seconds back, forward"},
        {"down up", "a minute back, forward"},
        {"[ ] backspace", "slower, faster, usual speed"},
        {"- = m", "quieter, louder, mute"},
        {"#", "next sound track"},
        {"1 2", "brightness"},
        {"3 4", "contrast"},
        {"5 6", "saturation"},
        {"0", "reset these three"},
        {"s", "next surface format"},
        {"w", "half width"},
        {"z", "zoom"},
        {"d", "field"},
        {"v", "subtitles"},
        {"x c", "subtitles earlier, later"},
        {"a", "subpicture alone"},
        {"o", "overlay"},
        {"f", "full screen"},
        {"i", "what is playing, and how"},
        {"h", "keys"},
        {"q", "quit"},
    };
    return texts;
}

std::string key_list(std::size_t column)
{
    std::string list;
    for (const KeyText& each : key_texts()) {
        std::string keys = each.keys;
        keys.resize(std::max(column, keys.size() + 1), ' ');
        list += "  " + keys + each.meaning + "\n";
    }
    return list;
}

} // namespace player
