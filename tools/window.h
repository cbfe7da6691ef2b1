// SPDX-License-Identifier: MIT
// The window: shows surfaces, turns keys into commands.
#pragma once
#include "tools/command.h"
#include "tools/geometry.h"
#include "tools/rgb_image.h"
#include <SDL.h>
#include <chrono>

namespace player {

template <auto release> struct SdlRelease {
    template <class T> void operator()(T* object) const { release(object); }
};

class SdlSession {
public:
    SdlSession();
    ~SdlSession() { SDL_Quit(); }
    SdlSession(const SdlSession&) = delete;
    SdlSession& operator=(const SdlSession&) = delete;
};

class Window {
public:
    // Opens at the size of the first picture, or smaller where the screen is.
    Window(int width, int height, const std::string& title);

    // `aspect` is that of the shown part as it should appear.
    void show(const Surface& surface, double aspect);
    void show(const RgbImage& image, double aspect);
    void title(const std::string& text);
    void toggle_full_screen();
    // The next command, or none when the time is over.
    Command wait(std::chrono::milliseconds longest);

private:
    void take(const RgbImage& image);
    void shape_texture(Uint32 format, int width, int height);
    void draw();
    Command command(const SDL_Event& event);

    SdlSession session_;
    std::unique_ptr<SDL_Window, SdlRelease<SDL_DestroyWindow>> window_;
    std::unique_ptr<SDL_Renderer, SdlRelease<SDL_DestroyRenderer>> renderer_;
    std::unique_ptr<SDL_Texture, SdlRelease<SDL_DestroyTexture>> texture_;
    RgbConverter converter_;
    std::string title_;
    SDL_Rect shown_{};
    double aspect_ = 1;
};

} // namespace player
