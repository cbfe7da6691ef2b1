// SPDX-License-Identifier: MIT
// For tests of the conversions to a subpicture's planes: colours, and what they become, computed by hand.
#pragma once
#include "edges/bytes.h"
#include "edges/job.h"

#include <span>

namespace harness {

struct Colour {
    uint32_t pixel;
    uint8_t y, u, v;
};

inline constexpr Colour kTrueColours[] = {
    {0x000000, 16, 128, 128},  // black
    {0xFFFFFF, 234, 128, 128}, // 240529 >> 10; U and V 131327 >> 10
    {0xFF0000, 81, 90, 239},   // red: 83449, 92567, 245567
    {0x00FF00, 144, 54, 34},   // green: 147964, 55337, 35192
    {0x0000FF, 40, 239, 110},  // blue: 41884, 245567, 112712
    {0xFFFF00, 209, 16, 146},  // yellow: 215029, 16832, 149687
    {0x00FFFF, 169, 165, 16},  // cyan: 173464, 169832, 16832
    {0x4DC80A, 137, 63, 87},   // 140835, 64535, 89725
    {0x800000, 48, 109, 184},  // 50048, 111744, 188544
    {0xD6F4F7, 218, 133, 114}, // 223270, 137193, 117630: one step of any weight shows here or in the next colour
    {0xC1F5C1, 207, 113, 109}, // 212863, 115821, 111713
};
inline constexpr Colour kTrueMagenta = {0xFF00FF, 106, 202, 221}; // 108949, 207062, 227207

inline constexpr Colour k565Colours[] = {
    {0x0000, 16, 128, 128},  // black
    {0xFFFF, 230, 127, 126}, // 248, 252, 248: 236440, 130132, 129816
    {0xF800, 79, 91, 236},   // 81608, 93624, 242424
    {0x07E0, 142, 54, 35},   // 146416, 56228, 36320
    {0x001F, 40, 236, 110},  // 41184, 242424, 113216
    {0x0821, 20, 129, 129},  // 8, 4, 8: 21352, 132268, 132584
    {0x8410, 125, 128, 128}, // 128, 128, 128: 128896, 131200, 131200
    {0x2629, 130, 98, 65},   // 32, 196, 72: 133136, 100356, 66560; again the weights show in these two
    {0x29D0, 66, 161, 115},  // 40, 56, 128: 68600, 165872, 118760
};
inline constexpr Colour k565Magenta = {0xF81F, 103, 200, 219}; // 248, 0, 248: 106408, 204976, 224568

constexpr uint32_t kNoKey = 0x123456; // nor is 0x3456 among the colours

class OnEveryConversion : public OnEveryJob {
protected:
    struct Format {
        JobEntry convert;
        size_t bytes; // a pixel
        std::span<const Colour> colours;
        Colour key;

        const Colour& colour(size_t i) const { return colours[i % colours.size()]; }
    };
    static constexpr Format kFormats[] = {{&vsurf::Kernels::Convert_RGB32_To_AYUY2, 4, kTrueColours, kTrueMagenta},
                                          {&vsurf::Kernels::Convert_RGB24_To_AYUY2, 3, kTrueColours, kTrueMagenta},
                                          {&vsurf::Kernels::Convert_RGB16_565_To_AYUY2, 2, k565Colours, k565Magenta}};

    static constexpr int kWide = 136; // steps of 64, 32 and 16 pixels and a block, where there are such

    // What the planes hold after a call.
    struct Expected {
        // Pixel x of lines that begin there.
        void set(size_t x, const Colour& colour, size_t luma = 0, size_t chroma = 0)
        {
            y[luma + x] = colour.y;
            if (x % 2 == 1) return;
            u[chroma + x / 2] = colour.u;
            v[chroma + x / 2] = colour.v;
        }

        Bytes y = Bytes(kRoom, kUntouched), u = y, v = y;
    };

    void draw(const Format& format, size_t x, uint32_t pixel, size_t line = 0)
    {
        place(surface, line + x * format.bytes, little_endian(pixel, format.bytes));
    }

    MIX_INFO line(uint32_t key, int width = kWide)
    {
        return record({.width = width,
                       .height = 1,
                       .picture_pitch = kUnread,
                       .subpicture_pitch = width,
                       .surface_pitch = 4 * width,
                       .color_key = key});
    }

    // The record after the call, which found the planes untouched.
    MIX_INFO convert(const Format& format, const MIX_INFO& job)
    {
        for (Bytes* plane : {&y, &u, &v}) plane->assign(kRoom, kUntouched);
        return run(format.convert, job);
    }

    void expect(const Expected& expected, const std::string& which = {})
    {
        EXPECT_EQ(y, expected.y) << which;
        EXPECT_EQ(u, expected.u) << which;
        EXPECT_EQ(v, expected.v) << which;
    }
};

} // namespace harness
