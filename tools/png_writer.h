// Numbered PNG files in a directory.
#pragma once
#include "tools/rgb_image.h"
#include <cstdint>
#include <filesystem>

namespace player {

class PngWriter {
public:
    explicit PngWriter(std::filesystem::path directory) : directory_(std::move(directory)) {}

    // Complete or absent: the file gets its name when all of it is written. The directory is made for the first one.
    void write(const RgbImage& image);

private:
    std::filesystem::path directory_;
    int64_t count_ = 0;
};

} // namespace player
