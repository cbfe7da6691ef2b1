// SPDX-License-Identifier: MIT
// Alpha as the blue of RGB drawings: taken from them, and drawn for them.
#include "frame/dispatch.h"
#include "frame/sink.h"
#include "subpicture/rgb_source.h"

namespace vsurf::VSURF_ISA {

// From one line of the alpha plane to the next: half of what the picture's pitch has beyond the width. The subpicture's
// pitch does not count.
ALWAYS_INLINE ptrdiff_t alpha_step(const MIX_INFO* job, ptrdiff_t width)
{
    return width + (wrapping_sub(job->picture_pitch, job->width) >> 1);
}

// Blue as a source of alpha: `alpha<N>` gives N alphas, N at least 16, and `eight` the last eight of a line.
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

// A line of the alpha plane; x counts alphas.
template <class Blue> struct RestoredLine {
    static constexpr int kBytes = 1, kGrain = 1, kWidest = Blue::kWidest;
    static constexpr bool kComplete = true, kEights = Blue::kBlockPixels == 8;
    const uint8_t* drawing;

    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Bytes<N> own(ptrdiff_t x) const
    {
        return Blue::template alpha<N>(drawing + x * Blue::kBytes);
    }
    template <class To, int N> static ALWAYS_INLINE void store(To to, Bytes<N> alpha, Nothing) { put(to, alpha); }
    ALWAYS_INLINE void store_eight(uint8_t* to, ptrdiff_t x) const
    {
        put_first8(to, Blue::eight(drawing + x * Blue::kBytes));
    }
};

template <class Blue> ALWAYS_INLINE void restore(const MIX_INFO* job)
{
    const ptrdiff_t width = whole_steps(job->width, Blue::kBlockPixels);
    const ptrdiff_t drawing_step = Blue::kBytes * (width - job->width) + job->surface_pitch;
    const ptrdiff_t lines = at_least_one(job->height), step = alpha_step(job, width);
    for (ptrdiff_t i = 0; i < lines; i++)
        Writer::store_line(RestoredLine<Blue>{job->surface + i * drawing_step}, job->subpic_alpha + i * step,
                           {0, width});
}

void Restore_RGB32_To_Alpha(Job job) { restore<BlueOfRgb32>(job); }
void Restore_RGB16_565_To_Alpha(Job job) { restore<BlueOfRgb565>(job); }

ALWAYS_INLINE void count_down(Job job)
{
    job->height = wrapping_sub(job->height, static_cast<int>(at_least_one(job->height)));
}

// Irregular: reads the blue one pixel too far on, and counts the record's height down.
void Restore_RGB24_To_Alpha(Job job)
{
    restore<NextBlueOfRgb24>(job);
    count_down(job);
}

// Formats of pixels that have only blue, from alphas that are woven by kWeave.
struct BlueToRgb32 {
    static constexpr int kBytes = 4, kWeave = 4;
    template <class To, int N> static ALWAYS_INLINE void put(To to, Bytes<N> alpha)
    {
        auto zero = Bytes<N>::splat(0);
        store_quads(to, alpha, zero, zero, zero);
    }
};
struct BlueToRgb24 {
    static constexpr int kBytes = 3, kWeave = 1;
    template <class To, int N> static ALWAYS_INLINE void put(To to, Bytes<N> alpha)
    {
        auto zero = Bytes<N>::splat(0);
        store_bgr(to, pack(split(alpha)), zero, zero);
    }
};
struct BlueToRgb565 { // from 32 on it reaches into green
    static constexpr int kBytes = 2, kWeave = 2;
    template <class To, int N> static ALWAYS_INLINE void put(To to, Bytes<N> alpha)
    {
        store_pairs(to, alpha, Bytes<N>::splat(0));
    }
};

// Pixels of a surface; x counts pixels.
template <class Format> struct DrawnAlphaLine {
    static constexpr int kBytes = Format::kBytes, kGrain = 1, kWidest = kRegister;
    static constexpr bool kComplete = true, kEights = false;
    const uint8_t* alpha;

    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Bytes<N> own(ptrdiff_t x) const { return load<N, Format::kWeave>(alpha + x); }
    template <class To, int N> static ALWAYS_INLINE void store(To to, Bytes<N> alphas, Nothing)
    {
        Format::put(to, alphas);
    }
};

template <class Format> ALWAYS_INLINE void draw_alpha(const MIX_INFO* job)
{
    const ptrdiff_t width = whole_steps(job->width, kBlock), step = alpha_step(job, width);
    const ptrdiff_t surface_step = Format::kBytes * (width - job->width) + job->surface_pitch;
    const ptrdiff_t lines = at_least_one(job->height);
    Writer writer(Target::lines(job->surface, surface_step, width * Format::kBytes, lines));
    for (ptrdiff_t i = 0; i < lines; i++)
        writer.line(DrawnAlphaLine<Format>{job->subpic_alpha + i * step}, job->surface + i * surface_step, {0, width});
}

void load_subpicture_alpha_rgb32(Job job) { draw_alpha<BlueToRgb32>(job); }
void load_subpicture_alpha_rgb16_565(Job job) { draw_alpha<BlueToRgb565>(job); }

// Irregular: counts the record's height down.
void load_subpicture_alpha_rgb24(Job job)
{
    draw_alpha<BlueToRgb24>(job);
    count_down(job);
}

} // namespace vsurf::VSURF_ISA
