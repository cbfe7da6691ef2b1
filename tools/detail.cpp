// SPDX-License-Identifier: MIT
// vsurf-detail: a detail of a PNG picture, every pixel as a square that can be counted.
#include "tools/error.h"
#include "tools/png_writer.h"
#include <cstdio>
#include <exception>
#include <png.h>

namespace {

using player::Error;
using player::RgbImage;

constexpr int kFailure = 2, kMagnification = 4, kMostPixels = 4096;

struct Detail {
    int width, height, x, y;
};

Detail parse(const std::string& text)
{
    Detail detail{};
    int used = 0;
    const int found =
        std::sscanf(text.c_str(), "%dx%d+%d+%d%n", &detail.width, &detail.height, &detail.x, &detail.y, &used);
    const bool fits = detail.width > 0 && detail.height > 0 && detail.width <= kMostPixels &&
                      detail.height <= kMostPixels && detail.x >= 0 && detail.y >= 0;
    if (found != 4 || static_cast<std::size_t>(used) != text.size() || !fits)
        throw Error(text + ": not of the form WIDTHxHEIGHT+X+Y");
    return detail;
}

RgbImage read_png(const std::string& file)
{
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    RgbImage image;
    if (png_image_begin_read_from_file(&png, file.c_str())) {
        png.format = PNG_FORMAT_RGB;
        image.width = static_cast<int>(png.width);
        image.height = static_cast<int>(png.height);
        image.bytes.resize(PNG_IMAGE_SIZE(png));
        png_image_finish_read(&png, nullptr, image.bytes.data(), 0, nullptr);
    }
    if (PNG_IMAGE_FAILED(png)) throw Error(file + ": " + png.message);
    return image;
}

// With `repeat_lines` each even line of the picture stands for the odd one below it, too.
RgbImage magnified(const RgbImage& image, const Detail& detail, bool repeat_lines)
{
    RgbImage out;
    out.width = detail.width * kMagnification;
    out.height = detail.height * kMagnification;
    for (int y = 0; y < out.height; y++) {
        const int line = detail.y + y / kMagnification;
        const auto from = static_cast<std::size_t>(repeat_lines ? line / 2 * 2 : line);
        for (int x = 0; x < out.width; x++) {
            const auto column = static_cast<std::size_t>(detail.x + x / kMagnification);
            const uint8_t* pixel = image.bytes.data() + 3 * (from * static_cast<std::size_t>(image.width) + column);
            out.bytes.insert(out.bytes.end(), pixel, pixel + 3);
        }
    }
    return out;
}

void run(const std::vector<std::string>& words)
{
    const bool repeat_lines = words.size() == 4 && words[0] == "--repeat-lines";
    if (words.size() != 3 && !repeat_lines)
        throw Error("usage: vsurf-detail [--repeat-lines] PICTURE.png WIDTHxHEIGHT+X+Y DETAIL.png");
    const std::string *picture = &words[words.size() - 3], *where = picture + 1, *out = picture + 2;
    const Detail detail = parse(*where);
    const RgbImage image = read_png(*picture);
    if (detail.x > image.width - detail.width || detail.y > image.height - detail.height)
        throw Error(*where + ": not inside the picture");
    player::write_png(magnified(image, detail, repeat_lines), *out);
}

} // namespace

int main(int argc, char** argv)
try {
    run({argv + 1, argv + argc});
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "vsurf-detail: %s\n", error.what());
    return kFailure;
}
