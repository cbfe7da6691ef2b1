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
    const Access& access = layout.access;
    int width = layout.size.width;
    int height = layout.size.height;

    template <class Emit> void packed(Emit emit) const
    {
        const int chroma = access.source == Source::planar ? width / 2 : 0;
        emit(Band{picture.y, picture.u, picture.v, picture.surface, layout.enlarged().height, layout.y_pitch,
                  layout.y_pitch / 2, layout.dst_pitch, layout.source_line(), chroma, access.heights,
                  2 * access.heights, 2 * layout.surface_line() / layout.source_line(),
                  access.oddity == Oddity::holes});
    }

    // `size` is the source's; the plane is enlarged as the picture is.
    template <class Emit>
    void plane(const uint8_t* from, uint8_t* to, Size size, int from_pitch, int to_pitch, Emit emit) const
    {
        emit(Band{from, nullptr, nullptr, to, size.height * access.heights, from_pitch, 0, to_pitch, size.width, 0,
                  access.heights, 0, access.half_widths, false});
    }

    // Three planes, one after the other, to the usual places of a YV12 surface.
    template <class Emit> void planar(Emit emit) const
    {
        const int from = layout.y_pitch;
        const Planes to = planes_of(picture.surface, layout.dst_pitch, layout.enlarged().height);
        plane(picture.y, to.y, {width, height}, from, to.pitch, emit);
        plane(picture.v, to.v, {width / 2, height / 2}, from / 2, to.pitch / 2, emit);
        plane(picture.u, to.u, {width / 2, height / 2}, from / 2, to.pitch / 2, emit);
    }

    // The unadjusted planar copy has lines that later ones replace; only what remains in the end has to be moved. Upper
    // luma lines lie end to end and replace all lower ones but the last; V, one byte early like U and twice as high as
    // the picture's chroma, replaces the first half of U.
    template <class Emit> void planar_copy(Emit emit) const
    {
        const int pitch = layout.dst_pitch, passes = height / 2;
        const int advance = 2 * layout.y_pitch + 2 * pitch - width, lower = (pitch + width - 1) / width;
        const ptrdiff_t last = passes - lower;
        plane(picture.y, picture.surface, {width, passes}, advance, width, emit);
        plane(picture.y + last * advance + width, picture.surface + last * width + pitch, {width, lower}, advance,
              width, emit);
        const int half = width / 2, from_pitch = layout.y_pitch / 2, to_pitch = pitch / 2;
        uint8_t* v = picture.surface + ptrdiff_t{height} * pitch - 1;
        plane(picture.u + ptrdiff_t{passes} * from_pitch, v + ptrdiff_t{height} * to_pitch, {half, passes}, from_pitch,
              to_pitch, emit);
        plane(picture.v, v, {half, height}, from_pitch, to_pitch, emit);
    }

    template <class Emit> void bands(Emit emit) const
    {
        if (access.oddity == Oddity::overlap) return planar_copy(emit);
        if (access.surface == Surface::yv12) return planar(emit);
        packed(emit);
    }
};

} // namespace

const RoofTier& best_roof()
{
    const RoofTier* tier = kTiers;
    while (!tier->runs_here()) tier++;
    return *tier;
}

void run_roof(const RoofTier& tier, Stores stores, const Layout& layout, const Picture& picture)
{
    Walk{layout, picture}.bands([&](const Band& band) { tier.copy(band, stores); });
    tier.finish(stores);
}

Traffic traffic_of(const Layout& layout)
{
    Traffic sum{0, 0};
    const Picture nowhere{};
    Walk{layout, nowhere}.bands([&](const Band& band) {
        const auto lines = static_cast<size_t>(band.lines), luma = static_cast<size_t>(band.luma_bytes);
        const size_t whole = lines * luma * static_cast<size_t>(band.written_for_two) / 2;
        sum.read += lines / static_cast<size_t>(band.luma_every) * luma;
        if (band.chroma_bytes > 0) {
            sum.read += lines / static_cast<size_t>(band.chroma_every) * 2 * static_cast<size_t>(band.chroma_bytes);
        }
        sum.written += band.gaps ? whole - whole / 8 : whole;
    });
    return sum;
}

} // namespace bench
