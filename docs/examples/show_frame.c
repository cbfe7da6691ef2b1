/* SPDX-License-Identifier: MIT */
/* Shows an AVFrame, with its colours as the frame describes them: every 8-bit 4:2:0 format, YUYV and UYVY.
   cc -std=c99 show_frame.c $(pkg-config --cflags --libs vsurf-show libavutil) */
#include "expect.h"
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
#include <string.h>
#include <vsurf_show.h>

static vsurf_format format_of(const AVFrame* frame)
{
    switch (frame->format) {
    case AV_PIX_FMT_YUV420P:
    case AV_PIX_FMT_YUVJ420P: return VSURF_I420;
    case AV_PIX_FMT_NV12: return VSURF_NV12;
    case AV_PIX_FMT_NV21: return VSURF_NV21;
    case AV_PIX_FMT_YUYV422: return VSURF_YUY2;
    case AV_PIX_FMT_UYVY422: return VSURF_UYVY;
    default: return (vsurf_format)0; /* vsurf_show() answers VSURF_BAD_SOURCE_FORMAT */
    }
}

/* Many files do not say. Then pictures of high definition are most likely BT.709, smaller ones BT.601. */
static vsurf_matrix matrix_of(const AVFrame* frame)
{
    switch (frame->colorspace) {
    case AVCOL_SPC_BT709: return VSURF_BT709;
    case AVCOL_SPC_BT2020_NCL: return VSURF_BT2020;
    case AVCOL_SPC_UNSPECIFIED: return frame->height >= 720 ? VSURF_BT709 : VSURF_BT601;
    default: return VSURF_BT601;
    }
}

static vsurf_range range_of(const AVFrame* frame)
{
    return frame->color_range == AVCOL_RANGE_JPEG || frame->format == AV_PIX_FMT_YUVJ420P ? VSURF_FULL : VSURF_LIMITED;
}

static vsurf_status show_frame(const AVFrame* frame, const vsurf_surface* surface)
{
    vsurf_picture picture = {.format = format_of(frame),
                             .width = frame->width,
                             .height = frame->height,
                             .matrix = matrix_of(frame),
                             .range = range_of(frame)};
    vsurf_job job = {.picture = &picture, .surface = surface};
    for (int i = 0; i < 3; i++) {
        picture.plane[i] = frame->data[i];
        picture.pitch[i] = frame->linesize[i];
    }
    return vsurf_show(&job);
}

enum { WIDTH = 45, HEIGHT = 27, Y = 100, U = 90, V = 200 };

/* What a decoder would deliver: all pixels have the same Y, U and V. */
static void fill(AVFrame* frame)
{
    const uint8_t nv12[] = {U, V}, nv21[] = {V, U}, yuyv[] = {Y, U, Y, V}, uyvy[] = {U, Y, V, Y};
    const int lines = (HEIGHT + 1) / 2, pairs = (WIDTH + 1) / 2;
    const uint8_t* group = frame->format == AV_PIX_FMT_YUYV422   ? yuyv
                           : frame->format == AV_PIX_FMT_UYVY422 ? uyvy
                           : frame->format == AV_PIX_FMT_NV21    ? nv21
                                                                 : nv12;
    for (int j = 0; j < HEIGHT; j++) {
        if (group == yuyv || group == uyvy)
            for (int i = 0; i < pairs; i++) memcpy(frame->data[0] + j * frame->linesize[0] + 4 * i, group, 4);
        else memset(frame->data[0] + j * frame->linesize[0], Y, WIDTH);
    }
    if (frame->data[2]) {
        memset(frame->data[1], U, (size_t)(lines * frame->linesize[1]));
        memset(frame->data[2], V, (size_t)(lines * frame->linesize[2]));
    } else if (frame->data[1]) {
        for (int j = 0; j < lines; j++)
            for (int i = 0; i < pairs; i++) memcpy(frame->data[1] + j * frame->linesize[1] + 2 * i, group, 2);
    }
}

/* Pixels 0xRRGGBB. */
static void try_format(enum AVPixelFormat format, enum AVColorSpace space, enum AVColorRange range, long expected)
{
    static uint8_t pixels[HEIGHT][4 * WIDTH];
    const vsurf_surface surface = {
        .format = VSURF_BGRX, .width = WIDTH, .height = HEIGHT, .plane = {pixels[0]}, .pitch = {sizeof pixels[0]}};
    AVFrame* frame = av_frame_alloc();
    frame->format = format;
    frame->width = WIDTH;
    frame->height = HEIGHT;
    frame->colorspace = space;
    frame->color_range = range;
    if (av_frame_get_buffer(frame, 0) < 0) exit(EXIT_FAILURE);
    fill(frame);
    expect(av_get_pix_fmt_name(format), show_frame(frame, &surface), VSURF_OK);
    for (int i = 0; i < 2; i++) {
        const uint8_t* pixel = i ? pixels[HEIGHT - 1] + 4 * (WIDTH - 1) : pixels[0];
        expect(i ? "  last pixel" : "  first pixel", pixel[2] * 65536 + pixel[1] * 256 + pixel[0], expected);
    }
    av_frame_free(&frame);
}

int main(void)
{
    const enum AVPixelFormat formats[] = {AV_PIX_FMT_YUV420P, AV_PIX_FMT_NV12, AV_PIX_FMT_NV21, AV_PIX_FMT_YUYV422,
                                          AV_PIX_FMT_UYVY422};
    for (size_t i = 0; i < sizeof formats / sizeof *formats; i++) {
        try_format(formats[i], AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_UNSPECIFIED, 0xd33614);
        try_format(formats[i], AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, 0xe24410);
        try_format(formats[i], AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_JPEG, 0xce421c);
    }
    try_format(AV_PIX_FMT_YUVJ420P, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_UNSPECIFIED, 0xc83f20);
    return 0;
}
