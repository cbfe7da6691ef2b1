// Planar YV12 pictures at half their width.
#include "load/loader.h"
#include "load/plane.h"

namespace vsurf::VSURF_ISA {

// Neighbours are averaged, rounded up, then adjusted: 2N source pixels from N samples of each chroma plane.
struct HalfYuy2Line {
    Adjustments by;

    template <int N> OP half<N> averaged(u8<N> a)
    {
        auto words = split(a);
        return avg(words.even, words.odd);
    }
    template <Stores S, int N> MEMBER void step(Position at, ptrdiff_t x) const
    {
        auto luma = [&](ptrdiff_t from) VSURF_INLINED { return by.luma(averaged(load<N>(at.y + from))); };
        auto u = averaged(load<N, 2>(at.u + x / 2)), v = averaged(load<N, 2>(at.v + x / 2));
        store_yuyv<S>(at.dst + x, luma(x), luma(x + N), by.u(u), by.v(v));
    }
    MEMBER void block(Position at, ptrdiff_t x) const
    {
        auto u = averaged(load_first8(at.u + x / 2)), v = averaged(load_first8(at.v + x / 2));
        store_first8_yuyv(at.dst + x, by.luma(averaged(load<16>(at.y + x))), by.u(u), by.v(v));
    }
    template <Stores S> MEMBER void store(Position at, ptrdiff_t x, ptrdiff_t end) const
    {
        along<2 * kLanes, 32>(x, end, [&]<int span>(ptrdiff_t from) VSURF_INLINED { step<S, span / 2>(at, from); });
        if (end & kBlock && x != end) block(at, end - kBlock);
    }
};

LOADER_EXPORT(loadimage_half_yuy2_ajust)
{
    const Walk walk = walk_by_line(PICTURE, 1);
    const HalfYuy2Line line{adjustments_now()};
    const bool streamed = streams(walk);
    const ptrdiff_t whole = streamed ? walk.width & -kCacheLine : 0;
    Position upper = walk.start;
    for (ptrdiff_t i = 0; i < 2 * walk.passes; i++) {
        Position at = i % 2 ? upper + walk.to_lower : upper;
        line.store<Stores::streaming>(at, 0, whole);
        line.store<Stores::cached>(at, whole, walk.width);
        if (i % 2) upper = upper + walk.to_next_pass;
    }
    if (streamed) fence_streaming();
}

// A chroma line closes with a block that ends at its last sample and overlaps what came before.
struct HalveChromaLine : HalveLine {
    ptrdiff_t rest; // samples beyond the whole blocks
    template <Stores S> MEMBER void store(uint8_t* dst, const uint8_t* src, ptrdiff_t x, ptrdiff_t end) const
    {
        HalveLine::store<S>(dst, src, x, end);
        if (S == Stores::cached && rest) block(dst + end - 8 + (rest >> 1), src + 2 * end - 16 + rest);
    }
};

// Keeps the odd samples, without averaging; the planes lie at the ordinary places for its own height and pitch, and
// each has its own offset.
LOADER_EXPORT(loadimage_half_yv12_ajust)
{
    const auto by = adjustments_now();
    const Picture p = PICTURE;
    const ptrdiff_t pitch = dst_pitch, half_pitch = dst_pitch >> 1, half_width = width >> 1;
    const ptrdiff_t luma_lines = rounds(height, 1), luma_bytes = rounds(width, 16) * 8;
    const auto size = static_cast<size_t>(luma_lines * luma_bytes) * 3 / 2;

    Plane luma{p.start.y, p.start.dst, y_pitch + 2 * luma_bytes - width, pitch + luma_bytes - half_width, luma_lines};
    each_line(luma, luma_bytes, streams(luma, size), HalveLine{by.luma});

    const ptrdiff_t rest = half_width & 15, chroma_bytes = rounds(width >> 1 & ~15, 16) * 8;
    auto chroma = [&](const uint8_t* plane, uint8_t* to, SampleAdjust adjust) VSURF_INLINED {
        Plane lines{plane, to, (y_pitch >> 1) - half_width + 2 * chroma_bytes + rest,
                    half_pitch - (width >> 2) + chroma_bytes + (rest >> 1), rounds(height >> 1, 1)};
        each_line(lines, chroma_bytes, streams(lines, size), HalveChromaLine{{adjust}, rest});
    };
    auto v_plane = p.start.dst + height * pitch, u_plane = v_plane + half_pitch * (height >> 1);
    chroma(p.start.v, v_plane, by.v);
    chroma(p.start.u, u_plane, by.u);
}

} // namespace vsurf::VSURF_ISA
