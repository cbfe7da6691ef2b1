/* SPDX-License-Identifier: MIT */
/* The area of an overlay in the key colour, and a mask that opens more of it. */
#include "expect.h"
#include <string.h>
#include <vsurf.h>

enum { WIDTH = 64, HEIGHT = 16, BLACK = 0, KEY = 0xf81f /* magenta as R5G6B5 */, PALETTE_KEY = 253 };

static uint16_t window[WIDTH * HEIGHT];
static uint8_t indices[WIDTH * HEIGHT], mask[WIDTH * HEIGHT];

int main(void)
{
    LoadColorKeyRgb16(BLACK, window, WIDTH, HEIGHT, 0, 2 * WIDTH);
    LoadColorKeyRgb16(KEY, window + 4 * WIDTH + 16, 32, 8, 0, 2 * WIDTH); /* 32 by 8 pixels within */
    expect("outside the area", window[4 * WIDTH + 15], BLACK);
    expect("in it", window[4 * WIDTH + 16], KEY);
    expect("its last pixel", window[11 * WIDTH + 47], KEY);

    /* A palette surface: where the mask is 255, the picture becomes the key's index. */
    memset(indices, 7, sizeof indices);
    memset(mask + 16, 255, 16);
    RelaceMaskWithColorKey(indices, mask, 255, PALETTE_KEY, WIDTH, WIDTH, HEIGHT);
    expect("where the mask is 0", indices[15], 7);
    expect("where it is 255", indices[16], PALETTE_KEY);
    return 0;
}
