// SPDX-License-Identifier: MIT
#include "tools/osd.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace player {
namespace {

constexpr int kRowsPerHeight = 20; // of a message, in a window of the usual size
constexpr double kRow = 1.25;      // of a font's size
constexpr int kMostRows = 14;      // of a list; more stand in two columns
constexpr int kLeastFont = 11, kMostFont = 44;
constexpr double kTab = 7.5;       // of a font's size
constexpr double kCharacter = 0.5; // width of one, of a font's size

// Backslashes and braces are a script's own.
std::string plain(const std::string& text)
{
    std::string escaped;
    for (const char each : text) {
        if (each == '{' || each == '}') escaped += '\\';
        escaped += each;
        if (each == '\\') escaped += "\xe2\x81\xa0"; // a joiner that is not seen
    }
    return escaped;
}

std::size_t longest(const std::vector<std::string>& lines)
{
    std::size_t most = 1;
    for (const std::string& each : lines) most = std::max(most, each.size());
    return most;
}

// One that all of it has room for.
double font_size(const OsdContent& content, int width, int height)
{
    const std::size_t count = content.lines.size(), columns = count > kMostRows ? 2 : 1;
    const auto lines_of_words = (count + columns - 1) / columns;
    const auto rows = static_cast<double>(lines_of_words + (content.message.empty() ? 0 : 1) + 1);
    double size = static_cast<double>(height) / kRowsPerHeight;
    size = std::min(size, height / rows / kRow);
    const auto characters = static_cast<double>(std::max(longest(content.lines) * columns, content.message.size()) + 2);
    size = std::min(std::max(size, double{kLeastFont}), width / characters / kCharacter);
    return std::min(size, double{kMostFont});
}

void append(std::string& script, const char* style, const std::string& text)
{
    script.append("Dialogue: 0,0:00:00.00,9:00:00.00,").append(style).append(",,0,0,0,,").append(text).append("\n");
}

std::string rectangle(const Box& box, const char* colour, const char* alpha)
{
    char text[200];
    std::snprintf(text, sizeof text,
                  "{\\an7\\pos(%d,%d)\\bord0\\shad0\\1c&H%s&\\1a&H%s&\\p1}m 0 0 l %d 0 l %d %d l 0 %d", box.left,
                  box.top, colour, alpha, box.width(), box.width(), box.height(), box.height());
    return text;
}

uint8_t byte(float value) { return static_cast<uint8_t>(std::clamp(std::lround(value), 0L, 255L)); }

} // namespace

Osd::Osd() : library_(checked(ass_library_init()))
{
    ass_set_message_cb(
        library_.get(), [](int, const char*, va_list, void*) {}, nullptr);
    renderer_.reset(checked(ass_renderer_init(library_.get())));
    ass_set_fonts(renderer_.get(), nullptr, kFontFamily, ASS_FONTPROVIDER_AUTODETECT, nullptr, 1);
}

Box Osd::bar(int width, int height)
{
    const int margin = std::max(4, width / 40), thickness = std::clamp(height / 40, 6, 24);
    return {margin, height - margin - thickness, width - margin, height - margin};
}

std::string Osd::script(const OsdContent& content, int width, int height) const
{
    const double size = font_size(content, width, height);
    char header[900];
    std::snprintf(header, sizeof header,
                  "[Script Info]\nScriptType: v4.00+\nPlayResX: %d\nPlayResY: %d\nWrapStyle: 2\n\n[V4+ Styles]\n"
                  "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, "
                  "Italic, Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, "
                  "Alignment, MarginL, MarginR, MarginV, Encoding\n"
                  "Style: Osd,%s,%.1f,&H00FFFFFF,&H00FFFFFF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,%.1f,0,7,0,0,0,"
                  "1\n\n[Events]\n"
                  "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n",
                  width, height, kFontFamily, size, std::max(1.0, size / 12));
    std::string script = header;
    double top = size / 2;
    auto write_part = [&](const std::string& text, double left, double y) {
        char place[80];
        std::snprintf(place, sizeof place, "{\\pos(%.1f,%.1f)}", left, y);
        append(script, "Osd", place + plain(text));
    };
    auto write = [&](const std::string& text, double left, double y) {
        const std::size_t tab = text.find('\t');
        write_part(text.substr(0, tab), left, y);
        if (tab != std::string::npos) write_part(text.substr(tab + 1), left + kTab * size, y);
    };
    if (!content.message.empty()) {
        write(content.message, size / 2, top);
        top += kRow * size;
    }
    const std::size_t columns = content.lines.size() > kMostRows ? 2 : 1;
    const std::size_t rows = (content.lines.size() + columns - 1) / columns;
    for (std::size_t i = 0; i < content.lines.size(); i++) {
        const std::size_t column = i / rows;
        write(content.lines[i], size / 2 + static_cast<double>(column) * width / 2.0,
              top + static_cast<double>(i % rows) * kRow * size);
    }
    if (content.played) {
        const Box whole = bar(width, height);
        Box part = whole;
        part.right = part.left + static_cast<int>(std::lround(*content.played * whole.width()));
        append(script, "Osd", rectangle(whole, "000000", "60"));
        append(script, "Osd", rectangle(part, "FFFFFF", "20"));
    }
    return script;
}

const RgbaImage& Osd::draw(const OsdContent& content, int width, int height)
{
    if (content == content_ && width == width_ && height == height_) return image_;
    content_ = content;
    width_ = width;
    height_ = height;
    image_ = {0, 0, 0, 0, {}, image_.version + 1};
    if (content.empty()) return image_;
    std::string text = script(content, width, height);
    const AssTrackPtr track(checked(ass_read_memory(library_.get(), text.data(), text.size(), nullptr)));
    ass_set_frame_size(renderer_.get(), width, height);
    layers_.blend(ass_render_frame(renderer_.get(), track.get(), 1, nullptr), width, height);
    const Box& box = layers_.box();
    if (box.empty()) return image_;
    image_ = {box.left, box.top, box.width(), box.height(), {}, image_.version};
    image_.bytes.reserve(4 * layers_.pixels().size());
    for (const Layers::Pixel& each : layers_.pixels()) {
        const float share = each.opacity > 0 ? 1 / each.opacity : 0;
        for (const float value : {each.red * share, each.green * share, each.blue * share, each.opacity * 255})
            image_.bytes.push_back(byte(value));
    }
    return image_;
}

} // namespace player
