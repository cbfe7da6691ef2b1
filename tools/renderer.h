// SPDX-License-Identifier: MIT
// Decoded pictures and subtitles onto surfaces, through the library.
#pragma once
#include "tools/colours.h"
#include "tools/converter.h"
#include "tools/loader.h"
#include "tools/mixer.h"
#include "tools/overlay.h"
#include "tools/shower.h"
#include "tools/view.h"

namespace player {

class Renderer {
public:
    Renderer(Stats& stats, int threads) : stats_(stats), shower_(threads) {}

    // What the picture is at its moment, apart from its samples.
    struct Moment {
        double time, sample_aspect;
        std::optional<double> played; // 0 to 1
    };
    // `subtitles` may be null.
    void render(const AVFrame& frame, const Moment& moment, const View& wanted, Subtitles* subtitles);

    const Colours& colours() const { return colours_; } // of the last picture
    const Surface& surface() const { return surface_; }
    // The shown part of the surface, or of the screen where that is above it.
    const RgbImage& image();

private:
    SubtitleImages draw(const AVFrame& frame, const Moment& moment, const View& view, Subtitles* subtitles);
    const AVFrame& planes_of(const AVFrame& known);
    void load(const AVFrame& frame, const Geometry& geometry, const View& view);
    void mix(const Picture& picture, const Geometry& geometry, const View& view);
    void draw_alone(Surface& surface, uint32_t key, const View& view);
    void paint_screen(const Moment& moment, const View& view);

    Stats& stats_;
    Converter converter_;
    PictureSource picture_;
    Subpicture subpicture_;
    Shower shower_;
    Loader loader_;
    Mixer mixer_;
    Overlay overlay_;
    Surface surface_, planes_;
    RgbConverter rgb_;
    Colours colours_;
    bool drawn_ = false, screen_ = false;
};

} // namespace player
