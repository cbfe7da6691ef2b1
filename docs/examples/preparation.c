/* SPDX-License-Identifier: MIT */
/* From a drawing to the planes of a subpicture, and what happens to the record. */
#include "expect.h"
#include "subpicture.h"

int main(void)
{
    draw_box();
    expect("outside the box: alpha", alpha[0], 0);
    expect("Y, as it was: the key's blocks are skipped", sub_y[0], 0);
    expect("in the box: alpha", alpha[INSIDE], ALPHA);
    expect("Y", sub_y[INSIDE], 209);
    expect("U", sub_u[INSIDE / 2], 16);
    expect("V", sub_v[INSIDE / 2], 146);

    MIX_INFO job = job_on(colours, 4 * WIDTH);
    Convert_RGB32_To_AYUY2(&job);
    expect("a conversion has moved the record's Y pointer by", job.subpic_y - sub_y, SIZE);
    expect("and its U pointer by", job.subpic_u - sub_u, SIZE / 2);
    return 0;
}
