// SPDX-License-Identifier: MIT
/// @file
/// Shows any picture on any surface: one function that checks what it is given.
///
/// A job names a picture, a surface and where on it the picture goes. vsurf_show() does it in one pass over the pixels:
/// it takes the picture's chroma apart, adjusts brightness, contrast, saturation and hue, converts colours, blends
/// overlays and stores pixels. A job that cannot be done is refused before a byte is written, with a status that says
/// why.
///
///     vsurf_picture picture = {VSURF_NV12, width, height, {y, uv}, {y_pitch, uv_pitch}, VSURF_BT709, VSURF_LIMITED};
///     vsurf_surface surface = {VSURF_BGRX, width, height, {pixels}, {pitch}};
///     vsurf_job job = {&picture, &surface};
///     vsurf_status status = vsurf_show(&job);
///     if (status != VSURF_OK) puts(vsurf_status_text(status));
///
/// @par Records
/// All of them are plain C. Set them to zero and fill in what matters: zero is the usual value of every other member.
///
/// @par Sizes
/// Any width and height from 1 on, any address and any pitch. Nothing is padded: no byte outside the rectangle that the
/// picture covers on the surface is written, and no byte outside the planes' lines is read.
///
/// @par Chroma
/// With half the width it has (width + 1) / 2 columns, with half the height (height + 1) / 2 lines. Pixel (i, j) of the
/// rectangle has the chroma of column crop_x / 2 + i / 2 of the picture, and of line crop_y / 2 + j / 2, or of line
/// crop_y + j where every line has its own. On a surface with chroma, column k of the rectangle's chroma goes to column
/// x / 2 + k, line m to line y / 2 + m or, where every line has its own, y + m. All divisions round down: the rectangle
/// has a grid of its own, which begins with its first pixel. Two lines of chroma become one as their average, rounded
/// up.
///
/// @par Threads
/// Any thread may call, with any job. There is no state, and there are no locks; get_contrast_data() has no influence
/// and is not disturbed. A call allocates nothing and needs at most 40 KiB of its thread's stack.
///
/// @par Instruction sets
/// Chosen once, when the library is loaded, as vsurf.h says. The bytes are the same whichever it is.
#ifndef VSURF_SHOW_H
#define VSURF_SHOW_H
#include "vsurf.h"

#ifdef __cplusplus
extern "C" {
#endif

/// @defgroup show Showing pictures
/// @{

/// Formats of pictures and surfaces: bytes in memory order. Pictures have one of the first five, surfaces any.
///
/// The planar ones have one sample a byte; chroma has half the width and half the height.
typedef enum vsurf_format {
    VSURF_I420 = 1, ///< planes Y, U, V (YV12: the same, with the pointers to U and V in the right places)
    VSURF_NV12,     ///< planes Y and UV: U0 V0 U1 V1 ...
    VSURF_NV21,     ///< planes Y and VU: V0 U0 V1 U1 ...
    VSURF_YUY2,     ///< Y0 U Y1 V, two pixels; every line has its own chroma
    VSURF_UYVY,     ///< U Y0 V Y1
    VSURF_BGRX,     ///< B G R and a byte that is written as 0
    VSURF_RGBX,     ///< R G B and a byte that is written as 0
    VSURF_BGRA,     ///< B G R and a byte that is written as 255
    VSURF_RGBA,     ///< R G B and a byte that is written as 255
    VSURF_BGR24,    ///< B G R
    VSURF_RGB24,    ///< R G B
    VSURF_RGB565,   ///< a little-endian word: R G B with 5, 6 and 5 bits, R highest
    VSURF_RGB555X,  ///< R G B with 5 bits each, and bit 0 is 0
    VSURF_RGB664,   ///< R G B with 6, 6 and 4 bits
    VSURF_RGB655    ///< R G B with 6, 5 and 5 bits
} vsurf_format;

/// What R, G and B are to Y, U and V. BT.2020 is the one with non-constant luminance.
typedef enum vsurf_matrix {
    VSURF_BT601, ///< of standard definition
    VSURF_BT709, ///< of high definition
    VSURF_BT2020 ///< of ultra-high definition
} vsurf_matrix;

/// Which samples stand for black and white.
typedef enum vsurf_range {
    VSURF_LIMITED, ///< 16 and 235; chroma from 16 to 240
    VSURF_FULL     ///< 0 and 255; chroma from 0 to 255
} vsurf_range;

/// A picture that is read. 72 bytes where pointers have 64 bits, 44 where they have 32.
typedef struct vsurf_picture {
    vsurf_format format;     ///< one of the first five
    int width;               ///< pixels, from 1 on
    int height;              ///< lines, from 1 on
    const uint8_t* plane[3]; ///< first byte of the first line of each plane; those that the format has not may be null
    ptrdiff_t pitch[3];      ///< bytes from one line to the next, of each plane; negative: bottom-up
    vsurf_matrix matrix;     ///< how its colours are encoded
    vsurf_range range;       ///< likewise
} vsurf_picture;

/// A surface that is written. As large as a vsurf_picture.
typedef struct vsurf_surface {
    vsurf_format format; ///< any
    int width;           ///< pixels, from 1 on
    int height;          ///< lines, from 1 on
    uint8_t* plane[3];   ///< first byte of the first line of each plane; those that the format has not may be null
    ptrdiff_t pitch[3];  ///< bytes from one line to the next, of each plane; negative: bottom-up
    vsurf_matrix matrix; ///< formats with chroma: how colours are encoded on it; others: not looked at
    vsurf_range range;   ///< likewise
} vsurf_surface;

/// How the picture is adjusted. Each member is from -1 to 1, and 0 leaves the picture as it is.
///
/// Luma first: (Y - 128) * (1 + contrast) + 128 + 255 * brightness. Chroma is turned by half a turn times `hue`, and
/// its distance from 128 is scaled by 1 + saturation. (The gain of the functions in vsurf.h scales samples, not their
/// distance from 128.)
///
/// In whole numbers, where r(x) rounds to the nearest one, >> rounds down, and c(x) cuts to 0..255:
///
///     K = r(4096 * (1 + contrast)), A = r(4096 * (1 + saturation) * cos(pi * hue)), B the same with sin
///     Y' = c(((Y - 128) * 16 * K >> 16) + 128 + r(255 * brightness))
///     U' = c(128 + ((U - 128) * 16 * A >> 16) - ((V - 128) * 16 * B >> 16))
///     V' = c(128 + ((U - 128) * 16 * B >> 16) + ((V - 128) * 16 * A >> 16))
typedef struct vsurf_look {
    float brightness; ///< 1: by all of 255 levels
    float contrast;   ///< -1: all the same, 1: twice
    float saturation; ///< -1: grey, 1: twice
    float hue;        ///< in half turns, from U towards V
} vsurf_look;

/// Pixels of overlays. Those of four bytes have an alpha from 0 (nothing is seen of it) to 255 (nothing else is).
typedef enum vsurf_overlay_kind {
    VSURF_STRAIGHT_RGBA,      ///< R G B A, the colours as they are
    VSURF_STRAIGHT_BGRA,      ///< B G R A
    VSURF_PREMULTIPLIED_RGBA, ///< R G B A, the colours already multiplied by A / 255
    VSURF_PREMULTIPLIED_BGRA, ///< B G R A
    VSURF_COVERAGE            ///< one byte: how much of the pixel has the overlay's one colour
} vsurf_overlay_kind;

/// A bitmap that is blended onto the picture. 48 bytes where pointers have 64 bits, 32 where they have 32.
///
/// Where d(x) is x / 255, rounded: a straight pixel gives d(its colour * A + what is below * (255 - A)), a
/// premultiplied one min(255, its colour + d(what is below * (255 - A))), one of VSURF_COVERAGE the first of these with
/// the colour's A times the byte as A. Surfaces of R, G and B are blended in 8 bits before pixels of 16 bits are
/// packed. On surfaces with chroma the overlay's colours become Y, U and V; chroma is blended by the average of the
/// alphas of the two or four pixels that share it.
typedef struct vsurf_overlay {
    vsurf_overlay_kind kind; ///< what its pixels are
    int x;                   ///< its first column, on the surface; it may lie partly or wholly outside
    int y;                   ///< its first line
    int width;               ///< pixels; 0: nothing is drawn
    int height;              ///< lines; 0: nothing is drawn
    const uint8_t* pixels;   ///< first byte of the first line
    ptrdiff_t pitch;         ///< bytes from one line to the next; negative: bottom-up
    uint32_t colour;         ///< VSURF_COVERAGE: 0xAARRGGBB; others: not looked at
} vsurf_overlay;

/// What is to be shown where. 72 bytes where pointers have 64 bits, 56 where they have 32.
typedef struct vsurf_job {
    const vsurf_picture* picture;  ///< what is shown
    const vsurf_surface* surface;  ///< where it is shown
    int crop_x;                    ///< first column of the picture that is shown
    int crop_y;                    ///< first line that is shown
    int crop_width;                ///< columns that are shown; 0: up to the right edge
    int crop_height;               ///< lines that are shown; 0: up to the lower edge
    int x;                         ///< column of the surface where the first pixel goes; all of them must fit
    int y;                         ///< its line
    vsurf_look look;               ///< how the picture is adjusted
    const vsurf_overlay* overlays; ///< what is blended onto it, in this order; only where it covers the surface
    int overlay_count;             ///< how many there are; 0: `overlays` is not looked at
} vsurf_job;

/// Whether a job was done, or its first mistake. They are looked for in this order.
///
/// A line of a plane is as long as vsurf_pitch() with alignment 1 gives it.
typedef enum vsurf_status {
    VSURF_OK,                  ///< done
    VSURF_NO_JOB,              ///< the job is null
    VSURF_NO_PICTURE,          ///< the job's picture is null
    VSURF_NO_SURFACE,          ///< the job's surface is null
    VSURF_BAD_SOURCE_FORMAT,   ///< the picture's format is none of the first five
    VSURF_BAD_SURFACE_FORMAT,  ///< the surface's format is unknown
    VSURF_BAD_SOURCE_SIZE,     ///< the picture's width or height is below 1
    VSURF_BAD_SURFACE_SIZE,    ///< the surface's width or height is below 1
    VSURF_BAD_MATRIX,          ///< an unknown matrix, of the picture or of a surface with chroma
    VSURF_BAD_RANGE,           ///< an unknown range, of the picture or of a surface with chroma
    VSURF_NO_SOURCE_PLANE,     ///< a plane that the picture's format has is null
    VSURF_NO_SURFACE_PLANE,    ///< a plane that the surface's format has is null
    VSURF_SHORT_SOURCE_PITCH,  ///< a pitch is smaller than a line, or the plane larger than memory
    VSURF_SHORT_SURFACE_PITCH, ///< likewise, of the surface. Pitches of planes of one line are not looked at.
    VSURF_BAD_CROP,            ///< the crop is negative, empty or passes an edge of the picture
    VSURF_BAD_POSITION,        ///< what is shown does not fit on the surface there
    VSURF_BAD_LOOK,            ///< a member of the look is not a number from -1 to 1
    VSURF_BAD_OVERLAY_COUNT,   ///< the count is negative
    VSURF_NO_OVERLAYS,         ///< overlays are counted, yet the pointer to them is null
    VSURF_BAD_OVERLAY,         ///< an overlay's kind, size, pixels or pitch is unusable
    VSURF_OVERLAP,             ///< what is written would overlap what is read, or another plane that is written
    VSURF_BAD_BAND             ///< no band of that number
} vsurf_status;

/// Shows a picture.
/// @param[in] job what to show where; only read, and not kept
/// @return VSURF_OK, or the job's first mistake, with which nothing has been written
/// @par Reads and writes
/// The lines of the picture's planes and of overlays that are shown; all bytes of the rectangle on the surface, and no
/// others. A packed surface of YUY2 or UYVY whose last pixel has no partner keeps the luma byte of that partner.
/// @par Overlap
/// From the first to the last byte of what is written of a plane there must be no byte of what is read of a plane or
/// of an overlay, nor of what is written of another plane, and so on from the first to the last byte of what is read.
/// (The two chroma planes of a surface may lie side by side: with the same pitch and never the same columns.)
VSURF_API vsurf_status VSURF_CALL vsurf_show(const vsurf_job* job);

/// Shows one of several horizontal bands of a picture. All of them together give the bytes of vsurf_show(), in any
/// order, from any threads.
/// @param[in] job   what to show where; each call looks at all of it
/// @param     band  from 0 to bands - 1
/// @param     bands from 1 on; where there are more than pairs of lines, some bands are empty
/// @return as vsurf_show(), or VSURF_BAD_BAND
VSURF_API vsurf_status VSURF_CALL vsurf_show_band(const vsurf_job* job, int band, int bands);

/// A few words on a status.
/// @param status what vsurf_show() returned
/// @return constant text; "unknown status" for a value that is none
VSURF_API const char* VSURF_CALL vsurf_status_text(vsurf_status status);

/// A job's mistake in words, with the numbers: "surface.pitch[0] is 1000, a line of 333 BGRX pixels takes 1332 bytes".
/// For a good job it says what will be done.
/// @param[in]  job  as vsurf_show() takes it; may be null
/// @param[out] text takes as much of the text as fits, with a 0 at its end; may be null if `room` is 0
/// @param      room bytes at `text`
/// @return the length of the whole text without the 0
VSURF_API size_t VSURF_CALL vsurf_explain(const vsurf_job* job, char* text, size_t room);

/// Bytes of a line, rounded up to a multiple of an alignment.
/// @param format    of the picture or surface
/// @param plane     0, or 1 and 2 where the format has them
/// @param width     pixels of the picture or surface, from 1 on
/// @param alignment a power of two, from 1 on
/// @return 0 where an argument is unusable
VSURF_API size_t VSURF_CALL vsurf_pitch(vsurf_format format, int plane, int width, int alignment);

/// Bytes of all planes, one after the other, with the pitches that vsurf_pitch() gives.
/// @param format    of the picture or surface
/// @param width     pixels, from 1 on
/// @param height    lines, from 1 on
/// @param alignment of each pitch: a power of two, from 1 on
/// @return 0 where an argument is unusable or the sum is too large
VSURF_API size_t VSURF_CALL vsurf_bytes(vsurf_format format, int width, int height, int alignment);

/// The library's version.
/// @return VSURF_VERSION of the vsurf.h that it was built with: "0.2.0"
VSURF_API const char* VSURF_CALL vsurf_show_version(void);

/// The instruction set in use here.
/// @return "avx512", "avx2", "sse2", "neon" or "scalar"
VSURF_API const char* VSURF_CALL vsurf_show_isa(void);
/// @}

#ifdef __cplusplus
}
#endif

/// @cond
#if defined __cplusplus && __cplusplus >= 201103L
#define VSURF_SHOW_ASSERT static_assert
#elif !defined __cplusplus && defined __STDC_VERSION__ && __STDC_VERSION__ >= 201112L
#define VSURF_SHOW_ASSERT _Static_assert
#endif
#ifdef VSURF_SHOW_ASSERT
#define VSURF_SHOW_SIZE(type, size32, size64) \
    VSURF_SHOW_ASSERT(sizeof(type) == (sizeof(void*) == 8 ? (size64) : (size32)), "size of " #type)
VSURF_SHOW_SIZE(vsurf_format, 4, 4);
VSURF_SHOW_SIZE(vsurf_picture, 44, 72);
VSURF_SHOW_SIZE(vsurf_surface, 44, 72);
VSURF_SHOW_SIZE(vsurf_look, 16, 16);
VSURF_SHOW_SIZE(vsurf_overlay, 32, 48);
VSURF_SHOW_SIZE(vsurf_job, 56, 72);
#undef VSURF_SHOW_SIZE
#undef VSURF_SHOW_ASSERT
#endif
/// @endcond
#endif
