#include "bench/picture.h"

#include <benchmark/benchmark.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <new>
#include <stdexcept>

#include "bench/content.h"

namespace bench {
namespace {

constexpr size_t kLine = 64;
// Between planes, so that they do not all start at the same offset within a page, where loads wait for stores that
// only look as if they went to the same place.
constexpr size_t kStagger = 17 * kLine;

constexpr int round_up(int value, int unit) { return (value + unit - 1) / unit * unit; }

bool is_planar(Surface surface) { return surface == Surface::yv12 || surface == Surface::plane; }

size_t plane_bytes(size_t bytes) { return (bytes + kLine - 1) / kLine * kLine + kStagger; }

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
    } else if (layout.access.surface == Surface::plane) {
        layout.surface_bytes = surface + static_cast<size_t>(layout.dst_pitch); // one line below the enlarged plane
    }
}

} // namespace

Layout layout_of(const Access& access, Size size)
{
    Layout layout{access, size, 0, 0, 0, 0, 0};
    const int source = layout.source_line(), surface = layout.surface_line();
    layout.y_pitch = access.rows == Rows::padded ? round_up(source, 128) : source;
    // Half of it is the pitch of a YV12 surface's chroma, which stays aligned too.
    layout.dst_pitch = access.rows == Rows::tight ? surface : round_up(surface, is_planar(access.surface) ? 128 : 64);
    const auto luma = static_cast<size_t>(layout.y_pitch) * static_cast<size_t>(size.height);
    layout.luma_bytes = luma;
    if (access.source != Source::packed && access.surface != Surface::plane) layout.chroma_bytes = luma / 4;
    layout.surface_bytes = static_cast<size_t>(layout.dst_pitch) * static_cast<size_t>(layout.enlarged().height);
    widen(layout, luma, layout.surface_bytes);
    return layout;
}

size_t slot_bytes(const Layout& layout)
{
    // A line in front of the surface, because the unadjusted planar copy is one byte off its chroma's alignment.
    return plane_bytes(layout.luma_bytes) + 2 * plane_bytes(layout.chroma_bytes) + plane_bytes(layout.surface_bytes);
}

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

void Ring::paint(const Layout& layout, Content content, size_t slots)
{
    const Picture first = at(0, layout);
    const auto bytes = static_cast<size_t>(first.surface - first.y);
    if (content == Content::noise) {
        make_noise({first.y, bytes});
    } else {
        make_natural(layout, first);
    }
    for (size_t i = 1; i < std::min(slots, slots_); i++) std::memcpy(at(i, layout).y, first.y, bytes);
}

Picture Ring::next(const Layout& layout)
{
    current_ = (current_ + 1) % slots_;
    return at(current_, layout);
}

Picture Ring::at(size_t slot, const Layout& layout) const
{
    uint8_t* y = memory_ + slot * slot_bytes_;
    uint8_t* u = y + plane_bytes(layout.luma_bytes);
    uint8_t* v = u + plane_bytes(layout.chroma_bytes);
    return {y, u, v, v + plane_bytes(layout.chroma_bytes)};
}

Planes planes_of(uint8_t* surface, int pitch, int height)
{
    uint8_t* v = surface + ptrdiff_t{pitch} * height;
    return {surface, v + ptrdiff_t{pitch / 2} * (height / 2), v, pitch};
}

size_t last_level_cache_bytes()
{
    // The kernel's figure is what this processor's cores share; the C library's may count the whole package. A virtual
    // machine may show either, and the larger one is safe for both.
    long largest = std::max(sysconf(_SC_LEVEL2_CACHE_SIZE), sysconf(_SC_LEVEL3_CACHE_SIZE));
    for (const auto& cache : benchmark::CPUInfo::Get().caches) largest = std::max<long>(largest, cache.size);
    constexpr long kUnknown = 32L << 20;
    return static_cast<size_t>(largest > 0 ? largest : kUnknown);
}

size_t ring_bytes()
{
    const auto free = static_cast<size_t>(sysconf(_SC_AVPHYS_PAGES)) * static_cast<size_t>(sysconf(_SC_PAGESIZE));
    return std::min(4 * last_level_cache_bytes(), free / 4);
}

std::string processor_name()
{
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        const size_t colon = line.find(": ");
        if (line.starts_with("model name") && colon != std::string::npos) return line.substr(colon + 2);
    }
    return "unknown";
}

} // namespace bench
