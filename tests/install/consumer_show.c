/* SPDX-License-Identifier: MIT */
/* Shows a grey NV12 picture of 3 by 3 pixels, and checks all of them, that nothing else was written, and what is said
   to a wrong pitch. C and C++. */
#include <stdio.h>
#include <string.h>
#include <vsurf_show.h>

enum { kSize = 3, kPitch = 4 * kSize + 1, kGrey = 200, kUntouched = 0xA5 };

int main(void)
{
    uint8_t luma[kSize * kSize], chroma[2 * 4], pixels[kSize * kPitch];
    vsurf_picture picture;
    vsurf_surface surface;
    vsurf_job job;
    int wrong = 0, i;
    memset(luma, kGrey, sizeof luma);
    memset(chroma, 128, sizeof chroma);
    memset(pixels, kUntouched, sizeof pixels);
    memset(&picture, 0, sizeof picture);
    memset(&surface, 0, sizeof surface);
    memset(&job, 0, sizeof job);
    picture.format = VSURF_NV12;
    surface.format = VSURF_RGBA;
    picture.width = picture.height = surface.width = surface.height = kSize;
    picture.plane[0] = luma;
    picture.plane[1] = chroma;
    picture.pitch[0] = kSize;
    picture.pitch[1] = 4;
    picture.matrix = VSURF_BT709;
    picture.range = VSURF_FULL; /* in which greys are the same in R, G and B */
    surface.plane[0] = pixels;
    job.picture = &picture;
    job.surface = &surface;
    if (vsurf_show(&job) != VSURF_SHORT_SURFACE_PITCH) return 1;
    surface.pitch[0] = kPitch;
    if (vsurf_show(&job) != VSURF_OK) return 1;
    for (i = 0; i < kSize * kPitch; i++) {
        const int column = i % kPitch;
        wrong += pixels[i] != (column == kPitch - 1 ? kUntouched : column % 4 == 3 ? 255 : kGrey);
    }
    puts(wrong ? "vsurf_show gave wrong pixels" : "right");
    return wrong != 0;
}
