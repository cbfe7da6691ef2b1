// SPDX-License-Identifier: MIT
// Memory with inaccessible pages on both sides, mapped once and used for many cases.
#pragma once
#include <cstddef>
#include <cstdint>

namespace harness {

// Where a touched range of bytes lies in its arena.
struct Placement {
    enum class Kind { kAtStart, kAtEnd, kInside } kind;
    int alignment = 0; // of the pointer that the caller passes, modulo 64; for kInside only
};

class Arena {
public:
    explicit Arena(size_t capacity); // rounded up to whole pages
    ~Arena();
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    uint8_t* begin() const { return begin_; }
    uint8_t* end() const { return end_; }
    uint8_t* forbidden() const { return end_ + 64; } // an address that faults

    // The pointer for which bytes [low, high) around it lie as `placement` says; null if they do not fit.
    uint8_t* place(int64_t low, int64_t high, const Placement& placement) const;

private:
    uint8_t* mapping_;
    size_t mapped_;
    uint8_t* begin_;
    uint8_t* end_;
};

} // namespace harness
