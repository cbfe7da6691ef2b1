/* SPDX-License-Identifier: MIT */
/* A captured YUY2 picture onto a 16-bit surface, and a copy of it. */
#include "expect.h"
#include <string.h>
#include <vsurf.h>

enum { WIDTH = 32, HEIGHT = 4, SOURCE_LINE = 2 * WIDTH + 16, LAYOUT_565 = 0 };

static uint8_t picture[SOURCE_LINE * HEIGHT], copy[2 * WIDTH * HEIGHT];
static uint8_t surface[2 * WIDTH * HEIGHT];

static void paint(int line, int luma, int u, int v)
{
    for (int pair = 0; pair < WIDTH / 2; pair++) {
        uint8_t* at = picture + line * SOURCE_LINE + 4 * pair;
        at[0] = at[2] = (uint8_t)luma;
        at[1] = (uint8_t)u;
        at[3] = (uint8_t)v;
    }
}

int main(void)
{
    for (int line = 0; line < HEIGHT; line += 2) {
        paint(line, 235, 128, 128);   /* white */
        paint(line + 1, 81, 90, 240); /* red, whose chroma is dropped */
    }

    /* The source pitch counts pixels. */
    ajust_contrast_info info = {0};
    info.rgb16_layout = LAYOUT_565;
    LoadYUY2_RGB16(picture, NULL, NULL, surface, WIDTH, HEIGHT, SOURCE_LINE / 2, 2 * WIDTH, &info);
    expect("white as R5G6B5", surface[0] | surface[1] << 8, 0xffff);
    const uint8_t* second = surface + 2 * WIDTH;
    expect("the line below, with white's chroma, is grey: blue", second[0] & 31, 75 >> 3);
    expect("red", second[1] >> 3, 75 >> 3);

    LoadYUY2_YUY2(picture, NULL, NULL, copy, WIDTH, HEIGHT, SOURCE_LINE / 2, 2 * WIDTH, NULL);
    expect("a copy keeps luma", copy[2 * WIDTH], 81);
    expect("and takes chroma from the line above", copy[2 * WIDTH + 1], 128);
    return 0;
}
