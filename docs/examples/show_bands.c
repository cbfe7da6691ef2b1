/* SPDX-License-Identifier: MIT */
/* Shows pictures on the threads of a pool, which take one band after the other; byte for byte what one call writes.
   cc -std=c99 -pthread show_bands.c $(pkg-config --cflags --libs vsurf-show) */
#include "expect.h"
#include "grey.h"
#include <pthread.h>

enum { WIDTH = 853, HEIGHT = 479, THREADS = 4, BANDS = 3 * THREADS };

/* One job at a time. */
struct Pool {
    pthread_mutex_t mutex;
    pthread_cond_t work, done;
    const vsurf_job* job;
    int next, finished, quit; /* bands that were taken, and that are shown */
    vsurf_status status;
    pthread_t threads[THREADS];
};

static void* run_worker(void* argument)
{
    struct Pool* pool = (struct Pool*)argument;
    pthread_mutex_lock(&pool->mutex);
    while (!pool->quit) {
        if (pool->next == BANDS) {
            pthread_cond_wait(&pool->work, &pool->mutex);
            continue;
        }
        const int band = pool->next++;
        pthread_mutex_unlock(&pool->mutex);
        const vsurf_status status = vsurf_show_band(pool->job, band, BANDS);
        pthread_mutex_lock(&pool->mutex);
        if (status != VSURF_OK) pool->status = status;
        if (++pool->finished == BANDS) pthread_cond_signal(&pool->done);
    }
    pthread_mutex_unlock(&pool->mutex);
    return NULL;
}

static void start(struct Pool* pool)
{
    pthread_mutex_init(&pool->mutex, NULL);
    pthread_cond_init(&pool->work, NULL);
    pthread_cond_init(&pool->done, NULL);
    pool->next = pool->finished = BANDS;
    for (int i = 0; i < THREADS; i++)
        if (pthread_create(&pool->threads[i], NULL, run_worker, pool)) exit(EXIT_FAILURE);
}

static vsurf_status show_on(struct Pool* pool, const vsurf_job* job)
{
    pthread_mutex_lock(&pool->mutex);
    pool->job = job;
    pool->next = pool->finished = 0;
    pool->status = VSURF_OK;
    pthread_cond_broadcast(&pool->work);
    while (pool->finished < BANDS) pthread_cond_wait(&pool->done, &pool->mutex);
    const vsurf_status status = pool->status;
    pthread_mutex_unlock(&pool->mutex);
    return status;
}

static void stop(struct Pool* pool)
{
    pthread_mutex_lock(&pool->mutex);
    pool->quit = 1;
    pthread_cond_broadcast(&pool->work);
    pthread_mutex_unlock(&pool->mutex);
    for (int i = 0; i < THREADS; i++) pthread_join(pool->threads[i], NULL);
}

int main(void)
{
    static uint8_t whole[HEIGHT][4 * WIDTH], shared[HEIGHT][4 * WIDTH];
    static struct Pool pool;
    const vsurf_picture picture = new_grey_picture(WIDTH, HEIGHT);
    vsurf_surface surface = {
        .format = VSURF_RGBA, .width = WIDTH, .height = HEIGHT, .plane = {whole[0]}, .pitch = {sizeof whole[0]}};
    vsurf_job job = {.picture = &picture, .surface = &surface};
    long refused = 0, different = 0;
    start(&pool);
    for (int i = 0; i < 20; i++) {
        job.look.brightness = (float)i / 40;
        surface.plane[0] = whole[0];
        refused += vsurf_show(&job) != VSURF_OK;
        memset(shared, 0, sizeof shared);
        surface.plane[0] = shared[0];
        refused += show_on(&pool, &job) != VSURF_OK;
        different += memcmp(whole, shared, sizeof whole) != 0;
        if (i == 0) expect("last pixel", shared[HEIGHT - 1][4 * WIDTH - 4], grey_at(WIDTH - 1, HEIGHT - 1));
    }
    expect("refused", refused, 0);
    expect("pictures that differ from one call's", different, 0);
    stop(&pool);
    free((void*)picture.plane[0]);
    return 0;
}
