// SPDX-License-Identifier: MIT
// PNG files, also as a numbered sequence in a directory.
#pragma once
#include "tools/rgb_image.h"
#include <cstdint>
#include <filesystem>

namespace player {

// Complete or absent: the file gets its name when all of it is written.
void write_png(const RgbImage& image, const std::filesystem::path& file);

class PngWriter {
public:
    explicit PngWriter(std::filesystem::path directory) : directory_(std::move(directory)) {}

    // The directory is made for the first one.
    void write(const RgbImage& image);

private:
    std::filesystem::path directory_;
    int64_t count_ = 0;
};

} // namespace player
