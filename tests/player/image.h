// SPDX-License-Identifier: MIT
// Pictures as 8-bit R, G, B, and how far two of them differ.
#pragma once
#include <array>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace player_test {

using Pixel = std::array<uint8_t, 3>;

struct Image {
    int width = 0, height = 0;
    std::vector<Pixel> pixels;

    Image() = default;
    Image(int w, int h) : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}

    Pixel& at(int x, int y)
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
    const Pixel& at(int x, int y) const { return const_cast<Image*>(this)->at(x, y); }
};

Image read_png(const std::filesystem::path& file); // an empty image where the file is not a PNG

// The largest difference of each component; 256 where the sizes differ.
std::array<int, 3> largest_difference(const Image& a, const Image& b);
// How many values each component takes.
std::array<int, 3> distinct_values(const Image& image);
double mean(const Image& image);

} // namespace player_test
