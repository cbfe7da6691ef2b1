// SPDX-License-Identifier: MIT
#include "tools/view.h"

namespace player {

static constexpr int kBrightnessStep = 4, kGainStep = 4;

void View::turn(Command command)
{
    auto toggle = [&](Scaling wanted) { scaling = scaling == wanted ? Scaling::none : wanted; };
    switch (command) {
    case Command::darker: controls.turn_brightness(-kBrightnessStep); break;
    case Command::brighter: controls.turn_brightness(kBrightnessStep); break;
    case Command::less_contrast: controls.turn_contrast(-kGainStep); break;
    case Command::more_contrast: controls.turn_contrast(kGainStep); break;
    case Command::less_saturation: controls.turn_saturation(-kGainStep); break;
    case Command::more_saturation: controls.turn_saturation(kGainStep); break;
    case Command::reset: controls = {}; break;
    case Command::next_surface: surface = next_format(surface); break;
    case Command::half_width: toggle(Scaling::half_width); break;
    case Command::zoom: scaling = next_zoom(scaling); break;
    case Command::field: toggle(Scaling::field); break;
    case Command::subtitles: subtitles = !subtitles; break;
    case Command::alone: alone = !alone; break;
    case Command::overlay: overlay = !overlay; break;
    default: break;
    }
}

} // namespace player
