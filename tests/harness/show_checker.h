// SPDX-License-Identifier: MIT
// Compares vsurf_show with its model.
#pragma once
#include "harness/comparer.h"
#include "harness/record_memory.h"
#include "harness/show_case.h"

#include <array>

namespace harness {

class ShowChecker : Comparer {
public:
    // `reach`: how far from a plane's pointer, in either direction, a case may touch memory.
    explicit ShowChecker(size_t reach);

    // What went wrong, or nothing. Every byte that the model does not write, the sources and the records must come out
    // as they went in. Buffers are as large as the planes.
    std::optional<std::string> run(const ShowCase& c, const std::vector<Placement>& placements,
                                   const std::vector<Variant>& tables = show_variants());

private:
    void show();
    void run_model() const;
    uint8_t* pointer(size_t plane);
    template <class Work> void for_each_band(const Work& work) const;

    std::string describe() const override { return harness::describe(*case_); }
    void call(const Variant& table) override;
    std::optional<std::string> wrong_records() const override;

    using Overlays = std::array<vsurf_overlay, kMostOverlays>;

    const ShowCase* case_ = nullptr;
    ShowCase shown_; // the case with pointers to what the model works on, then with those of the call
    Overlays last_overlays_ = {};
    vsurf_status status_ = VSURF_OK; // of the calls: the first that is not VSURF_OK
    RecordMemory<vsurf_job> jobs_;
    RecordMemory<vsurf_picture> pictures_;
    RecordMemory<vsurf_surface> surfaces_;
    RecordMemory<Overlays> overlays_;
};

} // namespace harness
