// Pictures and surfaces to measure with: their layout in memory, and a ring of them larger than the caches.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace bench {

struct Size {
    int width, height;
};

// Which bytes a loader reads and writes. The names of surfaces stand for the ordinary walk: every source sample once,
// every surface byte once.
enum class Access {
    rgb32,
    rgb24,
    rgb16,
    yuy2,       // unadjusted: the second line of a pair leaves a quarter of its bytes alone
    yuy2_whole, // adjusted: both lines whole
    yuy2_grey,  // adjusted: the chroma planes are not read
    half_yuy2,
    yv12,            // unadjusted: lines that overlap in the surface, twice the chroma lines
    yv12_row_by_row, // adjusted: source rows without padding
    half_yv12,
};

struct Layout {
    Size size;
    int y_pitch, dst_pitch;
    size_t luma_bytes, chroma_bytes, surface_bytes; // what the walk may touch, each plane for itself
};
Layout layout_of(Access access, Size size);
size_t slot_bytes(const Layout& layout);

struct Picture {
    uint8_t *y, *u, *v, *surface;
};

// One block of memory, cut into as many slots as fit; a slot holds one picture and one surface. All contenders of a
// group use the same slots, so that none is favoured by its addresses.
class Ring {
public:
    explicit Ring(size_t bytes);
    ~Ring();
    Ring(const Ring&) = delete;
    Ring& operator=(const Ring&) = delete;

    void cut(size_t bytes_per_slot);
    size_t slots() const { return slots_; }
    size_t bytes() const { return bytes_; }
    Picture first(const Layout& layout) const { return at(0, layout); }
    Picture next(const Layout& layout);

private:
    Picture at(size_t slot, const Layout& layout) const;

    uint8_t* memory_;
    size_t bytes_, slot_bytes_ = 0, slots_ = 0, current_ = 0;
};

size_t last_level_cache_bytes();
size_t ring_bytes(); // several times the last-level cache, as far as memory allows
std::string processor_name();

} // namespace bench
