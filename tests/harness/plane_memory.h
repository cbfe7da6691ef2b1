// SPDX-License-Identifier: MIT
// The memory behind one pointer of a call: first the model works on it, then it lies between guard pages for the
// tables.
#pragma once
#include "harness/arena.h"
#include "model/memory.h"

#include <optional>
#include <string>

namespace harness {

class PlaneMemory {
public:
    // `reach`: how far from the pointer, in either direction, a case may touch memory.
    PlaneMemory(const char* name, int64_t reach);

    // What the memory holds before the call, and where the model leaves what it holds afterwards: the same where the
    // model only reads. Both as addresses of the byte that the pointer points to.
    model::Plane show(const uint8_t* before, uint8_t* after);
    model::Plane show(uint8_t* content) { return show(content, content); }

    // What the model touched, or may have touched: of one plane, or of two in the same memory.
    void touch(const model::Plane& plane);
    void touch(int64_t low, int64_t high);
    bool touched() const { return low_ < high_; }
    bool escaped() const { return escaped_; }
    bool written() const { return before_ != after_; }

    bool place(Edge edge, std::optional<int> phase); // false where there is not enough memory
    void fill() const;
    std::optional<std::string> difference() const;
    void forget() const; // what the model wrote

    // Of the pointer as placed; one that faults where nothing is touched.
    uint8_t* address() const { return placed_; }

private:
    const char* name_;
    int64_t reach_;
    Arena arena_;
    const uint8_t* before_ = nullptr;
    uint8_t* after_ = nullptr;
    int64_t low_ = 0, high_ = 0;  // the touched bytes
    int64_t first_ = 0, end_ = 0; // those that are compared: some more, where there is memory
    bool escaped_ = false;
    uint8_t* placed_ = nullptr;
};

} // namespace harness
