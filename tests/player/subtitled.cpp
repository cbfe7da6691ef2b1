// SPDX-License-Identifier: MIT
#include "tests/player/subtitled.h"
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace player_test {
namespace {

// Studio range in 1/1024, rounded down.
int component(const Pixel& colour, int plane)
{
    const int r = colour[0], g = colour[1], b = colour[2];
    switch (plane) {
    case 0: return (100 * b + 516 * g + 263 * r + 16 * 1024) >> 10;
    case 1: return (449 * b - 297 * g - 151 * r + 128 * 1024) >> 10;
    default: return (-72 * b - 376 * g + 449 * r + 128 * 1024) >> 10;
    }
}

int alpha_at(const Box& box, int x, int line) { return box.holds(x, line) ? box.alpha() : 0; }

// The last pixel of an odd width stands for the one beyond it, too.
int pair_alpha(const Box& box, int x, int line, int width, ChromaAlpha which)
{
    const int odd = alpha_at(box, std::min(2 * x + 1, width - 1), line);
    return which == ChromaAlpha::odd ? odd : (alpha_at(box, 2 * x, line) + odd + 1) / 2;
}

void blend(uint8_t& sample, int over, int alpha)
{
    sample = static_cast<uint8_t>(((16 - alpha) * sample + alpha * over) / 16);
}

std::string time(int hundredths)
{
    char text[32];
    std::snprintf(text, sizeof text, "0:%02d:%02d.%02d", hundredths / 6000, hundredths / 100 % 60, hundredths % 100);
    return text;
}

} // namespace

int Box::alpha() const { return static_cast<int>(std::lround((255 - transparency) / 255.0 * 16)); }

std::string script_header(int width, int height)
{
    return "[Script Info]\nScriptType: v4.00+\nPlayResX: " + std::to_string(width) +
           "\nPlayResY: " + std::to_string(height) +
           "\n\n[V4+ Styles]\n"
           "Format: Name, Fontname, Fontsize, PrimaryColour, SecondaryColour, OutlineColour, BackColour, Bold, Italic, "
           "Underline, StrikeOut, ScaleX, ScaleY, Spacing, Angle, BorderStyle, Outline, Shadow, Alignment, MarginL, "
           "MarginR, MarginV, Encoding\n"
           "Style: Box,Sans,20,&H00FFFFFF,&H00FFFFFF,&H00000000,&H00000000,0,0,0,0,100,100,0,0,1,0,0,7,0,0,0,1\n"
           "\n[Events]\n"
           "Format: Layer, Start, End, Style, Name, MarginL, MarginR, MarginV, Effect, Text\n";
}

std::string script_line(const Box& box)
{
    const int width = box.right - box.left, height = box.bottom - box.top;
    char text[160];
    std::snprintf(text, sizeof text,
                  "Box,,0,0,0,,{\\pos(%d,%d)\\c&H%02X%02X%02X&\\1a&H%02X&\\p1}m 0 0 l %d 0 %d %d 0 %d", box.left,
                  box.top, box.colour[2], box.colour[1], box.colour[0], box.transparency, width, width, height, height);
    return text;
}

std::string script(int width, int height, const std::vector<Box>& boxes, int start, int end)
{
    std::string all = script_header(width, height);
    for (const Box& box : boxes)
        all.append("Dialogue: 0,").append(time(start) + "," + time(end) + "," + script_line(box) + "\n");
    return all;
}

Yuv subtitled(const Yuv& picture, const std::vector<Box>& boxes, ChromaAlpha chroma_alpha)
{
    Yuv out = picture;
    for (const Box& box : boxes) {
        std::size_t next = 0;
        for (int line = 0; line < out.height; line++)
            for (int x = 0; x < out.width; x++) blend(out.y[next++], component(box.colour, 0), alpha_at(box, x, line));
        next = 0;
        for (int line = 0; line < out.chroma_height(); line++) {
            for (int x = 0; x < out.chroma_width(); x++, next++) {
                const int alpha = pair_alpha(box, x, line * out.chroma_step, out.width, chroma_alpha);
                blend(out.u[next], component(box.colour, 1), alpha);
                blend(out.v[next], component(box.colour, 2), alpha);
            }
        }
    }
    return out;
}

} // namespace player_test
