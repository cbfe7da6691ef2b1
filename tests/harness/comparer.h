// SPDX-License-Identifier: MIT
// Makes one call on every table under test and compares what it leaves behind with what the model leaves.
#pragma once
#include "harness/content.h"
#include "harness/crash.h"
#include "harness/plane_memory.h"

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace harness {

class Comparer : protected Described {
public:
    bool wrote() const; // the last case, by the model

protected:
    Comparer(size_t reach, std::initializer_list<const char*> planes);
    ~Comparer() = default;

    // A stretch of a content, chosen by `seed`; the planes that show it only read it.
    uint8_t* stretch(Content content, uint64_t seed);

    // For the model to write on: noise, and a copy of it.
    model::Plane show_canvas(PlaneMemory& memory, size_t number);
    uint8_t* canvas(size_t number);
    const uint8_t* ground() const { return ground_.data() + reach_; }

    // Once the model has touched the planes: what is wrong with which table, or nothing.
    std::optional<std::string> compare(const std::vector<Placement>& placements, const std::vector<Variant>& tables);

    virtual void call(const Variant& table) = 0;
    virtual std::optional<std::string> wrong_records() const = 0;

    int64_t reach() const { return reach_; }
    PlaneMemory& memory(size_t plane) { return memories_[plane]; }
    uint8_t* address(size_t plane) const { return memories_[plane].address(); }

private:
    bool place(const Placement& placement);
    std::optional<std::string> run(const Placement& placement, const Variant& table);

    int64_t reach_;
    std::deque<PlaneMemory> memories_;
    std::map<Content, std::vector<uint8_t>> contents_; // each made when a case first shows it
    std::vector<uint8_t> ground_;
    std::deque<std::vector<uint8_t>> canvases_;
};

} // namespace harness
