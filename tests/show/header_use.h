/* SPDX-License-Identifier: MIT */
/* The header of vsurf_show in any language that it knows: twice, every declaration, zero records, and calls that must
   reach the library. */
#include <vsurf_show.h>

#include <vsurf_show.h>

#include <string.h>

static vsurf_status(VSURF_CALL* const show)(const vsurf_job*) = vsurf_show;
static vsurf_status(VSURF_CALL* const show_band)(const vsurf_job*, int, int) = vsurf_show_band;
static const char*(VSURF_CALL* const status_text)(vsurf_status) = vsurf_status_text;
static size_t(VSURF_CALL* const explain)(const vsurf_job*, char*, size_t) = vsurf_explain;
static size_t(VSURF_CALL* const pitch_of)(vsurf_format, int, int, int) = vsurf_pitch;
static size_t(VSURF_CALL* const bytes_of)(vsurf_format, int, int, int) = vsurf_bytes;
static const char*(VSURF_CALL* const version)(void) = vsurf_show_version;
static const char*(VSURF_CALL* const isa)(void) = vsurf_show_isa;

/* The numbers that other programs are compiled with. */
static int numbers_hold(void)
{
    return VSURF_I420 == 1 && VSURF_UYVY == 5 && VSURF_BGRX == 6 && VSURF_BGR24 == 10 && VSURF_RGB655 == 15 &&
           VSURF_BT601 == 0 && VSURF_BT2020 == 2 && VSURF_LIMITED == 0 && VSURF_FULL == 1 && VSURF_STRAIGHT_RGBA == 0 &&
           VSURF_COVERAGE == 4 && VSURF_OK == 0 && VSURF_BAD_CROP == 14 && VSURF_BAD_BAND == 21;
}

/* A white picture of one pixel. */
static int shows_a_pixel(void)
{
    static const uint8_t white = 235, grey = 128;
    uint8_t pixel[4] = {1, 1, 1, 1};
    vsurf_picture picture;
    vsurf_surface surface;
    vsurf_job job;
    memset(&picture, 0, sizeof picture);
    memset(&surface, 0, sizeof surface);
    memset(&job, 0, sizeof job);
    picture.format = VSURF_I420;
    picture.width = picture.height = surface.width = surface.height = 1;
    picture.plane[0] = &white;
    picture.plane[1] = picture.plane[2] = &grey;
    surface.format = VSURF_BGRA;
    surface.plane[0] = pixel;
    job.picture = &picture;
    job.surface = &surface;
    return show(&job) == VSURF_OK && show_band(&job, 0, 1) == VSURF_OK && pixel[0] == 254 && pixel[1] == 254 &&
           pixel[2] == 254 && pixel[3] == 255 && explain(&job, NULL, 0) > 0;
}

static int all_is_well(void)
{
    return numbers_hold() && shows_a_pixel() && strcmp(status_text(VSURF_OK), status_text(VSURF_OVERLAP)) != 0 &&
           pitch_of(VSURF_RGB24, 0, 5, 4) == 16 && bytes_of(VSURF_NV12, 2, 2, 1) == 6 &&
           strcmp(version(), VSURF_VERSION) == 0 && isa()[0] != '\0' && vsurf_padded_width(17) == 32 &&
           vsurf_padded_height(3) == 4 && vsurf_padded_surface_bytes(17, 3, 4) == 512 &&
           vsurf_padded_plane_bytes(17, 3, 1) == 32;
}
