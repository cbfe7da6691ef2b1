/* SPDX-License-Identifier: MIT */
/* A decoded picture of 70 by 50 pixels onto a bottom-up RGB24 surface: sizes are padded to whole blocks. */
#include "expect.h"
#include <string.h>
#include <vsurf.h>

enum {
    WIDTH = 70,
    HEIGHT = 50,
    PADDED = (WIDTH + 15) / 16 * 16, /* what is passed as the width: 80 */
    LINE = 3 * PADDED,
    SIZE = PADDED * HEIGHT
};

static uint8_t y[SIZE], u[SIZE / 4], v[SIZE / 4], surface[LINE * HEIGHT];

int main(void)
{
    /* red, and in the upper left corner a square of blue */
    memset(y, 81, sizeof y);
    memset(u, 90, sizeof u);
    memset(v, 240, sizeof v);
    for (int line = 0; line < 8; line++) {
        memset(y + line * PADDED, 41, 8);
        memset(u + line / 2 * (PADDED / 2), 240, 4);
        memset(v + line / 2 * (PADDED / 2), 110, 4);
    }

    /* The picture's first line is the last in memory, and lines go upwards. */
    uint8_t* first = surface + (HEIGHT - 1) * LINE;
    loadimage_rgb24(y, u, v, first, PADDED, HEIGHT, PADDED, -LINE, NULL);

    /* Of each line the first WIDTH pixels are the picture. */
    expect("upper left: blue", first[0], 255);
    expect("green", first[1], 1);
    expect("red", first[2], 0);
    const uint8_t* last = surface + 3 * (WIDTH - 1);
    expect("lower right: blue", last[0], 0);
    expect("red", last[2], 253);
    return 0;
}
