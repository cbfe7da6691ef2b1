// SPDX-License-Identifier: MIT
#include "harness/arena.h"

#include "harness/system.h"

namespace harness {
namespace {

constexpr size_t kGuard = size_t{1} << 16;

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

uint8_t* Arena::place(int64_t low, int64_t high, Edge edge, std::optional<int> phase) const
{
    uint8_t* const flush = edge == Edge::kStart ? begin_ - low : end_ - high;
    const int64_t ahead = phase ? *phase - static_cast<int64_t>(reinterpret_cast<uintptr_t>(flush) % 64) : 0;
    const int64_t gap = (edge == Edge::kStart ? ahead : -ahead) & 63;
    if (high - low + gap > end_ - begin_) return nullptr;
    return edge == Edge::kStart ? flush + gap : flush - gap;
}

} // namespace harness
