// SPDX-License-Identifier: MIT
// What the roof reads and writes, in bands of lines for its inner loops.
#pragma once
#include <array>

#include "bench/picture.h"
#include "bench/roof_band.h"

namespace bench {

struct Walk {
    const Layout& layout;
    const Picture& picture;
    const Access& access = layout.access;
    int width = layout.size.width;
    int height = layout.size.height;

    template <class Emit> void bands(Emit emit) const
    {
        if (access.oddity == Oddity::overlap) return planar_copy(emit);
        if (access.surface == Surface::yv12) return planar(emit);
        if (access.surface == Surface::nv12) return semi_planar(emit);
        if (access.source == Source::none) return fill(emit);
        if (access.converts()) return drawing(emit);
        packed(emit);
    }

private:
    template <class Emit> void packed(Emit emit) const
    {
        const bool all_chroma = access.source == Source::subpicture;
        const bool interleaved = access.source == Source::semi_planar;
        const int chroma = all_chroma || interleaved || access.source == Source::planar ? width / 2 : 0;
        Band band{
            .luma = picture.y,
            .u = picture.u,
            .v = interleaved ? picture.u + chroma : picture.v,
            .to = picture.surface,
            .lines = layout.enlarged().height,
            .luma_pitch = layout.y_pitch,
            .chroma_pitch = interleaved ? layout.y_pitch : layout.y_pitch / 2,
            .to_pitch = layout.dst_pitch,
            .luma_bytes = layout.source_line(),
            .chroma_bytes = chroma,
            .luma_every = access.heights,
            .chroma_every = all_chroma ? 1 : 2 * access.heights,
            .written_for_two = written_for_two(),
            .gaps = access.oddity == Oddity::holes,
            .also = {alpha()},
        };
        if (access.oddity == Oddity::merge) band.also[0] = {picture.surface, layout.dst_pitch, width};
        band.also[1] = overlay(picture.overlay_y, 1);
        band.also[2] = overlay(picture.overlay_u, 2);
        band.also[3] = overlay(picture.overlay_v, 2);
        emit(band);
    }

    // To the nearest: a source of an odd width may have one pixel more than the surface.
    int written_for_two() const
    {
        return (2 * layout.surface_line() + layout.source_line() / 2) / layout.source_line();
    }

    // All of it is read, to find out where the subpicture is.
    Stream alpha() const
    {
        const bool read = access.mixes() || access.source == Source::subpicture;
        return {picture.alpha, layout.y_pitch, read ? width : 0};
    }

    // The other planes of a subpicture are read where it is seen. Two lines of text are taken for nothing.
    Stream overlay(const uint8_t* plane, int part) const
    {
        const bool seen = access.mixes() && access.cover == Cover::whole;
        return {plane, layout.y_pitch / part, seen ? width / part : 0};
    }

    // `size` is the source's; the plane is enlarged as the picture is.
    template <class Emit>
    void plane(const uint8_t* from, uint8_t* to, Size size, int from_pitch, int to_pitch, Emit emit,
               Stream alpha_line = {}, Stream overlay_line = {}) const
    {
        emit(Band{
            .luma = from,
            .to = to,
            .lines = size.height * access.heights,
            .luma_pitch = from_pitch,
            .to_pitch = to_pitch,
            .luma_bytes = size.width,
            .luma_every = access.heights,
            .written_for_two = access.half_widths,
            .also = {alpha_line, overlay_line},
        });
    }

    // Three planes, one after the other, to the usual places of a YV12 surface. Of a subpicture's chroma these take
    // every second line.
    template <class Emit> void planar(Emit emit) const
    {
        const int from = layout.y_pitch;
        const Size half{width / 2, height / 2};
        const Planes to = planes_of(picture.surface, layout.dst_pitch, layout.enlarged().height);
        const auto chroma = [&](const uint8_t* of_picture, const uint8_t* of_overlay, uint8_t* chroma_to) {
            Stream lines = overlay(of_overlay, 2);
            lines.pitch *= 2;
            plane(of_picture, chroma_to, half, from / 2, to.pitch / 2, emit, lines);
        };
        plane(picture.y, to.y, {width, height}, from, to.pitch, emit, alpha(), overlay(picture.overlay_y, 1));
        chroma(picture.v, picture.overlay_v, to.v);
        chroma(picture.u, picture.overlay_u, to.u);
    }

    // Two planes; a line of the second takes one of U and, where that ends, as much of V.
    template <class Emit> void semi_planar(Emit emit) const
    {
        const int half = width / 2, pitch = layout.dst_pitch;
        uint8_t* chroma = picture.surface + ptrdiff_t{pitch} * height;
        plane(picture.y, picture.surface, {width, height}, layout.y_pitch, pitch, emit);
        plane(picture.u, chroma, {half, height / 2}, layout.y_pitch / 2, pitch, emit);
        plane(picture.v, chroma + half, {half, height / 2}, layout.y_pitch / 2, pitch, emit);
    }

    // The unadjusted planar copy has lines that later ones replace; only what remains in the end has to be moved. Upper
    // luma lines are end to end and replace all lower ones except the last; V, one byte early like U and twice as high
    // as the picture's chroma, replaces the first half of U.
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

    // Only written; what is written comes from the first-level cache. Not zeros, which some machines are quicker with.
    template <class Emit> void fill(Emit emit) const
    {
        emit(Band{
            .luma = kPattern.data(),
            .to = picture.surface,
            .lines = height,
            .to_pitch = layout.dst_pitch,
            .luma_bytes = layout.surface_line(),
            .written_for_two = 2,
        });
    }
    alignas(64) static constexpr std::array<uint8_t, 128> kPattern = [] {
        std::array<uint8_t, 128> pattern{};
        pattern.fill(0x5A);
        return pattern;
    }();

    // To alpha or to three planes. Where all or nearly all is key, nothing is written.
    template <class Emit> void drawing(Emit emit) const
    {
        const int line = layout.source_line(), half = width / 2;
        if (access.surface == Surface::plane)
            return samples(picture.y, picture.surface, layout.dst_pitch, width, line, emit);
        if (access.cover != Cover::whole)
            return emit(Band{.lines = height, .written_for_two = 2, .also = {{picture.y, layout.y_pitch, line}}});
        const Planes to = planes422_of(picture.surface, layout.dst_pitch, height);
        samples(picture.y, to.y, to.pitch, width, line - width, emit);
        samples(picture.y + line - width, to.u, to.pitch / 2, half, half, emit);
        samples(picture.y + line - half, to.v, to.pitch / 2, half, half, emit);
    }

    // Reads `bytes` of every line of a drawing, a multiple of `count`, for `count` samples of a plane.
    template <class Emit>
    void samples(const uint8_t* from, uint8_t* to, int to_pitch, int count, int bytes, Emit emit) const
    {
        emit(Band{
            .luma = from,
            .to = to,
            .lines = height,
            .luma_pitch = layout.y_pitch,
            .to_pitch = to_pitch,
            .luma_bytes = count,
            .luma_every = 1,
            .written_for_two = 2,
            .luma_times = bytes / count,
        });
    }
};

} // namespace bench
