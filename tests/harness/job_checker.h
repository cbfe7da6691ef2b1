// SPDX-License-Identifier: MIT
// Compares the exports for subpictures and colour keys with their models.
#pragma once
#include "harness/comparer.h"
#include "harness/job_case.h"
#include "harness/record_memory.h"

namespace harness {

class JobChecker : Comparer {
public:
    // `reach`: how far from the record's pointers, in either direction, a case may touch memory.
    explicit JobChecker(size_t reach);

    using Comparer::wrote;

    // What went wrong, or nothing. Every byte and the record must come out as the model leaves them.
    std::optional<std::string> run(const JobCase& c, const std::vector<Placement>& placements,
                                   const std::vector<Variant>& tables = variants());

private:
    void show();
    void run_model();
    MIX_INFO record() const;
    uint8_t* pointer(size_t plane) const;

    std::string describe() const override { return harness::describe(*case_); }
    void call(const Variant& table) override;
    std::optional<std::string> wrong_records() const override;

    const JobCase* case_ = nullptr;
    model::JobPlanes planes_;
    model::Plane drawing_;
    model::Job job_; // as the model leaves it
    MIX_INFO before_ = {};
    RecordMemory<MIX_INFO> records_;
    RecordMemory<ajust_contrast_info> infos_, adjustments_;
};

} // namespace harness
