// SPDX-License-Identifier: MIT
// A virtual screen, what it shows, and keys that are pressed on it.
#pragma once
#include "tests/player/image.h"
#include "tests/player/process.h"
#include <memory>
#include <optional>
#include <string>

namespace player_test {

class Screen {
public:
    Screen(); // starts Xvfb and waits until it answers
    ~Screen();

    static bool available() { return installed("Xvfb"); }
    static bool has_keyboard() { return installed("xdotool"); }

    const std::string& variable() const { return variable_; } // "DISPLAY=:7"

    // The window that is there, once it is.
    std::optional<Image> photograph();
    std::string title();
    void press(const std::string& keys); // in the words of xdotool
    void close_window();                 // as its button does

private:
    class Connection; // keeps X11's macros out of this header

    ScratchDirectory scratch_;
    std::unique_ptr<Process> server_;
    std::string variable_;
    std::unique_ptr<Connection> connection_;
};

} // namespace player_test
