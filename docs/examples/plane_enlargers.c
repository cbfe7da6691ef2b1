/* SPDX-License-Identifier: MIT */
/* One plane at twice the size. strech_pic_2X2 writes a line below the enlarged plane, for which there is room here, and
   does not write most of the plane's last line, which is filled afterwards. */
#include "expect.h"
#include <string.h>
#include <vsurf.h>

enum { WIDTH = 32, HEIGHT = 4, LARGE_WIDTH = 2 * WIDTH, LARGE_HEIGHT = 2 * HEIGHT };

static uint8_t plane[WIDTH * HEIGHT], large[LARGE_WIDTH * (LARGE_HEIGHT + 1)];

int main(void)
{
    for (int line = 0; line < HEIGHT; line++) {
        for (int column = 0; column < WIDTH; column++) plane[line * WIDTH + column] = (uint8_t)(40 * line + 4 * column);
    }

    strech_pic_2X2(plane, large, WIDTH, HEIGHT, WIDTH, LARGE_WIDTH);
    uint8_t* last = large + (LARGE_HEIGHT - 1) * LARGE_WIDTH;
    memcpy(last, last - LARGE_WIDTH, LARGE_WIDTH);

    expect("sample 0 of line 0", large[0], 0);
    expect("sample 1, between 0 and 4", large[1], 2);
    expect("sample 0 of line 1, between 0 and 40", large[LARGE_WIDTH], 20);
    expect("sample 1 of line 1, between 2 and 42", large[LARGE_WIDTH + 1], 22);
    expect("the last of all", last[LARGE_WIDTH - 1], 40 * 3 + 4 * 31);
    return 0;
}
