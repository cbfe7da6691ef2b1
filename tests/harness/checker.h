// Runs cases on the tables under test and compares every byte with the model.
#pragma once
#include "harness/arena.h"
#include "harness/case.h"
#include "harness/variants.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace harness {

class Checker {
public:
    // `reach`: how far from a passed pointer, in either direction, a case may touch memory.
    explicit Checker(size_t reach);

    // What went wrong, or nothing. Sources, records and every unwritten byte must come out as they went in.
    std::optional<std::string> run(const Case& c, const std::vector<Placement>& placements,
                                   const std::vector<Variant>& tables = variants());

private:
    struct Source {
        model::Plane* plane = nullptr;
        const uint8_t* content = nullptr;
        const Arena* arena = nullptr;
        uint8_t* placed = nullptr;
    };

    std::vector<uint8_t>& shown(Content content);
    std::optional<std::string> run_model(const Case& c);
    bool place_sources(const Placement& placement);
    bool inputs_intact(const Case& c) const;
    std::optional<std::string> run_table(const Case& c, const Placement& placement, const Variant& table);
    std::optional<std::string> compare(const uint8_t* dst, int64_t first, int64_t end) const;
    void call(const Case& c, const Variant& table, uint8_t* dst);
    void forget_model();

    int64_t reach_;
    std::map<Content, std::vector<uint8_t>> contents_; // each made when a case first shows it
    std::vector<uint8_t> pristine_, image_;            // image_ is the model's destination
    Arena y_, u_, v_, dst_, records_, frames_, adjustments_;
    model::Planes planes_;
    bool reads_record_ = false; // whether the case looks at the record that it is handed
    tagVideoFrame frame_ = {};
    Source sources_[3];
};

// The two placements that have a guard page flush against everything that is touched.
std::vector<Placement> flush();

// The flush ones and one inside with a given alignment of the pointers.
std::vector<Placement> flush_and_aligned(int alignment);

} // namespace harness
