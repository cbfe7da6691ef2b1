// SPDX-License-Identifier: MIT
// RGB drawings into the Y, U and V planes of a subpicture.
#include "frame/blocks.h"
#include "frame/dispatch.h"
#include "subpicture/rgb_source.h"

namespace vsurf::VSURF_ISA {

constexpr int kKeyBlock = 8; // pixels that are skipped together where all have the key colour

// The matrix in 1/1024, BT.601 studio range, on the word pairs (blue, red) and (green, fourth). The fourth byte,
// with the offset ORed into it, has weight 1.
constexpr int kFraction = 10;
template <int N>
ALWAYS_INLINE Dwords<N> weighted(Words<N> blue_red, Words<N> green_fourth, Words<N> by_blue_red, Words<N> by_green)
{
    auto sum = add(pair_dots(blue_red, by_blue_red), pair_dots(green_fourth, by_green));
    return shr_signed<kFraction>(sum);
}

template <int N> ALWAYS_INLINE Words<N> with_offset(Words<N> green_fourth, int offset)
{
    return as_words(bit_or(as_bytes(green_fourth), as_bytes(Words<N>::alternate(0, offset))));
}

template <int N> ALWAYS_INLINE Dwords<N> luma(Bytes<N> pixels)
{
    auto components = split(pixels);
    return weighted(components.even, with_offset(components.odd, 16), Words<N>::alternate(100, 263),
                    Words<N>::alternate(516, 1024));
}

// U and V of a pair, from its first pixel.
template <int N> ALWAYS_INLINE Dwords<N> chroma(Bytes<N> pixels)
{
    auto components = split(first_of_pixel_pairs(pixels));
    return weighted(components.even, with_offset(components.odd, 128), Words<N>::repeat(449, -151, -72, 449),
                    Words<N>::repeat(-297, 1024, -376, 1024));
}

template <int N> ALWAYS_INLINE Bytes<N> all_luma(const Pixels<N>& px)
{
    return pack_in_order(luma(px.of[0]), luma(px.of[1]), luma(px.of[2]), luma(px.of[3]));
}

// N/2 samples of U, then N/2 samples of V.
template <int N> ALWAYS_INLINE Bytes<N> all_chroma(const Pixels<N>& px)
{
    auto uv = split(pack_in_order(chroma(px.of[0]), chroma(px.of[1]), chroma(px.of[2]), chroma(px.of[3])));
    return pack_in_order(uv.even, uv.odd);
}

struct Converted {
    uint8_t *y, *u, *v;
};

// The key colour: pixels of a drawing that have it are transparent.
template <class Format> struct Key {
    uint8_t pixels[Format::kBytes * kPixelsAtATime];
    bool matches_nothing;

    static ALWAYS_INLINE Key with(uint32_t colour)
    {
        Key key;
        for (int i = 0; i < Format::kBytes * kPixelsAtATime; i++)
            key.pixels[i] = static_cast<uint8_t>(colour >> i % Format::kBytes * 8);
        key.matches_nothing = Format::kBytes == 3 && colour >> 24 != 0;
        return key;
    }
    ALWAYS_INLINE bool fills(const uint8_t* src) const
    {
        auto same = equal(load<kPixelsAtATime>(src), load<kPixelsAtATime>(pixels));
        for (int i = kPixelsAtATime; i < Format::kBytes * kPixelsAtATime; i += kPixelsAtATime)
            same = bit_and(same, equal(load<kPixelsAtATime>(src + i), load<kPixelsAtATime>(pixels + i)));
        return !matches_nothing && all(same);
    }
    // Which blocks have a pixel of another colour.
    ALWAYS_INLINE unsigned shown_blocks(const uint8_t* src) const
    {
        constexpr int bytes = Format::kBytes * kKeyBlock;
        unsigned shown = 0;
        for (int i = 0; i < kPixelsAtATime / kKeyBlock; i++)
            shown |= unsigned{matches_nothing || __builtin_memcmp(src + i * bytes, pixels, bytes) != 0} << i;
        return shown;
    }
};

constexpr unsigned kAllBlocks = (1u << kPixelsAtATime / kKeyBlock) - 1;

template <class Format> ALWAYS_INLINE void convert_blocks(const uint8_t* src, Converted to, unsigned blocks)
{
    auto px = Format::template pixels<kPixelsAtATime>(src);
    auto y = all_luma(px), uv = all_chroma(px);
    if (blocks == kAllBlocks) {
        put(to.y, y);
        put_halves(to.u, to.v, uv);
        return;
    }
    uint8_t luma[kPixelsAtATime], u[kPixelsAtATime / 2], v[kPixelsAtATime / 2];
    put(luma, y);
    put_halves(u, v, uv);
    for (int i = 0; i < kPixelsAtATime / kKeyBlock; i++)
        if (blocks >> i & 1) {
            __builtin_memcpy(to.y + i * kKeyBlock, luma + i * kKeyBlock, kKeyBlock);
            __builtin_memcpy(to.u + i * kKeyBlock / 2, u + i * kKeyBlock / 2, kKeyBlock / 2);
            __builtin_memcpy(to.v + i * kKeyBlock / 2, v + i * kKeyBlock / 2, kKeyBlock / 2);
        }
}

template <class Format>
ALWAYS_INLINE void convert_line(const uint8_t* src, Converted to, ptrdiff_t width, const Key<Format>& key)
{
    ptrdiff_t x = 0;
    auto at = [to](ptrdiff_t from) VSURF_INLINED { return Converted{to.y + from, to.u + from / 2, to.v + from / 2}; };
    for (; width - x >= kPixelsAtATime; x += kPixelsAtATime) {
        auto pixels = src + x * Format::kBytes;
        if (!key.fills(pixels)) convert_blocks<Format>(pixels, at(x), key.shown_blocks(pixels));
    }
    if (x == width) return;
    uint8_t last[Format::kBytes * kPixelsAtATime] = {};
    __builtin_memcpy(last, src + x * Format::kBytes, static_cast<size_t>((width - x) * Format::kBytes));
    const unsigned there = (1u << (width - x) / kKeyBlock) - 1;
    convert_blocks<Format>(last, at(x), key.shown_blocks(last) & there);
}

// Irregular: blocks of the key colour are skipped, and subpic_alpha moves by what the lines leave over although nothing
// is done to it.
template <class Format> ALWAYS_INLINE void convert(Job job)
{
    const auto key = Key<Format>::with(job->color_key);
    const ptrdiff_t width = static_cast<ptrdiff_t>(static_cast<unsigned>(job->width) >> 3) * kKeyBlock;
    const ptrdiff_t lines = at_least_one(job->height);
    const int rest = wrapping_sub(job->subpicture_pitch, job->width);
    const ptrdiff_t y_step = width + rest, chroma_step = width / 2 + logical_half(rest);
    const ptrdiff_t src_step = Format::kBytes * (width - job->width) + job->surface_pitch;
    const uint8_t* src = job->surface;
    const Converted to{job->subpic_y, job->subpic_u, job->subpic_v};
    for (ptrdiff_t i = 0; i < lines; i++)
        convert_line(src + i * src_step, {to.y + i * y_step, to.u + i * chroma_step, to.v + i * chroma_step}, width,
                     key);
    job->subpic_y += lines * y_step;
    job->subpic_u += lines * chroma_step;
    job->subpic_v += lines * chroma_step;
    job->subpic_alpha += lines * rest;
}

void Convert_RGB32_To_AYUY2(Job job) { convert<FromRgb32>(job); }
void Convert_RGB24_To_AYUY2(Job job) { convert<FromRgb24>(job); }
void Convert_RGB16_565_To_AYUY2(Job job) { convert<FromRgb565>(job); }

} // namespace vsurf::VSURF_ISA
