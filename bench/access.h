// SPDX-License-Identifier: MIT
// Which bytes an export reads and writes: the kind of its source and surface, the scale, and where its lines are.
#pragma once
#include <cstddef>

namespace bench {

struct Size {
    int width, height;
};

enum class Source {
    planar,      // YV12: luma and two chroma planes
    semi_planar, // NV12: luma, and U and V in turns
    luma,        // one plane
    packed,      // YUY2
    uyvy,        // packed the other way round
    subpicture,  // alpha, luma and two chroma planes of half the width, but the whole height
    rgb32,
    rgb24,
    rgb565, // what is drawn of a subpicture
    none,   // nothing is read
};

// `planes` are luma, U and V, the chroma of half the width, but the whole height.
enum class Surface { rgb32, rgb24, rgb565, rgb555, yuy2, yv12, nv12, plane, planes };

// How colours are encoded: BT.601 or BT.709 with limited range, or BT.601 with full range.
enum class Colour { bt601, bt709, full };

enum class Rows {
    padded,       // every line of the source begins at a multiple of a cache line
    tight_source, // the source's lines follow each other without gaps
};

// Where a surface begins and how far apart its lines are.
enum class Placement {
    aligned, // base and pitch are multiples of 64
    natural, // the pitch is a line, or 16 bytes more where a line is a multiple of 64
    base8,   // as aligned, but the base is 8 bytes past a multiple of 64
    pixel,   // as aligned, but the base is one pixel past a multiple of 64
};
constexpr Placement kPlacements[] = {Placement::aligned, Placement::natural, Placement::base8, Placement::pixel};
constexpr const char* name_of(Placement placement)
{
    switch (placement) {
    case Placement::aligned: return "64";
    case Placement::natural: return "natural";
    case Placement::base8: return "base8";
    case Placement::pixel: return "pixel";
    }
    return "";
}

enum class Oddity {
    none,
    holes,   // a quarter of the bytes of a pair's second line is not written
    overlap, // lines that overlap in the surface, twice the chroma lines
    merge,   // the surface is read, too
};

// How much of a subpicture there is to see: of an alpha plane or, where the source is a drawing, of that.
enum class Cover {
    none,     // there is no subpicture
    clear,    // nothing: alpha 0, all key
    subtitle, // two lines of text
    whole,    // any alpha from 0 to 16, no key
};

// The ordinary walk reads every source byte once and writes every surface byte once.
struct Access {
    Source source;
    Surface surface;
    int half_widths = 2; // of the surface in those of the source: 1 halves, 2 keeps, 4 doubles
    int heights = 1;     // lines of the surface for one of the source
    Rows rows = Rows::padded;
    Oddity oddity = Oddity::none;
    Cover cover = Cover::none;
    bool field = false; // the source has half the lines of the size that is measured
    Colour colour = Colour::bt601;

    friend bool operator==(const Access&, const Access&) = default;
    bool enlarges() const { return half_widths > 2 || heights > 1; }
    bool mixes() const { return source == Source::planar && cover != Cover::none; }
    bool copies() const
    {
        const bool same = (source == Source::planar && surface == Surface::yv12) ||
                          (source == Source::packed && surface == Surface::yuy2);
        return same && half_widths == 2 && heights == 1 && cover == Cover::none;
    }
    bool converts() const { return source >= Source::rgb32 && source <= Source::rgb565; }
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
    case Surface::nv12:
    case Surface::plane:
    case Surface::planes: break;
    }
    return 1;
}

constexpr int bytes_per_pixel(Source source)
{
    switch (source) {
    case Source::rgb32: return 4;
    case Source::rgb24: return 3;
    case Source::rgb565:
    case Source::packed:
    case Source::uyvy: return 2;
    case Source::planar:
    case Source::semi_planar:
    case Source::luma:
    case Source::subpicture:
    case Source::none: break;
    }
    return 1;
}

// Of pixels whose chroma is shared by two.
constexpr int even(int width) { return (width + 1) / 2 * 2; }

// An access at one size of the source picture.
struct Layout {
    Access access;
    Size size;                                      // of the source
    int y_pitch, dst_pitch;                         // in bytes; the chroma planes have half
    int base;                                       // of the surface: bytes past a multiple of 64
    size_t luma_bytes, chroma_bytes, surface_bytes; // what the walk may touch, each plane for itself
    size_t overlay_bytes;                           // of an alpha plane; a subpicture's planes have that pitch, too

    Size enlarged() const { return {size.width * access.half_widths / 2, size.height * access.heights}; }
    Size region() const { return {size.width, size.height * access.heights}; }
    int source_line() const
    {
        const bool pairs = access.source == Source::packed || access.source == Source::uyvy;
        return (pairs ? even(size.width) : size.width) * bytes_per_pixel(access.source);
    }
    int surface_line() const
    {
        const bool pairs =
            access.surface == Surface::yuy2 || access.surface == Surface::yv12 || access.surface == Surface::nv12;
        const int width = enlarged().width;
        return (pairs ? even(width) : width) * bytes_per_pixel(access.surface);
    }
};
Layout layout_of(const Access& access, Size size, Placement placement = Placement::aligned);

} // namespace bench
