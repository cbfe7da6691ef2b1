// SPDX-License-Identifier: MIT
// Fills two lines with a colour and checks every pixel, and that nothing beyond them was written.
#include <algorithm>
#include <cstdint>
#include <iostream>
#include <vector>
#include <vsurf.h>

int main()
{
    const std::uint32_t colour = 0x00ff80ff, untouched = 0xa5a5a5a5;
    const int width = 32, height = 2, pitch = 4 * width;
    std::vector<std::uint32_t> surface(width * height + 1, untouched);
    LoadColorKeyRgb32(colour, surface.data(), width, height, 0, pitch);
    const bool filled =
        std::all_of(surface.begin(), surface.end() - 1, [=](std::uint32_t pixel) { return pixel == colour; });
    if (!filled || surface.back() != untouched) {
        std::cerr << "LoadColorKeyRgb32 gave wrong pixels\n";
        return 1;
    }
    std::cout << "right\n";
    return 0;
}
