// SPDX-License-Identifier: MIT
#include "harness/checker.h"

namespace harness {

Checker::Checker(size_t reach) : Comparer(reach, {"y", "u", "v", "the destination"}) {}

std::optional<std::string> Checker::run(const Case& c, const std::vector<Placement>& placements,
                                        const std::vector<Variant>& tables)
{
    case_ = &c;
    run_model();
    return compare(placements, tables);
}

void Checker::run_model()
{
    const Case& c = *case_;
    auto show = [&](size_t plane) { return memory(plane).show(stretch(c.content, c.seed >> (16 * plane))); };
    model::Planes planes = {show(kY), show(kU), show(kV), show_canvas(memory(kDst), 0)};
    const model::Call call = {c.width, c.height, c.y_pitch, c.dst_pitch, &c.info, model::state_from(c.adjustment),
                              c.plane, c.start,  c.height,  c.field_mode};
    c.tested->model(planes, call);
    reads_record_ = call.info.was_read();
    memory(kY).touch(planes.y);
    memory(kU).touch(planes.u);
    memory(kV).touch(planes.v);
    memory(kDst).touch(planes.dst);
}

// What a call must not look at gets an address that faults, or none: its record, its frame, planes.
void Checker::call(const Variant& table)
{
    const Case& c = *case_;
    Arguments a = {address(kY), address(kU), address(kV), address(kDst), nullptr, nullptr};
    std::memset(&frame_, 0, sizeof frame_);
    frame_.field_mode = c.field_mode;
    frame_.plane_y = a.y;
    frame_.plane_u = a.u;
    frame_.plane_v = a.v;
    frame_.pitch = c.y_pitch;
    a.info = records_.put(c.info);
    a.frame = frames_.put(frame_);
    const bool null = c.seed % 2 == 0;
    if (!reads_record_) a.info = records_.forbidden(null);
    if (!memory(kDst).touched()) a.frame = frames_.forbidden(null);
    get_contrast_data(adjustments_.put(c.adjustment));
    c.tested->call(*table.kernels, c, a);
}

std::optional<std::string> Checker::wrong_records() const
{
    const bool intact =
        records_.intact(case_->info) && frames_.intact(frame_) && adjustments_.intact(case_->adjustment);
    return intact ? std::nullopt : std::optional<std::string>("a record was changed");
}

} // namespace harness
