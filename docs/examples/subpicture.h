/* SPDX-License-Identifier: MIT */
/* What the examples of subpictures share: a box of yellow, three quarters opaque, in the middle of a picture. */
#ifndef SUBPICTURE_H
#define SUBPICTURE_H
#include <vsurf.h>

enum { WIDTH = 64, HEIGHT = 32, SIZE = WIDTH * HEIGHT };
enum { KEY = 0xff00ff, YELLOW = 0xffff00, ALPHA = 12 };
enum { LEFT = 16, RIGHT = 48, TOP = 8, BOTTOM = 24, INSIDE = TOP * WIDTH + LEFT };

static uint8_t alpha[SIZE], sub_y[SIZE], sub_u[SIZE / 2], sub_v[SIZE / 2];
static uint32_t colours[SIZE], opacities[SIZE];

/* Calls change the record: each gets a new one. */
static MIX_INFO job_on(void* surface, int surface_pitch)
{
    MIX_INFO job = {0};
    job.picture_pitch = job.subpicture_pitch = job.width = WIDTH;
    job.surface_pitch = surface_pitch;
    job.height = HEIGHT;
    job.subpic_alpha = alpha;
    job.subpic_y = sub_y;
    job.subpic_u = sub_u;
    job.subpic_v = sub_v;
    job.surface = surface;
    job.color_key = KEY;
    return job;
}

static void draw_box(void)
{
    LoadColorKeyRgb32(KEY, colours, WIDTH, HEIGHT, 0, 4 * WIDTH);
    LoadColorKeyRgb32(0, opacities, WIDTH, HEIGHT, 0, 4 * WIDTH);
    for (int line = TOP; line < BOTTOM; line++) {
        for (int column = LEFT; column < RIGHT; column++) {
            colours[line * WIDTH + column] = YELLOW;
            opacities[line * WIDTH + column] = ALPHA;
        }
    }
    MIX_INFO job = job_on(colours, 4 * WIDTH);
    Convert_RGB32_To_AYUY2(&job);
    job = job_on(opacities, 4 * WIDTH);
    Restore_RGB32_To_Alpha(&job);
}
#endif
