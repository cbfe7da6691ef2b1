// Clips of known content.
#pragma once
#include "tests/player/image.h"
#include <functional>
#include <string>

namespace player_test {

// A 4:2:0 picture; samples outside it are those of its edge.
struct Yuv {
    int width, height;
    std::vector<uint8_t> y, u, v;

    Yuv(int w, int h);
    int chroma_width() const { return (width + 1) / 2; }
    int chroma_height() const { return (height + 1) / 2; }
    int luma(int column, int line) const;
    std::array<int, 2> chroma(int column, int line) const;
};

Yuv noise(int width, int height);
Yuv gradient(int width, int height); // without steps that an interpolating screen would blur

// What a studio-range BT.601 sample looks like, computed with real numbers.
Pixel bt601(double y, double u, double v);
Image render(const Yuv& picture);

std::string bytes(const Yuv& picture); // Y, U, V
// The same picture `count` times; `tags` are the header's, size aside.
void write_y4m(const std::filesystem::path& file, const Yuv& picture, int count, const std::string& tags = "C420mpeg2");
void write_y4m(const std::filesystem::path& file, int width, int height, const std::string& picture, int count,
               const std::string& tags);

// Encoded with one of FFmpeg's own encoders; the extension chooses the container. `count` pictures, a moving gradient.
struct Encoding {
    const char* codec;
    const char* pixel_format;
    int width, height, count;
};
void encode(const std::filesystem::path& file, const Encoding& encoding);

} // namespace player_test
