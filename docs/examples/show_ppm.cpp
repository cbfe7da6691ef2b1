// SPDX-License-Identifier: MIT
// Writes a picture to a file, picture.ppm: vsurf_show() in C++, with memory that vectors own and spans view.
// c++ -std=c++20 show_ppm.cpp $(pkg-config --cflags --libs vsurf-show)
#include "expect.h"
#include <algorithm>
#include <fstream>
#include <iterator>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>
#include <vsurf_show.h>

struct Image {
    int width, height;
    std::vector<std::uint8_t> rgb;
};

// Planes without gaps. Throws with the mistake in words.
Image rgb_of(std::span<const std::uint8_t> nv12, int width, int height, vsurf_matrix matrix, vsurf_range range)
{
    const auto pitch = [&](vsurf_format format, int plane) {
        return static_cast<std::ptrdiff_t>(vsurf_pitch(format, plane, width, 1));
    };
    if (nv12.size() < vsurf_bytes(VSURF_NV12, width, height, 1))
        throw std::invalid_argument("the picture is too short");
    Image image{width, height, std::vector<std::uint8_t>(vsurf_bytes(VSURF_RGB24, width, height, 1))};

    vsurf_picture picture{};
    picture.format = VSURF_NV12;
    picture.width = width;
    picture.height = height;
    picture.plane[0] = nv12.data();
    picture.plane[1] = nv12.data() + pitch(VSURF_NV12, 0) * height;
    picture.pitch[0] = pitch(VSURF_NV12, 0);
    picture.pitch[1] = pitch(VSURF_NV12, 1);
    picture.matrix = matrix;
    picture.range = range;
    vsurf_surface surface{};
    surface.format = VSURF_RGB24;
    surface.width = width;
    surface.height = height;
    surface.plane[0] = image.rgb.data();
    surface.pitch[0] = pitch(VSURF_RGB24, 0);
    vsurf_job job{};
    job.picture = &picture;
    job.surface = &surface;
    if (vsurf_show(&job) != VSURF_OK) {
        std::string mistake(vsurf_explain(&job, nullptr, 0), ' ');
        vsurf_explain(&job, mistake.data(), mistake.size() + 1);
        throw std::invalid_argument(mistake);
    }
    return image;
}

void write_ppm(const std::string& name, const Image& image)
{
    std::ofstream file(name, std::ios::binary);
    file << "P6\n" << image.width << ' ' << image.height << "\n255\n";
    file.write(reinterpret_cast<const char*>(image.rgb.data()), static_cast<std::streamsize>(image.rgb.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + name);
}

int main()
{
    // The left half is red, the right half blue: BT.709, limited range.
    constexpr int width = 33, height = 17, middle = 16;
    std::vector<std::uint8_t> nv12(vsurf_bytes(VSURF_NV12, width, height, 1));
    const auto chroma = std::span(nv12).subspan(width * height);
    for (int i = 0; i < width * height; i++) nv12[static_cast<std::size_t>(i)] = i % width < middle ? 63 : 32;
    for (std::size_t i = 0; i < chroma.size(); i += 2) {
        const bool red = i % (width + 1) < middle;
        chroma[i] = red ? 102 : 240;
        chroma[i + 1] = red ? 240 : 118;
    }
    write_ppm("picture.ppm", rgb_of(nv12, width, height, VSURF_BT709, VSURF_LIMITED));

    std::ifstream file("picture.ppm", std::ios::binary);
    const std::string ppm{std::istreambuf_iterator<char>(file), {}}, head = "P6\n33 17\n255\n";
    expect("starts as a PPM", ppm.starts_with(head), 1);
    expect("bytes", static_cast<long>(ppm.size()), static_cast<long>(head.size()) + 3 * width * height);
    long wrong = 0;
    for (std::size_t i = head.size(); i < ppm.size(); i++) {
        const std::size_t pixel = (i - head.size()) / 3, colour = (i - head.size()) % 3;
        const int level = colour == (pixel % width < middle ? 0 : 2) ? 255 : 0;
        wrong += std::abs(static_cast<std::uint8_t>(ppm[i]) - level) > 2;
    }
    expect("wrong levels", wrong, 0);
    return 0;
}
