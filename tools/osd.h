// SPDX-License-Identifier: MIT
// Words and the seek bar over the picture, at the window's own resolution.
#pragma once
#include "tools/ass.h"
#include "tools/layers.h"
#include <optional>
#include <string>
#include <vector>

namespace player {

struct OsdContent {
    std::string message;            // one line
    std::vector<std::string> lines; // below it: a list, where a tab begins a second column
    std::optional<double> played;   // a bar, 0 to 1

    bool empty() const { return message.empty() && lines.empty() && !played; }
    bool operator==(const OsdContent&) const = default;
};

struct RgbaImage {
    int x = 0, y = 0, width = 0, height = 0;
    std::vector<uint8_t> bytes; // R, G, B, alpha
    int version = 0;            // another one for each image
};

class Osd {
public:
    Osd();

    // Where the bar lies in a window of this size.
    static Box bar(int width, int height);
    // The same image as before where nothing has changed.
    const RgbaImage& draw(const OsdContent& content, int width, int height);

private:
    std::string script(const OsdContent& content, int width, int height) const;

    AssLibraryPtr library_;
    AssRendererPtr renderer_;
    Layers layers_;
    OsdContent content_;
    int width_ = 0, height_ = 0;
    RgbaImage image_;
};

} // namespace player
