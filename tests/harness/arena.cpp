// SPDX-License-Identifier: MIT
#include "harness/arena.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace harness {
namespace {

constexpr size_t kGuard = size_t{1} << 16;
constexpr int64_t kMargin = 256; // compared on both sides of a range that lies inside

void require(bool ok, const char* what)
{
    if (ok) return;
    std::perror(what);
    std::abort();
}

} // namespace

Arena::Arena(size_t capacity)
{
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    const size_t usable = (capacity + page - 1) / page * page;
    mapped_ = usable + 2 * kGuard;
    void* mapping = mmap(nullptr, mapped_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    require(mapping != MAP_FAILED, "mmap");
    mapping_ = static_cast<uint8_t*>(mapping);
    begin_ = mapping_ + kGuard;
    end_ = begin_ + usable;
    require(mprotect(begin_, usable, PROT_READ | PROT_WRITE) == 0, "mprotect");
}

Arena::~Arena() { munmap(mapping_, mapped_); }

uint8_t* Arena::place(int64_t low, int64_t high, const Placement& placement) const
{
    const int64_t room = end_ - begin_;
    if (high - low > room) return nullptr;
    if (placement.kind == Placement::Kind::kAtStart) return begin_ - low;
    if (placement.kind == Placement::Kind::kAtEnd) return end_ - high;
    uint8_t* lowest = begin_ + kMargin - low;
    const int64_t off = (placement.alignment - static_cast<int64_t>(reinterpret_cast<uintptr_t>(lowest) % 64)) & 63;
    return high - low + 2 * kMargin + 64 <= room ? lowest + off : nullptr;
}

} // namespace harness
