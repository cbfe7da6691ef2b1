/* SPDX-License-Identifier: MIT */
/* Shows a picture with a subtitle that libass draws: its bitmaps are overlays as they are.
   cc -std=c99 show_subtitle.c $(pkg-config --cflags --libs vsurf-show libass) */
#include "expect.h"
#include "grey.h"
#include <ass/ass.h>

enum { WIDTH = 641, HEIGHT = 363 };

static char script[] =
    "[Script Info]\nScriptType: v4.00+\nPlayResX: 640\nPlayResY: 360\n"
    "[V4+ Styles]\nFormat: Name, Fontname, Fontsize, PrimaryColour, OutlineColour, Outline, Alignment\n"
    "Style: Default,sans-serif,40,&H0040C0FF,&H40000000,3,2\n"
    "[Events]\nFormat: Start, End, Style, Text\n"
    "Dialogue: 0:00:00.00,0:00:05.00,Default,Any picture\\Non any surface\n";

/* Of libass's colours the lowest byte is the transparency: 0 is opaque. */
static uint32_t argb(uint32_t rgbt) { return (255 - (rgbt & 255)) << 24 | rgbt >> 8; }

/* One overlay for each bitmap, in the order in which they are drawn. They are valid as long as the bitmaps. */
static vsurf_overlay* new_overlays(const ASS_Image* images, int* count)
{
    vsurf_overlay* overlays = NULL;
    for (*count = 0; images; images = images->next) {
        const vsurf_overlay overlay = {VSURF_COVERAGE, images->dst_x,  images->dst_y,  images->w,
                                       images->h,      images->bitmap, images->stride, argb(images->color)};
        overlays = (vsurf_overlay*)realloc(overlays, (size_t)(*count + 1) * sizeof *overlays);
        if (!overlays) abort();
        overlays[(*count)++] = overlay;
    }
    return overlays;
}

static int div255(int value) { return (value + 127) / 255; }

/* The blue of a pixel: all overlays that cover it, one after the other. */
static int blue_at(int column, int line, const vsurf_overlay* overlays, int count)
{
    int blue = grey_at(column, line);
    for (int i = 0; i < count; i++) {
        const vsurf_overlay* o = &overlays[i];
        if (column < o->x || column >= o->x + o->width || line < o->y || line >= o->y + o->height) continue;
        const int coverage = o->pixels[(line - o->y) * o->pitch + column - o->x];
        const int alpha = div255(coverage * (int)(o->colour >> 24));
        blue = div255((int)(o->colour & 255) * alpha + blue * (255 - alpha));
    }
    return blue;
}

static void check(const uint8_t* pixels, const vsurf_overlay* overlays, int count)
{
    long wrong = 0, changed = 0;
    for (int j = 0; j < HEIGHT; j++) {
        for (int i = 0; i < WIDTH; i++) {
            const int blue = pixels[4 * (j * WIDTH + i)];
            wrong += blue != blue_at(i, j, overlays, count);
            changed += blue != grey_at(i, j);
        }
    }
    expect("wrong pixels", wrong, 0);
    expect("the subtitle is seen", changed > 1000 && changed < WIDTH * HEIGHT / 2, 1);
}

int main(void)
{
    ASS_Library* library = ass_library_init();
    ASS_Renderer* renderer = ass_renderer_init(library);
    ass_set_frame_size(renderer, WIDTH, HEIGHT);
    ass_set_fonts(renderer, NULL, "sans-serif", ASS_FONTPROVIDER_AUTODETECT, NULL, 1);
    ASS_Track* track = ass_read_memory(library, script, sizeof script - 1, NULL);
    if (!track) return EXIT_FAILURE;

    static uint8_t pixels[4 * WIDTH * HEIGHT];
    const vsurf_picture picture = new_grey_picture(WIDTH, HEIGHT);
    const vsurf_surface surface = {
        .format = VSURF_BGRX, .width = WIDTH, .height = HEIGHT, .plane = {pixels}, .pitch = {4 * WIDTH}};
    vsurf_job job = {.picture = &picture, .surface = &surface};
    vsurf_overlay* overlays = new_overlays(ass_render_frame(renderer, track, 1000, NULL), &job.overlay_count);
    job.overlays = overlays;
    expect("status", vsurf_show(&job), VSURF_OK);
    check(pixels, overlays, job.overlay_count);

    free(overlays);
    free((void*)picture.plane[0]);
    ass_free_track(track);
    ass_renderer_done(renderer);
    ass_library_done(library);
    return 0;
}
