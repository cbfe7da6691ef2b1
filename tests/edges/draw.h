// SPDX-License-Identifier: MIT
// For tests of the subpicture drawers: samples and the pixels that they become, computed by hand.
#pragma once
#include "edges/bytes.h"
#include "edges/job.h"

#include <iterator>

namespace harness {

struct Drawn {
    uint8_t y, u, v;
    uint32_t rgb;
    uint16_t words[4]; // in the layouts 0 to 3
};
inline constexpr Drawn kDrawn[] = {
    {16, 128, 128, 0x000000, {0, 0, 0, 0}},
    {235, 128, 128, 0xFEFEFE, {0xFFFF, 0xFFFE, 0xFFFF, 0xFFFF}}, // 876 * 19071 >> 16
    {255, 128, 128, 0xFFFFFF, {0xFFFF, 0xFFFE, 0xFFFF, 0xFFFF}}, // 278, saturated
    {126,
     128,
     188,
     0xDF5080, // 128; V' 60: 95 of red, -48 of green
     {0b11011'010100'10000, 0b11011'01010'10000'0, 0b110111'010100'1000, 0b110111'01010'10000}},
    {126,
     68,
     128,
     0x809806, // U' -60: -122 of blue, 24 of green
     {0b10000'100110'00000, 0b10000'10011'00000'0, 0b100000'100110'0000, 0b100000'10011'00000}},
    {16, 247, 128, 0x0000F0, {0x001E, 0x003C, 0x000F, 0x001E}},
    {0,
     0,
     0,
     0x008900, // -19 + 51 + 105 of green
     {0b00000'100010'00000, 0b00000'10001'00000'0, 0b000000'100010'0000, 0b000000'10001'00000}},
};

// Every kind of transparency, on its way along a line that changes colour with each pair of pixels.
inline constexpr uint8_t kAlphas[] = {0, 1, 127, 128, 200, 255, 0, 16, 64};
inline constexpr uint32_t kKey = 0x44332211;

class OnEveryDrawer : public OnEveryJob {
protected:
    struct Format {
        JobEntry plain, adjusted;
        size_t bytes; // a pixel
    };
    static constexpr Format kFormats[] = {
        {&vsurf::Kernels::load_subpicture_yuy2_rgb32, &vsurf::Kernels::load_subpicture_yuy2_rgb32_ajust, 4},
        {&vsurf::Kernels::load_subpicture_yuy2_rgb24, &vsurf::Kernels::load_subpicture_yuy2_rgb24_ajust, 3},
        {&vsurf::Kernels::load_subpicture_yuy2_rgb16, &vsurf::Kernels::load_subpicture_yuy2_rgb16_ajust, 2},
    };
    static constexpr size_t kMiddle = 2000; // of the surface

    // Planes whose pairs of pixels are those, one after the other.
    void set_colours()
    {
        for (size_t i = 0; i < kRoom; ++i) {
            y[i] = colour(i).y;
            u[i] = colour(2 * i).u;
            v[i] = colour(2 * i).v;
            alpha[i] = alpha_at(i);
        }
    }

    static const Drawn& colour(size_t i) { return kDrawn[i / 2 % std::size(kDrawn)]; }
    static uint8_t alpha_at(size_t i) { return kAlphas[i % std::size(kAlphas)]; }

    // A pixel of a colour and an alpha. Only 24 and 32 bits have the key reversed, and are black from 128 on.
    static Bytes pixel(const Drawn& of, uint8_t alpha, size_t bytes, int layout = 0)
    {
        if (bytes == 2) return little_endian(alpha == 0 ? 0x2211 : of.words[layout], 2);
        if (alpha == 0) return little_endian(0x112233, bytes);
        return little_endian(alpha < 128 ? of.rgb : 0, bytes);
    }

    // Pixels `first` and so on of those planes.
    static Bytes line_of(size_t first, size_t pixels, size_t bytes, int layout = 0)
    {
        Bytes line;
        for (size_t i = first; i < first + pixels; ++i) {
            const Bytes one = pixel(colour(i), alpha_at(i), bytes, layout);
            line.insert(line.end(), one.begin(), one.end());
        }
        return line;
    }

    // Of planes whose lines have `length` pixels. The middle of the surface is where it is drawn to.
    MIX_INFO drawing(const Format& format, int length, int height, int surface_pitch)
    {
        MIX_INFO job = record({kUnread, height, length, kUnread, surface_pitch, kKey});
        job.surface += kMiddle;
        if (format.bytes == 2) job.contrast_info = &contrast;
        return job;
    }

    ajust_contrast_info contrast = {};
};

} // namespace harness
