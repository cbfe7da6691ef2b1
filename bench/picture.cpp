#include "bench/picture.h"

#include <benchmark/benchmark.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <new>
#include <random>
#include <stdexcept>

namespace bench {
namespace {

constexpr size_t kLine = 64;
// Between planes, so that they do not all start at the same offset within a page, where loads wait for stores that
// only look as if they went to the same place.
constexpr size_t kStagger = 17 * kLine;

constexpr int round_up(int value, int unit) { return (value + unit - 1) / unit * unit; }

int surface_pitch(Access access, int width)
{
    switch (access) {
    case Access::rgb32: return round_up(4 * width, 64);
    case Access::rgb24: return round_up(3 * width, 64);
    case Access::rgb16:
    case Access::yuy2:
    case Access::yuy2_whole:
    case Access::yuy2_grey: return round_up(2 * width, 64);
    case Access::half_yuy2: return round_up(width, 64);
    case Access::half_yv12: return round_up(width / 2, 128); // the chroma pitch, half of it, stays aligned too
    case Access::yv12:
    case Access::yv12_row_by_row: break;
    }
    return round_up(width, 128);
}

size_t plane_bytes(size_t bytes) { return (bytes + kLine - 1) / kLine * kLine + kStagger; }

} // namespace

Layout layout_of(Access access, Size size)
{
    const int y_pitch = round_up(size.width, 128);
    const int dst_pitch = surface_pitch(access, size.width);
    const auto luma = static_cast<size_t>(y_pitch) * static_cast<size_t>(size.height);
    const auto surface = static_cast<size_t>(dst_pitch) * static_cast<size_t>(size.height);
    Layout layout{size, y_pitch, dst_pitch, luma, luma / 4, surface};
    if (access == Access::yv12) {
        // The luma source advances by both pitches, and as many chroma lines as luma lines are copied.
        const auto advance = static_cast<size_t>(2 * y_pitch + 2 * dst_pitch - size.width);
        layout.luma_bytes = advance * static_cast<size_t>(size.height / 2);
        layout.chroma_bytes = luma / 2;
        layout.surface_bytes = 2 * surface;
    } else if (access == Access::yv12_row_by_row || access == Access::half_yv12) {
        layout.surface_bytes = surface * 3 / 2;
    }
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
    std::mt19937_64 noise(1);
    for (size_t i = 0; i + sizeof(uint64_t) <= bytes; i += sizeof(uint64_t)) {
        const uint64_t word = noise();
        std::memcpy(memory_ + i, &word, sizeof word);
    }
}

Ring::~Ring() { munmap(memory_, bytes_); }

void Ring::cut(size_t bytes_per_slot)
{
    if (bytes_per_slot > bytes_) throw std::runtime_error("too little memory for one picture and its surface");
    slot_bytes_ = bytes_per_slot;
    slots_ = bytes_ / bytes_per_slot;
    current_ = 0;
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
