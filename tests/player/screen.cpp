// SPDX-License-Identifier: MIT
#include "tests/player/screen.h"
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace player_test {

class Screen::Connection {
public:
    explicit Connection(const std::string& name) : display_(XOpenDisplay(name.c_str()))
    {
        if (!display_) throw std::runtime_error("Xvfb lets nobody in");
        // A window may be gone between two questions about it.
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    }
    ~Connection() { XCloseDisplay(display_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::optional<Window> window() const;
    std::optional<Image> photograph() const;
    std::string title() const;
    void close_window() const;

private:
    Display* display_;
};

// Without a window manager the one viewable child of the root is the player's.
std::optional<Window> Screen::Connection::window() const
{
    Window root, parent, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count)) return {};
    std::optional<Window> found;
    for (unsigned i = 0; i < count; i++) {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(display_, children[i], &attributes) && attributes.map_state == IsViewable &&
            attributes.c_class == InputOutput)
            found = children[i];
    }
    if (children) XFree(children);
    return found;
}

std::optional<Image> Screen::Connection::photograph() const
{
    const auto which = window();
    XWindowAttributes attributes;
    if (!which || !XGetWindowAttributes(display_, *which, &attributes)) return {};
    XImage* photo = XGetImage(display_, *which, 0, 0, static_cast<unsigned>(attributes.width),
                              static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap);
    if (!photo) return {};
    Image image(attributes.width, attributes.height);
    for (int y = 0; y < image.height; y++) {
        for (int x = 0; x < image.width; x++) {
            const unsigned long pixel = XGetPixel(photo, x, y);
            image.at(x, y) = {static_cast<uint8_t>(pixel >> 16), static_cast<uint8_t>(pixel >> 8),
                              static_cast<uint8_t>(pixel)};
        }
    }
    XDestroyImage(photo);
    return image;
}

std::string Screen::Connection::title() const
{
    const auto which = window();
    char* name = nullptr;
    if (!which || !XFetchName(display_, *which, &name) || !name) return {};
    std::string title = name;
    XFree(name);
    return title;
}

void Screen::Connection::close_window() const
{
    const auto which = window();
    if (!which) return;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = *which;
    event.xclient.message_type = XInternAtom(display_, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display_, "WM_DELETE_WINDOW", False));
    XSendEvent(display_, *which, False, NoEventMask, &event);
    XFlush(display_);
}

Screen::Screen()
{
    const std::string number = (scratch_ / "number").string();
    server_ = std::make_unique<Process>(
        Arguments{"sh", "-c", "exec Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp -noreset 3>" + number});
    std::string digits;
    for (int i = 0; i < 500 && !digits.ends_with('\n') && server_->running(); i++) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        digits = contents(number);
    }
    if (!digits.ends_with('\n')) throw std::runtime_error("Xvfb does not answer");
    digits.pop_back();
    variable_ = "DISPLAY=:" + digits;
    connection_ = std::make_unique<Connection>(":" + digits);
}

Screen::~Screen() = default;

std::optional<Image> Screen::photograph() { return connection_->photograph(); }

void Screen::close_window() { connection_->close_window(); }

std::string Screen::title() { return connection_->title(); }

void Screen::press(const std::string& keys)
{
    // Without a window manager keys go where the pointer is: onto the centred window.
    Process({"sh", "-c", "xdotool mousemove 512 384 key " + keys}, {variable_}).wait();
}

} // namespace player_test
