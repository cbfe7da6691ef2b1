// SPDX-License-Identifier: MIT
#include "tools/png_writer.h"
#include "tools/error.h"
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <png.h>

namespace player {
namespace {

using std::filesystem::path;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

struct RemoveUnlessKept {
    const path& file;
    bool kept = false;
    ~RemoveUnlessKept()
    {
        std::error_code ignored;
        if (!kept) std::filesystem::remove(file, ignored);
    }
};

[[noreturn]] void fail(const path& file, const std::string& why) { throw Error(file.string() + ": " + why); }

void make_directory(const path& directory)
{
    std::error_code error;
    std::filesystem::create_directories(directory, error);
    if (error) fail(directory, error.message());
    if (!std::filesystem::is_directory(directory)) fail(directory, "not a directory");
}

void write_bytes(const RgbImage& image, const path& file)
{
    std::unique_ptr<std::FILE, CloseFile> out(std::fopen(file.c_str(), "wb"));
    if (!out) fail(file, std::strerror(errno));
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = PNG_FORMAT_RGB;
    png.flags = PNG_IMAGE_FLAG_FAST;
    errno = 0; // libpng does not say why it could not write
    if (!png_image_write_to_stdio(&png, out.get(), 0, image.bytes.data(), 0, nullptr))
        fail(file, errno ? std::strerror(errno) : png.message);
    if (std::fclose(out.release()) != 0) fail(file, std::strerror(errno));
}

} // namespace

void write_png(const RgbImage& image, const path& file)
{
    const path temporary = file.parent_path() / std::string(".").append(file.filename().string()).append(".part");
    RemoveUnlessKept guard{temporary};
    write_bytes(image, temporary);
    std::error_code error;
    std::filesystem::rename(temporary, file, error);
    if (error) fail(file, error.message());
    guard.kept = true;
}

void PngWriter::write(const RgbImage& image)
{
    if (count_ == 0) make_directory(directory_);
    char name[64];
    std::snprintf(name, sizeof name, "picture-%06lld.png", static_cast<long long>(++count_));
    write_png(image, directory_ / name);
}

} // namespace player
