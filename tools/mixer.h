// SPDX-License-Identifier: MIT
// A subpicture over a picture, or only the subpicture.
#pragma once
#include "tools/controls.h"
#include "tools/picture.h"
#include "tools/subpicture.h"

namespace player {

class Mixer {
public:
    // Whether a mixer writes such a surface. Any other takes two steps: mixed planes, and a loader for those.
    static bool reaches(SurfaceFormat format, Scaling scaling, const Controls& controls);

    // Picture, subpicture and surface have the geometry that was planned for the scaling, and a mixer reaches the
    // surface. Returns the name of the export that did it.
    const char* mix(const Picture& picture, const Subpicture& subpicture, Surface& surface, const Controls& controls,
                    Scaling scaling) const;
    // Onto an RGB surface of its size, `key` where it shows nothing.
    const char* draw_alone(const Subpicture& subpicture, uint32_t key, Surface& surface,
                           const Controls& controls) const;

    // A colour that nobody takes for a part of the picture, as an RGB surface holds it. Its red and blue are equal: the
    // drawers exchange them.
    static uint32_t magenta(SurfaceFormat format);

private:
};

} // namespace player
