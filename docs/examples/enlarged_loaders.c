/* SPDX-License-Identifier: MIT */
/* A YV12 picture onto a YUY2 surface at twice its height, plain and adjusted. */
#include "expect.h"
#include <string.h>
#include <vsurf.h>

enum { WIDTH = 32, HEIGHT = 16, LINE = 2 * WIDTH };

static uint8_t y[WIDTH * HEIGHT], u[WIDTH * HEIGHT / 4], v[WIDTH * HEIGHT / 4], surface[LINE * 2 * HEIGHT];

static int luma(int line) { return surface[line * LINE]; }

int main(void)
{
    /* black above, white below */
    memset(y, 16, WIDTH * 8);
    memset(y + WIDTH * 8, 235, WIDTH * 8);
    memset(u, 128, sizeof u);
    memset(v, 128, sizeof v);

    strech_picture_1X2_yuy2(y, u, v, surface, WIDTH, HEIGHT, WIDTH, LINE, NULL);
    expect("the last black line", luma(14), 16);
    expect("the new line at the edge", luma(15), 126);
    expect("the first white line", luma(16), 235);

    /* The adjusted form has a filter of four lines, which overshoots next to edges. */
    ajust_contrast_info as_it_is = {.y_gain = 64, .uv_gain = 64};
    get_contrast_data(&as_it_is);
    strech_picture_1X2_yuy2_ajust(y, u, v, surface, WIDTH, HEIGHT, WIDTH, LINE, NULL);
    expect("adjusted: above the edge", luma(13), 0);
    expect("at the edge", luma(15), 125);
    expect("below it", luma(17), 255);
    return 0;
}
