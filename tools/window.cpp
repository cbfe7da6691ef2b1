// SPDX-License-Identifier: MIT
#include "tools/window.h"
#include "tools/error.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace player {
namespace {

constexpr auto kMouseStays = std::chrono::seconds(2);
constexpr int kLeastWidth = 160, kLeastHeight = 90; // of a window that is made smaller by hand

[[noreturn]] void fail(const char* what) { throw Error(std::string(what) + ": " + SDL_GetError()); }

// 0 where SDL has no such format.
Uint32 texture_format(SurfaceFormat format)
{
    switch (format) {
    case SurfaceFormat::rgb32: return SDL_PIXELFORMAT_RGB888;
    case SurfaceFormat::rgb24: return SDL_PIXELFORMAT_BGR24;
    case SurfaceFormat::rgb16_565: return SDL_PIXELFORMAT_RGB565;
    case SurfaceFormat::yuy2: return SDL_PIXELFORMAT_YUY2;
    case SurfaceFormat::yv12: return SDL_PIXELFORMAT_YV12;
    default: return SDL_PIXELFORMAT_UNKNOWN;
    }
}

} // namespace

SdlSession::SdlSession()
{
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "0");
    SDL_SetHint(SDL_HINT_RENDER_SCALE_QUALITY, "linear");
    const bool chosen = std::getenv("SDL_VIDEODRIVER");
#ifdef __linux__
    // libwayland writes to stderr of its own accord where there is no desktop.
    if (!chosen && !std::getenv("XDG_RUNTIME_DIR")) SDL_SetHint(SDL_HINT_VIDEODRIVER, "x11,KMSDRM");
#endif
    if (SDL_Init(SDL_INIT_VIDEO) != 0) fail("no display (--dump DIR works without one)");
    if (!chosen && !std::strcmp(SDL_GetCurrentVideoDriver(), "offscreen"))
        throw Error("no display (--dump DIR works without one)");
    SDL_SetYUVConversionMode(SDL_YUV_CONVERSION_BT601);
}

Window::Window(int width, int height, const std::string& title)
{
    SDL_Rect screen{0, 0, width, height};
    SDL_GetDisplayUsableBounds(0, &screen);
    if (width > screen.w || height > screen.h) {
        const Rectangle fitted = fit(static_cast<double>(width) / height, screen.w, screen.h);
        width = fitted.width;
        height = fitted.height;
    }
    window_.reset(SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, width, height,
                                   SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI));
    if (!window_) fail("no window");
    SDL_SetWindowMinimumSize(window_.get(), kLeastWidth, kLeastHeight);
    renderer_.reset(SDL_CreateRenderer(window_.get(), -1, SDL_RENDERER_PRESENTVSYNC));
    if (!renderer_) renderer_.reset(SDL_CreateRenderer(window_.get(), -1, SDL_RENDERER_SOFTWARE));
    if (!renderer_) fail("no renderer");
}

void Window::show(const Surface& surface, double aspect)
{
    aspect_ = aspect;
    if (const Uint32 format = texture_format(surface.format())) {
        shape_texture(format, surface.shown_width(), surface.shown_height());
        const int status =
            surface.format() == SurfaceFormat::yv12
                ? SDL_UpdateYUVTexture(texture_.get(), nullptr, surface.bytes(), surface.pitch(), surface.u_plane(),
                                       surface.chroma_pitch(), surface.v_plane(), surface.chroma_pitch())
                : SDL_UpdateTexture(texture_.get(), nullptr, surface.bytes(), surface.pitch());
        if (status != 0) fail("the texture took no picture");
    } else {
        take(converter_.convert(surface));
    }
    shown_ = {0, 0, surface.shown_width(), surface.shown_height()};
    draw();
}

void Window::show(const RgbImage& image, double aspect)
{
    aspect_ = aspect;
    take(image);
    shown_ = {0, 0, image.width, image.height};
    draw();
}

void Window::take(const RgbImage& image)
{
    shape_texture(SDL_PIXELFORMAT_RGB24, image.width, image.height);
    if (SDL_UpdateTexture(texture_.get(), nullptr, image.bytes.data(), 3 * image.width) != 0)
        fail("the texture took no picture");
}

void Window::shape_texture(Uint32 format, int width, int height)
{
    if (texture_) {
        Uint32 old_format;
        int old_width, old_height;
        SDL_QueryTexture(texture_.get(), &old_format, nullptr, &old_width, &old_height);
        if (format == old_format && width == old_width && height == old_height) return;
    }
    texture_.reset(SDL_CreateTexture(renderer_.get(), format, SDL_TEXTUREACCESS_STREAMING, width, height));
    if (!texture_) fail("no texture");
    SDL_SetTextureBlendMode(texture_.get(), SDL_BLENDMODE_NONE);
}

void Window::draw()
{
    SDL_SetRenderDrawColor(renderer_.get(), 0, 0, 0, 255);
    SDL_RenderClear(renderer_.get());
    int width = 0, height = 0;
    SDL_GetRendererOutputSize(renderer_.get(), &width, &height);
    const Rectangle place = fit(aspect_, width, height);
    const SDL_Rect target{place.x, place.y, place.width, place.height};
    if (texture_) SDL_RenderCopy(renderer_.get(), texture_.get(), &shown_, &target);
    draw_osd(width, height);
    SDL_RenderPresent(renderer_.get());
}

void Window::draw_osd(int width, int height)
{
    osd_changed_ = false;
    const RgbaImage& image = osd_.draw(osd_content_, width, height);
    if (image.bytes.empty()) return;
    if (!osd_texture_ || image.version != osd_version_) {
        osd_version_ = image.version;
        osd_texture_.reset(SDL_CreateTexture(renderer_.get(), SDL_PIXELFORMAT_RGBA32, SDL_TEXTUREACCESS_STATIC,
                                             image.width, image.height));
        if (!osd_texture_) return;
        SDL_SetTextureBlendMode(osd_texture_.get(), SDL_BLENDMODE_BLEND);
        SDL_UpdateTexture(osd_texture_.get(), nullptr, image.bytes.data(), 4 * image.width);
    }
    const SDL_Rect place{image.x, image.y, image.width, image.height};
    SDL_RenderCopy(renderer_.get(), osd_texture_.get(), nullptr, &place);
}

void Window::set_osd(const OsdContent& content)
{
    if (content == osd_content_) return;
    osd_content_ = content;
    osd_changed_ = true;
}

void Window::refresh()
{
    SDL_ShowCursor(mouse_is_near() ? SDL_ENABLE : SDL_DISABLE);
    if (osd_changed_) draw();
}

bool Window::mouse_is_near() const
{
    return dragging_ || std::chrono::steady_clock::now() - mouse_moved_ < kMouseStays;
}

void Window::title(const std::string& text)
{
    if (text == title_) return;
    title_ = text;
    SDL_SetWindowTitle(window_.get(), text.c_str());
}

void Window::toggle_full_screen()
{
    const bool full = SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_FULLSCREEN_DESKTOP;
    SDL_SetWindowFullscreen(window_.get(), full ? 0 : SDL_WINDOW_FULLSCREEN_DESKTOP);
}

Command Window::wait(std::chrono::milliseconds longest)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + longest;
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
        SDL_Event event;
        if (!SDL_WaitEventTimeout(&event, static_cast<int>(std::max<decltype(left)>(left, 0)))) return Command::none;
        const Command found = command(event);
        if (found != Command::none) return found;
        if (left <= 0) return Command::none;
    }
}

Command Window::command(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_QUIT: return Command::quit;
    case SDL_WINDOWEVENT:
        if (event.window.event == SDL_WINDOWEVENT_EXPOSED || event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) draw();
        return Command::none;
    case SDL_DROPFILE:
        dropped_ = event.drop.file;
        SDL_free(event.drop.file);
        return Command::play_file;
    case SDL_KEYDOWN: {
        const Command found = key_command(event.key.keysym);
        return event.key.repeat && !repeats(found) ? Command::none : found;
    }
    default: return mouse_command(event);
    }
}

Command Window::mouse_command(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_MOUSEMOTION:
        mouse_moved_ = std::chrono::steady_clock::now();
        return dragging_ && aim(event.motion.x, event.motion.y) ? Command::seek_to : Command::none;
    case SDL_MOUSEBUTTONDOWN:
        if (event.button.button != SDL_BUTTON_LEFT) return Command::none;
        dragging_ = osd_content_.played && aim(event.button.x, event.button.y);
        if (dragging_) return Command::seek_to;
        return event.button.clicks == 2 ? Command::full_screen : Command::none;
    case SDL_MOUSEBUTTONUP: dragging_ = false; return Command::none;
    default: return Command::none;
    }
}

// Where the mouse is on the bar; while it is dragged, whatever its height.
bool Window::aim(int x, int y)
{
    int window_width = 1, window_height = 1, width = 0, height = 0;
    SDL_GetWindowSize(window_.get(), &window_width, &window_height);
    SDL_GetRendererOutputSize(renderer_.get(), &width, &height);
    const Box bar = Osd::bar(width, height);
    x = x * width / std::max(window_width, 1);
    y = y * height / std::max(window_height, 1);
    const int reach = bar.height(); // around it
    if (!dragging_ && (y < bar.top - reach || y >= bar.bottom + reach || x < bar.left || x >= bar.right)) return false;
    target_ = std::clamp((x - bar.left) / static_cast<double>(std::max(bar.width(), 1)), 0.0, 1.0);
    return true;
}

} // namespace player
