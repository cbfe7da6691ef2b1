/* SPDX-License-Identifier: MIT */
/* Shows a part of odd size, at an odd place of the picture, in a locked texture of SDL.
   cc -std=c99 show_texture.c $(pkg-config --cflags --libs vsurf-show sdl2) */
#include "expect.h"
#include "grey.h"
#include <SDL.h>

enum { CROP_X = 11, CROP_Y = 7, WIDTH = 301, HEIGHT = 187 };

/* What SDL calls ARGB8888 are words, whose bytes lie in memory as B G R A on little-endian machines. */
static void show_in_texture(const vsurf_picture* picture, SDL_Texture* texture)
{
    vsurf_surface surface = {.format = VSURF_BGRA, .width = WIDTH, .height = HEIGHT};
    vsurf_job job = {.picture = picture, .surface = &surface};
    char mistake[200];
    void* pixels;
    int pitch;
    job.crop_x = CROP_X;
    job.crop_y = CROP_Y;
    job.crop_width = WIDTH;
    job.crop_height = HEIGHT;
    if (SDL_LockTexture(texture, NULL, &pixels, &pitch)) exit(EXIT_FAILURE);
    surface.plane[0] = (uint8_t*)pixels;
    surface.pitch[0] = pitch;
    if (vsurf_show(&job) != VSURF_OK) {
        vsurf_explain(&job, mistake, sizeof mistake);
        fprintf(stderr, "%s\n", mistake);
        exit(EXIT_FAILURE);
    }
    SDL_UnlockTexture(texture);
}

static long wrong_pixels(SDL_Renderer* renderer)
{
    static uint8_t shown[HEIGHT][WIDTH][4];
    long wrong = 0;
    if (SDL_RenderReadPixels(renderer, NULL, SDL_PIXELFORMAT_ARGB8888, shown, sizeof shown[0])) exit(EXIT_FAILURE);
    for (int j = 0; j < HEIGHT; j++) {
        for (int i = 0; i < WIDTH; i++) {
            const uint8_t grey = grey_at(CROP_X + i, CROP_Y + j), *pixel = shown[j][i];
            wrong += pixel[0] != grey || pixel[1] != grey || pixel[2] != grey || pixel[3] != 255;
        }
    }
    return wrong;
}

int main(int argc, char** argv)
{
    (void)argc;
    (void)argv;
    if (SDL_Init(SDL_INIT_VIDEO)) return EXIT_FAILURE;
    SDL_Window* window = SDL_CreateWindow("vsurf", 0, 0, WIDTH, HEIGHT, 0);
    SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
    SDL_Texture* texture =
        SDL_CreateTexture(renderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING, WIDTH, HEIGHT);
    if (!texture) return EXIT_FAILURE;

    vsurf_picture picture = new_grey_picture(333, 217);
    show_in_texture(&picture, texture);
    SDL_RenderCopy(renderer, texture, NULL, NULL);
    expect("wrong pixels", wrong_pixels(renderer), 0);
    SDL_RenderPresent(renderer);

    free((void*)picture.plane[0]);
    SDL_Quit();
    return 0;
}
