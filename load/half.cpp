// SPDX-License-Identifier: MIT
// Planar YV12 pictures at half their width.
#include "frame/passes.h"
#include "load/loader.h"
#include "load/plane.h"

namespace vsurf::VSURF_ISA {

// Neighbours are averaged, rounded up, then adjusted: N source pixels give N/2, a block of 16 half a register of them.
struct HalfYuy2Step {
    static constexpr int kWidest = 2 * kRegister, kBytes = 1;
    static constexpr bool kStreams = true;
    Adjustments by;

    template <int N> struct Chroma {
        Words<N> u, v;
    };
    template <int N> ALWAYS_INLINE auto chroma(Position at, ptrdiff_t x) const
    {
        constexpr int samples = N == kBlock ? 16 : N / 2;
        auto averages = [x](const uint8_t* plane) VSURF_INLINED {
            if constexpr (N == kBlock) return averages_of_pairs(load_first8(plane + x / 2));
            else return averages_of_pairs(load<samples, 2>(plane + x / 2));
        };
        return Chroma<samples>{by.u(averages(at.u)), by.v(averages(at.v))};
    }
    // A block is one register, anything wider two.
    template <int N> struct Luma {
        Words<N == kBlock ? 16 : N / 2> first, second;
    };
    template <int N> ALWAYS_INLINE Words<N> averages_at(const uint8_t* y) const
    {
        return by.luma(averages_of_pairs(load<N>(y)));
    }
    template <Line, int N> ALWAYS_INLINE Luma<N> luma(Position at, ptrdiff_t x) const
    {
        auto y = at.y + x;
        constexpr int samples = N == kBlock ? 16 : N / 2;
        auto first = averages_at<samples>(y);
        if constexpr (N == kBlock) return Luma<N>{first, first};
        else return Luma<N>{first, averages_at<samples>(y + samples)};
    }
    template <Stores S, Line, int N, int M>
    ALWAYS_INLINE void store(Position at, ptrdiff_t x, Luma<N> y, Chroma<M> c) const
    {
        if constexpr (N == kBlock) store_first8_yuyv(at.dst + x, y.first, c.u, c.v);
        else store_yuyv(to<S>(at.dst + x), y.first, y.second, c.u, c.v);
    }
};

LOADER_EXPORT(loadimage_half_yuy2_ajust)
{
    do_walk(walk_by_line(PICTURE, HalfYuy2Step::kBytes), HalfYuy2Step{adjustments_now()});
}

// A chroma line closes with a block that ends at its last sample and overlaps what came before.
struct HalveChromaLine : HalveLine {
    ptrdiff_t rest; // samples beyond the whole blocks
    template <Stores S> ALWAYS_INLINE void store(uint8_t* dst, const uint8_t* src, ptrdiff_t x, ptrdiff_t end) const
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
