/* SPDX-License-Identifier: MIT */
/* Draws the pictures of ../subpictures.md with the library: subpictures DIRECTORY */
#include <png.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <vsurf.h>

enum { WIDTH = 160, HEIGHT = 32, SIZE = WIDTH * HEIGHT, OPAQUE = 16, MOST_MAGNIFIED = 8 };
static const uint32_t kKey = 0xff00ff, kOrange = 0xf08000;

static uint8_t picture_y[SIZE], picture_u[SIZE / 4], picture_v[SIZE / 4];
static uint8_t alpha[SIZE], y[SIZE], u[SIZE / 2], v[SIZE / 2];
static uint32_t colours[SIZE], opacities[SIZE], surface[SIZE];

static MIX_INFO job_on(uint32_t* rgb32)
{
    MIX_INFO job = {0};
    job.picture_pitch = job.subpicture_pitch = job.width = WIDTH;
    job.surface_pitch = 4 * WIDTH;
    job.height = HEIGHT;
    job.picture_y = picture_y;
    job.picture_u = picture_u;
    job.picture_v = picture_v;
    job.subpic_alpha = alpha;
    job.subpic_y = y;
    job.subpic_u = u;
    job.subpic_v = v;
    job.surface = (unsigned char*)rgb32;
    job.color_key = kKey;
    return job;
}

static void run(void (*work)(MIX_INFO*), uint32_t* rgb32)
{
    MIX_INFO job = job_on(rgb32);
    work(&job);
}

static void write_detail(const char* directory, const char* name, int width, int height, int magnification)
{
    static uint32_t out[SIZE * MOST_MAGNIFIED * MOST_MAGNIFIED];
    png_image png = {.version = PNG_IMAGE_VERSION, .format = PNG_FORMAT_BGRA};
    png.width = (png_uint_32)(width * magnification);
    png.height = (png_uint_32)(height * magnification);
    for (int row = 0; row < height * magnification; row++)
        for (int column = 0; column < width * magnification; column++)
            out[row * width * magnification + column] =
                surface[row / magnification * WIDTH + column / magnification] | 0xff000000;
    char file[4096];
    snprintf(file, sizeof file, "%s/%s.png", directory, name);
    if (!png_image_write_to_file(&png, file, 0, out, 0, NULL)) {
        fprintf(stderr, "subpictures: %s: %s\n", file, png.message);
        exit(2);
    }
}

static void mix_drawing(void (*mix)(MIX_INFO*))
{
    run(Convert_RGB32_To_AYUY2, colours);
    run(Restore_RGB32_To_Alpha, opacities);
    run(mix, surface);
}

/* Five fields of one colour, each with another alpha, over a pattern. */
static void draw_scale(const char* directory)
{
    for (int i = 0; i < SIZE; i++) {
        const int column = i % WIDTH, line = i / WIDTH;
        const int field = column / 32, inside = column % 32 >= 4 && column % 32 < 28 && line >= 4 && line < 28;
        picture_y[i] = (column / 4 + line / 4) % 2 ? 70 : 150;
        colours[i] = kOrange;
        opacities[i] = inside ? (uint32_t)(field * 4) : 0;
    }
    memset(picture_u, 160, sizeof picture_u);
    memset(picture_v, 100, sizeof picture_v);
    mix_drawing(mix_ayuy2_rgb32_p_ajust);
    write_detail(directory, "alpha", WIDTH, HEIGHT, 4);
}

/* A disc without soft edges over a flat picture, on the key or on its own colour. */
static void draw_disc(const char* directory, const char* name, void (*mix)(MIX_INFO*), uint32_t around)
{
    for (int i = 0; i < SIZE; i++) {
        const int column = 2 * (i % WIDTH) - 23, line = 2 * (i / WIDTH) - 19; /* in halves of a pixel */
        const int inside = column * column + line * line < 17 * 17;
        colours[i] = inside ? kOrange : around;
        opacities[i] = inside ? OPAQUE : 0;
    }
    memset(picture_y, 110, sizeof picture_y);
    memset(picture_u, 160, sizeof picture_u);
    memset(picture_v, 100, sizeof picture_v);
    mix_drawing(mix);
    write_detail(directory, name, 24, 20, 8);
}

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: subpictures DIRECTORY\n");
        return 2;
    }
    ajust_contrast_info as_it_is = {.y_gain = 64, .uv_gain = 64};
    get_contrast_data(&as_it_is);
    draw_scale(argv[1]);
    draw_disc(argv[1], "edge-odd", mix_ayuy2_rgb32_p_ajust, kOrange);
    draw_disc(argv[1], "edge-average", mix_ayuy2_rgb32_i_ajust, kOrange);
    draw_disc(argv[1], "edge-key", mix_ayuy2_rgb32_p_ajust, kKey);
    return 0;
}
