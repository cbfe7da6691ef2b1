// SPDX-License-Identifier: MIT
#include "harness/plane_memory.h"

#include <algorithm>
#include <cstring>
#include <sstream>

namespace harness {
namespace {

constexpr int64_t kMargin = 256; // bytes beyond the touched ones that are compared too

size_t count(int64_t first, int64_t end) { return static_cast<size_t>(end - first); }

} // namespace

PlaneMemory::PlaneMemory(const char* name, int64_t reach)
    : name_(name), reach_(reach), arena_(static_cast<size_t>(2 * reach)), placed_(arena_.forbidden())
{
}

model::Plane PlaneMemory::show(const uint8_t* before, uint8_t* after)
{
    before_ = before;
    after_ = after;
    low_ = reach_;
    high_ = -reach_;
    escaped_ = false;
    return {after, -reach_, reach_};
}

void PlaneMemory::touch(const model::Plane& plane)
{
    touch(plane.low(), plane.high());
    escaped_ |= plane.escaped();
}

void PlaneMemory::touch(int64_t low, int64_t high)
{
    low_ = std::min(low_, low);
    high_ = std::max(high_, high);
    escaped_ |= low < -reach_ || high > reach_;
}

bool PlaneMemory::place(Edge edge, std::optional<int> phase)
{
    placed_ = arena_.forbidden();
    if (!touched()) return true;
    placed_ = arena_.place(low_, high_, edge, phase);
    if (placed_ == nullptr) return false;
    first_ = std::max({low_ - kMargin, -reach_, static_cast<int64_t>(arena_.begin() - placed_)});
    end_ = std::min({high_ + kMargin, reach_, static_cast<int64_t>(arena_.end() - placed_)});
    return true;
}

void PlaneMemory::fill() const
{
    if (touched()) std::memcpy(placed_ + first_, before_ + first_, count(first_, end_));
}

std::optional<std::string> PlaneMemory::difference() const
{
    if (!touched() || std::memcmp(placed_ + first_, after_ + first_, count(first_, end_)) == 0) return std::nullopt;
    int64_t differing = 0, at = end_;
    for (int64_t i = end_ - 1; i >= first_; --i) {
        if (placed_[i] == after_[i]) continue;
        ++differing;
        at = i;
    }
    std::ostringstream out;
    out << differing << " bytes differ in " << name_ << ", the first at " << at << " of memory touched from " << low_
        << " to " << high_ << ": " << int{placed_[at]} << " instead of " << int{after_[at]} << ", before the call "
        << int{before_[at]};
    return out.str();
}

void PlaneMemory::forget() const
{
    if (written() && touched()) std::copy(before_ + low_, before_ + high_, after_ + low_);
}

} // namespace harness
