// Planar YV12 pictures, enlarged: which lines make each line of the surface.
//
// Source line `y` makes two lines of the surface: itself, and what goes between it and the line below. The chroma of
// both comes from between two chroma lines, which are one and the same for every second luma line.
#pragma once
#include "scale/doubled.h"

namespace vsurf::VSURF_ISA {

// The last luma line and the last chroma line have nothing below and stand in for it.
struct Neighbours {
    int y, y_below, c, c_below;

    OP Neighbours of(int y, int height)
    {
        const int c = y / 2;
        return {y, y + 1 < height ? y + 1 : y, c, y % 2 != 0 && c + 1 < height / 2 ? c + 1 : c};
    }
};

struct Enlargement {
    Position start;
    ptrdiff_t pitch, chroma_pitch, dst_pitch;
    ptrdiff_t width; // of the source, in whole blocks
    int height;      // of the source; even
    bool streamed;

    OP Enlargement of(const Picture& p, ptrdiff_t width, int bytes)
    {
        const int height = p.height & ~1;
        return {p.start,
                p.y_pitch,
                p.y_pitch >> 1,
                p.dst_pitch,
                width,
                height,
                streams(p.start.dst, p.dst_pitch, bytes * width, 2 * ptrdiff_t{height})};
    }

    MEMBER Row y(int line) const { return {start.y + line * pitch}; }
    MEMBER Row u(int line) const { return {start.u + line * chroma_pitch}; }
    MEMBER Row v(int line) const { return {start.v + line * chroma_pitch}; }

    // `two_lines(neighbours, upper, lower)` writes the two lines of the surface that a source line makes.
    template <class Work> MEMBER void each_line(const Work& two_lines) const
    {
        uint8_t* to = start.dst;
        for (int line = 0; line < height; line++, to += 2 * dst_pitch)
            two_lines(Neighbours::of(line, height), to, to + dst_pitch);
        if (streamed) fence_streaming();
    }
};

// Twice the height. `Kind` gives the sources: `own(y)` of the upper line, `between_y`, `between_u`, `between_v` of what
// is new, by the neighbours.
template <class Sink, int widest, class Kind>
OP void write_taller(const Enlargement& e, const Kind& kind, Neighbours n, uint8_t* upper, uint8_t* lower)
{
    using Own = decltype(kind.own(e, n));
    using Luma = decltype(kind.between_y(e, n));
    using Chroma = decltype(kind.between_u(e, n));
    SourcesStep<Sink, widest, Own, Luma, Chroma> step{kind.own(e, n), kind.between_y(e, n), kind.between_u(e, n),
                                                      kind.between_v(e, n)};
    write_two_lines(step, upper, lower, e.width, e.streamed);
}

} // namespace vsurf::VSURF_ISA
