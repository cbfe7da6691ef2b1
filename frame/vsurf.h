// SPDX-License-Identifier: MIT
/// @file
/// vsurf: puts decoded video pictures on display surfaces.
///
/// A video player calls one function for each picture. The function reads a decoded picture (planar YV12 or packed
/// YUY2) once and writes a display surface (RGB32, RGB24, RGB16, YUY2 or YV12). On the way it can adjust brightness,
/// contrast and saturation, enlarge the picture, halve its width or blend a subpicture onto it. The output is defined
/// to the byte.
///
/// The rules below hold for every function unless its description states otherwise.
///
/// @par Surfaces
/// A surface or plane is memory of the caller: a pointer to the first byte of its first line, a width in pixels, a
/// height in lines and a pitch. The pitch is the distance in bytes from one line to the next. It is signed: a negative
/// pitch walks upwards (bottom-up surfaces). Neither pointers nor pitches need an alignment. Source and destination
/// must not overlap. The library keeps nothing after a call returns.
///
/// @par Formats
/// Bytes in memory order; docs/formats.md shows them bit by bit.
///
///     RGB32  B G R 0          one pixel; the fourth byte is written as 0
///     RGB24  B G R            one pixel
///     RGB16  one word         one pixel, little-endian, in one of four layouts selected by rgb16_layout
///     YUY2   Y0 U Y1 V        two pixels
///     YV12   Y, V, U planes   U and V at half width and half height: sample k of chroma line j belongs to pixels 2k
///                             and 2k+1 of lines 2j and 2j+1; the chroma pitch is never passed, it is half the luma
///                             pitch
///     AYUY2  alpha, Y, U, V   the planes of a drawn subpicture: U and V at half width and full height, alpha 0..16
///
/// @par Block rule
/// Pass widths that are multiples of 16 and even heights, and allocate planes and surfaces for them. Then nothing
/// beyond the picture is read or written, and the rest of this section does not matter.
///
/// Lines are processed in blocks of 16 pixels, pictures in passes of two lines, unless a function names other steps.
/// Blocks and passes are always whole, and there is at least one of each:
///
///     blocks = max(1, ceil(width / 16))        width 0 gives 1, 16 gives 1, 20 gives 2
///     passes = max(1, ceil(height / 2))        height 0 gives 1, 3 gives 2
///
/// So the last block reads and writes beyond a width that is not a multiple of 16, and an odd height reads and writes
/// one line more. From one pass to the next the pointers advance by the stated width, although the blocks were whole.
/// With
///
///     r = 16 * blocks - width
///
/// every pass starts r pixels further to the right than the one before it: the picture drifts. Functions that do not
/// drift say so. Widths and heights are counted as unsigned numbers: negative ones are invalid unless stated otherwise.
///
/// @par Byte ranges
/// "n bytes at p" are the addresses p to p + n - 1. Bytes that are not listed as written keep their value, and bytes
/// that are not listed as read need not be readable. Shifts are arithmetic (they round towards minus infinity) unless
/// called logical. B is the number of bytes of a pixel of the surface: 4, 3, 2 and 2 for RGB32, RGB24, RGB16 and YUY2.
///
/// @par Overlapping lines
/// Where a pitch is smaller than the bytes written on a line, lines overlap and the bytes stored last stay. The order
/// of stores is in docs/contract.md, docs/contract-enlargers.md and docs/contract-subpictures.md. Where these give no
/// order, such a pitch is invalid.
///
/// @par Errors
/// None is reported: no function returns a status, checks a pointer or validates a size. The few guards are stated
/// under "Returns at once"; they compare sizes as signed numbers, and such a return writes nothing. An argument that is
/// called ignored is never dereferenced and may be null. So may every pointer that a guarded return does not reach.
///
/// @par Threads
/// Any thread may call any function, and calls may run at the same time on memory that does not overlap. There are no
/// locks. The only state that outlives a call is the picture adjustment. The whole process shares it, and each function
/// whose name contains `_ajust` or `_adjust` reads it once at the start of a call (the two YV12 enlargers once per
/// plane). Do not call get_contrast_data() while such a call runs, or that picture may be made with some old and some
/// new values. A call allocates nothing and uses at most 40 KiB of its thread's stack. docs/threads.md lists the
/// functions that can share a picture among threads.
///
/// @par Instruction sets
/// The library selects the best instruction set that it contains and the machine runs, once, when it is loaded: SSE2,
/// AVX2 or AVX-512, NEON, or plain C++. All of them write the same bytes. The environment variable `VSURF_ISA` lowers
/// the choice to `sse2`, `avx2`, `avx512`, `neon` or `scalar`. Other names, and instruction sets that the machine does
/// not run, change nothing. With glibc, programs that run with more rights than their caller ignore the variable.
///
/// @par Names
/// The names are part of the interface and stay as they are spelled: `strech`, `ajust` and `Relace` are intended.
#ifndef VSURF_H
#define VSURF_H
#include <stddef.h>
#include <stdint.h>

/// @defgroup version Version
/// Of this header; the project's version is the same.
/// @{
#define VSURF_VERSION_MAJOR 0 ///< changes where callers have to change
#define VSURF_VERSION_MINOR 2 ///< changes where something is new
#define VSURF_VERSION_PATCH 0 ///< changes where something is mended
#define VSURF_VERSION "0.2.0" ///< all of it
/// @}

/// @defgroup linkage Linkage
/// Functions have C linkage. The exception is C++ on Windows: compilers that define `_MSC_VER`, whose C++ names are
/// decorated the platform's own way, see C++ functions, and the DLL exports both names. Define `VSURF_STATIC` there to
/// link the static library.
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
/// get_contrast_data() reads the low 16 bits of each of the first eight fields. The pixel functions receive the same
/// record for the fields that describe the destination, and never take the adjustment from it.
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
/// Fill the record before every call: many functions advance its pointers and count its height down, so that afterwards
/// it no longer describes the region. It is read once, at the start of the call, and changed at its end. It must not
/// lie in any of the planes. Members that a function does not read may hold anything, including null.
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
#if defined __cplusplus && __cplusplus >= 201103L
#define VSURF_STATIC_ASSERT(name, condition) static_assert(condition, #name)
#elif !defined __cplusplus && defined __STDC_VERSION__ && __STDC_VERSION__ >= 201112L
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
/// An adjusted sample x, with its gain and offset, becomes (in 16-bit arithmetic)
///
///     clamp0..255(saturating_add(((x * gain) mod 65536) >> 6, offset))
///
/// Gains are in 1/64, offsets in sample units. A product beyond 16 bits wraps before the shift, and a negative gain
/// counts as the unsigned number that it wraps to. Y is adjusted with luma_gain and luma_offset, U with chroma_gain and
/// u_offset, V with chroma_gain and v_offset, unless a function states otherwise. Until the first get_contrast_data()
/// all five values are zero, and every adjusted sample is 0. docs/adjustment.md has curves and recipes.
/// @{

/// Sets the picture adjustment of the process.
///
/// The low 16 bits of eight fields give five signed 16-bit values. Sums are modulo 65536:
///
///     luma_gain   = y_gain                         chroma_gain = uv_gain
///     luma_offset = y_offset_a + y_offset_b        u_offset, v_offset likewise
///
/// Offsets of 30000 and 30000 make -5536, since the sum wraps. The values cannot be read back.
/// @param[in] info an ajust_contrast_info, not null
/// @par Reads and writes
/// Reads the first 32 bytes of `info`. Writes no memory of the caller.
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
/// A YV12 picture onto a surface of the same size or half its width.
///
/// @anchor pass_in_pairs
/// @par The pass in pairs of lines
/// Most planar loaders process two lines at a time, which share their chroma. With blocks, passes and r of the block
/// rule, pass j = 0 .. passes - 1 reads and writes
///
///     y    16 * blocks bytes at y + j * (2 * y_pitch + r), and the same y_pitch further
///     u    8 * blocks bytes at u + j * ((y_pitch + r) >> 1), which serve both lines of the pass; v alike
///     dst  16 * blocks * B bytes at dst + j * (2 * dst_pitch + r * B), and the same dst_pitch further
///
/// @anchor conversion
/// @par Conversion to RGB
/// BT.601 studio range: Y from 16 to 235, U and V from 16 to 240 about 128. The factors 1.164, 1.596, 0.391, 0.813 and
/// 2.018 are held in 16-bit fixed point, each term is rounded down by itself, and the results are clamped to 0..255:
///
///     L = ((Y-16) * 4 * 19071) >> 16
///     R = L + (((V-128) * 4 * 26149) >> 16)
///     G = L - (((U-128) * 25625) >> 16)
///           - (((V-128) * 2 * 26641) >> 16)
///     B = L + (((U-128) * 8 * 16532) >> 16)
///
/// White (235, 128, 128) gives 254, not 255. Chroma is not interpolated. docs/formats.md has examples.
///
/// @anchor layout_guard
/// @par Layouts of RGB16
/// `info->rgb16_layout` selects R5G6B5 (0), R5G5B5 above a zero bit (1), R6G6B4 (2) or R6G5B5 (3), red in the top bits.
/// Components are cut to their top bits. Any other value returns at once, and all other pointers may then be null.
/// `info` must be valid; nothing else of it is read.
/// @{

/// @defgroup planar_arguments Arguments of the planar loaders
/// All of them have these.
/// @param[in]  y         Y plane, one byte a pixel
/// @param[in]  u         U plane, one byte for 2 by 2 pixels, at half of y_pitch
/// @param[in]  v         V plane, as U
/// @param[out] dst       first line of the surface
/// @param[in]  width     of the picture in pixels, a multiple of 16
/// @param[in]  height    of the picture in lines, even
/// @param[in]  y_pitch   bytes from one line of the Y plane to the next
/// @param[in]  dst_pitch bytes from one line of the surface to the next
/// @param[in]  info      ignored, unless the function states otherwise

/// YV12 to YUY2, with holes: use vsurf_show() or, at unity, loadimage_yuy2_ajust() for a complete picture.
/// @copydetails planar_arguments
/// @par Reads and writes
/// @ref pass_in_pairs "The pass in pairs of lines" with B = 2. Of each block of the lower line only the 24 bytes from
/// byte 8 on are written.
/// @par Irregular
/// On the second line of each pass, pixels 0 to 3 of every 16 keep what the surface held. loadimage_yuy2_ajust() with
/// gains of 64 and offsets of 0 writes all of them, for even heights of 10 or more.
VSURF_API void VSURF_CALL loadimage_yuy2(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                         int dst_pitch, ajust_contrast_info* info);

/// YV12 to YV12 by an address pattern of its own: this does not copy the picture. Use vsurf_show(), or copy the planes.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Luma pass j copies 16 * blocks bytes from y + j * (2 * y_pitch + 2 * dst_pitch - width + r) to dst + j * 16 *
/// blocks, and 16 * blocks bytes from `width` bytes further in the source to `dst_pitch` further in the destination.
/// Chroma follows. The V plane starts at Vd = dst + height * dst_pitch - 1, one byte early, the U plane at
/// Ud = Vd + ((height * dst_pitch) >> 2). With c = max(1, ceil((width >> 1) / 8)) chroma pass j copies 8 * c bytes from
/// u + j * sc to Ud + j * dc, and as many from y_pitch >> 1 further to dst_pitch >> 1 further; v alike, to Vd. There
/// are as many chroma passes as luma passes. The steps are
///
///     sc = 8 * c + ((2 * y_pitch - width) >> 1)        dc = 8 * c + ((2 * dst_pitch - width) >> 1)
///
/// In these and in the halved pitches the shifts are logical. Both pitches must be at least half the width and not
/// negative.
/// @par Irregular
/// About half of the luma area is never written. `height` chroma lines of each plane are read and written, twice what a
/// plane has; the second half of V overwrites the start of U. To copy a picture, copy each line of its planes, or use
/// loadimage_yv12_ajust() at unity.
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

/// loadimage_rgb32() with adjustment: every byte is adjusted before the conversion.
/// @copydetails loadimage_rgb32
VSURF_API void VSURF_CALL loadimage_rgb32_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// loadimage_rgb24() with adjustment.
/// @copydetails loadimage_rgb24
VSURF_API void VSURF_CALL loadimage_rgb24_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// loadimage_rgb16() with adjustment, and with the same layouts and guard.
/// @copydetails loadimage_rgb16
VSURF_API void VSURF_CALL loadimage_rgb16_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to YUY2, adjusted. Unlike loadimage_yuy2() it writes every byte of both lines.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Lines are processed one at a time, l = 0 .. 2 * passes - 1; both lines of a pair use the chroma of pass j = l / 2:
///
///     y    16 * blocks bytes at y + l * (y_pitch + r)
///     u    8 * blocks bytes at u + j * A, and 8 * blocks - (width >> 1) further where l is odd; v alike
///          A = 16 * blocks - (width >> 1) + ((y_pitch - width) >> 1): y_pitch >> 1 where r is 0
///     dst  32 * blocks bytes at dst + l * (dst_pitch + 2 * r)
///
/// So the drift is r pixels a line, not a pass, and chroma drifts along.
/// @par Returns at once
/// if the height is 8 or less (signed) or odd.
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
/// Vd = dst + T * dst_pitch + (((H - T) * dst_pitch) >> 2), then U to Ud = Vd + ((H * dst_pitch) >> 2). Chroma has half
/// the width, height and destination pitch. `info` must be valid.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Bytes 40 to 47 of `info`. A plane of width w is processed in b = max(1, ceil(w / 8)) blocks of 8 bytes, line by
/// line, at least one line. Line l, with p the plane's pitch on the surface, is
///
///     source       8 * b bytes at l * 8 * b: lines without gaps
///     destination  8 * b bytes at l * (p + 8 * b - w)
/// @par Irregular
/// `y_pitch` is ignored, and the source is read without gaps. The V plane is adjusted with u_offset, the U plane with
/// v_offset. Odd heights are not rounded up; half of one is rounded down.
VSURF_API void VSURF_CALL loadimage_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height, int y_pitch,
                                               int dst_pitch, ajust_contrast_info* info);

/// YV12 to YUY2 at half width, every line kept, adjusted.
///
/// Neighbouring samples are averaged, (a + b + 1) >> 1, then adjusted. A block gives 8 pixels, 16 bytes.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Reads as loadimage_yuy2_ajust(), without its guard. Writes 16 * blocks bytes at dst + l * (dst_pitch + r).
VSURF_API void VSURF_CALL loadimage_half_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                    int y_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to YV12 at half width, every line kept, adjusted.
///
/// Samples 1, 3, 5, ... are kept, the others dropped. Luma goes to `dst`, then V to Vd = dst + height * dst_pitch, then
/// U to Vd + (dst_pitch >> 1) * (height >> 1), each adjusted with its own offset.
/// @copydetails planar_arguments
/// @par Reads and writes
/// Luma is processed line by line, at least one line: 16 * blocks bytes at y + l * (y_pitch + r) become 8 * blocks
/// bytes at dst + l * (dst_pitch + 8 * blocks - (width >> 1)). Chroma has max(1, height >> 1) lines of w = width >> 1
/// bytes. With m = max(1, w / 16), t = w mod 16 and e = 16 for a width below 32, else 0, chroma line l is
///
///     source       16 * m bytes at l * ((y_pitch >> 1) + e)
///                  if t is not 0, also the closing block: 16 bytes from byte 16 * m - 16 + t on
///     destination  8 * m bytes at l * ((dst_pitch >> 1) + e / 2)
///                  if t is not 0, then 8 bytes from byte 8 * m - 8 + (t >> 1) on
/// @par Irregular
/// The closing block of a chroma line ends at the line's end and overlaps the last whole block. For a width below 32
/// both blocks reach beyond the chroma line, and lines drift.
VSURF_API void VSURF_CALL loadimage_half_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                    int y_pitch, int dst_pitch, ajust_contrast_info* info);
/// @}

/// @defgroup packed_loaders Packed loaders
/// A YUY2 picture onto a surface of the same size.
///
/// Both lines of a pass take the chroma of the upper line. The chroma of the lower line is read and dropped.
/// @ref conversion "Conversion" and @ref layout_guard "layouts" are those of the planar loaders.
///
/// @anchor packed_pass
/// @par The packed pass
/// With n = 16 * blocks pixels a line (to YUY2: 8 * max(1, ceil(width / 8))), pass j = 0 .. passes - 1 reads and writes
///
///     src  2 * n bytes at src + j * 4 * src_pitch, and the same 2 * src_pitch further
///     dst  B * n bytes at dst + j * 2 * dst_pitch, and the same dst_pitch further
///
/// Nothing drifts: passes follow the pitch whatever the width. A negative width or height counts as 0.
/// @{

/// @defgroup packed_arguments Arguments of the packed loaders
/// All of them have these.
/// @param[in]  src       first line of the picture
/// @param[in]  unused_u  ignored
/// @param[in]  unused_v  ignored
/// @param[out] dst       first line of the surface
/// @param[in]  width     of the picture in pixels, a multiple of 16 (to YUY2: of 8)
/// @param[in]  height    of the picture in lines, even
/// @param[in]  src_pitch **pixels** from one line of the picture to the next: lines are 2 * src_pitch bytes apart
/// @param[in]  dst_pitch bytes from one line of the surface to the next
/// @param[in]  info      ignored, unless the function states otherwise

/// YUY2 to YUY2: luma is copied; the chroma of every second line is replaced by that of the line above.
/// @copydetails packed_arguments
/// @par Reads and writes
/// @ref packed_pass "The packed pass" in blocks of 8 pixels, with B = 2.
/// @par Irregular
/// Not a plain copy: every second line loses its chroma.
VSURF_API void VSURF_CALL LoadYUY2_YUY2(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// LoadYUY2_YUY2() with adjustment.
/// @copydetails LoadYUY2_YUY2
VSURF_API void VSURF_CALL LoadYUY2_YUY2_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                               int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YUY2 to RGB32.
/// @copydetails packed_arguments
/// @par Reads and writes
/// @ref packed_pass "The packed pass" with B = 4. The fourth byte of every pixel is written as 0.
VSURF_API void VSURF_CALL LoadYUY2_RGB32(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YUY2 to RGB24.
/// @copydetails packed_arguments
/// @par Reads and writes
/// @ref packed_pass "The packed pass" with B = 3.
VSURF_API void VSURF_CALL LoadYUY2_RGB24(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YUY2 to RGB16, in the layout `info->rgb16_layout`.
/// @copydetails packed_arguments
/// @par Reads and writes
/// @ref packed_pass "The packed pass" with B = 2, and bytes 32 to 35 of `info`.
/// @par Returns at once
/// for a @ref layout_guard "layout" other than 0..3.
VSURF_API void VSURF_CALL LoadYUY2_RGB16(void* src, void* unused_u, void* unused_v, void* dst, int width, int height,
                                         int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// LoadYUY2_RGB32() with adjustment: every byte is adjusted before the conversion.
/// @copydetails LoadYUY2_RGB32
VSURF_API void VSURF_CALL LoadYUY2_RGB32_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// LoadYUY2_RGB24() with adjustment.
/// @copydetails LoadYUY2_RGB24
VSURF_API void VSURF_CALL LoadYUY2_RGB24_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// LoadYUY2_RGB16() with adjustment, and with the same layouts and guard.
/// @copydetails LoadYUY2_RGB16
VSURF_API void VSURF_CALL LoadYUY2_RGB16_adjust(void* src, void* unused_u, void* unused_v, void* dst, int width,
                                                int height, int src_pitch, int dst_pitch, ajust_contrast_info* info);
/// @}

/// @defgroup plane_enlargers Plane enlargers
/// Single planes, whole YV12 pictures and bands of a frame, at twice their size.
///
/// @anchor enlarging_terms
/// @par Terms
/// 2X2 doubles width and height, 1X2 only the height. These terms hold for the enlarged loaders, too:
///
///     S(j)           source line j
///     D(m)           destination line m, at dst + m * dst_pitch
///     avg(a, b)      (a + b + 1) >> 1; lines are averaged sample by sample
///     H(line)        the line at twice its width: out[2i] = s[i], out[2i+1] = avg(s[i], s[i+1])
///     w, h, sp, dp   width, height, source pitch and destination pitch
/// @{

/// @defgroup plane_arguments Arguments of the plane enlargers
/// Those that take a single plane have these.
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
/// The plane is cut into max(2, ceil(w / 8)) vertical strips of 8 source samples. Reads 8 * strips bytes of each source
/// line. Writes 16 * strips bytes of each line down to D(2h-2). Below, the last strip writes H(S(h-1)) to D(2h-2) and
/// D(2h-1); every other strip writes it to D(2h-2) and to D(2h). The right neighbour of a line's last sample is the
/// sample itself.
/// @par Irregular
/// All strips except the last write one line below the enlarged plane and leave their part of D(2h-1) unwritten. A
/// height below 2 works as 2, but shifts every strip after the first down by 2 - h source lines and by twice as many
/// destination lines.
VSURF_API void VSURF_CALL strech_pic_2X2(unsigned char* src, unsigned char* dst, int width, int height, int src_pitch,
                                         int dst_pitch);

/// Doubles a plane both ways and adjusts every output byte after the averages.
///
/// All planes take luma_gain; `plane` selects the offset. Pass planes without gaps (sp = w, dp = 2w) whose width is a
/// multiple of 16. Such a plane becomes, all adjusted,
///
///     D(0) = H(S(0))
///     D(2k+1) = H(S(k)), D(2k+2) = avg(H(S(k)), H(S(k+1)))        k = 0 .. h-2
///     D(2h-2) = D(2h-1) = H(S(h-2))                               over what was there
/// @copydetails plane_arguments
/// @param[in]  info      ignored
/// @param[in]  plane     which offset: 1 luma_offset, 2 u_offset, 3 v_offset, any other as 1
/// @par Reads and writes
/// Of a plane as above all h * w bytes and the byte after them; writes 2h lines of 2w bytes. docs/contract-enlargers.md
/// gives the bytes for other widths and pitches. Height 1 works as 2.
/// @par Irregular
/// The picture is one line lower than with strech_pic_2X2(), and S(h-1) only enters averages that are overwritten. The
/// right neighbour of a line's last sample is the byte after it, even beyond the plane. The source advances by w, not
/// by sp, so planes with gaps come out sheared.
VSURF_API void VSURF_CALL strech_pic_2X2_adjust(unsigned char* src, unsigned char* dst, int width, int height,
                                                int src_pitch, int dst_pitch, ajust_contrast_info* info, int plane);

/// Doubles the lines of a plane and adjusts every output byte.
///
/// Gain and offset are those of strech_pic_2X2_adjust(). Pass widths that are multiples of 16. A plane becomes, all
/// adjusted,
///
///     D(0) = S(0)
///     D(2k+1) = S(k), D(2k+2) = avg(S(k), S(k+1))                 k = 0 .. h-2
///     D(2h-2) = S(h-2)                                            over what was there
///     S(h-2) once more at D(2h-2) + w                             D(2h-1) where dp = w
/// @copydetails plane_arguments
/// @param[in]  info      ignored
/// @param[in]  plane     which offset: 1 luma_offset, 2 u_offset, 3 v_offset, any other as 1
/// @par Reads and writes
/// w bytes of each of h lines; both pitches are followed. Writes w bytes of D(0) to D(2h-2), and the copy.
/// docs/contract-enlargers.md gives the bytes for other widths. Height 1 works as 2.
/// @par Irregular
/// The last copy is D(2h-1) only in a plane without gaps; otherwise D(2h-1) stays unwritten and the copy is in the
/// padding. The picture is one line lower than its source, whose last line only enters averages that are overwritten.
VSURF_API void VSURF_CALL strech_pic_1X2_adjust(unsigned char* src, unsigned char* dst, int width, int height,
                                                int src_pitch, int dst_pitch, ajust_contrast_info* info, int plane);

/// @defgroup picture_arguments Arguments of the YV12 enlargers
/// Both of them have these.
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
/// Vd + ((2h * dp) >> 2) with plane 3. The chroma calls take width, height and both pitches halved (arithmetic shift).
/// @par Irregular
/// The plane numbers give V the u_offset and U the v_offset, both with luma_gain. What strech_pic_2X2_adjust() does to
/// padding and to other widths happens in each plane.
VSURF_API void VSURF_CALL strech_picture_2X2_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// Doubles the lines of a YV12 picture.
/// @copydetails picture_arguments
/// @par Reads and writes
/// The calls of strech_picture_2X2_yv12_ajust(), with the same arguments and places, but of strech_pic_1X2_adjust().
/// @par Irregular
/// Gain and offsets as in strech_picture_2X2_yv12_ajust().
VSURF_API void VSURF_CALL strech_picture_1X2_yv12_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// Doubles the height of a band of a planar 4:2:0 frame along its edges, adjusts the result and writes YUY2.
///
/// With P = `frame->pitch`, the band starts O bytes into the Y plane and O >> 2 bytes into U and V. Its luma lines are
/// S bytes apart, its chroma lines S >> 1:
///
///     field mode    O = P * start, S = 2 * P            else    O = (P * start) >> 1, S = P
///
/// Y(i) and C(i) are the band's luma and chroma lines. Group g makes four lines of the surface:
///
///     D(4g)   = Y(2g), C(g)
///     D(4g+1) = Y(2g) with Y(2g+1), C(g)
///     D(4g+2) = Y(2g+1), C(g) with C(g+1)
///     D(4g+3) = Y(2g+1) with Y(2g+2), C(g) with C(g+1)
///
/// In the last group D(4g+2) = D(4g+3) = Y(2g+1), C(g). "A with B" is avg(A, B) in the first and last 16 pixels of a
/// line (8 chroma samples). Between them it depends on groups of 4 samples of a plane. Where the sum of their 4
/// absolute differences is at most 32, it is avg(A, B). Otherwise each sample p becomes avg(A[p+k], B[p-k]), with that
/// k of -2..2 that has the least
///
///     |A[p+k] - B[p-k]| + |A[p+1+k] - B[p+1-k]| + |A[p+2+k] - B[p+2-k]| + |A[p+3+k] - B[p+3-k]|
///
/// The window starts at p. Among equal sums the smallest k counts.
/// @param[in]  frame     its planes, pitch and mode
/// @param[in]  start     where the band begins, in lines of the enlarged picture: a multiple of 4
/// @param[in]  lines     Y lines of the band (of the field in field mode); of an odd number the last is left out
/// @param[out] dst       first line of the surface
/// @param[in]  dst_pitch bytes from one line of the surface to the next, at least 2 * P in either direction
/// @param[in]  info      ignored
/// @par Reads and writes
/// With G = lines >> 1, P bytes of each of 2 * G luma lines and P / 2 of each of G chroma lines of both planes. Writes
/// 4 * G lines of 2 * P bytes. P must be a multiple of 16 and at least 48; docs/contract-enlargers.md gives the bytes
/// for other pitches.
/// @par Returns at once
/// for `lines` below 8.
/// @par Irregular
/// A `start` that is not a multiple of 4 takes chroma from within a line or, in field mode, lines of the other field.
VSURF_API void VSURF_CALL strech_opt_yuy2_ajust(tagVideoFrame* frame, int start, int lines, unsigned char* dst,
                                                int dst_pitch, ajust_contrast_info* info);
/// @}

/// @defgroup enlarged_loaders Enlarged loaders
/// A picture onto a YUY2 or RGB surface at twice its height, or at twice its width and height.
///
/// The @ref enlarging_terms "terms" are those of the plane enlargers.
///
/// @anchor basic_pattern
/// @par The basic pattern
/// Y[s] and C[c] are luma and chroma lines (C of both planes). For each pair of lines r = 0, 2, .. h-2, with c = r/2:
///
///     D(2r)   = Y[r], C[c]
///     D(2r+1) = avg(Y[r], Y[r+1]), C[c]
///     D(2r+2) = Y[r+1], avg(C[c], C[c+1])
///     D(2r+3) = avg(Y[r+1], Y[r+2]), avg(C[c], C[c+1])
///
/// At the bottom, r = h-2, D(2r+2) = D(2r+3) = Y[h-1], C[c].
///
/// @anchor enlarged_lines
/// @par The enlarged lines
/// Functions that take a YV12 picture read W bytes of each of h luma lines and W / 2 of each of h / 2 lines of U and V.
/// They write 2 * h lines, D(0) to D(2h-1), with the stated number of bytes for each of the W pixels of the source. W
/// is the width rounded up to a multiple of 16, in the 2X2 forms at least 32. Nothing drifts. A negative width counts
/// as 0. An odd height counts as one less, although the guards compare the height as passed.
/// @{

/// @defgroup enlarged_arguments Arguments of the enlarged loaders
/// Those that take a YV12 picture have these.
/// @param[in]  y         Y plane of the source
/// @param[in]  u         U plane, at half width, height and pitch
/// @param[in]  v         V plane, as U
/// @param[out] dst       first line of the surface
/// @param[in]  width     of the source in pixels, a multiple of 16 (2X2: at least 32)
/// @param[in]  height    of the source in lines, even
/// @param[in]  src_pitch bytes from one line of the Y plane to the next, even; may be negative
/// @param[in]  dst_pitch bytes from one line of the surface to the next, at least a line in either direction
/// @param[in]  info      ignored, unless the function states otherwise

/// YV12 to YUY2 of twice the height: the basic pattern.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "The enlarged lines", 2 bytes for a pixel of the source.
/// @par Returns at once
/// for a height below 8.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2(void* y, void* u, void* v, void* dst, int width, int height,
                                                  int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// strech_picture_1X2_yuy2() with adjustment after interpolation, and with a four-tap filter in place of most averages.
///
///     F(a, b, c, d) = clamp0..255((5 * b + 5 * c - (a + d)) >> 3) of four lines in order
///
/// It applies to luma between Y[s] and Y[s+1] with 2 <= s <= h-3, and to chroma between C[c] and C[c+1] with
/// 1 <= c <= h/2 - 3. Elsewhere lines are averaged.
/// @copydetails strech_picture_1X2_yuy2
/// @par Irregular
/// The only enlarged loader that adjusts last. Luma between lines 1 and 2 is averaged, although four lines are there.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to YUY2 of twice the width and height.
///
/// Every line of each plane is doubled by H first; the right neighbour of the last sample is the sample itself. Then
/// the basic pattern applies to the doubled lines.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "The enlarged lines", 4 bytes for a pixel of the source.
/// @par Returns at once
/// for a height below 8.
/// @par Irregular
/// A width of 16 or less reads and writes a block beyond the line.
VSURF_API void VSURF_CALL strech_picture_2X2_yuy2(void* y, void* u, void* v, void* dst, int width, int height,
                                                  int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// strech_picture_2X2_yuy2() with adjustment: samples are adjusted when they are loaded, before any average.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "The enlarged lines", 4 bytes for a pixel of the source.
/// @par Returns at once
/// for a height below 16, twice the limit of the plain form.
/// @par Irregular
/// The last doubled U sample of each 16, except at the end of a line, is an average with the first U sample of the next
/// block of 8. In this average that sample is adjusted with v_offset. A width of 16 or less reads and writes a block
/// beyond the line.
VSURF_API void VSURF_CALL strech_picture_2X2_yuy2_ajust(void* y, void* u, void* v, void* dst, int width, int height,
                                                        int src_pitch, int dst_pitch, ajust_contrast_info* info);

/// YV12 to RGB32 of twice the height, adjusted. The name says "yuy2", but the surface is RGB.
///
/// Samples are adjusted, then the basic pattern is formed (with averages, not four taps), then every line is
/// @ref conversion "converted".
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "The enlarged lines", 4 bytes for a pixel of the source.
/// @par Returns at once
/// for a height below 12.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb32(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

/// strech_picture_1X2_yuy2_ajust_rgb32() to RGB24.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "The enlarged lines", 3 bytes for a pixel of the source.
/// @par Returns at once
/// for a height below 12.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb24(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

/// strech_picture_1X2_yuy2_ajust_rgb32() to RGB16, in the layout `info->rgb16_layout`.
/// @copydetails enlarged_arguments
/// @par Reads and writes
/// @ref enlarged_lines "The enlarged lines", 2 bytes for a pixel of the source, and bytes 32 to 35 of `info`.
/// @par Returns at once
/// for a height below 12, when `info` may be null; then for a @ref layout_guard "layout" other than 0..3.
VSURF_API void VSURF_CALL strech_picture_1X2_yuy2_ajust_rgb16(void* y, void* u, void* v, void* dst, int width,
                                                              int height, int src_pitch, int dst_pitch,
                                                              ajust_contrast_info* info);

/// @defgroup packed_enlarger_arguments Arguments of the packed enlargers
/// The two that take a packed picture have these.
/// @param[in]  src        the picture, its lines without gaps between them
/// @param[in]  unused_u   ignored
/// @param[in]  unused_v   ignored
/// @param[out] dst        first line of the surface
/// @param[in]  line_bytes bytes of a source line, 2 * width: a multiple of 32, at least 64
/// @param[in]  height     of the source in lines, even
/// @param[in]  dst_pitch  bytes from one line of the surface to the next, at least a line in either direction

/// A packed YUY2 picture to YUY2 of twice the width and height.
///
/// Luma, U and V of every line are doubled by H (the right neighbour of the last sample is the sample itself), giving
/// L[s]. Then D(2s) = L[s], D(2s+1) = avg(L[s], L[s+1]), D(2h-1) = L[h-1].
/// @copydetails packed_enlarger_arguments
/// @par Reads and writes
/// With X = `line_bytes` rounded up to a multiple of 32, at least 64, X bytes at src + s * line_bytes of each source
/// line s, and 2 * X bytes of each of 2 * h lines. An odd height counts as one less, but not for the guard.
/// @par Returns at once
/// for a height below 16.
VSURF_API void VSURF_CALL yuy2_strech_picture_2X2_yuy2(void* src, void* unused_u, void* unused_v, void* dst,
                                                       int line_bytes, int height, int dst_pitch);

/// yuy2_strech_picture_2X2_yuy2() with adjustment before any average.
/// @copydetails packed_enlarger_arguments
/// @param[in]  info       ignored
/// @par Reads and writes
/// As the plain form.
/// @par Returns at once
/// for a height below 8, half the limit of the plain form.
/// @par Irregular
/// The last doubled U and V of each 16 source pixels, except at the end of a line, are averages with the first U and V
/// of the next 16. In these averages the samples of the next 16 take each other's offset: U v_offset, V u_offset.
VSURF_API void VSURF_CALL yuy2_strech_picture_2X2_yuy2_ajust(void* src, void* unused_u, void* unused_v, void* dst,
                                                             int line_bytes, int height, int dst_pitch,
                                                             ajust_contrast_info* info);
/// @}

/// @defgroup preparation Subpicture preparation
/// From an RGB drawing to AYUY2 planes.
///
/// Fill a surface with `color_key`, draw the colours on it and convert it. Then draw the alpha values, 0..16, into the
/// blue component of a surface and restore them.
///
/// @anchor job_terms
/// @par Terms
/// w, h, pp, sp and rp are the record's `width`, `height`, `picture_pitch`, `subpicture_pitch` and `surface_pitch`.
/// Each function names the members of the record that it reads and those that it changes; the others stay as they are.
/// Byte ranges are given for widths in whole blocks; docs/contract-subpictures.md gives them for other widths.
///
/// @anchor conversion_to_yuv
/// @par Conversion to AYUY2
/// BT.601 studio range in 1/1024, in blocks of 8 pixels. X is the fourth byte of a pixel; keep it 0. Results are
/// clamped to 0..255:
///
///     Y = (100 * B + 516 * G + 263 * R + 1024 * (X | 16)) >> 10
///     U = (449 * B - 297 * G - 151 * R + 1024 * (X | 128)) >> 10
///     V = (-72 * B - 376 * G + 449 * R + 1024 * (X | 128)) >> 10
///
/// Chroma comes from the first pixel of each pair. A block whose 8 pixels all equal `color_key` leaves the planes as
/// they are. w must be a multiple of 8 and not 0, h at least 1, sp at least w. (Other widths are rounded down: the rest
/// of a line is not converted, and lines drift to the left.) Line i = 0 .. h-1 is
///
///     surface             B * w bytes at i * rp
///     subpic_y            up to w bytes at i * sp
///     subpic_u, subpic_v  up to w / 2 bytes at i * (w / 2 + ((sp - w) >> 1))
///
/// In the record `subpic_y`, `subpic_u` and `subpic_v` advance by h of their lines, to the end of the region.
/// `subpic_alpha` advances by (sp - w) * h, although the alpha plane is not touched.
///
/// @anchor alpha_lines
/// @par Lines of alpha
/// Line i = 0 .. max(1, h) - 1 is
///
///     subpic_alpha        w bytes at i * (w + ((pp - w) >> 1)): halfway between the width and the picture's pitch
///     surface             B * w bytes at i * rp
///
/// Mixers use sp as the pitch of the alpha plane: set pp = sp = w while preparing.
/// @{

/// RGB32 to the subpicture's Y, U and V planes.
/// @param[in,out] job the record; reads `subpicture_pitch`, `surface_pitch`, `width`, `height`, the four subpicture
///                    pointers, `surface` and `color_key`
/// @par Reads and writes
/// @ref conversion_to_yuv "Conversion to AYUY2" with B = 4. A pixel is transparent if all its 32 bits equal the key.
/// @par Irregular
/// `subpic_alpha` advances although nothing is written there.
VSURF_API void VSURF_CALL Convert_RGB32_To_AYUY2(MIX_INFO* job);

/// RGB24 to the subpicture's Y, U and V planes, X = 0.
///
/// The key is compared with 24 bits. Its top byte must be 0, or nothing is transparent.
/// @param[in,out] job the record, as Convert_RGB32_To_AYUY2()
/// @par Reads and writes
/// @ref conversion_to_yuv "Conversion to AYUY2" with B = 3. Also reads the byte after each line's last pixel, without
/// effect.
/// @par Irregular
/// `subpic_alpha` advances although nothing is written there.
VSURF_API void VSURF_CALL Convert_RGB24_To_AYUY2(MIX_INFO* job);

/// RGB16 in layout 0 to the subpicture's Y, U and V planes, X = 0.
///
/// Components are shifted up without filling their low bits, so white is 248, 252, 248. The key is the low 16 bits of
/// `color_key`.
/// @param[in,out] job the record, as Convert_RGB32_To_AYUY2(); `contrast_info` is ignored
/// @par Reads and writes
/// @ref conversion_to_yuv "Conversion to AYUY2" with B = 2.
/// @par Irregular
/// `subpic_alpha` advances although nothing is written there.
VSURF_API void VSURF_CALL Convert_RGB16_565_To_AYUY2(MIX_INFO* job);

/// The blue bytes of an RGB32 surface to the alpha plane.
/// @param[in] job the record; reads `picture_pitch`, `surface_pitch`, `width`, `height`, `subpic_alpha` and `surface`
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha" with B = 4, in blocks of 8 pixels. The record does not change.
/// @par Irregular
/// The step from line to line of the alpha plane depends on pp, not on sp.
VSURF_API void VSURF_CALL Restore_RGB32_To_Alpha(MIX_INFO* job);

/// The blue bytes of an RGB24 surface to the alpha plane, each from the next pixel to the right.
/// @param[in,out] job the record; reads what Restore_RGB32_To_Alpha() reads, and counts `height` down to 0
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha" with B = 3, in blocks of 8 pixels, and the byte after each line's pixels.
/// @par Irregular
/// Alpha i is byte 3i+3 of the line, the blue of the pixel to the right; at the end of a line, the byte after it. The
/// step from line to line of the alpha plane depends on pp, not on sp.
VSURF_API void VSURF_CALL Restore_RGB24_To_Alpha(MIX_INFO* job);

/// The five blue bits of RGB16 in layout 0 to the alpha plane: 0..31.
/// @param[in] job the record, as Restore_RGB32_To_Alpha()
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha" with B = 2, in blocks of 16 pixels. The record does not change.
/// @par Irregular
/// The step from line to line of the alpha plane depends on pp, not on sp. Mixers do not clamp values above 16.
VSURF_API void VSURF_CALL Restore_RGB16_565_To_Alpha(MIX_INFO* job);
/// @}

/// @defgroup drawing Subpicture drawing
/// Back from the planes: alpha onto a drawing, or only the subpicture for display.
///
/// @anchor drawer
/// @par Only the subpicture
/// The line length in pixels, and the pitch of the planes, is pp, a multiple of 16. `width` and sp are not read. The
/// alpha of a pixel selects what is written:
///
///     alpha      RGB32, RGB24                                            RGB16
///     0          byte 2 of color_key as blue, byte 1 green, byte 0 red   the low 16 bits of color_key
///     1..127     the colour                                              the colour
///     128..255   black                                                   the colour
///
/// Colours are @ref conversion "converted"; both pixels of a pair have the pair's chroma. For each line i from 0 to
/// max(1, h) - 1:
///
///     subpic_alpha, subpic_y  pp bytes at i * pp
///     subpic_u, subpic_v      pp / 2 bytes at i * pp / 2: one chroma line a line
///     surface                 B * pp bytes at i * rp
/// @{

/// The alpha plane to RGB32, so that it can be drawn on: blue = alpha, everything else 0.
/// @param[in] job the record; reads `picture_pitch`, `surface_pitch`, `width`, `height`, `subpic_alpha` and `surface`
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha" with B = 4, in blocks of 16 pixels. The record does not change.
/// @par Irregular
/// The step from line to line of the alpha plane depends on pp, not on sp.
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb32(MIX_INFO* job);

/// The alpha plane to RGB24: bytes alpha, 0, 0.
/// @param[in,out] job the record; reads what load_subpicture_alpha_rgb32() reads, and counts `height` down to 0
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha" with B = 3, in blocks of 16 pixels.
/// @par Irregular
/// Restore_RGB24_To_Alpha() moves the result one pixel to the left. The step from line to line of the alpha plane
/// depends on pp, not on sp.
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb24(MIX_INFO* job);

/// The alpha plane to 16-bit pixels with the value of alpha (above 31 it reaches into green).
/// @param[in] job the record, as load_subpicture_alpha_rgb32()
/// @par Reads and writes
/// @ref alpha_lines "Lines of alpha" with B = 2, in blocks of 16 pixels. The record does not change.
/// @par Irregular
/// The step from line to line of the alpha plane depends on pp, not on sp.
VSURF_API void VSURF_CALL load_subpicture_alpha_rgb16_565(MIX_INFO* job);

/// Only the subpicture, to RGB32.
/// @param[in] job the record; reads `picture_pitch`, `surface_pitch`, `height`, the four subpicture pointers, `surface`
///                and `color_key`
/// @par Reads and writes
/// @ref drawer "Only the subpicture" with B = 4; the fourth byte is 0. The record does not change.
/// @par Irregular
/// pp is the width, and the pitch of planes without gaps. The key is written with its bytes reversed. Alpha is signed.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb32(MIX_INFO* job);

/// Only the subpicture, to RGB24: blue, green, red.
/// @param[in] job the record, as load_subpicture_yuy2_rgb32()
/// @par Reads and writes
/// @ref drawer "Only the subpicture" with B = 3. The record does not change.
/// @par Irregular
/// pp is the width, and the pitch of planes without gaps. The key is written with its bytes reversed. Alpha is signed.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb24(MIX_INFO* job);

/// Only the subpicture, to RGB16 in the layout `contrast_info->rgb16_layout`.
/// @param[in] job the record; reads what load_subpicture_yuy2_rgb32() reads, and `contrast_info`
/// @par Reads and writes
/// @ref drawer "Only the subpicture" with B = 2, and bytes 32 to 35 of `contrast_info`. The record does not change.
/// @par Returns at once
/// for a layout other than 0..3.
/// @par Irregular
/// pp is the width, and the pitch of planes without gaps. The key is written as it is, whatever the layout.
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb16(MIX_INFO* job);

/// load_subpicture_yuy2_rgb32() with adjustment; neither the key nor black is adjusted.
/// @copydetails load_subpicture_yuy2_rgb32
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb32_ajust(MIX_INFO* job);

/// load_subpicture_yuy2_rgb24() with adjustment; neither the key nor black is adjusted.
/// @copydetails load_subpicture_yuy2_rgb24
VSURF_API void VSURF_CALL load_subpicture_yuy2_rgb24_ajust(MIX_INFO* job);

/// load_subpicture_yuy2_rgb16() with adjustment; the key is not adjusted.
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
/// Products keep their low 16 bits, the sum saturates as signed 16 bits, the shift is unsigned. So alpha above 16 gives
/// a defined result, but no usable picture. The chroma of a pair takes the alpha of its odd pixel unless stated
/// otherwise. Samples are adjusted after the blend, before any conversion. Pass widths that are multiples of 16; others
/// drift (docs/contract-subpictures.md). @ref job_terms "w, h, pp, sp and rp" are the record's numbers.
///
/// Most mixers modify the record: fill it again before each call.
///
/// @anchor progressive
/// @par Progressive (_p) onto YUY2 and RGB
/// Passes of two lines, at least one. Each pass lowers the record's `height` by 2, and passes continue while it is
/// above 0 (signed). It ends at 0 or, from an odd height, at -1. Both lines of a pass share the picture's chroma line;
/// each has its own chroma line of the subpicture. For each pass j from 0:
///
///     picture_y               w bytes at j * 2 * pp, and the same pp, rounded down to even, further
///     picture_u, picture_v    w / 2 bytes at j * (pp >> 1)
///     subpic_alpha, subpic_y  w bytes at j * 2 * sp, and the same sp, rounded down to even, further
///     subpic_u, subpic_v      w / 2 bytes at j * sp, and the same sp >> 1 further
///     surface                 B * w bytes at j * 2 * rp, and the same rp further
///
/// In the record `picture_u`, `picture_v` and the four subpicture pointers advance by these steps, once per pass.
///
/// @anchor interlaced
/// @par Interlaced (_i) onto YUY2 and RGB
/// The picture is one field, doubled in height. To read a field of a frame in place, pass twice the frame's pitch as pp
/// and the field's first lines as the planes. Y[i] and C[i] are the field's luma and chroma lines. Lines of the surface
/// come in groups g of four:
///
///     4g      Y[2g], C[g]
///     4g+1    avg(Y[2g], Y[2g+1]), C[g]
///     4g+2    Y[2g+1], avg(C[g], C[g+1])
///     4g+3    avg(Y[2g+1], Y[2g+2]), avg(C[g], C[g+1])
///
/// In the last group, lines 4g+2 and 4g+3 are both Y[2g+1], C[g]. avg rounds up. Heights from 8 on are rounded up to a
/// multiple of 4. Of Y[i] w bytes are read at picture_y + i * pp, of C[i] w / 2 bytes at i * (pp >> 1). Each line of
/// the surface has its own line of the subpicture: w bytes every sp, its chroma w / 2 bytes every sp >> 1. B * w bytes
/// are written every rp.
/// @{

/// Onto YUY2, progressive.
/// @param[in,out] job the record; reads the three pitches, `width`, `height`, the picture's and the subpicture's
///                    pointers and `surface`
/// @par Reads and writes
/// @ref progressive "Progressive mixers" with B = 2.
VSURF_API void VSURF_CALL mix_ayuy2_yuy2_p_ajust(MIX_INFO* job);

/// Onto YUY2 at half width, progressive.
///
/// Keeps pixels 1, 3, 5, ... of each line and chroma samples 1, 3, 5, ... Chroma sample 2k+1 takes the alpha of pixel
/// 4k+3. A block gives 16 bytes a line.
/// @param[in,out] job the record, as mix_ayuy2_yuy2_p_ajust()
/// @par Reads and writes
/// @ref progressive "Progressive mixers", except that w bytes of each surface line are written: two for every pixel
/// that is kept.
/// @par Irregular
/// sp takes the place of pp in the step to the lower line of the picture and in the step of its chroma. Pass equal
/// pitches for picture and subpicture.
VSURF_API void VSURF_CALL mix_ayuy2_half_yuy2_p_ajust(MIX_INFO* job);

/// Onto YUY2, interlaced.
/// @param[in,out] job the record; reads what mix_ayuy2_yuy2_p_ajust() reads
/// @par Reads and writes
/// @ref interlaced "Interlaced mixers" with B = 2. `height` ends at 0, `picture_u` and `picture_v` advance by pp >> 1
/// per group, the last one included, and the four subpicture pointers end behind the last line. pp must not be
/// negative.
/// @par Irregular
/// A height below 4 mixes nothing and leaves the record; 4 to 7 mix four lines. Other widths drift with every line.
VSURF_API void VSURF_CALL mix_ayuy2_yuy2_i_ajust(MIX_INFO* job);

/// Onto RGB32, progressive.
/// @param[in,out] job the record, as mix_ayuy2_yuy2_p_ajust()
/// @par Reads and writes
/// @ref progressive "Progressive mixers" with B = 4.
VSURF_API void VSURF_CALL mix_ayuy2_rgb32_p_ajust(MIX_INFO* job);

/// Onto RGB24, progressive.
/// @param[in,out] job the record, as mix_ayuy2_yuy2_p_ajust()
/// @par Reads and writes
/// @ref progressive "Progressive mixers" with B = 3.
VSURF_API void VSURF_CALL mix_ayuy2_rgb24_p_ajust(MIX_INFO* job);

/// Onto RGB16, progressive, in the layout `contrast_info->rgb16_layout`.
/// @param[in,out] job the record, as mix_ayuy2_yuy2_p_ajust(), and `contrast_info`
/// @par Reads and writes
/// @ref progressive "Progressive mixers" with B = 2, and bytes 32 to 35 of `contrast_info`.
/// @par Returns at once
/// for a layout other than 0..3, and leaves the record.
VSURF_API void VSURF_CALL mix_ayuy2_rgb16_p_ajust(MIX_INFO* job);

/// Onto RGB32, interlaced.
/// @param[in] job the record; reads what mix_ayuy2_yuy2_p_ajust() reads
/// @par Reads and writes
/// @ref interlaced "Interlaced mixers" with B = 4. Nothing drifts. The record does not change.
/// @par Irregular
/// A pair's chroma takes the rounded average of its two alphas. Heights below 8, even below 4, mix four lines.
VSURF_API void VSURF_CALL mix_ayuy2_rgb32_i_ajust(MIX_INFO* job);

/// Onto RGB24, interlaced.
/// @param[in] job the record, as mix_ayuy2_rgb32_i_ajust()
/// @par Reads and writes
/// @ref interlaced "Interlaced mixers" with B = 3. Nothing drifts. The record does not change.
/// @par Irregular
/// As mix_ayuy2_rgb32_i_ajust().
VSURF_API void VSURF_CALL mix_ayuy2_rgb24_i_ajust(MIX_INFO* job);

/// Onto RGB16, interlaced, in the layout `contrast_info->rgb16_layout`.
/// @param[in] job the record, as mix_ayuy2_rgb32_i_ajust(), and `contrast_info`
/// @par Reads and writes
/// @ref interlaced "Interlaced mixers" with B = 2, and bytes 32 to 35 of `contrast_info`. Nothing drifts. The record
/// does not change.
/// @par Returns at once
/// for a layout other than 0..3.
/// @par Irregular
/// As mix_ayuy2_rgb32_i_ajust().
VSURF_API void VSURF_CALL mix_ayuy2_rgb16_i_ajust(MIX_INFO* job);

/// Onto the YV12 planes `surface`, `surface_v` and `surface_u`, progressive, not adjusted.
///
/// Luma in blocks of 8 pixels, h lines (at least one); then V, then U, in blocks of 8 samples, half the height (at
/// least one line). Chroma and its alpha come from the subpicture's even lines; each sample takes the alpha of its odd
/// pixel. The surface may be the picture itself, at equal pitches and widths that are multiples of 16.
/// @param[in,out] job the record; reads what mix_ayuy2_yuy2_p_ajust() reads, `surface_u` and `surface_v`, and halves
///                    `height`
/// @par Reads and writes
/// For luma line i of max(1, h), and for line i of max(1, h >> 1) of V and U:
///
///     picture_y                     w bytes at i * pp
///     subpic_y, subpic_alpha        w bytes at i * sp
///     surface                       w bytes at i * rp
///     picture_u, picture_v          w / 2 bytes at i * (pp >> 1)
///     subpic_u, subpic_v            w / 2 bytes at i * sp
///     subpic_alpha of chroma        w bytes at i * 2 * sp
///     surface_u, surface_v          w / 2 bytes at i * (rp >> 1)
VSURF_API void VSURF_CALL mix_ayv12_yv12_p(MIX_INFO* job);

/// mix_ayv12_yv12_p() with adjustment of each blended sample: V with v_offset, U with u_offset.
/// @copydetails mix_ayv12_yv12_p
VSURF_API void VSURF_CALL mix_ayv12_yv12_p_ajust(MIX_INFO* job);

/// Onto YV12, interlaced, not adjusted.
///
/// In each plane, line 2j is the field's line j, line 2j+1 the rounded average of lines j and j+1. This holds to the
/// end: the line after the field's last is read. The height must be a multiple of 4, pp not negative.
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
/// Fills read no memory. Pass j from 0 writes 16 * B * blocks bytes at surface + j * (2 * pitch + r * B), and as many
/// `pitch` further.
/// @{

/// @defgroup fill_arguments Arguments of the fills
/// All three have these.
/// @param[in]  colour   as the surface encodes it
/// @param[out] surface  first line of the rectangle
/// @param[in]  width    of the rectangle in pixels, a multiple of 16
/// @param[in]  height   of the rectangle in lines, even; 0 returns at once
/// @param[in]  reserved ignored
/// @param[in]  pitch    bytes from one line to the next

/// Fills a rectangle of an RGB32 surface with `colour`.
/// @copydetails fill_arguments
/// @par Reads and writes
/// @ref fill_passes "Fills" with B = 4.
VSURF_API void VSURF_CALL LoadColorKeyRgb32(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

/// Fills a rectangle of an RGB24 surface; only greys fill evenly.
///
/// Each block consists of the little-endian 64-bit words W0 W1 W2 W0 W1 W2. With c = `colour`, and shifts that drop
/// what leaves the word:
///
///     W0 = c << 40 | c << 16 | c >> 8
///     W1 = c << 56 | c << 32 | c << 8 | c >> 16
///     W2 = c << 48 | c << 24 | c
/// @copydetails fill_arguments
/// @par Reads and writes
/// @ref fill_passes "Fills" with B = 3.
/// @par Irregular
/// The bytes do not repeat every three. 0x00332211 gives 22 33 11 22 33 11 22 33, 33 11 22 33 11 22 33 11,
/// 11 22 33 11 22 33 11 22.
VSURF_API void VSURF_CALL LoadColorKeyRgb24(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

/// Fills a rectangle of 16-bit pixels with the low 16 bits of `colour`.
/// @copydetails fill_arguments
/// @par Reads and writes
/// @ref fill_passes "Fills" with B = 2.
VSURF_API void VSURF_CALL LoadColorKeyRgb16(unsigned int colour, void* surface, int width, int height, int reserved,
                                            int pitch);

/// Where a byte of `mask` equals the low byte of `match`, sets the byte of `dst` to the low byte of `key`.
/// @param[in,out] dst    first line of the picture to change; may be `mask`
/// @param[in]     mask   first line of the mask
/// @param[in]     match  which bytes of the mask count
/// @param[in]     key    what takes their place
/// @param[in]     width  bytes of a line, a multiple of 16
/// @param[in]     pitch  bytes from one line to the next, of both pictures
/// @param[in]     height lines; at least one is processed
/// @par Reads and writes
/// Line i, one at a time: 16 * blocks bytes of `mask` and of `dst` at i * (pitch + r). All bytes of `dst` are read and
/// written, also those that keep their value.
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
