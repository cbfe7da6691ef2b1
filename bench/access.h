// Which bytes an export reads and writes: the kind of its source and surface, the scale, and where its lines lie.
#pragma once
#include <cstddef>

namespace bench {

struct Size {
    int width, height;
};

enum class Source {
    planar, // YV12: luma and two chroma planes
    luma,   // one plane
    packed, // YUY2
};

enum class Surface { rgb32, rgb24, rgb565, rgb555, yuy2, yv12, plane };

enum class Rows {
    padded,       // every line begins at a multiple of a cache line
    tight_source, // source lines follow each other without gaps
    tight,        // those of the surface as well
};

enum class Oddity {
    none,
    holes,   // the second line of a pair leaves a quarter of its bytes alone
    overlap, // lines that overlap in the surface, twice the chroma lines
};

// The ordinary walk reads every source byte once and writes every surface byte once.
struct Access {
    Source source;
    Surface surface;
    int half_widths = 2; // of the surface in those of the source: 1 halves, 2 keeps, 4 doubles
    int heights = 1;     // lines of the surface for one of the source
    Rows rows = Rows::padded;
    Oddity oddity = Oddity::none;

    friend bool operator==(const Access&, const Access&) = default;
    bool enlarges() const { return half_widths > 2 || heights > 1; }
};

constexpr int bytes_per_pixel(Surface surface)
{
    switch (surface) {
    case Surface::rgb32: return 4;
    case Surface::rgb24: return 3;
    case Surface::rgb565:
    case Surface::rgb555:
    case Surface::yuy2: return 2;
    case Surface::yv12:
    case Surface::plane: break;
    }
    return 1;
}

// An access at one size of the source picture.
struct Layout {
    Access access;
    Size size;                                      // of the source
    int y_pitch, dst_pitch;                         // in bytes; the chroma planes have half
    size_t luma_bytes, chroma_bytes, surface_bytes; // what the walk may touch, each plane for itself

    Size enlarged() const { return {size.width * access.half_widths / 2, size.height * access.heights}; }
    int source_line() const { return access.source == Source::packed ? 2 * size.width : size.width; }
    int surface_line() const { return enlarged().width * bytes_per_pixel(access.surface); }
};
Layout layout_of(const Access& access, Size size);

} // namespace bench
