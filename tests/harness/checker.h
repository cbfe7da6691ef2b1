// SPDX-License-Identifier: MIT
// Compares the exports that take pointers to planes with their models.
#pragma once
#include "harness/case.h"
#include "harness/comparer.h"
#include "harness/record_memory.h"

namespace harness {

class Checker : Comparer {
public:
    // `reach`: how far from a passed pointer, in either direction, a case may touch memory.
    explicit Checker(size_t reach);

    using Comparer::wrote;

    // What went wrong, or nothing. Sources, records and every unwritten byte must come out as they went in.
    std::optional<std::string> run(const Case& c, const std::vector<Placement>& placements,
                                   const std::vector<Variant>& tables = variants());

private:
    enum : size_t { kY, kU, kV, kDst };

    void run_model();
    std::string describe() const override { return harness::describe(*case_); }
    void call(const Variant& table) override;
    std::optional<std::string> wrong_records() const override;

    const Case* case_ = nullptr;
    bool reads_record_ = false; // whether the case reads the record that it gets
    tagVideoFrame frame_ = {};
    RecordMemory<ajust_contrast_info> records_, adjustments_;
    RecordMemory<tagVideoFrame> frames_;
};

} // namespace harness
