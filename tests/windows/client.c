// SPDX-License-Identifier: MIT
// A program that no runtime helps, built the way the platform's own compilers build: as C it binds to the DLL's plain
// names, as C++ to the decorated ones. It calls a function of each list of parameters; its status says which was
// wrong.
#include <vsurf.h>

#ifdef __cplusplus
extern "C"
#endif
    __declspec(dllimport) void __stdcall ExitProcess(unsigned int status);

enum { kWidth = 64, kHeight = 16, kBytes = 4 * 4 * kWidth * kHeight }; // room for a picture twice as wide and high

static unsigned char y[kWidth * kHeight], u[kWidth * kHeight / 4], v[kWidth * kHeight / 4], yuy2[2 * kWidth * kHeight];
static unsigned char surface[kBytes];
static const unsigned char kYuy2[4] = {100, 90, 100, 110};

static void fill(unsigned char* to, int count, unsigned char value)
{
    int i;
    for (i = 0; i < count; i++) to[i] = value;
}

static void show(unsigned char luma, unsigned char cb, unsigned char cr)
{
    fill(y, sizeof y, luma);
    fill(u, sizeof u, cb);
    fill(v, sizeof v, cr);
    fill(surface, sizeof surface, 0xAA);
}

static void set_gains(int gain)
{
    static ajust_contrast_info info;
    info.y_gain = info.uv_gain = gain;
    get_contrast_data(&info);
}

// Whether the surface holds the four bytes over and over, as far as `count`.
static int repeats(int count, unsigned char b0, unsigned char b1, unsigned char b2, unsigned char b3)
{
    const unsigned char four[4] = {b0, b1, b2, b3};
    int i;
    for (i = 0; i < count; i++)
        if (surface[i] != four[i % 4]) return 0;
    return 1;
}

// The same, and nothing behind.
static int holds(int count, unsigned char b0, unsigned char b1, unsigned char b2, unsigned char b3)
{
    return repeats(count, b0, b1, b2, b3) && (count == kBytes || surface[count] == 0xAA);
}

static int holds_yuy2(int count) { return holds(count, kYuy2[0], kYuy2[1], kYuy2[2], kYuy2[3]); }

static int loaders_work(void)
{
    show(235, 128, 128);
    loadimage_rgb32(y, u, v, surface, kWidth, kHeight, kWidth, 4 * kWidth, NULL);
    if (!holds(4 * kWidth * kHeight, 254, 254, 254, 0)) return 0;
    show(0, 0, 0);
    LoadYUY2_YUY2(yuy2, NULL, NULL, surface, kWidth, kHeight, kWidth, 2 * kWidth, NULL);
    return holds_yuy2(2 * kWidth * kHeight);
}

static int plane_enlargers_work(void)
{
    show(100, 0, 0);
    strech_pic_2X2(y, surface, kWidth, kHeight, kWidth, 2 * kWidth);
    if (!repeats(2 * kWidth * (2 * kHeight - 1), 100, 100, 100, 100)) return 0;
    show(100, 0, 0);
    set_gains(128);
    strech_pic_2X2_adjust(y, surface, kWidth, kHeight, kWidth, 2 * kWidth, NULL, 1);
    return holds(2 * kWidth * 2 * kHeight, 200, 200, 200, 200);
}

static int band_enlarger_works(void)
{
    static tagVideoFrame frame;
    show(100, 90, 110);
    set_gains(64);
    frame.plane_y = y;
    frame.plane_u = u;
    frame.plane_v = v;
    frame.pitch = kWidth;
    strech_opt_yuy2_ajust(&frame, 0, kHeight, surface, 2 * kWidth, NULL);
    return holds_yuy2(2 * kWidth * 2 * kHeight);
}

static int packed_enlargers_work(void)
{
    show(0, 0, 0);
    yuy2_strech_picture_2X2_yuy2(yuy2, NULL, NULL, surface, 2 * kWidth, kHeight, 4 * kWidth);
    if (!holds_yuy2(4 * kWidth * 2 * kHeight)) return 0;
    show(0, 0, 0);
    set_gains(64);
    yuy2_strech_picture_2X2_yuy2_ajust(yuy2, NULL, NULL, surface, 2 * kWidth, kHeight, 4 * kWidth, NULL);
    return holds_yuy2(4 * kWidth * 2 * kHeight);
}

static int jobs_work(void)
{
    static MIX_INFO job;
    static unsigned char alpha[kWidth * kHeight], half[kWidth * kHeight / 2];
    show(100, 90, 110);
    fill(alpha, sizeof alpha, 0);
    fill(half, sizeof half, 50);
    job.picture_pitch = job.subpicture_pitch = job.width = kWidth;
    job.surface_pitch = 2 * kWidth;
    job.height = kHeight;
    job.picture_y = y;
    job.picture_u = u;
    job.picture_v = v;
    job.subpic_alpha = job.subpic_y = alpha;
    job.subpic_u = job.subpic_v = half;
    job.surface = surface;
    set_gains(64);
    mix_ayuy2_yuy2_p_ajust(&job);
    return holds_yuy2(2 * kWidth * kHeight);
}

static int fills_work(void)
{
    static unsigned char mask[kWidth * kHeight];
    show(0, 0, 0);
    LoadColorKeyRgb32(0x00332211, surface, kWidth, kHeight, 0, 4 * kWidth);
    if (!holds(4 * kWidth * kHeight, 0x11, 0x22, 0x33, 0)) return 0;
    show(0, 0, 0);
    fill(mask, sizeof mask, 7);
    RelaceMaskWithColorKey(surface, mask, 7, 0x55, kWidth, kWidth, kHeight);
    return holds(kWidth * kHeight, 0x55, 0x55, 0x55, 0x55);
}

static unsigned int first_wrong(void)
{
    int i;
    for (i = 0; i < (int)sizeof yuy2; i++) yuy2[i] = kYuy2[i % 4];
    if (!loaders_work()) return 1;
    if (!plane_enlargers_work()) return 2;
    if (!band_enlarger_works()) return 3;
    if (!packed_enlargers_work()) return 4;
    if (!jobs_work()) return 5;
    return fills_work() ? 0 : 6;
}

#ifdef __cplusplus
extern "C"
#endif
    void
    start(void)
{
    ExitProcess(first_wrong());
}
