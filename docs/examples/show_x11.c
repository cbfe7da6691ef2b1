/* SPDX-License-Identifier: MIT */
/* Shows a picture in an image that an X server shares memory with, and puts the image into a window.
   cc -std=c99 show_x11.c $(pkg-config --cflags --libs vsurf-show x11 xext) */
#define _XOPEN_SOURCE 700
#include "expect.h"
#include "grey.h"
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XShm.h>
#include <sys/ipc.h>
#include <sys/shm.h>

enum { WIDTH = 333, HEIGHT = 217 };

/* Of the usual visuals; 0, which vsurf_show() refuses, for others. */
static vsurf_format format_of(const XImage* image)
{
    if (image->byte_order != LSBFirst) return (vsurf_format)0;
    if (image->bits_per_pixel == 32 && image->red_mask == 0xff0000 && image->blue_mask == 0xff) return VSURF_BGRX;
    if (image->bits_per_pixel == 32 && image->red_mask == 0xff && image->blue_mask == 0xff0000) return VSURF_RGBX;
    if (image->bits_per_pixel == 24 && image->red_mask == 0xff0000) return VSURF_BGR24;
    if (image->bits_per_pixel == 16 && image->red_mask == 0xf800 && image->green_mask == 0x7e0) return VSURF_RGB565;
    return (vsurf_format)0;
}

static XImage* new_shared_image(Display* display, XShmSegmentInfo* segment)
{
    const int screen = DefaultScreen(display);
    XImage* image = XShmCreateImage(display, DefaultVisual(display, screen), (unsigned)DefaultDepth(display, screen),
                                    ZPixmap, NULL, segment, WIDTH, HEIGHT);
    if (!image) exit(EXIT_FAILURE);
    segment->shmid = shmget(IPC_PRIVATE, (size_t)image->bytes_per_line * HEIGHT, IPC_CREAT | 0600);
    segment->shmaddr = image->data = (char*)shmat(segment->shmid, NULL, 0);
    segment->readOnly = False;
    if (image->data == (char*)-1 || !XShmAttach(display, segment)) exit(EXIT_FAILURE);
    XSync(display, False);
    shmctl(segment->shmid, IPC_RMID, NULL); /* the memory goes with its last user */
    return image;
}

static Window open_window(Display* display)
{
    XEvent event;
    Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, WIDTH, HEIGHT, 0, 0, 0);
    XSelectInput(display, window, ExposureMask);
    XMapWindow(display, window);
    XWindowEvent(display, window, ExposureMask, &event);
    return window;
}

static long wrong_pixels(Display* display, Window window)
{
    XImage* shown = XGetImage(display, window, 0, 0, WIDTH, HEIGHT, AllPlanes, ZPixmap);
    long wrong = 0;
    if (!shown) exit(EXIT_FAILURE);
    for (int j = 0; j < HEIGHT; j++)
        for (int i = 0; i < WIDTH; i++) wrong += (XGetPixel(shown, i, j) & 0xffffff) != grey_at(i, j) * 0x10101ul;
    XDestroyImage(shown);
    return wrong;
}

int main(void)
{
    Display* display = XOpenDisplay(NULL);
    if (!display || !XShmQueryExtension(display)) return EXIT_FAILURE;
    XShmSegmentInfo segment;
    XImage* image = new_shared_image(display, &segment);
    const Window window = open_window(display);

    const vsurf_picture picture = new_grey_picture(WIDTH, HEIGHT);
    const vsurf_surface surface = {.format = format_of(image),
                                   .width = WIDTH,
                                   .height = HEIGHT,
                                   .plane = {(uint8_t*)image->data},
                                   .pitch = {image->bytes_per_line}};
    const vsurf_job job = {.picture = &picture, .surface = &surface};
    expect("status", vsurf_show(&job), VSURF_OK);
    XShmPutImage(display, window, DefaultGC(display, DefaultScreen(display)), image, 0, 0, 0, 0, WIDTH, HEIGHT, False);
    XSync(display, False); /* the server has read the image: the next picture may be shown in it */
    expect("wrong pixels", wrong_pixels(display, window), 0);

    free((void*)picture.plane[0]);
    XShmDetach(display, &segment);
    XDestroyImage(image);
    shmdt(segment.shmaddr);
    XCloseDisplay(display);
    return 0;
}
