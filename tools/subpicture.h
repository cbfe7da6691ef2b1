// SPDX-License-Identifier: MIT
// What is over the picture, as the planes that the mixers take.
#pragma once
#include "tools/drawing.h"
#include "tools/stats.h"
#include "tools/subtitles.h"

namespace player {

class Subpicture {
public:
    // Drawn again where the images or the canvas have changed.
    void update(const SubtitleImages& images, const Canvas& canvas, Stats& stats);
    // A record of all of it, as the preparations want it: its planes have the picture's pitch and its width. Exports
    // move what is in a record, so each call needs a new one.
    MIX_INFO job() const;

private:
    Drawing drawing_;
    Canvas canvas_;
    AlignedBytes planes_; // alpha, Y, V, U
};

} // namespace player
