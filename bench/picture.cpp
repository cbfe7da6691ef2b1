// SPDX-License-Identifier: MIT
#include "bench/picture.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

#include "bench/content.h"
#include "bench/covers.h"

namespace bench {
namespace {

constexpr size_t kLine = 64;
// Between planes, so that they do not all start at the same offset within a page, where loads wait for stores that
// only look as if they went to the same place.
constexpr size_t kStagger = 17 * kLine;

constexpr int round_up(int value, int unit) { return (value + unit - 1) / unit * unit; }

bool is_planar(Surface surface) { return bytes_per_pixel(surface) == 1; }

size_t plane_bytes(size_t bytes) { return (bytes + kLine - 1) / kLine * kLine + kStagger; }

size_t half_lines(const Layout& layout) { return static_cast<size_t>(layout.size.height + 1) / 2; }

// What the walk may touch, where it is not the ordinary one.
void widen(Layout& layout, size_t luma, size_t surface)
{
    if (layout.access.oddity == Oddity::overlap) {
        // The luma source advances by both pitches, and as many chroma lines as luma lines are copied.
        const auto advance = static_cast<size_t>(2 * layout.y_pitch + 2 * layout.dst_pitch - layout.size.width);
        layout.luma_bytes = advance * static_cast<size_t>(layout.size.height / 2);
        layout.chroma_bytes = luma / 2;
        layout.surface_bytes = 2 * surface;
    } else if (layout.access.surface == Surface::yv12) {
        layout.surface_bytes = surface * 3 / 2;
    } else if (layout.access.surface == Surface::nv12) {
        layout.surface_bytes = surface + static_cast<size_t>(layout.dst_pitch) * half_lines(layout);
    } else if (layout.access.surface == Surface::planes) {
        layout.surface_bytes = surface * 2;
    } else if (layout.access.surface == Surface::plane) {
        layout.surface_bytes = surface + static_cast<size_t>(layout.dst_pitch); // one line below the enlarged plane
    }
}

// The first of two planes; interleaved chroma is all there.
size_t chroma_bytes(const Layout& layout)
{
    const Access& access = layout.access;
    const size_t whole = static_cast<size_t>(layout.y_pitch) * half_lines(layout);
    if (access.source == Source::subpicture) return layout.luma_bytes / 2;
    if (access.source == Source::semi_planar) return whole;
    const bool has_some = access.source == Source::planar || access.source == Source::luma;
    return has_some && access.surface != Surface::plane ? whole / 2 : 0;
}

// Where the parts of a slot begin. Alpha planes and drawings are there once for each cover, and once more an alpha
// plane for the peers.
struct Places {
    size_t variants, variant_bytes, count, u, v, overlay_y, overlay_u, overlay_v, surface, end;

    size_t variants_bytes() const { return count * variant_bytes; }
};

Places places_of(const Layout& l)
{
    const bool drawing = l.access.converts(), covered = l.access.cover != Cover::none;
    const size_t overlay = l.access.mixes() ? l.overlay_bytes : 0;
    Places to{};
    to.count = drawing ? 3 : 4;
    to.variant_bytes = covered ? plane_bytes(drawing ? l.luma_bytes : l.overlay_bytes) : 0;
    to.u = drawing && covered ? to.variants_bytes() : plane_bytes(l.luma_bytes);
    to.v = to.u + plane_bytes(l.chroma_bytes);
    to.variants = drawing ? 0 : to.v + plane_bytes(l.chroma_bytes);
    to.overlay_y = drawing ? to.v : to.variants + to.variants_bytes();
    to.overlay_u = to.overlay_y + plane_bytes(overlay);
    to.overlay_v = to.overlay_u + plane_bytes(overlay / 2);
    to.surface = to.overlay_v + plane_bytes(overlay / 2);
    // Exports that are made for planes without gaps repeat their last line beyond it.
    to.end = to.surface + plane_bytes(l.surface_bytes + static_cast<size_t>(l.base + l.dst_pitch));
    return to;
}

int base_of(Surface surface, Placement placement)
{
    switch (placement) {
    case Placement::base8: return 8;
    case Placement::pixel: return bytes_per_pixel(surface);
    case Placement::aligned:
    case Placement::natural: break;
    }
    return 0;
}

int pitch_of(Surface surface, int line, Placement placement)
{
    if (placement == Placement::natural) return line % 64 == 0 ? line + 16 : line;
    // Half of it is the pitch of a YV12 surface's chroma, which stays aligned too.
    return round_up(line, is_planar(surface) ? 128 : 64);
}

size_t variant_of(Cover cover) { return cover == Cover::none ? 0 : static_cast<size_t>(cover) - 1; }

} // namespace

Layout layout_of(const Access& access, Size size, Placement placement)
{
    if (access.field) size.height /= 2;
    Layout layout{access, size, 0, 0, base_of(access.surface, placement), 0, 0, 0, 0};
    const int source = layout.source_line();
    layout.dst_pitch = pitch_of(access.surface, layout.surface_line(), placement);
    layout.y_pitch = access.rows == Rows::padded ? round_up(source, 128) : source;
    if (access.oddity == Oddity::merge) layout.y_pitch = layout.dst_pitch; // both have the same
    const size_t lines = access.source == Source::none ? 0 : static_cast<size_t>(size.height);
    const size_t luma = static_cast<size_t>(layout.y_pitch) * lines;
    layout.luma_bytes = luma;
    layout.chroma_bytes = chroma_bytes(layout);
    layout.surface_bytes = static_cast<size_t>(layout.dst_pitch) * static_cast<size_t>(layout.enlarged().height);
    if (access.cover != Cover::none) layout.overlay_bytes = luma * static_cast<size_t>(access.heights);
    widen(layout, luma, layout.surface_bytes);
    return layout;
}

size_t slot_bytes(const Layout& layout) { return places_of(layout).end; }

Ring::Ring(size_t bytes) : bytes_(bytes)
{
    void* memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    memory_ = static_cast<uint8_t*>(memory);
    make_noise({memory_, bytes_});
}

Ring::~Ring() { munmap(memory_, bytes_); }

void Ring::cut(size_t bytes_per_slot)
{
    if (bytes_per_slot > bytes_) throw std::runtime_error("too little memory for one picture and its surface");
    slot_bytes_ = bytes_per_slot;
    slots_ = bytes_ / bytes_per_slot;
    current_ = 0;
}

void Ring::repeat(const uint8_t* from, size_t bytes, size_t slots)
{
    uint8_t* to = memory_ + (from - memory_);
    for (size_t i = 1; i < std::min(slots, slots_); i++) std::memcpy(to + i * slot_bytes_, from, bytes);
}

void Ring::paint(const Layout& layout, Content content, size_t slots)
{
    const size_t bytes = places_of(layout).surface;
    if (content == Content::noise) {
        make_noise({memory_, bytes});
    } else {
        make_natural(layout, at(0, layout));
    }
    repeat(memory_, bytes, slots);
}

void Ring::cover(Layout layout, Content content, size_t slots)
{
    for (const Cover cover : {Cover::clear, Cover::subtitle, Cover::whole}) {
        layout.access.cover = cover;
        make_cover(layout, at(0, layout), content);
    }
    const Places places = places_of(layout);
    repeat(memory_ + places.variants, places.variants_bytes(), slots);
}

// FNV-1a.
uint64_t Ring::digest_of_covers(const Layout& layout) const
{
    const Places places = places_of(layout);
    const uint8_t* from = memory_ + places.variants;
    uint64_t sum = 0xcbf29ce484222325;
    for (const uint8_t* p = from; p < from + places.variants_bytes(); p++) sum = (sum ^ *p) * 0x100000001b3;
    return sum;
}

Picture Ring::next(const Layout& layout)
{
    current_ = (current_ + 1) % slots_;
    return at(current_, layout);
}

Picture Ring::at(size_t slot, const Layout& layout) const
{
    const Places places = places_of(layout);
    uint8_t* start = memory_ + slot * slot_bytes_;
    uint8_t* variants = start + places.variants;
    uint8_t* variant = variants + variant_of(layout.access.cover) * places.variant_bytes;
    return {layout.access.converts() ? variant : start,
            start + places.u,
            start + places.v,
            start + places.surface + layout.base,
            variant,
            variants + (places.count - 1) * places.variant_bytes,
            start + places.overlay_y,
            start + places.overlay_u,
            start + places.overlay_v};
}

Planes planes_of(uint8_t* surface, int pitch, int height)
{
    uint8_t* v = surface + ptrdiff_t{pitch} * height;
    return {surface, v + ptrdiff_t{pitch / 2} * (height / 2), v, pitch};
}

Planes planes422_of(uint8_t* surface, int pitch, int height)
{
    uint8_t* u = surface + ptrdiff_t{pitch} * height;
    return {surface, u, u + ptrdiff_t{pitch / 2} * height, pitch};
}

} // namespace bench
