// SPDX-License-Identifier: MIT
#include "harness/comparer.h"

#include "harness/random.h"

#include <algorithm>
#include <utility>

namespace harness {
namespace {

constexpr uint64_t kShift = 65536; // a plane shows the content from any of this many bytes on

std::vector<uint8_t> noise(size_t size)
{
    Random random(2);
    std::vector<uint8_t> bytes(size);
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(random.next());
    return bytes;
}

} // namespace

Comparer::Comparer(size_t reach, std::initializer_list<const char*> planes)
    : reach_(static_cast<int64_t>(reach)), ground_(noise(2 * reach))
{
    for (const char* name : planes) memories_.emplace_back(name, reach_);
}

uint8_t* Comparer::stretch(Content content, uint64_t seed)
{
    std::vector<uint8_t>& bytes = contents_[content];
    if (bytes.empty()) bytes = bytes_of(content, static_cast<size_t>(2 * reach_) + kShift);
    return bytes.data() + reach_ + seed % kShift;
}

uint8_t* Comparer::canvas(size_t number)
{
    while (canvases_.size() <= number) canvases_.push_back(ground_);
    return canvases_[number].data() + reach_;
}

model::Plane Comparer::show_canvas(PlaneMemory& memory, size_t number) { return memory.show(ground(), canvas(number)); }

std::optional<std::string> Comparer::compare(const std::vector<Placement>& placements,
                                             const std::vector<Variant>& tables)
{
    std::optional<std::string> wrong;
    for (const PlaneMemory& each : memories_) {
        if (each.escaped()) wrong = "the case touches memory beyond the reach of this test";
    }
    for (size_t p = 0; p < placements.size() && !wrong; ++p) {
        if (!place(placements[p])) wrong = "the touched bytes do not fit the memory set aside";
        for (size_t t = 0; t < tables.size() && !wrong; ++t) {
            wrong = run(placements[p], tables[t]);
            if (wrong) *wrong += "\n  on " + tables[t].name + ", " + harness::describe(placements[p]);
        }
    }
    for (const PlaneMemory& each : memories_) each.forget();
    if (wrong) *wrong = describe() + "\n  " + *wrong;
    return wrong;
}

bool Comparer::wrote() const
{
    return std::any_of(memories_.begin(), memories_.end(),
                       [](const PlaneMemory& each) { return each.written() && each.touched(); });
}

bool Comparer::place(const Placement& placement)
{
    size_t others = 1; // behind the first destination
    bool is_first = true;
    return std::all_of(memories_.begin(), memories_.end(), [&](PlaneMemory& each) {
        const size_t number = each.written() && std::exchange(is_first, false) ? 0 : others++;
        std::optional<int> phase;
        if (placement.phases) phase = placement.phases->of(number);
        const bool fits = each.place(placement.edge, phase);
        if (fits && !each.written()) each.fill();
        return fits;
    });
}

std::optional<std::string> Comparer::run(const Placement& placement, const Variant& table)
{
    for (const PlaneMemory& each : memories_) {
        if (each.written()) each.fill();
    }
    {
        const InCall in_call(*this, placement, table);
        if (table.apply != nullptr) table.apply();
        call(table);
    }
    for (const PlaneMemory& each : memories_) {
        if (auto wrong = each.difference()) return wrong;
    }
    return wrong_records();
}

} // namespace harness
