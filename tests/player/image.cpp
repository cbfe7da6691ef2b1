// SPDX-License-Identifier: MIT
#include "tests/player/image.h"
#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <png.h>
#include <set>

namespace player_test {

Image read_png(const std::filesystem::path& file)
{
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&png, file.c_str())) return {};
    png.format = PNG_FORMAT_RGB;
    Image image(static_cast<int>(png.width), static_cast<int>(png.height));
    if (!png_image_finish_read(&png, nullptr, image.pixels.data(), 0, nullptr)) return {};
    return image;
}

std::array<int, 3> largest_difference(const Image& a, const Image& b)
{
    if (a.width != b.width || a.height != b.height) return {256, 256, 256};
    std::array<int, 3> most{};
    for (std::size_t i = 0; i < a.pixels.size(); i++)
        for (std::size_t c = 0; c < 3; c++) most[c] = std::max(most[c], std::abs(a.pixels[i][c] - b.pixels[i][c]));
    return most;
}

std::array<int, 3> distinct_values(const Image& image)
{
    std::array<std::set<uint8_t>, 3> values;
    for (const Pixel& pixel : image.pixels)
        for (std::size_t c = 0; c < 3; c++) values[c].insert(pixel[c]);
    return {static_cast<int>(values[0].size()), static_cast<int>(values[1].size()), static_cast<int>(values[2].size())};
}

double mean(const Image& image)
{
    double sum = 0;
    for (const Pixel& pixel : image.pixels) sum += std::accumulate(pixel.begin(), pixel.end(), 0.0);
    return sum / (3.0 * static_cast<double>(image.pixels.size()));
}

} // namespace player_test
