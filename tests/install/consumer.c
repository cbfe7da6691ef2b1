/* SPDX-License-Identifier: MIT */
/* Loads a white and a black line into RGB32 and checks a pixel of each, and that nothing beyond them was written. */
#include <stdio.h>
#include <string.h>
#include <vsurf.h>

enum { kWidth = 16, kHeight = 2, kPitch = 4 * kWidth };

static int is_pixel(const uint8_t* pixel, int level)
{
    return pixel[0] == level && pixel[1] == level && pixel[2] == level && pixel[3] == 0;
}

int main(void)
{
    uint8_t luma[kHeight * kWidth], u[kWidth / 2], v[kWidth / 2], surface[kHeight * kPitch + 1];
    memset(luma, 235, kWidth);
    memset(luma + kWidth, 16, kWidth);
    memset(u, 128, sizeof u);
    memset(v, 128, sizeof v);
    memset(surface, 0xA5, sizeof surface);
    loadimage_rgb32(luma, u, v, surface, kWidth, kHeight, kWidth, kPitch, NULL);
    if (!is_pixel(surface + kPitch - 4, 254) || !is_pixel(surface + kPitch, 0) || surface[kHeight * kPitch] != 0xA5) {
        fputs("loadimage_rgb32 gave wrong pixels\n", stderr);
        return 1;
    }
    puts("right");
    return 0;
}
