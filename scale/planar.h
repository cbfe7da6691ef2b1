// SPDX-License-Identifier: MIT
// Planar YV12 pictures, enlarged: which lines make each line of the surface.
//
// Source line `y` makes two lines of the surface: itself, and what goes between it and the line below. The chroma of
// both comes from between two chroma lines, which are one and the same for every second luma line.
#pragma once
#include "frame/picture.h"
#include "scale/adjusted.h"

namespace vsurf::VSURF_ISA {

// The last luma line and the last chroma line have nothing below and stand in for it.
struct Neighbours {
    int y, y_below, c, c_below;

    static ALWAYS_INLINE Neighbours of_line(int y, int height)
    {
        const int c = y / 2;
        return {y, y + 1 < height ? y + 1 : y, c, y % 2 != 0 && c + 1 < height / 2 ? c + 1 : c};
    }
};

// The rows of these lines. U looks ahead in rows of its own, which may have other samples.
struct Rows {
    Row y, y_below, u, u_below, v, v_below, u_ahead, u_ahead_below;
};

// The pixels of a line that are adjusted at a time: a part, and the block after it, into which neighbours reach.
constexpr ptrdiff_t kPartAndAhead = kStackPart + kBlock;

// Adjusted lines: those of even numbers in one slot, those of odd ones in the other. 20 KiB of stack.
struct AdjustedPart {
    uint8_t y[2][kPartAndAhead], u[2][kPartAndAhead / 2], v[2][kPartAndAhead / 2], u_ahead[2][kPartAndAhead / 2];

    ALWAYS_INLINE Rows rows(Neighbours n) const
    {
        const int luma = n.y & 1, below = n.y_below & 1, c = n.c & 1, c_below = n.c_below & 1;
        return {{y[luma]}, {y[below]}, {u[c]}, {u[c_below]}, {v[c]}, {v[c_below]}, {u_ahead[c]}, {u_ahead[c_below]}};
    }
};

enum class LookAhead { none, u_by_v };

struct PlanarEnlargement {
    Position start;
    ptrdiff_t pitch, chroma_pitch, dst_pitch;
    ptrdiff_t width; // of the source, in whole blocks
    int height;      // of the source; even
    ptrdiff_t bytes; // of the surface, a source pixel

    static ALWAYS_INLINE PlanarEnlargement of_picture(const Picture& p, ptrdiff_t width, int bytes)
    {
        return {start_of(p), p.y_pitch, p.y_pitch >> 1, p.dst_pitch, width, p.height & ~1, bytes};
    }

    ALWAYS_INLINE Target target() const { return {start.dst, dst_pitch, 2 * dst_pitch, bytes * width, height}; }
    ALWAYS_INLINE Row y(int line) const { return {start.y + line * pitch}; }
    ALWAYS_INLINE Row u(int line) const { return {start.u + line * chroma_pitch}; }
    ALWAYS_INLINE Row v(int line) const { return {start.v + line * chroma_pitch}; }
    ALWAYS_INLINE Rows rows(Neighbours n) const
    {
        return {y(n.y), y(n.y_below), u(n.c), u(n.c_below), v(n.c), v(n.c_below), u(n.c), u(n.c_below)};
    }

    // `two_lines(neighbours, upper, lower)` writes the two lines of the surface that a source line makes.
    template <class Work> ALWAYS_INLINE void each_line(uint8_t* to, const Work& two_lines) const
    {
        for (int line = 0; line < height; line++, to += 2 * dst_pitch)
            two_lines(Neighbours::of_line(line, height), to, to + dst_pitch);
    }

    // Enlarges the picture itself. `write(writer, rows, upper, lower, pixels, last)` writes that many pixels of the two
    // lines; `last` says whether they end the line.
    template <class Write> ALWAYS_INLINE void from_picture(const Write& write) const
    {
        Writer writer(target());
        each_line(start.dst, [&](Neighbours n, uint8_t* upper, uint8_t* lower)
                                 VSURF_INLINED { write(writer, rows(n), upper, lower, width, true); });
    }

    // The same from adjusted samples.
    template <class Write>
    ALWAYS_INLINE void from_adjusted(const Adjustments& by, LookAhead ahead, const Write& write) const
    {
        Writer writer(target());
        AdjustedPart part;
        each_part(width, kStackPart, [&](ptrdiff_t x, ptrdiff_t pixels, bool last) VSURF_INLINED {
            const ptrdiff_t taken = last ? pixels : pixels + kBlock;
            auto take_luma = [&](int line)
                                 VSURF_INLINED { adjust_line(part.y[line & 1], y(line) + x, taken, by.luma); };
            auto take_chroma = [&](int line) VSURF_INLINED {
                const Row from_u = u(line) + x / 2, from_v = v(line) + x / 2;
                adjust_line(part.u[line & 1], from_u, taken / 2, by.u);
                adjust_line(part.v[line & 1], from_v, taken / 2, by.v);
                if (ahead == LookAhead::u_by_v)
                    adjust_line_ahead(part.u_ahead[line & 1], from_u, taken / 2, by.u, by.v);
            };
            take_luma(0);
            take_chroma(0);
            each_line(start.dst + x * bytes, [&](Neighbours n, uint8_t* upper, uint8_t* lower) VSURF_INLINED {
                if (n.y_below != n.y) take_luma(n.y_below);
                if (n.c_below != n.c) take_chroma(n.c_below);
                write(writer, part.rows(n), upper, lower, pixels, last);
            });
        });
    }
};

} // namespace vsurf::VSURF_ISA
