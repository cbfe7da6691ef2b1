// SPDX-License-Identifier: MIT
#include "harness/arena.h"

#include "harness/system.h"

namespace harness {
namespace {

constexpr size_t kGuard = size_t{1} << 16;
constexpr int64_t kMargin = 256; // compared on both sides of a range that lies inside

} // namespace

Arena::Arena(size_t capacity)
{
    const size_t page = page_size();
    const size_t usable = (capacity + page - 1) / page * page;
    mapped_ = usable + 2 * kGuard;
    mapping_ = reserve_pages(mapped_);
    begin_ = mapping_ + kGuard;
    end_ = begin_ + usable;
    open_pages(begin_, usable);
}

Arena::~Arena() { release_pages(mapping_, mapped_); }

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
