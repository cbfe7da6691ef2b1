/* SPDX-License-Identifier: MIT */
/* The picture that the examples of vsurf_show() show: greys of full range, so the R, G and B of each pixel are its
 * luma. */
#ifndef GREY_H
#define GREY_H
#include <stdlib.h>
#include <string.h>
#include <vsurf_show.h>

static uint8_t grey_at(int column, int line) { return (uint8_t)(7 * column + 13 * line); }

/* Its planes are one block of memory, which begins at plane[0] and is the caller's. */
static vsurf_picture new_grey_picture(int width, int height)
{
    const ptrdiff_t luma_pitch = (ptrdiff_t)vsurf_pitch(VSURF_I420, 0, width, 1);
    const ptrdiff_t chroma_pitch = (ptrdiff_t)vsurf_pitch(VSURF_I420, 1, width, 1);
    const size_t bytes = vsurf_bytes(VSURF_I420, width, height, 1);
    uint8_t* y = (uint8_t*)malloc(bytes);
    uint8_t* u = y + luma_pitch * height;
    uint8_t* v = u + chroma_pitch * ((height + 1) / 2);
    const vsurf_picture picture = {VSURF_I420,  width,     height, {y, u, v}, {luma_pitch, chroma_pitch, chroma_pitch},
                                   VSURF_BT709, VSURF_FULL};
    if (!y) abort();
    memset(y, 128, bytes);
    for (int line = 0; line < height; line++)
        for (int column = 0; column < width; column++) y[line * luma_pitch + column] = grey_at(column, line);
    return picture;
}
#endif
