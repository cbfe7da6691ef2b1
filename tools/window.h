// SPDX-License-Identifier: MIT
// The window: shows surfaces, turns keys into commands.
#pragma once
#include "tools/command.h"
#include "tools/geometry.h"
#include "tools/osd.h"
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
    // What is over the picture from the next drawing on, or from the next refresh.
    void set_osd(const OsdContent& content);
    void refresh();
    // A mouse that moves brings the bar, and the cursor, for a while.
    bool mouse_is_near() const;
    double target() const { return target_; }                    // where the bar was clicked, 0 to 1
    const std::string& dropped_file() const { return dropped_; } // onto the window
    // The next command, or none when the time is over.
    Command wait(std::chrono::milliseconds longest);

private:
    void take(const RgbImage& image);
    void shape_texture(Uint32 format, int width, int height);
    void draw();
    void draw_osd(int width, int height);
    Command command(const SDL_Event& event);
    Command mouse_command(const SDL_Event& event);
    bool aim(int x, int y);

    SdlSession session_;
    std::unique_ptr<SDL_Window, SdlRelease<SDL_DestroyWindow>> window_;
    std::unique_ptr<SDL_Renderer, SdlRelease<SDL_DestroyRenderer>> renderer_;
    std::unique_ptr<SDL_Texture, SdlRelease<SDL_DestroyTexture>> texture_;
    std::unique_ptr<SDL_Texture, SdlRelease<SDL_DestroyTexture>> osd_texture_;
    RgbConverter converter_;
    Osd osd_;
    OsdContent osd_content_;
    int osd_version_ = 0; // of the texture
    bool osd_changed_ = false, dragging_ = false;
    std::chrono::steady_clock::time_point mouse_moved_{};
    double target_ = 0;
    std::string title_, dropped_;
    SDL_Rect shown_{};
    double aspect_ = 1;
};

} // namespace player
