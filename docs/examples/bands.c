/* SPDX-License-Identifier: MIT */
/* One picture shared by four threads: bands of an even number of lines, byte for byte what one call writes. */
#include "expect.h"
#include <pthread.h>
#include <string.h>
#include <vsurf.h>

enum { WIDTH = 720, HEIGHT = 576, SIZE = WIDTH * HEIGHT, THREADS = 4 };

static uint8_t y[SIZE], u[SIZE / 4], v[SIZE / 4];
static uint32_t whole[SIZE], shared[SIZE];

struct Band {
    int first, end; /* lines, both even */
};

static void* load_band(void* argument)
{
    const struct Band* band = argument;
    const int line = band->first, chroma = line / 2 * (WIDTH / 2);
    loadimage_rgb32(y + line * WIDTH, u + chroma, v + chroma, shared + line * WIDTH, WIDTH, band->end - line, WIDTH,
                    4 * WIDTH, NULL);
    return NULL;
}

int main(void)
{
    for (int i = 0; i < SIZE; i++) y[i] = (uint8_t)(i * 31 >> 3);
    for (int i = 0; i < SIZE / 4; i++) {
        u[i] = (uint8_t)(i * 7);
        v[i] = (uint8_t)(i * 11 >> 2);
    }
    loadimage_rgb32(y, u, v, whole, WIDTH, HEIGHT, WIDTH, 4 * WIDTH, NULL);

    pthread_t threads[THREADS];
    struct Band bands[THREADS];
    for (int i = 0; i < THREADS; i++) {
        bands[i].first = HEIGHT * i / THREADS / 2 * 2;
        bands[i].end = HEIGHT * (i + 1) / THREADS / 2 * 2;
        if (pthread_create(&threads[i], NULL, load_band, &bands[i])) return EXIT_FAILURE;
    }
    for (int i = 0; i < THREADS; i++) pthread_join(threads[i], NULL);
    expect("bytes that differ from one call's", memcmp(whole, shared, sizeof whole), 0);
    return 0;
}
