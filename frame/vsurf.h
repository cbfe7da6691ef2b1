// SPDX-License-Identifier: MIT
/// @file
/// vsurf: decoded video pictures onto display surfaces.
///
/// A video player calls one of these functions per picture. It reads a decoded picture (planar YV12 or packed YUY2),
/// makes one pass over the pixels and writes a display surface (RGB32, RGB24, RGB16, YUY2 or YV12); on the way it can
/// adjust brightness, contrast and saturation, enlarge the picture, halve its width or blend a subpicture onto it.
/// The output is defined to the byte. What follows holds for all of them.
///
/// @par Surfaces
/// A surface or plane is memory of the caller's: a pointer to the first byte of its first line, a width in pixels, a
/// height in lines and a pitch, the signed distance in bytes from one line to the next. A negative pitch walks upwards
/// (bottom-up surfaces) and works unless a function says otherwise. Neither pointers nor pitches need an alignment.
/// Source and destination must not overlap unless a function allows it. Nothing is kept after a call returns.
///
/// @par Formats
/// Bytes in memory order; docs/formats.md shows them bit by bit.
///
///     RGB32  B G R 0          one pixel; the fourth byte is written as 0
///     RGB24  B G R            one pixel
///     RGB16  one word         one pixel, little-endian, in one of four layouts chosen by `rgb16_layout`
///     YUY2   Y0 U Y1 V        two pixels
///     YV12   Y, V, U planes   U and V at half width and half height: sample k of chroma line j belongs to pixels 2k
///                             and 2k+1 of lines 2j and 2j+1; the chroma pitch is never passed, it is half the luma
///                             pitch
///     AYUY2  alpha, Y, U, V   the planes of a drawn subpicture: U and V at half width and full height, alpha 0..16
///
/// @par Block rule
/// A line is done in whole blocks of 16 pixels, a picture in whole passes of two lines, unless a function names other
/// steps. A counter starts at the width or height; after each block or pass its step is subtracted, and the next one
/// follows while there was no borrow and the result is not zero. So there is always at least one:
///
///     blocks = max(1, ceil(width / 16))        width 0 gives 1, 16 gives 1, 20 gives 2
///     passes = max(1, ceil(height / 2))        height 0 gives 1, 3 gives 2
///
/// The last block is read and written whole, beyond the width; an odd height reads and writes one line more. From one
/// pass to the next the pointers go by the stated width, although they stepped by whole blocks: with
///
///     r = 16 * blocks - width
///
/// every pass starts r pixels further to the right than the one before it: the picture drifts. Give widths that are
/// multiples of 16 and even heights, and pad planes and surfaces to them. Functions that do not drift say so. The
/// counters are unsigned: negative widths and heights are not usable where nothing else is said.
///
/// @par Byte ranges
/// "n bytes at p" are the addresses p to p + n - 1. Bytes that are not listed as written keep their value, and bytes
/// that are not listed as read need not be readable. Shifts are arithmetic (towards minus infinity) unless called
/// logical. B stands for the surface's bytes a pixel: 4, 3, 2 and 2 of RGB32, RGB24, RGB16 and YUY2.
///
/// @par Overlapping lines
/// Where a pitch is smaller than the bytes written on a line, lines overlap and the bytes stored last stay;
/// docs/contract.md and the two pages next to it give the order of stores. Where they give none, such a pitch is not
/// usable.
///
/// @par Errors
/// None is reported: no function returns a status, checks a pointer or validates a size. The few guards are stated
/// where they stand; each returns at once and writes nothing. An argument that is said to be ignored is never
/// dereferenced and may be null, and so may every pointer that a guarded return does not reach.
///
/// @par Threads
/// Any thread may call any function, and calls may run side by side on memory that does not overlap. There are no
/// locks. The only state that outlives a call is the picture adjustment, shared by the whole process and read once per
/// call (by the two YV12 enlargers once per plane) by each function whose name contains `_ajust` or `_adjust`, unless
/// it says otherwise. Do not let get_contrast_data() run during such a call, which may then work with some old and some
/// new values. A call allocates nothing and needs at most 40 KiB of its thread's stack. docs/threads.md says which
/// functions can share a picture among threads.
///
/// @par Instruction sets
/// The library chooses the best that it holds and the machine runs, once, when it is loaded: SSE2, AVX2 or AVX-512,
/// NEON, or plain C++. The bytes are the same whichever it is. The environment variable `VSURF_ISA` lowers the choice
/// to the one it names: `sse2`, `avx2`, `avx512`, `neon` or `scalar`. Names of others, and of what the machine does not
/// run, change nothing; with glibc, programs that run with more rights than their caller ignore it.
///
/// @par Names
/// They are kept letter for letter: `strech`, `ajust` and `Relace` are spelled so on purpose.
#ifndef VSURF_H
#define VSURF_H
#include <stddef.h>
#include <stdint.h>

/// @defgroup version Version
/// Of this header; the project's version is the same.
/// @{
#define VSURF_VERSION_MAJOR 0 ///< changes where callers have to change
#define VSURF_VERSION_MINOR 1 ///< changes where something is new
#define VSURF_VERSION_PATCH 0 ///< changes where something is mended
#define VSURF_VERSION "0.1.0" ///< all of it
/// @}

/// @defgroup linkage Linkage
/// Functions have C linkage; on Windows, C++ compilers whose names are decorated the platform's own way (they define
/// `_MSC_VER`) see C++ functions instead, and the DLL exports both names. Define `VSURF_STATIC` there to link the
/// static library.
/// @{
#if !defined _WIN32
#define VSURF_CALL ///< The calling convention: on Windows the one whose caller cleans the stack.
#else
#define VSURF_CALL __cdecl
#endif
#if defined VSURF_BUILDING && !defined _WIN32
#define VSURF_API __attribute__((visibility("default")))
#elif defined VSURF_BUILDING || defined VSURF_STATIC || !defined _WIN32
#define VSURF_API ///< Marks an export.
#else
#define VSURF_API __declspec(dllimport)
#endif
/// @}
/// @cond
#if defined __cplusplus && (!defined _MSC_VER || defined VSURF_STATIC)
#define VSURF_C_LINKAGE
extern "C" {
#endif
/// @endcond

/// @defgroup records Records
/// What callers fill in and pass by address.
/// @{

/// The caller's parameters, 48 bytes.
///
/// get_contrast_data() reads the first eight fields, of each only the low 16 bits; the pixel functions are handed the
/// same record for the fields that describe the destination and never take the adjustment from it.
typedef struct ajust_contrast_info {
    int32_t y_gain;          ///< luma gain in 1/64: 64 leaves a sample as it is
    int32_t uv_gain;         ///< chroma gain in 1/64. It scales the sample, not its distance from 128.
    int32_t y_offset_a;      ///< luma offset in sample units, summed with `y_offset_b` modulo 65536
    int32_t u_offset_a;      ///< U offset, summed with `u_offset_b` likewise
    int32_t v_offset_a;      ///< V offset, summed with `v_offset_b` likewise
    int32_t y_offset_b;      ///< second addend of the luma offset
    int32_t u_offset_b;      ///< second addend of the U offset
    int32_t v_offset_b;      ///< second addend of the V offset
    int32_t rgb16_layout;    ///< RGB16 writers: 0 R5G6B5, 1 R5G5B5 and a zero bit 0, 2 R6G6B4, 3 R6G5B5
    int32_t reserved;        ///< read by no function
    int32_t surface_height;  ///< loadimage_yv12_ajust(): lines of the whole destination surface
    int32_t lines_to_bottom; ///< loadimage_yv12_ajust(): surface lines from the destination pointer's down to the last
} ajust_contrast_info;

/// One subpicture job, 76 bytes where pointers have 32 bits, 128 where they have 64.
///
/// The caller fills the record before every call: many functions move its pointers and count its height down, so that
/// afterwards it no longer describes the region. It is read once, at the start of the call, and changed at its end; it
/// must not lie in any of the planes. Members that a function does not read may hold anything, null among it.
typedef struct MIX_INFO {
    int32_t picture_pitch;              ///< pp, of the picture's Y plane; its chroma has half
    int32_t subpicture_pitch;           ///< sp, of the subpicture's alpha and Y planes; its chroma has half
    int32_t surface_pitch;              ///< rp, of the surface (its Y plane for YV12, whose chroma has half)
    int32_t width;                      ///< w, of the region in pixels
    int32_t height;                     ///< h, of the region in lines
    unsigned char* picture_y;           ///< the decoded picture, planar YV12: its Y plane
    unsigned char* picture_v;           ///< its V plane
    unsigned char* picture_u;           ///< its U plane
    unsigned char* subpic_alpha;        ///< the subpicture's planes (AYUY2): alpha, 0..16
    unsigned char* subpic_y;            ///< its Y plane
    unsigned char* subpic_v;            ///< its V plane
    unsigned char* subpic_u;            ///< its U plane
    unsigned char* surface;             ///< what is drawn on, or the RGB drawing that a preparation reads
    unsigned char* surface_u;           ///< chroma planes of a YV12 surface: U
    unsigned char* surface_v;           ///< and V
    uint32_t color_key;                 ///< the transparent colour as the surface encodes it (RGB24: top byte 0)
    int32_t reserved1;                  ///< read by no function
    int32_t reserved2;                  ///< read by no function
    ajust_contrast_info* contrast_info; ///< 16-bit RGB functions read its rgb16_layout; ignored elsewhere
} MIX_INFO;

/// A frame for strech_opt_yuy2_ajust(). A caller's own, longer record may begin with these five fields.
typedef struct tagVideoFrame {
    int32_t field_mode;     ///< 1: the band is one field, every other line; anything else: the whole frame
    unsigned char* plane_y; ///< luma
    unsigned char* plane_u; ///< half width, half height, half the pitch
    unsigned char* plane_v; ///< as `plane_u`
    int32_t pitch;          ///< of the Y plane, and also the number of pixels converted per line
} tagVideoFrame;
/// @}

/// @cond
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
/// @endcond

/// @defgroup adjustment Picture adjustment
/// Brightness, contrast and saturation, for the whole process.
///
/// What "adjusted" means for a sample x with a gain and an offset (16-bit arithmetic):
///
///     clamp0..255(saturating_add(((x * gain) mod 65536) >> 6, offset))
///
/// Gains are in 1/64, offsets in sample units. A product beyond 16 bits wraps before the shift, and negative gains
/// count as the unsigned number that they wrap to. Luma takes luma_gain and luma_offset, U chroma_gain and u_offset, V
/// chroma_gain and v_offset, unless a function says otherwise. Until the first get_contrast_data() all five are zero,
/// and every adjusted sample is 0. docs/adjustment.md has curves and recipes.
/// @{

/// Sets the process's picture adjustment.
///
/// From the eight fields it takes, of each the low 16 bits and with sums modulo 65536, signed:
///
///     luma_gain   = y_gain                         chroma_gain = uv_gain
///     luma_offset = y_offset_a + y_offset_b        u_offset, v_offset likewise
///
/// Offsets of 30000 and 30000 make -5536, since the sum wraps. The values cannot be read back.
/// @param[in] info an ajust_contrast_info, not null
/// @par Reads and writes
/// The first 32 bytes of `info`, and no memory of the caller's.
VSURF_API void VSURF_CALL get_contrast_data(void* info);
/// @}

/// @defgroup padded_sizes Padded sizes
/// What to allocate so that the block rule holds: with these sizes nothing drifts, and nothing outside is touched by
/// functions that write as many pixels and lines as they read.
/// @{

/// A width in whole blocks, at least one: 333 gives 336. 0 where that is no `int`.
static inline int vsurf_padded_width(int width)
{
    return width > 0x7ffffff0 ? 0 : width <= 16 ? 16 : (width + 15) / 16 * 16;
}

/// A height in whole passes, at least one: 217 gives 218. 0 where that is no `int`.
static inline int vsurf_padded_height(int height)
{
    return height > 0x7ffffffe ? 0 : height <= 2 ? 2 : (height + 1) / 2 * 2;
}

/// Bytes of a padded surface with a pitch of a padded line, or of a plane of luma, whose pixels take one byte. 0 where
/// that is no `size_t`.
/// @param width           pixels
/// @param height          lines
/// @param bytes_per_pixel 4, 3, 2 and 2 of RGB32, RGB24, RGB16 and YUY2
static inline size_t vsurf_padded_surface_bytes(int width, int height, int bytes_per_pixel)
{
    const size_t line = (size_t)vsurf_padded_width(width) * (size_t)(bytes_per_pixel < 1 ? 0 : bytes_per_pixel);
    const size_t lines = (size_t)vsurf_padded_height(height);
    return lines != 0 && line > (size_t)-1 / lines ? 0 : line * lines;
}

/// Bytes of a padded plane of luma, or of one of chroma: half as wide and half as high. 0 where that is no `size_t`.
/// @param width  pixels of the picture
/// @param height lines of the picture
/// @param chroma not 0 for a plane of chroma
static inline size_t vsurf_padded_plane_bytes(int width, int height, int chroma)
{
    const size_t luma = vsurf_padded_surface_bytes(width, height, 1);
    return chroma ? luma / 4 : luma;
}
/// @}

/// @defgroup planar_loaders Planar loaders
/// A YV12 picture onto a surface of the same size.
///
/// @anchor pass_in_pairs
/// @par The pass in pairs of lines
/// Most work by it. For the block rule's blocks, passes and r, and each pass j from 0, they read and write
///
///     y    16 * blocks bytes at y + j * (2 * y_pitch + r), and the same y_pitch further
///     u    8 * blocks bytes at u + j * ((y_pitch + r) >> 1), which serve both lines of the pass; v alike
///     dst  16 * blocks * B bytes at dst + j * (2 * dst_pitch + r * B), and the same dst_pitch further
///
/// @anchor conversion
/// @par Conversion to RGB
/// BT.601 studio range: Y from 16 to 235, U and V from 16 to 240 about 128. The factors 1.164, 1.596, 0.391, 0.813 and
/// 2.018 are held in 16-bit fixed point, each term rounded down by itself, the results clamped to 0..255:
///
///     L = ((Y-16) * 4 * 19071) >> 16              R = L + (((V-128) * 4 * 26149) >> 16)
///     B = L + (((U-128) * 8 * 16532) >> 16)       G = L - (((U-128) * 25625) >> 16) - (((V-128) * 2 * 26641) >> 16)
///
/// White (235, 128, 128) gives 254, not 255. Chroma is not interpolated. docs/formats.md has the rest.
///
/// @anchor layout_guard
/// @par Layouts of RGB16
/// `info->rgb16_layout` chooses among R5G6B5 (0), R5G5B5 above a zero bit (1), R6G6B4 (2) and R6G5B5 (3), red on top;
/// components are cut to their top bits. Any other value returns at once, and all other pointers may then be null.
/// `info` must be valid; nothing else of it is read.
/// @{

/// @defgroup planar_arguments Arguments of the planar loaders
/// The same for all of them.
/// @param[in]  y         Y plane, one byte a pixel
/// @param[in]  u         U plane, one byte for 2 by 2 pixels, at half of y_pitch
/// @param[in]  v         V plane, as U
/// @param[out] dst       first line of the surface
/// @param[in]  width     of the picture in pixels, a multiple of 16
/// @param[in]  height    of the picture in lines, even
/// @param[in]  y_pitch   bytes from one line of the Y plane to the next
/// @param[in]  dst_pitch bytes from one line of the surface to the next
/// @param[in]  info      ignored, unless the function says otherwise

/// YV12 to YUY2.
/// @copydetails planar_arguments
/// @par Reads and writes
/// @ref pass_in_pairs "The pass in pairs of lines" with B = 2, of whose lower line it writes in each block only the 24
/// bytes from byte 8 on.
/// @par Irregular
/// Pixels 0 to 3 of every 16 keep on the second line of each pass what the surface held.
VSURF_API void VSURF_CALL loadimage_yuy2(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                         int dst_pitch, ajust_contrast_info* info);

/// YV12 to YV12, with pointers of its own.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Luma pass j copies 16 * blocks bytes from y + j * (2 * y_pitch + 2 * dst_pitch - width + r) to dst + j * 16 *
/// blocks, and from `width` bytes further in the source to `dst_pitch` further in the destination. The V plane then
/// goes to Vd = dst + height * dst_pitch - 1, one byte early, and U to Ud = Vd + ((height * dst_pitch) >> 2). With c =
/// max(1, ceil((width >> 1) / 8)) each chroma pass j copies 8 * c bytes from u + j * sc to Ud + j * dc, and from
/// y_pitch >> 1 further to dst_pitch >> 1 further; v likewise. Steps and halves are shifted as unsigned numbers:
///
///     sc = 8 * c + ((2 * y_pitch - width) >> 1)        dc = 8 * c + ((2 * dst_pitch - width) >> 1)
///
/// Both pitches must be at least half the width and not negative.
/// @par Irregular
/// `height` chroma lines of each plane are read and written, twice what it holds, and the second half of V lands on the
/// place of U and stays there. A plain copy of the picture it is not, and is not meant to be.
VSURF_API void VSURF_CALL loadimage_yv12(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                         int dst_pitch, ajust_contrast_info* info);

/// YV12 to RGB32.
/// @copydetails planar_arguments
/// @par Reads and writes
/// @ref pass_in_pairs "The pass in pairs of lines" with B = 4. The fourth byte of every pixel is written as 0.
VSURF_API void VSURF_CALL loadimage_rgb32(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                          int dst_pitch, ajust_contrast_info* info);

/// YV12 to RGB24.
/// @copydetails planar_arguments
/// @par Reads and writes
/// @ref pass_in_pairs "The pass in pairs of lines" with B = 3.
VSURF_API void VSURF_CALL loadimage_rgb24(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                          int dst_pitch, ajust_contrast_info* info);

/// YV12 to RGB16, in the layout `info->rgb16_layout`.
/// @copydetails planar_arguments
/// @par Reads and writes
/// @ref pass_in_pairs "The pass in pairs of lines" with B = 2, and bytes 32 to 35 of `info`.
/// @par Returns at once
/// for a @ref layout_guard "layout" other than 0..3.
VSURF_API void VSURF_CALL loadimage_rgb16(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                          int dst_pitch, ajust_contrast_info* info);

/// loadimage_rgb32() of adjusted samples: every byte is adjusted before the conversion.
/// @copydetails loadimage_rgb32
VSURF_API void VSURF_CALL loadimage_rgb32_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// loadimage_rgb24() of adjusted samples.
/// @copydetails loadimage_rgb24
VSURF_API void VSURF_CALL loadimage_rgb24_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// loadimage_rgb16() of adjusted samples, with its layouts and guard.
/// @copydetails loadimage_rgb16
VSURF_API void VSURF_CALL loadimage_rgb16_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to YUY2, adjusted.
///
/// Unlike loadimage_yuy2() it writes both lines whole.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Lines are done one at a time, l = 0 .. 2 * passes - 1, chroma of pass j = l / 2 twice:
///
///     y    16 * blocks bytes at y + l * (y_pitch + r)
///     u    8 * blocks bytes at u + j * A, and 8 * blocks - (width >> 1) further where l is odd; v alike
///          A = 16 * blocks - (width >> 1) + ((y_pitch - width) >> 1): y_pitch >> 1 where r is 0
///     dst  32 * blocks bytes at dst + l * (dst_pitch + 2 * r)
///
/// so that the drift is r pixels a line here, and chroma drifts along.
/// @par Returns at once
/// for a height of 8 or less (signed), or odd.
/// @par Irregular
/// The guard: every other planar loader shows such pictures.
VSURF_API void VSURF_CALL loadimage_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                               int dst_pitch, ajust_contrast_info* info);

/// YV12 to a grey YUY2 picture: adjusted luma, every chroma byte 128.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Luma and surface as loadimage_yuy2_ajust(), without its guard. `u` and `v` are ignored.
VSURF_API void VSURF_CALL loadimage_yuy2_mono_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                    int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to a part of a YV12 surface, adjusted.
///
/// With H = `info->surface_height` and T = `info->lines_to_bottom`, luma goes to `dst`, then V to
/// Vd = dst + T * dst_pitch + (((H - T) * dst_pitch) >> 2), then U to Ud = Vd + ((H * dst_pitch) >> 2), chroma at half
/// width, height and destination pitch. `info` must be valid.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Bytes 40 to 47 of `info`. Each plane goes in blocks of 8 bytes, b = max(1, ceil(w / 8)) of them for its width w, and
/// line by line, at least one; for its destination pitch p line l is
///
///     source       8 * b bytes at l * 8 * b: packed rows
///     destination  8 * b bytes at l * (p + 8 * b - w)
/// @par Irregular
/// `y_pitch` is ignored, and the source is read without gaps. The V plane is adjusted with u_offset, the U plane with
/// v_offset. Odd heights are not rounded up.
VSURF_API void VSURF_CALL loadimage_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                               int dst_pitch, ajust_contrast_info* info);

/// YV12 to YUY2 at half width, every line kept, adjusted.
///
/// Neighbouring samples are averaged, (a + b + 1) >> 1, then adjusted: 8 output pixels (16 bytes) a block.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Reads as loadimage_yuy2_ajust(), without its guard; writes 16 * blocks bytes at dst + l * (dst_pitch + r).
VSURF_API void VSURF_CALL loadimage_half_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                    int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to YV12 at half width, every line kept, adjusted.
///
/// The odd-numbered samples are kept (1, 3, 5, ...), the others dropped. Luma goes to `dst`, then V to
/// Vd = dst + height * dst_pitch, then U to Vd + (dst_pitch >> 1) * (height >> 1), each with its own offset.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Luma, line by line, at least one: 16 * blocks bytes at y + l * (y_pitch + r) become 8 * blocks bytes at
/// dst + l * (dst_pitch + 8 * blocks - (width >> 1)). Chroma, max(1, height >> 1) lines of w = width >> 1 bytes: with
/// m = max(1, w / 16), t = w mod 16 and e = 16 for a width below 32, else 0, line l is
///
///     source       16 * m bytes at l * ((y_pitch >> 1) + e); where t is not 0, 16 more from byte 16 * m - 16 + t on
///     destination  8 * m bytes at l * ((dst_pitch >> 1) + e / 2); then 8 more from byte 8 * m - 8 + (t >> 1) on
/// @par Irregular
/// The closing block of a chroma line ends at the line's end. A width below 32 does a whole block and the closing one
/// beyond the chroma line, and drifts.
VSURF_API void VSURF_CALL loadimage_half_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                    int y_pitch, int dst_pitch, ajust_contrast_info* info);
/// @}

/// @defgroup packed_loaders Packed loaders
/// A YUY2 picture onto a surface of the same size.
///
/// The chroma of a pass's upper line serves both lines; the lower line's is read but drops out.
/// @ref conversion "Conversion" and @ref layout_guard "layouts" are the planar loaders'.
///
/// @anchor packed_pass
/// @par Reads and writes
/// With n pixels a line, 16 * blocks (YUY2: 8 * max(1, ceil(width / 8))), and each pass j from 0:
///
///     src  2 * n bytes at src + j * 4 * src_pitch, and the same 2 * src_pitch further
///     dst  B * n bytes at dst + j * 2 * dst_pitch, and the same dst_pitch further
///
/// There is no drift: passes follow the true pitch whatever the width, and negative sizes work like 0.
/// @{

/// @defgroup packed_arguments Arguments of the packed loaders
/// The same for all of them.
/// @param[in]  src       first line of the picture
/// @param[in]  unused_u  ignored
/// @param[in]  unused_v  ignored
/// @param[out] dst       first line of the surface
/// @param[in]  width     of the picture in pixels, a multiple of 16 (YUY2: of 8)
/// @param[in]  height    of the picture in lines, even
/// @param[in]  src_pitch **pixels** from one line of the picture to the next: lines lie 2 * src_pitch bytes apart
/// @param[in]  dst_pitch bytes from one line of the surface to the next
/// @param[in]  info      ignored, unless the function says otherwise

/// YUY2 to YUY2: a copy, but for the chroma of every second line, which becomes the upper line's.
/// @copydetails packed_arguments
/// @par Reads and writes
/// @ref packed_pass "As the family", in blocks of 8 pixels, with B = 2.
/// @par Irregular
/// No plain copy: every second line loses its chroma.
VSURF_API void VSURF_CALL LoadYUY2_YUY2(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// LoadYUY2_YUY2() of adjusted samples.
/// @copydetails LoadYUY2_YUY2
VSURF_API void VSURF_CALL LoadYUY2_YUY2_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                               int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YUY2 to RGB32.
/// @copydetails packed_arguments
/// @par Reads and writes
/// @ref packed_pass "As the family" with B = 4. The fourth byte of every pixel is written as 0.
VSURF_API void VSURF_CALL LoadYUY2_RGB32(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YUY2 to RGB24.
/// @copydetails packed_arguments
/// @par Reads and writes
/// @ref packed_pass "As the family" with B = 3.
VSURF_API void VSURF_CALL LoadYUY2_RGB24(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YUY2 to RGB16, in the layout `info->rgb16_layout`.
/// @copydetails packed_arguments
/// @par Reads and writes
/// @ref packed_pass "As the family" with B = 2, and bytes 32 to 35 of `info`.
/// @par Returns at once
/// for a @ref layout_guard "layout" other than 0..3.
VSURF_API void VSURF_CALL LoadYUY2_RGB16(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// LoadYUY2_RGB32() of adjusted samples: every byte is adjusted before the conversion.
/// @copydetails LoadYUY2_RGB32
VSURF_API void VSURF_CALL LoadYUY2_RGB32_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// LoadYUY2_RGB24() of adjusted samples.
/// @copydetails LoadYUY2_RGB24
VSURF_API void VSURF_CALL LoadYUY2_RGB24_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// LoadYUY2_RGB16() of adjusted samples, with its layouts and guard.
/// @copydetails LoadYUY2_RGB16
VSURF_API void VSURF_CALL LoadYUY2_RGB16_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);
/// @}

/// @defgroup plane_enlargers Plane enlargers
/// Single planes, whole YV12 pictures and bands of a frame, at twice their size.
///
/// @anchor enlarging_terms
/// 2X2 doubles width and height, 1X2 only the height. Notation here and in the next family:
///
///     avg(a, b) = (a + b + 1) >> 1        S(j) source line j        D(m) destination line m, dst + m * dst_pitch
///     H(line): sample i gives out[2i] = s[i], out[2i+1] = avg(s[i], s[i+1])
///
/// Lines are averaged sample by sample; w, h, sp and dp are width, height, source and destination pitch.
/// @{

/// @defgroup plane_arguments Arguments of the plane enlargers
/// Of those that take a single plane.
/// @param[in]  src       first line of the plane, one byte a sample
/// @param[out] dst       first line of the enlarged plane
/// @param[in]  width     of the source plane in samples
/// @param[in]  height    of the source plane in lines, at least 2
/// @param[in]  src_pitch bytes from one line of the source to the next
/// @param[in]  dst_pitch bytes from one line of the destination to the next

/// Doubles a plane both ways: D(2j) = H(S(j)), D(2j+1) = avg(H(S(j)), H(S(j+1))).
///
/// `dst` needs room for 2h + 1 lines.
/// @copydetails plane_arguments
/// @par Reads and writes
/// The line is cut into strips of 8 source samples, max(2, ceil(w / 8)) of them; the last sample of the last strip has
/// itself as right neighbour. Reads 8 * strips bytes of each source line, writes 16 * strips of each line down to
/// D(2h-2). At the bottom the last strip writes H(S(h-1)) to D(2h-2) and D(2h-1); every other strip writes it to
/// D(2h-2) and to D(2h).
/// @par Irregular
/// All strips but the last write one line below the enlarged plane, and leave their part of D(2h-1) unwritten. A height
/// less than 2 works as 2, but shifts every strip after the first down by 2 - h source lines and twice as many output
/// lines.
VSURF_API void VSURF_CALL strech_pic_2X2(unsigned char* src, unsigned char* dst, int width, int height, int src_pitch,
                                         int dst_pitch);

/// Doubles a plane both ways and adjusts every output byte after the averages.
///
/// With luma_gain for every plane, and with luma_offset, u_offset or v_offset as `plane` is 1, 2 or 3. Made for packed
/// planes (sp = w, dp = 2w) whose width is a multiple of 16; it should be a multiple of 8 at least. It writes, all
/// adjusted:
///
///     D(0) = H(S(0)); for k = 0 .. h-2: D(2k+1) = H(S(k)), D(2k+2) = avg(H(S(k)), H(S(k+1)));
///     then D(2h-2) = D(2h-1) = H(S(h-2)), over what was there.
/// @copydetails plane_arguments
/// @param[in]  info      ignored
/// @param[in]  plane     which offset: 1 luma_offset, 2 u_offset, 3 v_offset, any other as 1
/// @par Reads and writes
/// D(0) takes ceil(w / 8) blocks of 8 samples. Round k reads at src + k * w, not k * sp, with the line below it sp
/// further, in blocks over w rounded down to 16, at least 16 samples. With r = w mod 16 not 0 one more block follows,
/// back by 16 and on by r from where the source pointer stands: its 16 samples, and their averages with the line below,
/// are not doubled and go to byte 2 * (w - r) - 16 + r of the round's two lines; every round then starts r bytes
/// further to the left in the destination. (Widths below 16: to byte 16 + r, every round starting 32 - w bytes further
/// to the right.) The end steps back by sp in the source, writes a line of ceil(w / 8) blocks and, right after its
/// bytes, which is D(2h-1) only where dp = 2w, such a line once more, from sp before where the source then stands: the
/// same line only where sp = 8 * ceil(w / 8). Height 1 runs one round.
/// @par Irregular
/// The picture lies one line lower than with strech_pic_2X2(), and S(h-1) only enters averages that are overwritten.
/// The right neighbour of a line's last sample is the byte after it, also beyond the plane. Planes with gaps come out
/// sheared.
VSURF_API void VSURF_CALL strech_pic_2X2_adjust(unsigned char* src, unsigned char* dst, int width, int height,
                                                int src_pitch, int dst_pitch, ajust_contrast_info* info, int plane);

/// Doubles the lines of a plane and adjusts every output byte.
///
/// Gains and offsets are those of strech_pic_2X2_adjust(). The width should be a multiple of 8. It writes, all
/// adjusted:
///
///     D(0) = S(0); for k = 0 .. h-2: D(2k+1) = S(k), D(2k+2) = avg(S(k), S(k+1)); then D(2h-2) = S(h-2), over what was
///     there, and the same line once more right after it, at D(2h-2) + 8 * ceil(w / 8)
/// @copydetails plane_arguments
/// @param[in]  info      ignored
/// @param[in]  plane     which offset: 1 luma_offset, 2 u_offset, 3 v_offset, any other as 1
/// @par Reads and writes
/// Rounds work on blocks of 16 bytes over w rounded down to 16, at least one block, and with r = w mod 16 not 0 on one
/// more, back by 16 and on by r; both pitches are followed. First and last lines are done in blocks of 8. Height 1 runs
/// one round.
/// @par Irregular
/// The last copy is D(2h-1) only in a packed plane; otherwise D(2h-1) stays unwritten and the copy lies in the
/// padding. The picture lies one line lower than its source, whose last line only enters averages that are overwritten.
VSURF_API void VSURF_CALL strech_pic_1X2_adjust(unsigned char* src, unsigned char* dst, int width, int height,
                                                int src_pitch, int dst_pitch, ajust_contrast_info* info, int plane);

/// @defgroup picture_arguments Arguments of the YV12 enlargers
/// The same for both.
/// @param[in]  y         Y plane of the source
/// @param[in]  u         U plane, at half width, height and pitch
/// @param[in]  v         V plane, as U
/// @param[out] dst       first line of the YV12 surface, which has 2h lines
/// @param[in]  width     of the source in pixels, a multiple of 32
/// @param[in]  height    of the source in lines, even
/// @param[in]  src_pitch bytes from one line of the Y plane to the next
/// @param[in]  dst_pitch bytes from one luma line of the surface to the next
/// @param[in]  info      ignored

/// Enlarges a YV12 picture both ways onto a YV12 surface of 2h lines.
/// @copydetails picture_arguments
/// @par Reads and writes
/// Three calls of strech_pic_2X2_adjust(): y to dst with plane 1; v to Vd = dst + 2h * dp with plane 2; u to
/// Vd + ((2h * dp) >> 2) with plane 3, the chroma calls with width, height and both pitches halved (arithmetically).
/// @par Irregular
/// Through the plane numbers V takes u_offset and U takes v_offset, both with luma_gain. What the plane enlarger makes
/// of padding and of widths that are not whole blocks shows in each plane.
VSURF_API void VSURF_CALL strech_picture_2X2_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// Doubles the lines of a YV12 picture.
/// @copydetails picture_arguments
/// @par Reads and writes
/// The calls of strech_picture_2X2_yv12_ajust(), same arguments and places, of strech_pic_1X2_adjust().
/// @par Irregular
/// Offsets and gain as there.
VSURF_API void VSURF_CALL strech_picture_1X2_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// Doubles the height of a band of a planar 4:2:0 frame along its edges and writes YUY2, adjusted after interpolation.
///
/// With P = `frame->pitch`, the band starts O bytes into the Y plane and O >> 2 into U and V, its luma lines S and its
/// chroma lines S >> 1 apart:
///
///     field mode    O = P * start, S = 2 * P            else    O = (P * start) >> 1, S = P
///
/// Y(i) and C(i) being the band's lines, in groups g:
///
///     D(4g) = Y(2g), C(g)                               D(4g+2) = Y(2g+1), C(g) with C(g+1)
///     D(4g+1) = Y(2g) with Y(2g+1), C(g)                D(4g+3) = Y(2g+1) with Y(2g+2), C(g) with C(g+1)
///
/// and in the last group D(4g+2) = D(4g+3) = Y(2g+1), C(g). "A with B" is avg(A, B) in a line's first and last 16
/// pixels (8 chroma samples). Between them it goes by groups of 4 samples of a plane: avg where the sum of their 4
/// absolute differences is at most 32, else avg(A[p+k], B[p-k]) for each sample p, along the k of -2..2 with the least
///
///     |A[p+k] - B[p-k]| + |A[p+1+k] - B[p+1-k]| + |A[p+2+k] - B[p+2-k]| + |A[p+3+k] - B[p+3-k]|
///
/// (a window that starts at p; among equals the smallest k).
/// @param[in]  frame     its planes, pitch and mode
/// @param[in]  start     where the band begins, in lines of the enlarged picture where the whole frame is meant
/// @param[in]  lines     Y lines of the band (of the field in field mode); of an odd number the last drops out
/// @param[out] dst       first line of the surface
/// @param[in]  dst_pitch bytes from one line of the surface to the next, at least 2 * P either way
/// @param[in]  info      ignored
/// @par Reads and writes
/// With G = lines >> 1, P bytes of each of 2 * G luma lines and P / 2 of each of G chroma lines of both planes; writes
/// 4 * G lines of 2 * P bytes. P must be a multiple of 16 and at least 48: below, interpolated lines still have 48
/// pixels.
/// @par Returns at once
/// for `lines` below 8.
/// @par Irregular
/// A `start` that is no multiple of 4 takes chroma from within a line or, in field mode, lines of the other field.
VSURF_API void VSURF_CALL strech_opt_yuy2_ajust(tagVideoFrame* frame, int start, int lines, unsigned char* dst,
                                                int dst_pitch, ajust_contrast_info* info);
/// @}

/// @defgroup enlarged_loaders Enlarged loaders
/// A picture onto a YUY2 or RGB surface while it is enlarged. @ref enlarging_terms "Notation" is the plane enlargers'.
///
/// @anchor basic_pattern
/// @par The basic pattern
/// Y[s] and C[c] being luma and chroma lines (C both planes), for each pair r = 0, 2, .. h-2, c = r/2:
///
///     D(2r) = Y[r], C[c]                                D(2r+2) = Y[r+1], avg(C[c], C[c+1])
///     D(2r+1) = avg(Y[r], Y[r+1]), C[c]                 D(2r+3) = avg(Y[r+1], Y[r+2]), avg(C[c], C[c+1])
///
/// but at the bottom, r = h-2, D(2r+2) = D(2r+3) = Y[h-1], C[c].
///
/// @anchor enlarged_lines
/// @par Reads and writes
/// Those of YV12 pictures read W bytes of each of h luma lines and W / 2 of each of h / 2 lines of U and V, and write
/// 2 * h lines, D(0) to D(2h-1), of as many bytes for each of the W pixels as each function says. W is the width
/// rounded up to 16, on every line, without drift (2X2: at least 32); a negative width counts as 0. An odd height
/// leaves its last line out, though the guards take it as given.
/// @{

/// @defgroup enlarged_arguments Arguments of the enlarged loaders
/// Of those that take a YV12 picture.
/// @param[in]  y         Y plane of the source
/// @param[in]  u         U plane, at half width, height and pitch
/// @param[in]  v         V plane, as U
/// @param[out] dst       first line of the surface
/// @param[in]  width     of the source in pixels, a multiple of 16 (2X2: at least 32)
/// @param[in]  height    of the source in lines, even
/// @param[in]  src_pitch bytes from one line of the Y plane to the next, even; may be negative
/// @param[in]  dst_pitch bytes from one line of the surface to the next, at least a line in either direction
/// @param[in]  info      ignored, unless the function says otherwise

/// YV12 to YUY2 of twice the height: the basic pattern.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "As the family", 2 bytes a pixel of the source.
/// @par Returns at once
/// for a height below 8.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2(void* y, void* u, void* v, void* dst, int width, int height,
                                                  int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// strech_picture_1X2_yuy2(), adjusted after interpolation, and with a four-tap filter in place of most averages.
///
///     F(a, b, c, d) = clamp0..255((5 * b + 5 * c - (a + d)) >> 3) of four lines in order
///
/// for luma between Y[s] and Y[s+1] with 2 <= s <= h-3, and for chroma between C[c] and C[c+1] with 1 <= c <= h/2 - 3;
/// elsewhere averages.
/// @copydetails strech_picture_1X2_yuy2
/// @par Irregular
/// The one enlarged loader that adjusts last. Luma between lines 1 and 2 is averaged, though four lines are there.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to YUY2 of twice the width and height.
///
/// Every line of each plane is doubled by H first (the last sample is its own right neighbour), then the basic pattern
/// applies to the doubled lines.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "As the family", 4 bytes a pixel of the source.
/// @par Returns at once
/// for a height below 8.
/// @par Irregular
/// A width of 16 or less reads and writes a block beyond the line.
VSURF_API void VSURF_CALL strech_picture_2X2_yuy2(void* y, void* u, void* v, void* dst, int width, int height,
                                                  int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// strech_picture_2X2_yuy2() of adjusted samples: adjusted as they are loaded, before any average.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "As the family", 4 bytes a pixel of the source.
/// @par Returns at once
/// for a height below 16, twice the bound of the plain form.
/// @par Irregular
/// The U sample that looks ahead into the next 8 (it only enters the last doubled U of each 8) is adjusted with
/// v_offset. A width of 16 or less reads and writes a block beyond the line.
VSURF_API void VSURF_CALL strech_picture_2X2_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to RGB32 of twice the height, the "yuy2" in the name notwithstanding.
///
/// Samples are adjusted, then the basic pattern is formed (by averages, not four taps), then every line
/// @ref conversion "converted".
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "As the family", 4 bytes a pixel of the source.
/// @par Returns at once
/// for a height below 12.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb32(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

/// strech_picture_1X2_yuy2_ajust_rgb32() to RGB24.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "As the family", 3 bytes a pixel of the source.
/// @par Returns at once
/// for a height below 12.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb24(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

/// strech_picture_1X2_yuy2_ajust_rgb32() to RGB16, in the layout `info->rgb16_layout`.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "As the family", 2 bytes a pixel of the source, and bytes 32 to 35 of `info`.
/// @par Returns at once
/// for a height below 12, when `info` may be null; then for a @ref layout_guard "layout" other than 0..3.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb16(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

/// @defgroup packed_enlarger_arguments Arguments of the packed enlargers
/// Of the two that take a packed picture.
/// @param[in]  src        the picture, its lines following each other without gaps
/// @param[in]  unused_u   ignored
/// @param[in]  unused_v   ignored
/// @param[out] dst        first line of the surface
/// @param[in]  line_bytes bytes of a source line, 2 * width: a multiple of 32, at least 64
/// @param[in]  height     of the source in lines, even
/// @param[in]  dst_pitch  bytes from one line of the surface to the next, at least a line in either direction

/// A packed YUY2 picture to YUY2 of twice the width and height.
///
/// Luma, U and V of every line are doubled by H (the last sample is its own right neighbour), giving L[s];
/// D(2s) = L[s], D(2s+1) = avg(L[s], L[s+1]), D(2h-1) = L[h-1].
/// @copydetails packed_enlarger_arguments
/// @par Reads and writes
/// With X = `line_bytes` rounded up to a multiple of 32, at least 64, X bytes at src + s * line_bytes of each source
/// line s, and 2 * X bytes of each of 2 * h lines; an odd height leaves its last line out.
/// @par Returns at once
/// for a height below 16.
VSURF_API void VSURF_CALL yuy2_strech_picture_2X2_yuy2(void* src, void* unused_u, void* unused_v, void* dst,
                                                       int line_bytes, int height, int dst_pitch);

/// yuy2_strech_picture_2X2_yuy2() of adjusted samples: adjusted before any average.
/// @copydetails packed_enlarger_arguments
/// @param[in]  info       ignored
/// @par Reads and writes
/// As the plain form.
/// @par Returns at once
/// for a height below 8, half the bound of the plain form.
/// @par Irregular
/// The U and V samples that look ahead into the next 16 pixels have their offsets exchanged; they only enter the last
/// doubled pair of each 16 source pixels but a line's last.
VSURF_API void VSURF_CALL yuy2_strech_picture_2X2_yuy2_ajust(void* src, void* unused_u, void* unused_v, void* dst,
                                                             int line_bytes, int height, int dst_pitch,
                                                             ajust_contrast_info* info);
/// @}

/// @defgroup preparation Subpicture preparation
/// From an RGB drawing to AYUY2 planes.
///
/// The caller draws colours on a surface filled with `color_key` and converts it, then draws the alpha values, 0..16,
/// into the blue component of a surface and restores them.
///
/// @anchor job_terms
/// w, h, pp, sp and rp are the record's `width`, `height`, `picture_pitch`, `subpicture_pitch` and `surface_pitch`.
/// Each function names the members of the record that it reads and moves; the others stay as they are. Byte ranges are
/// given for widths in whole blocks; what others do is in docs/contract-subpictures.md.
///
/// @anchor conversion_to_yuv
/// @par Conversion to AYUY2
/// BT.601 studio range in 1/1024, X being the fourth byte of a pixel, in blocks of 8 pixels, w >> 3 a line:
///
///     Y = (100 * B + 516 * G + 263 * R + 1024 * (X | 16)) >> 10             keep X 0
///     U = (449 * B - 297 * G - 151 * R + 1024 * (X | 128)) >> 10
///     V = (-72 * B - 376 * G + 449 * R + 1024 * (X | 128)) >> 10            each clamped to 0..255
///
/// chroma from the first pixel of each pair. A block whose 8 pixels all equal `color_key` leaves the planes as they
/// are. w must be a multiple of 8 and not 0 (the rest of a line is not converted, and lines then drift to the left), h
/// at least 1, sp at least w. For each line i from 0:
///
///     surface             B * w bytes at i * rp
///     subpic_y            up to w bytes at i * sp
///     subpic_u, subpic_v  up to w / 2 bytes at i * (w / 2 + ((sp - w) >> 1))
///
/// A conversion moves `subpic_y`, `subpic_u` and `subpic_v` to the region's end, h lines further, and `subpic_alpha`,
/// although it never touches the alpha plane, by (sp - w) * h.
///
/// @anchor alpha_lines
/// @par Lines of alpha
/// For each of max(1, h) lines i from 0:
///
///     subpic_alpha        w bytes at i * (w + ((pp - w) >> 1)): halfway between the width and the picture's pitch
///     surface             B * w bytes at i * rp
///
/// Mixers go by sp: give the record pp = sp = w while preparing.
/// @{

/// RGB32 to the subpicture's Y, U and V planes.
/// @param[in,out] job the record; reads `subpicture_pitch`, `surface_pitch`, `width`, `height`, the four subpicture
///                    pointers, `surface` and `color_key`
/// @par Reads and writes
/// As in @ref conversion_to_yuv "Conversion to AYUY2", B = 4. A pixel is transparent if all its 32 bits are the
/// key's.
/// @par Irregular
/// `subpic_alpha` moves though nothing is written there.
VSURF_API void VSURF_CALL Convert_RGB32_To_AYUY2(MIX_INFO* job);

/// RGB24 to the subpicture's Y, U and V planes, X = 0.
///
/// The key is compared with 24 bits, so its top byte must be 0, or nothing is transparent.
/// @param[in,out] job the record, as Convert_RGB32_To_AYUY2()
/// @par Reads and writes
/// As in @ref conversion_to_yuv "Conversion to AYUY2", B = 3; reads the byte beyond each line's last pixel, without
/// effect.
/// @par Irregular
/// `subpic_alpha` moves though nothing is written there.
VSURF_API void VSURF_CALL Convert_RGB24_To_AYUY2(MIX_INFO* job);

/// RGB16 in layout 0 to the subpicture's Y, U and V planes, X = 0.
///
/// Components are shifted up and not replicated, so white is 248, 252, 248. The key is its low 16 bits.
/// @param[in,out] job the record, as Convert_RGB32_To_AYUY2(); `contrast_info` is not looked at
/// @par Reads and writes
/// As in @ref conversion_to_yuv "Conversion to AYUY2", B = 2.
/// @par Irregular
/// `subpic_alpha` moves though nothing is written there.
VSURF_API void VSURF_CALL Convert_RGB16_565_To_AYUY2(MIX_INFO* job);

/// The blue bytes of an RGB32 surface to the alpha plane.
/// @param[in] job the record; reads `picture_pitch`, `surface_pitch`, `width`, `height`, `subpic_alpha` and `surface`
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha", B = 4, in blocks of 8 pixels. The record is left alone.
/// @par Irregular
/// The alpha plane's line step is made of pp, not sp.
VSURF_API void VSURF_CALL Restore_RGB32_To_Alpha(MIX_INFO* job);

/// The blue bytes of an RGB24 surface to the alpha plane, taken one pixel further to the right.
/// @param[in,out] job the record; reads what Restore_RGB32_To_Alpha() reads, and counts `height` down to 0
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha", B = 3, in blocks of 8 pixels, and the byte after each line's pixels.
/// @par Irregular
/// Alpha i is byte 3i+3 of the line, the blue of the pixel to the right: at the end of a line, the byte after it. The
/// line step is made of pp, not sp.
VSURF_API void VSURF_CALL Restore_RGB24_To_Alpha(MIX_INFO* job);

/// The five blue bits of RGB16 in layout 0 to the alpha plane: 0..31.
/// @param[in] job the record, as Restore_RGB32_To_Alpha()
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha", B = 2, in blocks of 16 pixels. The record is left alone.
/// @par Irregular
/// The alpha plane's line step is made of pp, not sp. Mixers do not clamp what is above 16.
VSURF_API void VSURF_CALL Restore_RGB16_565_To_Alpha(MIX_INFO* job);
/// @}

/// @defgroup drawing Subpicture drawing
/// Back from the planes: alpha onto a drawing, or the subpicture alone for display.
///
/// @anchor drawer
/// @par The subpicture alone
/// The line length in pixels is pp, a multiple of 16; `width` and sp are not read. Each pixel is
/// @ref conversion "converted", both of a pair with the pair's chroma, or becomes something else by its alpha:
///
///     alpha         RGB32, RGB24                                                   RGB16
///     0             blue is byte 2 of color_key, green byte 1, red byte 0          the low 16 bits of color_key
///     1..127        the colour                                                     the colour
///     128..255      black                                                          the colour
///
/// For each of max(1, h) lines i from 0:
///
///     subpic_alpha, subpic_y  pp bytes at i * pp
///     subpic_u, subpic_v      pp / 2 bytes at i * pp / 2: one chroma line a line
///     surface                 B * pp bytes at i * rp
/// @{

/// The alpha plane to RGB32, so that it can be drawn on: blue = alpha, all else 0.
/// @param[in] job the record; reads `picture_pitch`, `surface_pitch`, `width`, `height`, `subpic_alpha` and `surface`
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha", B = 4, in blocks of 16 pixels. The record is left alone.
/// @par Irregular
/// The alpha plane's line step is made of pp, not sp.
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb32(MIX_INFO* job);

/// The alpha plane to RGB24: bytes alpha, 0, 0.
/// @param[in,out] job the record; reads what load_subpicture_alpha_rgb32() reads, and counts `height` down to 0
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha", B = 3, in blocks of 16 pixels.
/// @par Irregular
/// Restoring it moves alpha one pixel to the left. The line step is made of pp, not sp.
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb24(MIX_INFO* job);

/// The alpha plane to 16-bit pixels of the value alpha (above 31 it reaches into green).
/// @param[in] job the record, as load_subpicture_alpha_rgb32()
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha", B = 2, in blocks of 16 pixels. The record is left alone.
/// @par Irregular
/// The alpha plane's line step is made of pp, not sp.
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb16_565(MIX_INFO* job);

/// The subpicture alone to RGB32.
/// @param[in] job the record; reads `picture_pitch`, `surface_pitch`, `height`, the four subpicture pointers, `surface`
///                and `color_key`
/// @par Reads and writes
/// As in @ref drawer "The subpicture alone", B = 4; the fourth byte is 0. The record is left alone.
/// @par Irregular
/// pp is the width, and the pitch of packed planes. The key comes with its bytes reversed. Alpha is signed.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb32(MIX_INFO* job);

/// The subpicture alone to RGB24: blue, green, red.
/// @param[in] job the record, as load_subpicture_yuy2_rgb32()
/// @par Reads and writes
/// As in @ref drawer "The subpicture alone", B = 3. The record is left alone.
/// @par Irregular
/// pp is the width, and the pitch of packed planes. The key comes with its bytes reversed. Alpha is signed.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb24(MIX_INFO* job);

/// The subpicture alone to RGB16, in the layout `contrast_info->rgb16_layout`.
/// @param[in] job the record; reads what load_subpicture_yuy2_rgb32() reads, and `contrast_info`
/// @par Reads and writes
/// As in @ref drawer "The subpicture alone", B = 2, and bytes 32 to 35 of `contrast_info`. The record is left alone.
/// @par Returns at once
/// for a layout other than 0..3.
/// @par Irregular
/// pp is the width, and the pitch of packed planes. The key goes in as it is, whatever the layout.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb16(MIX_INFO* job);

/// load_subpicture_yuy2_rgb32() of adjusted samples.
/// @copydetails load_subpicture_yuy2_rgb32
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb32_ajust(MIX_INFO* job);

/// load_subpicture_yuy2_rgb24() of adjusted samples.
/// @copydetails load_subpicture_yuy2_rgb24
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb24_ajust(MIX_INFO* job);

/// load_subpicture_yuy2_rgb16() of adjusted samples.
/// @copydetails load_subpicture_yuy2_rgb16
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb16_ajust(MIX_INFO* job);
/// @}

/// @defgroup mixers Mixers
/// The subpicture blended onto a YV12 picture while it is written to the surface.
///
/// With picture sample p, subpicture sample s and alpha a:
///
///     out = ((16 - a) * p + a * s) >> 4, clamped to 0..255
///
/// Products keep their low 16 bits, the sum saturates as signed 16 bits, the shift is unsigned: beyond the scale of
/// 0..16 the result is defined but no picture. A pair's chroma takes the alpha of its odd pixel unless stated. Samples
/// are adjusted after the blend, before any conversion. The width is a multiple of 16; other widths drift by the block
/// rule (docs/contract-subpictures.md). @ref job_terms "w, h, pp, sp and rp" are the record's numbers.
///
/// @anchor progressive
/// @par Progressive (_p) onto YUY2 and RGB
/// Passes of two lines, at least one, while the record's `height`, lowered by 2 after each, stays above 0 (signed); it
/// ends at 0 or, from an odd height, at -1. Both lines share the picture's chroma line, each has its own subpicture
/// chroma line. For each pass j from 0:
///
///     picture_y               w bytes at j * 2 * pp, and the same pp, rounded down to even, further
///     picture_u, picture_v    w / 2 bytes at j * (pp >> 1)
///     subpic_alpha, subpic_y  w bytes at j * 2 * sp, and the same sp, rounded down to even, further
///     subpic_u, subpic_v      w / 2 bytes at j * sp, and the same sp >> 1 further
///     surface                 B * w bytes at j * 2 * rp, and the same rp further
///
/// `picture_u`, `picture_v` and the four subpicture pointers in the record move along with the passes.
///
/// @anchor interlaced
/// @par Interlaced (_i) onto YUY2 and RGB
/// The picture is one field, doubled in height. With pp twice the frame's and the planes at a field's first lines it is
/// read in place. Output lines come in groups g of four; Y[i], C[i] being the field's luma and chroma lines:
///
///     4g      Y[2g], C[g]                                 4g+2    Y[2g+1], avg(C[g], C[g+1])
///     4g+1    avg(Y[2g], Y[2g+1]), C[g]                   4g+3    avg(Y[2g+1], Y[2g+2]), avg(C[g], C[g+1])
///
/// but lines 4g+2 and 4g+3 of the last group both take Y[2g+1], C[g]. avg rounds up. Heights from 8 on are rounded up
/// to a multiple of 4. Of Y[i] w bytes are read at picture_y + i * pp, of C[i] w / 2 bytes at i * (pp >> 1). The
/// subpicture moves one line per output line, w bytes each sp, its chroma w / 2 bytes each sp >> 1. B * w bytes are
/// written each rp.
/// @{

/// Onto YUY2, progressive.
/// @param[in,out] job the record; reads the three pitches, `width`, `height`, the picture's and the subpicture's
///                    pointers and `surface`
/// @par Reads and writes
/// As @ref progressive "progressive mixers", B = 2.
VSURF_API void VSURF_CALL mix_ayuy2_yuy2_p_ajust(MIX_INFO* job);

/// Onto YUY2 at half width, progressive.
///
/// Pixels 1, 3, 5, ... of each line, chroma samples 1, 3, 5, ... with the alpha of pixel 4k+3; 16 bytes a block and
/// line.
/// @param[in,out] job the record, as mix_ayuy2_yuy2_p_ajust()
/// @par Reads and writes
/// As @ref progressive "progressive mixers", but w bytes of each surface line: two for every pixel that is left.
/// @par Irregular
/// The lower line of the picture is reached by sp, by which the picture's chroma also steps: give both the same pitch.
VSURF_API void VSURF_CALL mix_ayuy2_half_yuy2_p_ajust(MIX_INFO* job);

/// Onto YUY2, interlaced.
/// @param[in,out] job the record; reads what mix_ayuy2_yuy2_p_ajust() reads
/// @par Reads and writes
/// As @ref interlaced "interlaced mixers", B = 2. `height` ends at 0, `picture_u` and `picture_v` end pp >> 1 further
/// per group, the last one included, and the four subpicture pointers behind the last line. pp must not be negative.
/// @par Irregular
/// A height below 4 mixes nothing and leaves the record; 4 to 7 mix four lines. The drift comes with every line.
VSURF_API void VSURF_CALL mix_ayuy2_yuy2_i_ajust(MIX_INFO* job);

/// Onto RGB32, progressive.
/// @param[in,out] job the record, as mix_ayuy2_yuy2_p_ajust()
/// @par Reads and writes
/// As @ref progressive "progressive mixers", B = 4.
VSURF_API void VSURF_CALL mix_ayuy2_rgb32_p_ajust(MIX_INFO* job);

/// Onto RGB24, progressive.
/// @param[in,out] job the record, as mix_ayuy2_yuy2_p_ajust()
/// @par Reads and writes
/// As @ref progressive "progressive mixers", B = 3.
VSURF_API void VSURF_CALL mix_ayuy2_rgb24_p_ajust(MIX_INFO* job);

/// Onto RGB16, progressive, in the layout `contrast_info->rgb16_layout`.
/// @param[in,out] job the record, as mix_ayuy2_yuy2_p_ajust(), and `contrast_info`
/// @par Reads and writes
/// As @ref progressive "progressive mixers", B = 2, and bytes 32 to 35 of `contrast_info`.
/// @par Returns at once
/// for a layout other than 0..3, and leaves the record.
VSURF_API void VSURF_CALL mix_ayuy2_rgb16_p_ajust(MIX_INFO* job);

/// Onto RGB32, interlaced.
/// @param[in] job the record; reads what mix_ayuy2_yuy2_p_ajust() reads, and is left alone
/// @par Reads and writes
/// As @ref interlaced "interlaced mixers", B = 4. Nothing drifts.
/// @par Irregular
/// A pair's chroma takes the rounded average of its two alphas. Heights below 8, even below 4, mix four lines.
VSURF_API void VSURF_CALL mix_ayuy2_rgb32_i_ajust(MIX_INFO* job);

/// Onto RGB24, interlaced.
/// @param[in] job the record, as mix_ayuy2_rgb32_i_ajust()
/// @par Reads and writes
/// As @ref interlaced "interlaced mixers", B = 3. Nothing drifts.
/// @par Irregular
/// As mix_ayuy2_rgb32_i_ajust().
VSURF_API void VSURF_CALL mix_ayuy2_rgb24_i_ajust(MIX_INFO* job);

/// Onto RGB16, interlaced, in the layout `contrast_info->rgb16_layout`.
/// @param[in] job the record, as mix_ayuy2_rgb32_i_ajust(), and `contrast_info`
/// @par Reads and writes
/// As @ref interlaced "interlaced mixers", B = 2, and bytes 32 to 35 of `contrast_info`. Nothing drifts.
/// @par Returns at once
/// for a layout other than 0..3.
/// @par Irregular
/// As mix_ayuy2_rgb32_i_ajust().
VSURF_API void VSURF_CALL mix_ayuy2_rgb16_i_ajust(MIX_INFO* job);

/// Onto the YV12 planes `surface`, `surface_v` and `surface_u`, progressive, not adjusted.
///
/// Luma in blocks of 8 pixels, h lines (at least one); then V, then U, in blocks of 8 samples, half the height. Chroma
/// and its alpha come from the subpicture's even lines, each sample with the alpha of its odd pixel. The surface may be
/// the picture itself, at equal pitches.
/// @param[in,out] job the record; reads what mix_ayuy2_yuy2_p_ajust() reads, `surface_u` and `surface_v`, and halves
///                    `height`
/// @par Reads and writes
/// For luma line i of max(1, h), and for line i of max(1, h >> 1) of V and U:
///
///     picture_y               w bytes at i * pp              picture_u, picture_v  w / 2 bytes at i * (pp >> 1)
///     subpic_y                w bytes at i * sp              subpic_u, subpic_v    w / 2 bytes at i * sp
///     subpic_alpha            w bytes at i * sp              its alpha             w bytes at i * 2 * sp
///     surface                 w bytes at i * rp              surface_u, surface_v  w / 2 bytes at i * (rp >> 1)
VSURF_API void VSURF_CALL mix_ayv12_yv12_p(MIX_INFO* job);

/// mix_ayv12_yv12_p() with each blended sample adjusted: V with v_offset, U with u_offset.
/// @copydetails mix_ayv12_yv12_p
VSURF_API void VSURF_CALL mix_ayv12_yv12_p_ajust(MIX_INFO* job);

/// Onto YV12, interlaced, not adjusted.
///
/// In each plane line 2j takes the field's line j, line 2j+1 the rounded average of lines j and j+1, to the end: the
/// line after the field's last is read. The height must be a multiple of 4, pp not negative.
/// @param[in,out] job the record; reads what mix_ayv12_yv12_p() reads, and halves `height` and `width`
/// @par Reads and writes
/// As mix_ayv12_yv12_p(), but of the picture h / 2 + 1 luma lines, pp apart, and h / 4 + 1 chroma lines, pp >> 1 apart.
/// @par Irregular
/// One line of each plane beyond the field's last must be readable.
VSURF_API void VSURF_CALL mix_ayv12_yv12_i(MIX_INFO* job);
/// @}

/// @defgroup color_keys Colour keys
/// The area in which an overlay shows the video.
///
/// @anchor fill_passes
/// @par Fills
/// They read no memory. Pass j from 0 writes 16 * B * blocks bytes at surface + j * (2 * pitch + r * B), and as many
/// `pitch` further.
/// @{

/// @defgroup fill_arguments Arguments of the fills
/// The same for all three.
/// @param[in]  colour   as the surface encodes it
/// @param[out] surface  first line of the rectangle
/// @param[in]  width    of the rectangle in pixels, a multiple of 16
/// @param[in]  height   of the rectangle in lines, even; 0 returns at once
/// @param[in]  reserved ignored
/// @param[in]  pitch    bytes from one line to the next

/// Fills a rectangle of an RGB32 surface with `colour`.
/// @copydetails fill_arguments
/// @par Reads and writes
/// @ref fill_passes "As the family" with B = 4.
VSURF_API void VSURF_CALL LoadColorKeyRgb32(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

/// Fills a rectangle of an RGB24 surface.
///
/// With c = `colour` and 64-bit shifts that drop what leaves the word, the little-endian words W0 W1 W2 W0 W1 W2 a
/// block,
///
///     W0 = c << 40 | c << 16 | c >> 8       W1 = c << 56 | c << 32 | c << 8 | c >> 16       W2 = c << 48 | c << 24 | c
/// @copydetails fill_arguments
/// @par Reads and writes
/// @ref fill_passes "As the family" with B = 3.
/// @par Irregular
/// The bytes do not repeat every three: 0x00332211 gives 22 33 11 22 33 11 22 33, 33 11 22 33 11 22 33 11,
/// 11 22 33 11 22 33 11 22. Only greys fill evenly.
VSURF_API void VSURF_CALL LoadColorKeyRgb24(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

/// Fills a rectangle of 16-bit pixels with the low 16 bits of `colour`.
/// @copydetails fill_arguments
/// @par Reads and writes
/// @ref fill_passes "As the family" with B = 2.
VSURF_API void VSURF_CALL LoadColorKeyRgb16(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

/// Where a byte of `mask` equals the low byte of `match`, the byte of `dst` becomes the low byte of `key`.
/// @param[in,out] dst    first line of the picture to change; may be `mask`
/// @param[in]     mask   first line of the mask
/// @param[in]     match  which bytes of the mask count
/// @param[in]     key    what takes their place
/// @param[in]     width  bytes of a line, a multiple of 16
/// @param[in]     pitch  bytes from one line to the next, of both pictures
/// @param[in]     height lines, at least one is done
/// @par Reads and writes
/// Line i, one at a time: 16 * blocks bytes of `mask` and of `dst` at i * (pitch + r). All bytes of `dst` are read and
/// written, those that keep their value too.
VSURF_API void VSURF_CALL RelaceMaskWithColorKey(unsigned char* dst, unsigned char* mask, unsigned int match,
                                                 unsigned int key, int width, int pitch, int height);
/// @}

/// @cond
#ifdef VSURF_C_LINKAGE
#undef VSURF_C_LINKAGE
}
#endif
/// @endcond
#endif
