// SPDX-License-Identifier: MIT
// Memory with inaccessible pages on both sides, mapped once and used for many cases.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>

namespace harness {

// The guard page that a touched range of bytes lies against: the one before it or the one after it.
enum class Edge { kStart, kEnd };

class Arena {
public:
    explicit Arena(size_t capacity); // rounded up to whole pages
    ~Arena();
    Arena(const Arena&) = delete;
    Arena& operator=(const Arena&) = delete;

    uint8_t* begin() const { return begin_; }
    uint8_t* end() const { return end_; }
    uint8_t* forbidden() const { return end_ + 64; } // an address that faults

    // The pointer for which bytes [low, high) around it are flush against the guard page, or as close to it as a
    // pointer at `phase` modulo 64 allows; null if they do not fit.
    uint8_t* place(int64_t low, int64_t high, Edge edge, std::optional<int> phase) const;

private:
    uint8_t* mapping_;
    size_t mapped_;
    uint8_t* begin_;
    uint8_t* end_;
};

} // namespace harness
