// SPDX-License-Identifier: MIT
// The memory that the model works on: byte by byte, with a record of what was touched.
#pragma once
#include <algorithm>
#include <cstdint>
#include <limits>

namespace model {

// The bytes around one pointer that a caller passes. Offsets count from that pointer and may be negative.
class Plane {
public:
    Plane() = default;
    Plane(uint8_t* origin, int64_t first, int64_t end) : origin_(origin), first_(first), end_(end) {}

    uint8_t read(int64_t at) { return touch(at) ? origin_[at] : uint8_t{0}; }

    void write(int64_t at, uint8_t value)
    {
        if (touch(at)) origin_[at] = value;
    }

    bool touched() const { return low_ < high_; }
    int64_t low() const { return low_; }      // first touched byte
    int64_t high() const { return high_; }    // one past the last touched byte
    bool escaped() const { return escaped_; } // something outside [first, end) was asked for

private:
    bool touch(int64_t at)
    {
        if (at < first_ || at >= end_) {
            escaped_ = true;
            return false;
        }
        low_ = std::min(low_, at);
        high_ = std::max(high_, at + 1);
        return true;
    }

    uint8_t* origin_ = nullptr;
    int64_t first_ = 0;
    int64_t end_ = 0;
    int64_t low_ = std::numeric_limits<int64_t>::max();
    int64_t high_ = std::numeric_limits<int64_t>::min();
    bool escaped_ = false;
};

// A pointer into a plane. It moves by 32-bit distances, sign-extended.
class Pointer {
public:
    explicit Pointer(Plane& plane) : plane_(&plane) {}

    uint8_t operator[](int index) const { return plane_->read(at_ + index); }
    void store(int index, uint8_t value) { plane_->write(at_ + index, value); }
    void advance(int32_t bytes) { at_ += bytes; }
    int64_t at() const { return at_; } // how far it has moved

    Pointer plus(int32_t bytes) const
    {
        Pointer moved = *this;
        moved.advance(bytes);
        return moved;
    }

private:
    Plane* plane_;
    int64_t at_ = 0;
};

// A loop counter: subtract, and go on while there was no borrow and the result is not zero.
class Counter {
public:
    explicit Counter(int32_t start) : value_(static_cast<uint32_t>(start)) {}

    bool more_after(uint32_t step)
    {
        const bool more = value_ > step;
        value_ -= step;
        return more;
    }

private:
    uint32_t value_;
};

// 32-bit arithmetic: sums and products wrap; both kinds of right shift exist and differ for negative values.
inline int32_t wrap(int64_t value) { return static_cast<int32_t>(static_cast<uint32_t>(value)); }

inline int32_t shift_arithmetic(int32_t value, int bits) { return value >> bits; }

inline int32_t shift_logical(int32_t value, int bits)
{
    return static_cast<int32_t>(static_cast<uint32_t>(value) >> bits);
}

} // namespace model
