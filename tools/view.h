// SPDX-License-Identifier: MIT
// How the viewer wants to see the pictures.
#pragma once
#include "tools/command.h"
#include "tools/controls.h"
#include "tools/geometry.h"

namespace player {

struct View {
    SurfaceFormat surface = SurfaceFormat::rgb32;
    Scaling scaling = Scaling::none;
    Controls controls;
    bool subtitles = true; // where there are any
    bool alone = false;    // the subtitles without the picture below them
    bool overlay = false;  // as on a screen with a colour key

    void turn(Command command);
};

} // namespace player
