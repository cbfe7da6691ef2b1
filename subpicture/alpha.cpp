// SPDX-License-Identifier: MIT
// Alpha as the blue of RGB drawings: taken from them, and drawn for them.
#include "frame/dispatch.h"
#include "subpicture/lines.h"
#include "subpicture/rgb_source.h"

namespace vsurf::VSURF_ISA {

// The alpha plane's lines lie half the picture's pitch beyond the width apart, whatever the subpicture's pitch.
ALWAYS_INLINE ptrdiff_t alpha_step(const MIX_INFO* job, ptrdiff_t width)
{
    return width + (difference(job->picture_pitch, job->width) >> 1);
}

// N alphas, N at least 16, and the last eight of a line.
struct BlueOfRgb32 {
    static constexpr int kBytes = 4, kBlockPixels = 8, kWidest = kPixelsAtATime;
    template <int N> static ALWAYS_INLINE Bytes<N> alpha(const uint8_t* p)
    {
        auto px = FromRgb32::pixels<N>(p);
        return pack_in_order(first_bytes(px.of[0]), first_bytes(px.of[1]), first_bytes(px.of[2]),
                             first_bytes(px.of[3]));
    }
    static ALWAYS_INLINE Bytes<16> eight(const uint8_t* p)
    {
        auto first = first_bytes(load<16>(p)), second = first_bytes(load<16>(p + 16));
        return pack_in_order(first, second, first, second);
    }
};

// The blue of the pixel to the right: byte 3 i + 3. The last of eight pixels ends the second register.
struct NextBlueOfRgb24 {
    static constexpr int kBytes = 3, kBlockPixels = 8, kWidest = 16;
    static ALWAYS_INLINE Dwords<16> first_four(const uint8_t* p)
    {
        return first_bytes(pixels_of_triples(drop_first<3>(load<16>(p))));
    }
    static ALWAYS_INLINE Dwords<16> last_four(const uint8_t* p)
    {
        return first_bytes(pixels_of_triples(drop_first<6>(load<16>(p + 9))));
    }
    template <int N> static ALWAYS_INLINE Bytes<N> alpha(const uint8_t* p)
    {
        return pack_in_order(first_four(p), last_four(p), first_four(p + 24), last_four(p + 24));
    }
    static ALWAYS_INLINE Bytes<16> eight(const uint8_t* p)
    {
        auto first = first_four(p), second = last_four(p);
        return pack_in_order(first, second, first, second);
    }
};

struct BlueOfRgb565 {
    static constexpr int kBytes = 2, kBlockPixels = 16, kWidest = kRegister;
    template <int N> static ALWAYS_INLINE Bytes<N> alpha(const uint8_t* p)
    {
        auto blue = [p](int from) VSURF_INLINED { return shr<11>(shl<11>(as_words(load<N>(p + from)))); };
        return pack_in_order(blue(0), blue(N));
    }
};

template <class Blue> ALWAYS_INLINE void restore(const MIX_INFO* job)
{
    const ptrdiff_t width = rounds(job->width, Blue::kBlockPixels) * Blue::kBlockPixels;
    const ptrdiff_t src_step = Blue::kBytes * (width - job->width) + job->surface_pitch;
    const ptrdiff_t lines = at_least_one(job->height), step = alpha_step(job, width);
    const uint8_t* src = job->surface;
    uint8_t* alpha = job->subpic_alpha;
    for (ptrdiff_t i = 0; i < lines; i++, src += src_step, alpha += step) {
        along<Blue::kWidest, 16>(0, width, [=]<int N>(ptrdiff_t x) VSURF_INLINED {
            put(alpha + x, Blue::template alpha<N>(src + x * Blue::kBytes));
        });
        if constexpr (Blue::kBlockPixels == 8)
            if (width & 8) put_first8(alpha + width - 8, Blue::eight(src + (width - 8) * Blue::kBytes));
    }
}

void Restore_RGB32_To_Alpha(MIX_INFO* job) { restore<BlueOfRgb32>(job); }
void Restore_RGB16_565_To_Alpha(MIX_INFO* job) { restore<BlueOfRgb565>(job); }

ALWAYS_INLINE void count_down(MIX_INFO* job)
{
    job->height = difference(job->height, static_cast<int>(at_least_one(job->height)));
}

// Irregular: reads the blue one pixel too far on, and counts the record's height down.
void Restore_RGB24_To_Alpha(MIX_INFO* job)
{
    restore<NextBlueOfRgb24>(job);
    count_down(job);
}

// Blue alone; woven by kWeave.
struct BlueToRgb32 {
    static constexpr int kBytes = 4, kWeave = 4;
    template <Stores S, int N> static ALWAYS_INLINE void store(uint8_t* p, Bytes<N> alpha)
    {
        auto zero = Bytes<N>::splat(0);
        store_quads(to<S>(p), alpha, zero, zero, zero);
    }
};
struct BlueToRgb24 {
    static constexpr int kBytes = 3, kWeave = 1;
    template <Stores S, int N> static ALWAYS_INLINE void store(uint8_t* p, Bytes<N> alpha)
    {
        auto zero = Bytes<N>::splat(0);
        store_bgr(to<S>(p), pack(split(alpha)), zero, zero);
    }
};
struct BlueToRgb565 { // from 32 on it reaches into green
    static constexpr int kBytes = 2, kWeave = 2;
    template <Stores S, int N> static ALWAYS_INLINE void store(uint8_t* p, Bytes<N> alpha)
    {
        store_pairs(to<S>(p), alpha, Bytes<N>::splat(0));
    }
};

template <class Format> ALWAYS_INLINE void draw_alpha(const MIX_INFO* job)
{
    const ptrdiff_t width = rounds(job->width, kBlock) * kBlock, step = alpha_step(job, width);
    const ptrdiff_t surface_step = Format::kBytes * (width - job->width) + job->surface_pitch;
    const uint8_t* alpha = job->subpic_alpha;
    draw_lines<Format::kBytes>({job->surface, surface_step, at_least_one(job->height), width},
                               [=]<Stores S, int N>(ptrdiff_t line, ptrdiff_t x, uint8_t* to) VSURF_INLINED {
                                   Format::template store<S>(to, load<N, Format::kWeave>(alpha + line * step + x));
                               });
}

void load_subpicture_alpha_rgb32(MIX_INFO* job) { draw_alpha<BlueToRgb32>(job); }
void load_subpicture_alpha_rgb16_565(MIX_INFO* job) { draw_alpha<BlueToRgb565>(job); }

// Irregular: counts the record's height down.
void load_subpicture_alpha_rgb24(MIX_INFO* job)
{
    draw_alpha<BlueToRgb24>(job);
    count_down(job);
}

} // namespace vsurf::VSURF_ISA
