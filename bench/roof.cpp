#include "bench/roof.h"

namespace bench {

#define TIER(isa, test)                              \
    namespace isa {                                  \
    void copy_band(const Band& band, Stores stores); \
    void finish(Stores stores);                      \
    }
#include "bench/roof_tiers.inc"
#undef TIER

namespace {

constexpr RoofTier kTiers[] = {
#define TIER(isa, test) {#isa, isa::copy_band, isa::finish, [] { return static_cast<bool>(test); }},
#include "bench/roof_tiers.inc"
#undef TIER
};

struct Walk {
    const Layout& layout;
    const Picture& picture;
    int width = layout.size.width;
    int height = layout.size.height;

    template <class Emit> void packed(int written_for_two, bool chroma, bool gaps, Emit emit) const
    {
        emit(Band{picture.y, picture.u, picture.v, picture.surface, height, layout.y_pitch, layout.y_pitch / 2,
                  layout.dst_pitch, width, chroma ? width / 2 : 0, written_for_two, gaps});
    }

    template <class Emit>
    void plane(const uint8_t* from, uint8_t* to, int row_bytes, int lines, int from_pitch, int to_pitch,
               int written_for_two, Emit emit) const
    {
        emit(Band{from, nullptr, nullptr, to, lines, from_pitch, 0, to_pitch, row_bytes, 0, written_for_two, false});
    }

    // Three planes, one after the other, to the usual places of a YV12 surface.
    template <class Emit> void planar(int y_pitch, int written_for_two, Emit emit) const
    {
        const int pitch = layout.dst_pitch;
        uint8_t* v = picture.surface + ptrdiff_t{height} * pitch;
        uint8_t* u = v + ptrdiff_t{height / 2} * (pitch / 2);
        plane(picture.y, picture.surface, width, height, y_pitch, pitch, written_for_two, emit);
        plane(picture.v, v, width / 2, height / 2, y_pitch / 2, pitch / 2, written_for_two, emit);
        plane(picture.u, u, width / 2, height / 2, y_pitch / 2, pitch / 2, written_for_two, emit);
    }

    // The unadjusted planar copy has lines that later ones replace; only what remains in the end has to be moved. Upper
    // luma lines lie end to end and replace all lower ones but the last; V, one byte early like U and twice as high as
    // the picture's chroma, replaces the first half of U.
    template <class Emit> void planar_copy(Emit emit) const
    {
        const int pitch = layout.dst_pitch, passes = height / 2;
        const int advance = 2 * layout.y_pitch + 2 * pitch - width, lower = (pitch + width - 1) / width;
        const ptrdiff_t last = passes - lower;
        plane(picture.y, picture.surface, width, passes, advance, width, 2, emit);
        plane(picture.y + last * advance + width, picture.surface + last * width + pitch, width, lower, advance, width,
              2, emit);
        const int half = width / 2, from_pitch = layout.y_pitch / 2, to_pitch = pitch / 2;
        uint8_t* v = picture.surface + ptrdiff_t{height} * pitch - 1;
        plane(picture.u + ptrdiff_t{passes} * from_pitch, v + ptrdiff_t{height} * to_pitch, half, passes, from_pitch,
              to_pitch, 2, emit);
        plane(picture.v, v, half, height, from_pitch, to_pitch, 2, emit);
    }

    template <class Emit> void bands(Access access, Emit emit) const
    {
        switch (access) {
        case Access::rgb32: return packed(8, true, false, emit);
        case Access::rgb24: return packed(6, true, false, emit);
        case Access::rgb16:
        case Access::yuy2_whole: return packed(4, true, false, emit);
        case Access::yuy2: return packed(4, true, true, emit);
        case Access::yuy2_grey: return packed(4, false, false, emit);
        case Access::half_yuy2: return packed(2, true, false, emit);
        case Access::yv12: return planar_copy(emit);
        case Access::yv12_row_by_row: return planar(width, 2, emit);
        case Access::half_yv12: return planar(layout.y_pitch, 1, emit);
        }
    }
};

} // namespace

const RoofTier& best_roof()
{
    const RoofTier* tier = kTiers;
    while (!tier->runs_here()) tier++;
    return *tier;
}

void run_roof(const RoofTier& tier, Stores stores, Access access, const Layout& layout, const Picture& picture)
{
    Walk{layout, picture}.bands(access, [&](const Band& band) { tier.copy(band, stores); });
    tier.finish(stores);
}

Traffic traffic_of(Access access, const Layout& layout)
{
    Traffic sum{0, 0};
    const Picture nowhere{};
    Walk{layout, nowhere}.bands(access, [&](const Band& band) {
        const auto lines = static_cast<size_t>(band.lines), luma = lines * static_cast<size_t>(band.luma_bytes);
        const size_t whole = luma * static_cast<size_t>(band.written_for_two) / 2;
        sum.read += luma + lines / 2 * 2 * static_cast<size_t>(band.chroma_bytes);
        sum.written += band.gaps ? whole - whole / 8 : whole;
    });
    return sum;
}

} // namespace bench
