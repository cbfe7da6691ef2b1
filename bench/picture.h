// SPDX-License-Identifier: MIT
// Pictures and surfaces to measure with: their places in memory, and a ring of them larger than the caches.
#pragma once
#include <cstdint>

#include "bench/access.h"

namespace bench {

size_t slot_bytes(const Layout& layout);

struct Picture {
    uint8_t *y, *u, *v, *surface; // a packed source or a drawing is at y
    uint8_t* alpha;               // what the access covers, 0..16
    uint8_t* peers_alpha;         // all of it, 0..255
    uint8_t *overlay_y, *overlay_u, *overlay_v;
};

// The planes of a YV12 surface: luma, V, U.
struct Planes {
    uint8_t *y, *u, *v;
    int pitch; // of the luma; the chroma has half
};
Planes planes_of(uint8_t* surface, int pitch, int height);
Planes planes422_of(uint8_t* surface, int pitch, int height); // luma, U, V, the chroma of the whole height

enum class Content {
    noise,   // neighbouring lines have nothing in common
    natural, // smooth shading with a few edges
};

// One block of memory, cut into as many slots as fit; a slot holds one picture and one surface. All contenders of a
// group use the same slots, so that none is favoured by its addresses.
class Ring {
public:
    explicit Ring(size_t bytes); // filled with noise
    ~Ring();
    Ring(const Ring&) = delete;
    Ring& operator=(const Ring&) = delete;

    void cut(size_t bytes_per_slot);
    void paint(const Layout& layout, Content content, size_t slots); // the pictures of the first slots
    void cover(Layout layout, Content content, size_t slots);        // their alpha planes or drawings, of every cover
    size_t slots() const { return slots_; }
    size_t bytes() const { return bytes_; }
    uint64_t digest_of_covers(const Layout& layout) const; // of the first slot
    Picture first(const Layout& layout) const { return at(0, layout); }
    Picture next(const Layout& layout);

private:
    Picture at(size_t slot, const Layout& layout) const;
    void repeat(const uint8_t* from, size_t bytes, size_t slots); // in the other slots what is there in the first

    uint8_t* memory_;
    size_t bytes_, slot_bytes_ = 0, slots_ = 0, current_ = 0;
};

} // namespace bench
