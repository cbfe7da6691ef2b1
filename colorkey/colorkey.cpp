// SPDX-License-Identifier: MIT
// Colour keys: the rectangle in which an overlay shows the video, and bytes replaced where a mask says so.
#include "frame/dispatch.h"
#include "frame/passes.h"

namespace vsurf::VSURF_ISA {

// Nothing is read: the pixels of a step are the same wherever it stands.
template <int bytes> struct FillStep {
    static constexpr int kWidest = kRegister, kBytes = bytes;
    static constexpr bool kStreams = true;
    struct Nothing {};
    template <int> struct Pixels {
    };
    uint8_t pattern[bytes * kRegister];

    template <int> ALWAYS_INLINE Nothing chroma(Position, ptrdiff_t) const { return {}; }
    template <Line, int N> ALWAYS_INLINE Pixels<N> luma(Position, ptrdiff_t) const { return {}; }
    template <Stores S, Line, int N> ALWAYS_INLINE void store(Position at, ptrdiff_t x, Pixels<N>, Nothing) const
    {
        for (int i = 0; i < bytes * N; i += N) put(to<S>(at.dst + x * bytes + i), load<N>(pattern + i));
    }
};

// `words` are repeated over the block's 16 pixels.
template <int bytes, int count>
ALWAYS_INLINE void fill(const uint64_t (&words)[count], void* surface, int width, int height, int pitch)
{
    if (height == 0) return;
    FillStep<bytes> step;
    for (int i = 0; i < bytes * kRegister; i++)
        step.pattern[i] = static_cast<uint8_t>(words[i / 8 % count] >> i % 8 * 8);
    const Position start{nullptr, nullptr, nullptr, static_cast<uint8_t*>(surface)};
    do_walk(walk_by_pass({start, width, height, 0, pitch}, bytes), step);
}

void LoadColorKeyRgb32(unsigned int colour, void* surface, int width, int height, int, int pitch)
{
    fill<4>({colour * 0x100000001u}, surface, width, height, pitch);
}

void LoadColorKeyRgb16(unsigned int colour, void* surface, int width, int height, int, int pitch)
{
    fill<2>({(colour & 0xffff) * 0x1000100010001u}, surface, width, height, pitch);
}

// Irregular: the three words do not continue one another as triples of bytes, and the colour's top byte shows.
void LoadColorKeyRgb24(unsigned int colour, void* surface, int width, int height, int, int pitch)
{
    const uint64_t c = colour;
    fill<3>({c << 40 | c << 16 | c >> 8, c << 56 | c << 32 | c << 8 | c >> 16, c << 48 | c << 24 | c}, surface, width,
            height, pitch);
}

// Irregular: what the mask does not select is written back as it was.
void RelaceMaskWithColorKey(unsigned char* dst, unsigned char* mask, unsigned int match, unsigned int key, int width,
                            int pitch, int height)
{
    const ptrdiff_t bytes = rounds(width, 16) * 16, step = pitch + (bytes - width), lines = rounds(height, 1);
    auto replace = [=]<int N>(uint8_t* to, const uint8_t* from) VSURF_INLINED {
        auto selected = equal(load<N>(from), Bytes<N>::splat(static_cast<int>(match)));
        put(to, choose(selected, Bytes<N>::splat(static_cast<int>(key)), load<N>(to)));
    };
    for (ptrdiff_t i = 0; i < lines; i++, dst += step, mask += step)
        along<kRegister, 16>(
            0, bytes, [=]<int N>(ptrdiff_t x) VSURF_INLINED { replace.template operator()<N>(dst + x, mask + x); });
}

} // namespace vsurf::VSURF_ISA
