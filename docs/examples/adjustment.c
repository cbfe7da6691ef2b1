/* SPDX-License-Identifier: MIT */
/* Turns the three controls of a player into the adjustment, and applies it to a grey ramp. */
#include "expect.h"
#include <string.h>
#include <vsurf.h>

enum { WIDTH = 256, HEIGHT = 2, UNITY = 64, MIDDLE = 128 };

static uint8_t y[WIDTH * HEIGHT], chroma[WIDTH * HEIGHT / 4], surface[2 * WIDTH * HEIGHT];

/* Brightness is added to luma. Contrast and saturation, in 1/64, scale about the middle. A gain multiplies from zero,
   so the offset moves the middle back to where it was. */
static void set_controls(int brightness, int contrast, int saturation)
{
    ajust_contrast_info info = {0};
    info.y_gain = contrast;
    info.y_offset_a = MIDDLE - MIDDLE * contrast / UNITY;
    info.y_offset_b = brightness;
    info.uv_gain = saturation;
    info.u_offset_a = info.v_offset_a = MIDDLE - MIDDLE * saturation / UNITY;
    get_contrast_data(&info);
}

static int luma_shown(int sample)
{
    loadimage_yuy2_mono_ajust(y, NULL, NULL, surface, WIDTH, HEIGHT, WIDTH, 2 * WIDTH, NULL);
    return surface[2 * sample];
}

static int u_shown(int sample)
{
    memset(chroma, sample, sizeof chroma);
    loadimage_half_yuy2_ajust(y, chroma, chroma, surface, WIDTH, HEIGHT, WIDTH, WIDTH, NULL);
    return surface[1];
}

int main(void)
{
    for (int i = 0; i < WIDTH * HEIGHT; i++) y[i] = (uint8_t)(i % WIDTH);

    expect("before the first adjustment 100 becomes", luma_shown(100), 0);
    set_controls(0, UNITY, UNITY);
    expect("as it is, 100 becomes", luma_shown(100), 100);
    set_controls(20, UNITY, UNITY);
    expect("20 brighter, 100 becomes", luma_shown(100), 120);
    set_controls(0, 2 * UNITY, UNITY);
    expect("at twice the contrast 100 becomes", luma_shown(100), 72);
    expect("and 200 becomes", luma_shown(200), 255);
    set_controls(0, UNITY, 96);
    expect("at saturation 1.5 grey stays", u_shown(128), 128);
    expect("and a U of 160 becomes", u_shown(160), 176);
    return 0;
}
