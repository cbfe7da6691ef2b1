/* SPDX-License-Identifier: MIT */
/* Only the subpicture, on the key colour, and its alpha back onto a drawing. */
#include "expect.h"
#include "subpicture.h"

static uint32_t surface[SIZE];

int main(void)
{
    draw_box();
    MIX_INFO job = job_on(surface, 4 * WIDTH); /* picture_pitch is the width here */
    load_subpicture_yuy2_rgb32(&job);
    expect("outside the box is the key", (long)surface[0], KEY);
    expect("in the box: blue", (long)(surface[INSIDE] & 255), 0);
    expect("green", (long)(surface[INSIDE] >> 8 & 255), 254);
    expect("red", (long)(surface[INSIDE] >> 16), 252);

    job = job_on(surface, 4 * WIDTH);
    load_subpicture_alpha_rgb32(&job);
    surface[0] = 16; /* draw on: an opaque pixel */
    job = job_on(surface, 4 * WIDTH);
    Restore_RGB32_To_Alpha(&job);
    expect("the pixel that was added: alpha", alpha[0], 16);
    expect("the box has kept its own", alpha[INSIDE], ALPHA);
    return 0;
}
