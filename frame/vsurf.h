// SPDX-License-Identifier: MIT
// vsurf: decoded video pictures onto display surfaces.
//
// A video player calls one of these functions per picture. It reads a decoded picture (planar YV12 or packed YUY2),
// makes one pass over the pixels and writes a display surface (RGB32, RGB24, RGB16, YUY2 or YV12); on the way it can
// adjust brightness, contrast and saturation, enlarge the picture, halve its width or blend a subpicture onto it.
// The output is defined to the byte.
//
// Surfaces.  A surface or plane is memory of the caller's: a pointer to the first byte of its first line, a width in
//   pixels, a height in lines and a pitch, the signed distance in bytes from one line to the next. A negative pitch
//   walks upwards (bottom-up surfaces) and works unless a function says otherwise. Neither pointers nor pitches need
//   an alignment. Source and destination must not overlap unless a function allows it. Nothing is kept after a call
//   returns.
//
// Formats, bytes in memory order (docs/formats.md has them bit by bit):
//   RGB32  B G R 0          one pixel; the fourth byte is written as 0
//   RGB24  B G R            one pixel
//   RGB16  one word         one pixel, little-endian, in one of four layouts chosen by `rgb16_layout`
//   YUY2   Y0 U Y1 V        two pixels
//   YV12   Y, V, U planes   U and V at half width and half height: sample k of chroma line j belongs to pixels 2k and
//                           2k+1 of lines 2j and 2j+1; the chroma pitch is never passed, it is half the luma pitch
//   AYUY2  alpha, Y, U, V   the planes of a drawn subpicture: U and V at half width and full height, alpha 0..16
//
// Block rule.  A line is done in whole blocks of 16 pixels, a picture in whole passes of two lines, unless a function
//   names other steps. A counter starts at the width or height; after each block or pass its step is subtracted, and
//   the next one follows while there was no borrow and the result is not zero. So there is always at least one:
//       blocks = max(1, ceil(width / 16))        width 0 gives 1, 16 gives 1, 20 gives 2
//       passes = max(1, ceil(height / 2))        height 0 gives 1, 3 gives 2
//   The last block is read and written whole, beyond the width; an odd height reads and writes one line more. From one
//   pass to the next the pointers go by the stated width, although they stepped by whole blocks: with
//       r = 16 * blocks - width
//   every pass starts r pixels further to the right than the one before it: the picture drifts. Give widths that are
//   multiples of 16 and even heights, and pad planes and surfaces to them. Functions that do not drift say so. The
//   counters are unsigned: negative widths and heights are not usable where nothing else is said.
//
// Overlapping lines.  Where a pitch is smaller than the bytes written on a line, lines overlap and the bytes stored
//   last stay; docs/contract.md and the two pages beside it give the order of stores. Where they give none, such a
//   pitch is not usable.
//
// Errors.  None is reported: no function returns a status, checks a pointer or validates a size. The few guards are
//   stated where they stand; each returns at once and writes nothing. An argument that is said to be ignored is never
//   dereferenced and may be null, and so may every pointer that a guarded return does not reach.
//
// Threads.  Any thread may call any function, and calls may run side by side on memory that does not overlap. There
//   are no locks. The only state that outlives a call is the picture adjustment, shared by the whole process and read
//   once per call (by the two YV12 enlargers once per plane) by each function whose name contains `_ajust` or
//   `_adjust`, unless it says otherwise. Do not let `get_contrast_data` run beside such a call, which may then work
//   with some old and some new values. A call allocates nothing and uses up to 40 KiB of its thread's stack.
//
// Names are kept letter for letter: `strech`, `ajust` and `Relace` are no slips of this file.
#ifndef VSURF_H
#define VSURF_H
#include <stddef.h>
#include <stdint.h>

// Linkage.  Functions have C linkage; on Windows, C++ compilers whose names are decorated the platform's own way (they
//   define _MSC_VER) see C++ functions instead, and the DLL exports both names. Define VSURF_STATIC there to link the
//   static library.
#if !defined _WIN32
#define VSURF_CALL
#else
#define VSURF_CALL __cdecl
#endif
#if defined VSURF_BUILDING && !defined _WIN32
#define VSURF_API __attribute__((visibility("default")))
#elif defined VSURF_BUILDING || defined VSURF_STATIC || !defined _WIN32
#define VSURF_API
#else
#define VSURF_API __declspec(dllimport)
#endif
#if defined __cplusplus && (!defined _MSC_VER || defined VSURF_STATIC)
#define VSURF_C_LINKAGE
extern "C" {
#endif

// The caller's parameters. `get_contrast_data` reads the first eight fields, of each only the low 16 bits; the pixel
// functions are handed the same record for the fields that describe the destination and never take the adjustment
// from it. 48 bytes.
typedef struct ajust_contrast_info {
    int32_t y_gain;     // luma gain in 1/64: 64 leaves a sample as it is
    int32_t uv_gain;    // chroma gain in 1/64. It scales the sample, not its distance from 128.
    int32_t y_offset_a; // offsets in sample units; the two addends of each are summed modulo 65536
    int32_t u_offset_a;
    int32_t v_offset_a;
    int32_t y_offset_b;
    int32_t u_offset_b;
    int32_t v_offset_b;
    int32_t rgb16_layout;    // RGB16 writers: 0 R5G6B5, 1 R5G5B5 and a zero bit 0, 2 R6G6B4, 3 R6G5B5
    int32_t reserved;        // read by no function
    int32_t surface_height;  // loadimage_yv12_ajust: lines of the whole destination surface
    int32_t lines_to_bottom; // loadimage_yv12_ajust: surface lines from the destination pointer's down to the last
} ajust_contrast_info;

// One subpicture job. The caller fills the record before every call: many functions move its pointers and count its
// height down, so that afterwards it no longer describes the region. 76 bytes where pointers have 32 bits, 128 where
// they have 64.
typedef struct MIX_INFO {
    int32_t picture_pitch;    // of the picture's Y plane; its chroma has half
    int32_t subpicture_pitch; // of the subpicture's alpha and Y planes; its chroma has half
    int32_t surface_pitch;    // of the surface (its Y plane for YV12, whose chroma has half)
    int32_t width;            // of the region in pixels
    int32_t height;           // of the region in lines
    unsigned char* picture_y; // the decoded picture, planar YV12
    unsigned char* picture_v;
    unsigned char* picture_u;
    unsigned char* subpic_alpha; // the subpicture's planes (AYUY2)
    unsigned char* subpic_y;
    unsigned char* subpic_v;
    unsigned char* subpic_u;
    unsigned char* surface;   // what is drawn on, or the RGB drawing that a preparation reads
    unsigned char* surface_u; // chroma planes of a YV12 surface
    unsigned char* surface_v;
    uint32_t color_key;                 // the transparent colour as the surface encodes it (RGB24: top byte 0)
    int32_t reserved1;                  // read by no function
    int32_t reserved2;                  // read by no function
    ajust_contrast_info* contrast_info; // 16-bit RGB functions read its rgb16_layout; ignored elsewhere
} MIX_INFO;

// A frame for `strech_opt_yuy2_ajust`. A caller's own, longer record may begin with these five fields.
typedef struct tagVideoFrame {
    int32_t field_mode; // 1: the band is one field, every other line; anything else: the whole frame
    unsigned char* plane_y;
    unsigned char* plane_u; // half width, half height, half the pitch
    unsigned char* plane_v;
    int32_t pitch; // of the Y plane, and also the number of pixels converted per line
} tagVideoFrame;

#ifdef __cplusplus
#define VSURF_STATIC_ASSERT(name, condition) static_assert(condition, #name)
#elif defined __STDC_VERSION__ && __STDC_VERSION__ >= 201112L
#define VSURF_STATIC_ASSERT(name, condition) _Static_assert(condition, #name)
#else
#define VSURF_STATIC_ASSERT(name, condition) typedef char vsurf_static_assert_##name[(condition) ? 1 : -1]
#endif
#define VSURF_SIZE(record, size32, size64) \
    VSURF_STATIC_ASSERT(size_of_##record, sizeof(record) == (sizeof(void*) == 8 ? (size64) : (size32)))
#define VSURF_OFFSET(record, field, at32, at64) \
    VSURF_STATIC_ASSERT(record##_##field, offsetof(record, field) == (sizeof(void*) == 8 ? (at64) : (at32)))

VSURF_SIZE(ajust_contrast_info, 48, 48);
VSURF_OFFSET(ajust_contrast_info, v_offset_b, 28, 28);
VSURF_OFFSET(ajust_contrast_info, rgb16_layout, 32, 32);
VSURF_OFFSET(ajust_contrast_info, surface_height, 40, 40);
VSURF_OFFSET(ajust_contrast_info, lines_to_bottom, 44, 44);
VSURF_SIZE(MIX_INFO, 76, 128);
VSURF_OFFSET(MIX_INFO, height, 16, 16);
VSURF_OFFSET(MIX_INFO, picture_y, 20, 24);
VSURF_OFFSET(MIX_INFO, picture_u, 28, 40);
VSURF_OFFSET(MIX_INFO, subpic_alpha, 32, 48);
VSURF_OFFSET(MIX_INFO, subpic_u, 44, 72);
VSURF_OFFSET(MIX_INFO, surface, 48, 80);
VSURF_OFFSET(MIX_INFO, surface_v, 56, 96);
VSURF_OFFSET(MIX_INFO, color_key, 60, 104);
VSURF_OFFSET(MIX_INFO, contrast_info, 72, 120);
VSURF_SIZE(tagVideoFrame, 20, 40);
VSURF_OFFSET(tagVideoFrame, plane_y, 4, 8);
VSURF_OFFSET(tagVideoFrame, plane_v, 12, 24);
VSURF_OFFSET(tagVideoFrame, pitch, 16, 32);
#undef VSURF_OFFSET
#undef VSURF_SIZE
#undef VSURF_STATIC_ASSERT

// Picture adjustment.
//
// What "adjusted" means for a sample x with a gain and an offset (16-bit arithmetic):
//     clamp0..255(saturating_add(((x * gain) mod 65536) >> 6, offset))
// Gains are in 1/64, offsets in sample units. A product beyond 16 bits wraps before the shift, and negative gains count
// as the unsigned number that they wrap to. Luma takes luma_gain and luma_offset, U chroma_gain and u_offset, V
// chroma_gain and v_offset, unless a function says otherwise. Until the first `get_contrast_data` all five are zero,
// and every adjusted sample is 0.

// Sets the process's picture adjustment from `info`, an ajust_contrast_info, of which it reads the first 32 bytes:
//     luma_gain = y_gain                          chroma_gain = uv_gain
//     luma_offset = y_offset_a + y_offset_b       u_offset, v_offset likewise        all modulo 65536, signed
// Faults on null. Offsets of 30000 and 30000 make -5536, since the sum wraps.
VSURF_API void VSURF_CALL get_contrast_data(void* info);

// Planar loaders: a YV12 picture onto a surface of the same size.
//
// Arguments: the planes `y`, `u`, `v`; the surface's first line `dst`; `width` and `height` of the picture; `y_pitch`
// (the chroma pitch is half of it); `dst_pitch`; `info`, which is ignored except where stated. Reads and writes, for
// the block rule's blocks, passes and r, a surface of B bytes a pixel and each pass j from 0:
//     y    16 * blocks bytes at y + j * (2 * y_pitch + r), and the same y_pitch further
//     u    8 * blocks bytes at u + j * ((y_pitch + r) >> 1), which serve both lines of the pass; v alike
//     dst  16 * blocks * B bytes at dst + j * (2 * dst_pitch + r * B), and the same dst_pitch further
// Shifts are arithmetic. The RGB conversion is BT.601 studio range (docs/formats.md) in 16-bit fixed point:
//     L = ((Y-16) * 4 * 19071) >> 16              R = L + (((V-128) * 4 * 26149) >> 16)
//     B = L + (((U-128) * 8 * 16532) >> 16)       G = L - (((U-128) * 25625) >> 16) - (((V-128) * 2 * 26641) >> 16)
// each clamped to 0..255. White (235, 128, 128) gives 254, not 255. Chroma is not interpolated.

// YV12 to YUY2, as the family. On the second line of every pass the first 8 bytes of each 32-byte block are not
// written: pixels 0 to 3 of every 16 keep what the surface held.
VSURF_API void VSURF_CALL loadimage_yuy2(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                         int dst_pitch, ajust_contrast_info* info);

// YV12 to YV12, with pointers of its own (docs/contract.md). Luma pass j copies 16 * blocks bytes from
// y + j * (2 * y_pitch + 2 * dst_pitch - width + r) to dst + j * 16 * blocks, and from `width` bytes further in the
// source to `dst_pitch` further in the destination. The V plane then goes to Vd = dst + height * dst_pitch - 1, one
// byte early, and U to Ud = Vd + ((height * dst_pitch) >> 2). Each chroma pass j copies two lines of
// 8 * max(1, ceil((width >> 1) / 8)) bytes, pitches halved, so that `height` chroma lines of each plane are read and
// written, twice what it holds, and the second half of V lands on the place of U and stays there. A plain copy of the
// picture it is not, and is not meant to be. Both pitches must be at least half the width: their halves are unsigned.
VSURF_API void VSURF_CALL loadimage_yv12(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                         int dst_pitch, ajust_contrast_info* info);

// YV12 to RGB32, as the family.
VSURF_API void VSURF_CALL loadimage_rgb32(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                          int dst_pitch, ajust_contrast_info* info);

// YV12 to RGB24, as the family.
VSURF_API void VSURF_CALL loadimage_rgb24(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                          int dst_pitch, ajust_contrast_info* info);

// YV12 to RGB16, as the family, in the layout `info->rgb16_layout`. Any value but 0..3 returns at once. `info` must be
// valid; nothing else of it is read.
VSURF_API void VSURF_CALL loadimage_rgb16(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                          int dst_pitch, ajust_contrast_info* info);

// `loadimage_rgb32` of adjusted samples: every byte is adjusted before the conversion.
VSURF_API void VSURF_CALL loadimage_rgb32_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

// `loadimage_rgb24` of adjusted samples.
VSURF_API void VSURF_CALL loadimage_rgb24_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

// `loadimage_rgb16` of adjusted samples, with its layouts and guard.
VSURF_API void VSURF_CALL loadimage_rgb16_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

// YV12 to YUY2, adjusted; unlike `loadimage_yuy2` it writes both lines whole. A height of 8 or less (signed), or odd,
// returns at once. Lines are done one at a time: line l is read at y + l * (y_pitch + r) and written at
// dst + l * (dst_pitch + 2 * r), so that the drift is r pixels a line here; chroma, re-read for the second line of each
// pass, drifts along (docs/contract.md).
VSURF_API void VSURF_CALL loadimage_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                               int dst_pitch, ajust_contrast_info* info);

// YV12 to a grey YUY2 picture: adjusted luma, every chroma byte 128. Lines as in `loadimage_yuy2_ajust`, without its
// guard. `u` and `v` are ignored.
VSURF_API void VSURF_CALL loadimage_yuy2_mono_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                    int y_pitch, int dst_pitch, ajust_contrast_info* info);

// YV12 to a part of a YV12 surface, adjusted. With H = info->surface_height and T = info->lines_to_bottom, luma goes to
// `dst`, then V to Vd = dst + T * dst_pitch + (((H - T) * dst_pitch) >> 2), then U to Ud = Vd + ((H * dst_pitch) >> 2),
// chroma at half width, height and destination pitch. A plane's line is done in blocks of 8 bytes, its height line by
// line (at least one). Source planes are read as packed rows of the width rounded up to 8: `y_pitch` is ignored. The V
// plane is adjusted with u_offset and the U plane with v_offset. `info` must be valid.
VSURF_API void VSURF_CALL loadimage_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                               int dst_pitch, ajust_contrast_info* info);

// YV12 to YUY2 at half width, every line kept, adjusted. Neighbouring samples are averaged, (a + b + 1) >> 1, then
// adjusted: 8 output pixels (16 bytes) a block. Lines as in `loadimage_yuy2_ajust`, without its guard, at
// dst + l * (dst_pitch + r).
VSURF_API void VSURF_CALL loadimage_half_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                    int y_pitch, int dst_pitch, ajust_contrast_info* info);

// YV12 to YV12 at half width, every line kept, adjusted. The odd-numbered samples are kept (1, 3, 5, ...), the others
// dropped. Luma goes to `dst`, then V to dst + height * dst_pitch, then U (dst_pitch >> 1) * (height >> 1) further,
// each with its own offset. Luma is done line by line in blocks of 16 source bytes. Chroma, height >> 1 lines of
// width >> 1 bytes (at least one line), is done in whole blocks of 16 source bytes, at least one, and where t bytes
// remain in one more block that ends at the line's end: 16 back and t on in the source, 8 back and t >> 1 on in the
// destination. A width below 32 so reads and writes beyond the chroma line and drifts.
VSURF_API void VSURF_CALL loadimage_half_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                    int y_pitch, int dst_pitch, ajust_contrast_info* info);

// Packed loaders: a YUY2 picture onto a surface of the same size.
//
// Arguments: the picture `src`; two ignored pointers; the surface `dst`; `width` and `height` in pixels and lines;
// `src_pitch`, counted in pixels, so that source lines lie 2 * src_pitch bytes apart; `dst_pitch`, in bytes; `info`,
// ignored except by the 16-bit functions. The chroma of a pass's upper line serves both lines; the lower line's is read
// but drops out. Reads and writes, for a surface of B bytes a pixel and each pass j from 0:
//     src  32 * blocks bytes at src + j * 4 * src_pitch, and the same 2 * src_pitch further
//     dst  16 * blocks * B bytes at dst + j * 2 * dst_pitch, and the same dst_pitch further
// There is no drift: passes follow the true pitch whatever the width, and negative sizes work like 0. Conversion and
// layouts are the planar loaders'.

// YUY2 to YUY2: a copy, but for the chroma of every second line, which becomes the upper line's. Blocks of 8 pixels:
// max(1, ceil(width / 8)) of 16 bytes a line.
VSURF_API void VSURF_CALL LoadYUY2_YUY2(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

// `LoadYUY2_YUY2` of adjusted samples.
VSURF_API void VSURF_CALL LoadYUY2_YUY2_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                               int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

// YUY2 to RGB32, as the family.
VSURF_API void VSURF_CALL LoadYUY2_RGB32(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

// YUY2 to RGB24, as the family.
VSURF_API void VSURF_CALL LoadYUY2_RGB24(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

// YUY2 to RGB16 in the layout `info->rgb16_layout`; any value but 0..3 returns at once. `info` must be valid.
VSURF_API void VSURF_CALL LoadYUY2_RGB16(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

// `LoadYUY2_RGB32` of adjusted samples: every byte is adjusted before the conversion.
VSURF_API void VSURF_CALL LoadYUY2_RGB32_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

// `LoadYUY2_RGB24` of adjusted samples.
VSURF_API void VSURF_CALL LoadYUY2_RGB24_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

// `LoadYUY2_RGB16` of adjusted samples, with its layouts and guard.
VSURF_API void VSURF_CALL LoadYUY2_RGB16_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

// Plane enlargers: single planes, whole YV12 pictures and bands of a frame.
//
// 2X2 doubles width and height, 1X2 the height alone. Notation here and in the next family:
//     avg(a, b) = (a + b + 1) >> 1        S(j) source line j        D(m) destination line m, dst + m * dst_pitch
//     H(line): sample i gives out[2i] = s[i], out[2i+1] = avg(s[i], s[i+1])
// Lines are averaged sample by sample; w, h, sp and dp are width, height, source and destination pitch.

// Doubles a plane both ways: D(2j) = H(S(j)), D(2j+1) = avg(H(S(j)), H(S(j+1))). The line is cut into strips of 8
// source samples, max(2, ceil(w / 8)) of them; the last sample of the last strip has itself as right neighbour. At the
// bottom the last strip writes H(S(h-1)) to D(2h-2) and D(2h-1); every other strip writes it to D(2h-2) and to D(2h),
// one line below the enlarged plane, and leaves its part of D(2h-1) unwritten. Reads 8 * strips bytes of each source
// line, writes 16 * strips of each line down to D(2h-2). Height at least 2: less works as 2, but shifts every strip
// after the first down by 2 - h source lines and twice as many output lines. `dst` needs room for 2h + 1 lines.
VSURF_API void VSURF_CALL strech_pic_2X2(unsigned char* src, unsigned char* dst, int width, int height, int src_pitch,
                                         int dst_pitch);

// Doubles a plane both ways and adjusts every output byte after the averages: with luma_gain for every plane, and with
// luma_offset, u_offset or v_offset as `plane` is 1, 2 or 3 (any other: as 1). `info` is ignored. Made for packed
// planes (sp = w, dp = 2w) whose width is a multiple of 16. It writes, all adjusted:
//     D(0) = H(S(0)); for k = 0 .. h-2: D(2k+1) = H(S(k)), D(2k+2) = avg(H(S(k)), H(S(k+1)));
//     then D(2h-2) = D(2h-1) = H(S(h-2)), over what was there.
// So the picture lies one line lower than with `strech_pic_2X2`, and S(h-1) only enters averages that are overwritten.
// The right neighbour of a line's last sample is the byte after it, also beyond the plane. In general:
//     D(0) takes ceil(w / 8) blocks of 8 samples. Round k reads at src + k * w, not k * sp, with the line below it sp
//     further, in blocks over w rounded down to 16, at least 16 samples. With r = w mod 16 not 0 one more block
//     follows, back by 16 and on by r from where the source pointer stands: its 16 samples, and their averages with
//     the line below, are not doubled and go to byte 2 * (w - r) - 16 + r of the round's two lines; every round then
//     starts r bytes further to the left in the destination. (Widths below 16: to byte 16 + r, every round starting
//     32 - w bytes further to the right.) The end steps back by sp in the source, writes a line of ceil(w / 8) blocks
//     and, right after its bytes, which is D(2h-1) only where dp = 2w, such a line once more, from sp before where the
//     source then stands: the same line only where sp = 8 * ceil(w / 8).
// Height 1 runs one round. The width should be a multiple of 8.
VSURF_API void VSURF_CALL strech_pic_2X2_adjust(unsigned char* src, unsigned char* dst, int width, int height,
                                                int src_pitch, int dst_pitch, ajust_contrast_info* info, int plane);

// Doubles the lines of a plane and adjusts every output byte, with the gains and offsets of `strech_pic_2X2_adjust`.
// `info` is ignored. It writes, all adjusted:
//     D(0) = S(0); for k = 0 .. h-2: D(2k+1) = S(k), D(2k+2) = avg(S(k), S(k+1)); then D(2h-2) = S(h-2), over what was
//     there, and the same line once more right after it, at D(2h-2) + 8 * ceil(w / 8): that is D(2h-1) in a packed
//     plane alone, and otherwise D(2h-1) stays unwritten and the copy lies in the padding.
// Rounds work on blocks of 16 bytes over w rounded down to 16, at least one block, and with r = w mod 16 not 0 on one
// more, back by 16 and on by r; both pitches are followed. First and last lines are done in blocks of 8. Height 1 runs
// one round. The width should be a multiple of 8.
VSURF_API void VSURF_CALL strech_pic_1X2_adjust(unsigned char* src, unsigned char* dst, int width, int height,
                                                int src_pitch, int dst_pitch, ajust_contrast_info* info, int plane);

// Enlarges a YV12 picture both ways onto a YV12 surface of 2h lines: three calls of `strech_pic_2X2_adjust`,
//     y to dst with plane 1; v to Vd = dst + 2h * dp with plane 2; u to Vd + ((2h * dp) >> 2) with plane 3,
// the chroma calls with width, height and both pitches halved (arithmetically). Through the plane numbers V takes
// u_offset and U takes v_offset, both with luma_gain. `info` is ignored.
VSURF_API void VSURF_CALL strech_picture_2X2_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

// Doubles the lines of a YV12 picture: the same three calls, same arguments and places, of `strech_pic_1X2_adjust`.
VSURF_API void VSURF_CALL strech_picture_1X2_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

// Doubles the height of a band of a planar 4:2:0 frame along its edges and writes YUY2, adjusted after interpolation.
// `lines` counts Y lines of the band (of the field in field mode); below 8 returns at once. With P = frame->pitch, the
// band starts O bytes into the Y plane and O >> 2 into U and V, its luma lines S and its chroma lines S >> 1 apart:
//     field mode    O = P * start, S = 2 * P            else    O = (P * start) >> 1, S = P
// It writes 4 * (lines >> 1) lines of 2 * P bytes at dst_pitch. Y(i) and C(i) being the band's lines, in groups g:
//     D(4g) = Y(2g), C(g)                               D(4g+2) = Y(2g+1), C(g) with C(g+1)
//     D(4g+1) = Y(2g) with Y(2g+1), C(g)                D(4g+3) = Y(2g+1) with Y(2g+2), C(g) with C(g+1)
// and in the last group D(4g+2) = D(4g+3) = Y(2g+1), C(g). "A with B" is avg(A, B) in a line's first and last 16 pixels
// (8 chroma samples). Between them it goes by groups of 4 samples of a plane: avg where the sum of their 4 absolute
// differences is at most 32, else avg(A[p+k], B[p-k]) for each sample p, along the k of -2..2 with the least
//     |A[p+k] - B[p-k]| + |A[p+1+k] - B[p+1-k]| + |A[p+2+k] - B[p+2-k]| + |A[p+3+k] - B[p+3-k]|
// (a window that starts at p; among equals the smallest k). P must be a multiple of 16 and at least 48: below,
// interpolated lines still have 48 pixels. `start` counts lines of the enlarged picture where the whole frame is meant,
// and should be a multiple of 4 there: others take chroma from within a line. `info` is ignored.
VSURF_API void VSURF_CALL strech_opt_yuy2_ajust(tagVideoFrame* frame, int start, int lines, unsigned char* dst,
                                                int dst_pitch, ajust_contrast_info* info);

// Enlarged loaders: a picture onto a YUY2 or RGB surface while it is enlarged.
//
// Arguments of the YV12 ones: planes, surface, width and height of the source, `src_pitch` of the Y plane (chroma has
// half), `dst_pitch`, `info`, which is ignored except where stated. Each reads `height` luma and height/2 chroma lines
// and writes 2 * height lines, D(0) to D(2h-1). Width a multiple of 16 (2X2: at least 32), height even, src_pitch even.
// Other widths are rounded up to that on every line, without drift; an odd height leaves its last line out, though the
// guards take it as given. src_pitch may be negative; dst_pitch must be at least a line in either direction.
// Y[s] and C[c] being luma and chroma lines (C both planes), the basic pattern for each pair r = 0, 2, .. h-2, c = r/2:
//     D(2r) = Y[r], C[c]                                D(2r+2) = Y[r+1], avg(C[c], C[c+1])
//     D(2r+1) = avg(Y[r], Y[r+1]), C[c]                 D(2r+3) = avg(Y[r+1], Y[r+2]), avg(C[c], C[c+1])
// but at the bottom, r = h-2, D(2r+2) = D(2r+3) = Y[h-1], C[c].

// YV12 to YUY2 of twice the height: the basic pattern, 2 * width bytes a line. A height below 8 returns at once.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2(void* y, void* u, void* v, void* dst, int width, int height,
                                                  int src_pitch, int dst_pitch, ajust_contrast_info* info);

// The same, adjusted after interpolation, and with a four-tap filter in place of most averages:
//     F(a, b, c, d) = clamp0..255((5 * b + 5 * c - (a + d)) >> 3) of four lines in order
// for luma between Y[s] and Y[s+1] with 2 <= s <= h-3, and for chroma between C[c] and C[c+1] with 1 <= c <= h/2 - 3;
// elsewhere averages. A height below 8 returns at once.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

// YV12 to YUY2 of twice the width and height: every line of each plane is doubled by H first (the last sample is its
// own right neighbour), then the basic pattern applies to the doubled lines; 4 * width bytes a line. A height below 8
// returns at once. Width 16 reads and writes a block beyond the line.
VSURF_API void VSURF_CALL strech_picture_2X2_yuy2(void* y, void* u, void* v, void* dst, int width, int height,
                                                  int src_pitch, int dst_pitch, ajust_contrast_info* info);

// The same of adjusted samples: adjusted as they are loaded, before any average. The U sample that looks ahead into the
// next 8 (it only enters the last doubled U of each 8) is adjusted with v_offset. A height below 16 returns at once.
VSURF_API void VSURF_CALL strech_picture_2X2_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

// YV12 to RGB32 of twice the height (the "yuy2" in the name notwithstanding): samples are adjusted, then the basic
// pattern is formed, then every line converted; 4 * width bytes a line. A height below 12 returns at once.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb32(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

// The same to RGB24, 3 * width bytes a line.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb24(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

// The same to RGB16, 2 * width bytes a line, in the layout `info->rgb16_layout`; after the height guard any value but
// 0..3 returns at once. `info` must be valid, unless the height is below 12.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb16(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

// A packed YUY2 picture `src` of `line_bytes` (2 * width) a line, without gaps, to YUY2 of twice the width and height:
// luma, U and V of every line are doubled by H (the last sample is its own right neighbour), giving L[s];
// D(2s) = L[s], D(2s+1) = avg(L[s], L[s+1]), D(2h-1) = L[h-1]. 2 * line_bytes a line. `line_bytes` a multiple of 32 and
// at least 64, else rounded up to that; height even, else the last line is left out; the two pointers are ignored. A
// height below 16 returns at once.
VSURF_API void VSURF_CALL yuy2_strech_picture_2X2_yuy2(void* src, void* unused_u, void* unused_v, void* dst,
                                                       int line_bytes, int height, int dst_pitch);

// The same of adjusted samples: adjusted before any average. The U and V samples that look ahead into the next 16
// pixels have their offsets exchanged; they only enter the last doubled pair of each 16 source pixels but a line's
// last. `info` is ignored. A height below 8 returns at once, half the bound of the plain form.
VSURF_API void VSURF_CALL yuy2_strech_picture_2X2_yuy2_ajust(void* src, void* unused_u, void* unused_v, void* dst,
                                                             int line_bytes, int height, int dst_pitch,
                                                             ajust_contrast_info* info);

// Subpicture preparation: from an RGB drawing to AYUY2 planes, and back for display.
//
// The caller draws colours on a surface filled with `color_key` and converts it, then draws the alpha values, 0..16,
// into the blue component of a surface and restores them. Each function names the fields of the record that it moves;
// the others stay as they are.

// RGB32 to the subpicture's Y, U and V planes, BT.601 studio range in 1/1024, in blocks of 8 pixels:
//     Y = (100 * B + 516 * G + 263 * R + 1024 * (X | 16)) >> 10             X is the fourth byte: keep it 0
//     U = (449 * B - 297 * G - 151 * R + 1024 * (X | 128)) >> 10
//     V = (-72 * B - 376 * G + 449 * R + 1024 * (X | 128)) >> 10            each clamped to 0..255
// chroma from the first pixel of each pair. A block whose 8 pixels all equal color_key leaves the planes as they are.
// Per line width >> 3 blocks; width a multiple of 8 and not 0, height at least 1. Reads surface (surface_pitch), writes
// width bytes of Y and width/2 of U and V a line (subpicture_pitch, at least width; chroma steps by width/2 and the
// halved rest). Moves subpic_y, subpic_u and subpic_v to the region's end, and subpic_alpha, although it never touches
// the alpha plane, by (subpicture_pitch - width) * height.
VSURF_API void VSURF_CALL Convert_RGB32_To_AYUY2(MIX_INFO* job);

// The same from RGB24, X = 0. The key is compared with 24 bits, so its top byte must be 0. Reads one byte beyond each
// line's last pixel.
VSURF_API void VSURF_CALL Convert_RGB24_To_AYUY2(MIX_INFO* job);

// The same from RGB16 in layout 0, X = 0: components are shifted up and not replicated, so white is 248, 252, 248. The
// key is its low 16 bits.
VSURF_API void VSURF_CALL Convert_RGB16_565_To_AYUY2(MIX_INFO* job);

// The blue bytes of an RGB32 surface to the alpha plane, in blocks of 8 pixels, `height` lines. The alpha plane's line
// step is width + ((picture_pitch - width) >> 1), not subpicture_pitch. Width a multiple of 8, height at least 1. The
// record is left alone.
VSURF_API void VSURF_CALL Restore_RGB32_To_Alpha(MIX_INFO* job);

// The same from RGB24, but alpha i is byte 3i+3 of the line, the blue of the pixel to the right: at the end of a line,
// the byte after it. Counts `height` down to 0.
VSURF_API void VSURF_CALL Restore_RGB24_To_Alpha(MIX_INFO* job);

// The same from RGB16 in layout 0: the five blue bits, 0..31, in blocks of 16 pixels; width a multiple of 16. The
// record is left alone.
VSURF_API void VSURF_CALL Restore_RGB16_565_To_Alpha(MIX_INFO* job);

// The alpha plane to RGB32, so that it can be drawn on: blue = alpha, all else 0. Blocks of 16 pixels, width a multiple
// of 16; the alpha plane's line step is the restores'. The record is left alone.
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb32(MIX_INFO* job);

// The same to RGB24, bytes alpha, 0, 0; counts `height` down to 0. Restoring it moves alpha one pixel to the left.
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb24(MIX_INFO* job);

// The same to 16-bit pixels of the value alpha (above 31 it reaches into green).
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb16_565(MIX_INFO* job);

// The subpicture alone to RGB32: converted colour where alpha is 1..127, black where it is 128..255, and where it is 0
// the key, its bytes reversed: blue is byte 2 of color_key, green byte 1, red byte 0. The line length in pixels is
// picture_pitch (a multiple of 16), `width` is not read, and the planes are read as packed at that length, chroma at
// half of it, one chroma line a line. `height` lines. The record is left alone.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb32(MIX_INFO* job);

// The same to RGB24: blue, green, red.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb24(MIX_INFO* job);

// The same to RGB16 in the layout contrast_info->rgb16_layout (any value but 0..3 returns at once). Alpha 0 gives the
// low 16 bits of color_key as they are, any other alpha the colour.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb16(MIX_INFO* job);

// `load_subpicture_yuy2_rgb32` of adjusted samples.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb32_ajust(MIX_INFO* job);

// `load_subpicture_yuy2_rgb24` of adjusted samples.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb24_ajust(MIX_INFO* job);

// `load_subpicture_yuy2_rgb16` of adjusted samples.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb16_ajust(MIX_INFO* job);

// Mixers: the subpicture blended onto a YV12 picture while it is written to the surface.
//
// With picture sample p, subpicture sample s and alpha a:  out = ((16 - a) * p + a * s) >> 4, clamped to 0..255.
// Products keep their low 16 bits, the sum saturates as signed 16 bits, the shift is unsigned: beyond the scale of
// 0..16 the result is defined but no picture. A pair's chroma takes the alpha of its odd pixel unless stated. Samples
// are adjusted after the blend, before any conversion. Width a multiple of 16; other widths drift by the block rule.
//
// Progressive (`_p`) onto YUY2 and RGB: passes of two lines, at least one, while the record's `height`, lowered by 2
// after each, stays above 0 (signed); it ends at 0 or, from an odd height, at -1. Both lines share the picture's chroma
// line, each has its own subpicture chroma line. The lower line is reached by picture_pitch and subpicture_pitch, each
// rounded down to even. picture_u, picture_v and the four subpicture pointers in the record move along with the passes.
//
// Interlaced (`_i`) onto YUY2 and RGB: the picture is one field, doubled in height. With picture_pitch twice the
// frame's and the planes at a field's first lines it is read in place. Output lines come in groups g of four; Y[i],
// C[i] being the field's luma and chroma lines:
//     4g      Y[2g], C[g]                                 4g+2    Y[2g+1], avg(C[g], C[g+1])
//     4g+1    avg(Y[2g], Y[2g+1]), C[g]                   4g+3    avg(Y[2g+1], Y[2g+2]), avg(C[g], C[g+1])
// but lines 4g+2 and 4g+3 of the last group both take Y[2g+1], C[g]. Heights from 8 on are rounded up to a multiple of
// 4. The subpicture moves one line per output line, its chroma by subpicture_pitch >> 1.

// Onto YUY2, progressive.
VSURF_API void VSURF_CALL mix_ayuy2_yuy2_p_ajust(MIX_INFO* job);

// Onto YUY2 at half width, progressive: pixels 1, 3, 5, ... of each line, chroma samples 1, 3, 5, ... with the alpha of
// pixel 4k+3; 16 bytes a block and line. The lower line of the picture is reached by subpicture_pitch, by which the
// picture's chroma also steps: give both the same pitch.
VSURF_API void VSURF_CALL mix_ayuy2_half_yuy2_p_ajust(MIX_INFO* job);

// Onto YUY2, interlaced. A height below 4 mixes nothing and leaves the record; 4 to 7 mix four lines. `height` ends at
// 0, picture_u and picture_v end picture_pitch >> 1 further per group, the last one included, and the four subpicture
// pointers behind the last line. The drift comes with every line. picture_pitch must not be negative.
VSURF_API void VSURF_CALL mix_ayuy2_yuy2_i_ajust(MIX_INFO* job);

// Onto RGB32, progressive.
VSURF_API void VSURF_CALL mix_ayuy2_rgb32_p_ajust(MIX_INFO* job);

// Onto RGB24, progressive.
VSURF_API void VSURF_CALL mix_ayuy2_rgb24_p_ajust(MIX_INFO* job);

// Onto RGB16, progressive, in the layout contrast_info->rgb16_layout; any value but 0..3 returns at once and leaves the
// record.
VSURF_API void VSURF_CALL mix_ayuy2_rgb16_p_ajust(MIX_INFO* job);

// Onto RGB32, interlaced. A pair's chroma takes the rounded average of its two alphas. Heights below 8, even below 4,
// mix four lines. Nothing drifts, and the record is left alone.
VSURF_API void VSURF_CALL mix_ayuy2_rgb32_i_ajust(MIX_INFO* job);

// Onto RGB24, interlaced, otherwise as RGB32.
VSURF_API void VSURF_CALL mix_ayuy2_rgb24_i_ajust(MIX_INFO* job);

// Onto RGB16, interlaced, otherwise as RGB32, with the layouts and the guard of `mix_ayuy2_rgb16_p_ajust`.
VSURF_API void VSURF_CALL mix_ayuy2_rgb16_i_ajust(MIX_INFO* job);

// Onto the YV12 planes surface, surface_v and surface_u, progressive, not adjusted. Luma in blocks of 8 pixels,
// `height` lines (at least one); then V, then U, in blocks of 8 samples, half the height. Chroma and its alpha come
// from the subpicture's even lines, each sample with the alpha of its odd pixel. Halves `height` in the record. The
// surface may be the picture itself, at equal pitches.
VSURF_API void VSURF_CALL mix_ayv12_yv12_p(MIX_INFO* job);

// The same, each blended sample adjusted: V with v_offset, U with u_offset.
VSURF_API void VSURF_CALL mix_ayv12_yv12_p_ajust(MIX_INFO* job);

// Onto YV12, interlaced, not adjusted: in each plane line 2j takes the field's line j, line 2j+1 the rounded average of
// lines j and j+1, to the end: the line after the field's last is read. Height a multiple of 4, picture_pitch not
// negative. Halves `height` and `width` in the record.
VSURF_API void VSURF_CALL mix_ayv12_yv12_i(MIX_INFO* job);

// Colour key: the area in which an overlay shows the video.

// Fills a rectangle of an RGB32 surface with `colour`: 64 * blocks bytes a line, two lines a pass, drifting by r pixels
// a pass. Height 0 returns at once. `reserved` is ignored.
VSURF_API void VSURF_CALL LoadColorKeyRgb32(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

// The same for RGB24, 48 * blocks bytes a line: with c = colour and 64-bit shifts that drop what leaves the word, the
// little-endian words W0 W1 W2 W0 W1 W2 a block,
//     W0 = c << 40 | c << 16 | c >> 8       W1 = c << 56 | c << 32 | c << 8 | c >> 16       W2 = c << 48 | c << 24 | c
// whose bytes do not repeat every three: 0x00332211 gives 22 33 11 22 33 11 22 33, 33 11 22 33 11 22 33 11,
// 11 22 33 11 22 33 11 22.
VSURF_API void VSURF_CALL LoadColorKeyRgb24(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

// The same for 16-bit pixels, 32 * blocks bytes a line: the low 16 bits of `colour`.
VSURF_API void VSURF_CALL LoadColorKeyRgb16(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

// Where a byte of `mask` equals the low byte of `match`, the byte of `dst` becomes the low byte of `key`; the others
// are read and written back. `height` lines, one at a time and at least one, of `width` bytes in blocks of 16; both
// pictures have `pitch`, drift by r bytes a line, and may be the same.
VSURF_API void VSURF_CALL RelaceMaskWithColorKey(unsigned char* dst, unsigned char* mask, unsigned int match,
                                                 unsigned int key, int width, int pitch, int height);

#ifdef VSURF_C_LINKAGE
#undef VSURF_C_LINKAGE
}
#endif
#endif
