// SPDX-License-Identifier: MIT
// Clips of known content.
#pragma once
#include "tests/player/image.h"
#include <functional>
#include <string>

namespace player_test {

// A picture with chroma of half the width, and of half the height (4:2:0) or for every line (4:2:2). Samples outside it
// are those of its edge.
struct Yuv {
    int width, height, chroma_step; // lines that share a line of chroma
    std::vector<uint8_t> y, u, v;

    Yuv(int w, int h, int step = 2);
    int chroma_width() const { return (width + 1) / 2; }
    int chroma_height() const { return (height + chroma_step - 1) / chroma_step; }
    int luma(int column, int line) const;
    std::array<int, 2> chroma(int column, int line) const;
    int at(int plane, int column, int line) const
    {
        return plane ? chroma(column, line)[plane == 2] : luma(column, line);
    }
};

Yuv noise(int width, int height, int chroma_step = 2);
Yuv gradient(int width, int height); // without steps that an interpolating screen would blur

// What a studio-range BT.601 sample looks like, computed with real numbers.
Pixel bt601(double y, double u, double v);
Image render(const Yuv& picture);
// As the player's controls do it: gains in 1/64.
Yuv adjusted(Yuv picture, int brightness, int contrast, int saturation);

std::string bytes(const Yuv& picture);        // Y, U, V
std::string packed_bytes(const Yuv& picture); // YUY2 of a 4:2:2 picture; an odd line ends with a sample of no meaning
// The same picture `count` times; `tags` are the header's, size aside.
void write_y4m(const std::filesystem::path& file, const Yuv& picture, int count, const std::string& tags = "C420mpeg2");
void write_y4m(const std::filesystem::path& file, int width, int height, const std::string& picture, int count,
               const std::string& tags);

// Encoded with one of FFmpeg's own encoders; the extension chooses the container. `count` pictures, a moving gradient.
struct Encoding {
    const char* codec;
    const char* pixel_format;
    int width, height, count;
    int clockwise = 0; // degrees by which the film is to be turned
};
void encode(const std::filesystem::path& file, const Encoding& encoding);

} // namespace player_test
