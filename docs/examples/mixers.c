/* SPDX-License-Identifier: MIT */
/* A subpicture on a frame, on a field, and onto the decoded picture itself. */
#include "expect.h"
#include "subpicture.h"
#include <string.h>

static uint8_t picture_y[SIZE], picture_u[SIZE / 4], picture_v[SIZE / 4], yuy2[2 * SIZE];

static MIX_INFO mix_onto(uint8_t* surface, int surface_pitch)
{
    MIX_INFO job = job_on(surface, surface_pitch);
    job.picture_y = picture_y;
    job.picture_u = picture_u;
    job.picture_v = picture_v;
    return job;
}

int main(void)
{
    ajust_contrast_info as_it_is = {.y_gain = 64, .uv_gain = 64};
    get_contrast_data(&as_it_is);
    draw_box();
    memset(picture_y, 100, sizeof picture_y);
    memset(picture_u, 128, sizeof picture_u);
    memset(picture_v, 128, sizeof picture_v);

    MIX_INFO job = mix_onto(yuy2, 2 * WIDTH);
    mix_ayuy2_yuy2_p_ajust(&job);
    expect("frame, outside the box: Y", yuy2[0], 100);
    expect("in the box: Y", yuy2[2 * INSIDE], (4 * 100 + 12 * 209) / 16);

    /* Only the upper field: every other line of the frame, doubled back to HEIGHT lines. */
    job = mix_onto(yuy2, 2 * WIDTH);
    job.picture_pitch = 2 * WIDTH;
    mix_ayuy2_yuy2_i_ajust(&job);
    expect("field, in the box: Y", yuy2[2 * INSIDE], 181);

    /* Onto the picture: whatever a loader or enlarger makes from it afterwards includes the subpicture. */
    job = mix_onto(picture_y, WIDTH);
    job.surface_u = picture_u;
    job.surface_v = picture_v;
    mix_ayv12_yv12_p(&job);
    expect("in the picture itself: Y", picture_y[INSIDE], 181);
    expect("U", picture_u[TOP / 2 * (WIDTH / 2) + LEFT / 2], (4 * 128 + 12 * 16) / 16);
    return 0;
}
