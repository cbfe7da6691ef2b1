// SPDX-License-Identifier: MIT
#include "harness/job_checker.h"

#include "harness/drawing.h"
#include "harness/job_record.h"

#include <algorithm>

namespace harness {
namespace {

constexpr size_t kDrawingCanvas = 3; // behind those of the destinations

// Where the picture's planes are when a job works in place.
size_t twin(size_t plane) { return plane + kSurface - kPictureY; }

bool may_have_twin(const JobCase& c, size_t plane)
{
    if (!c.in_place) return false;
    return c.tested->kind == JobKind::kMask ? plane == kPictureY : plane <= kPictureV;
}

Content shown_by(const JobCase& c, size_t plane)
{
    return plane == kAlpha ? c.alpha : plane <= kPictureV ? c.picture : c.subpicture;
}

intptr_t distance(const unsigned char* from, const unsigned char* to)
{
    return static_cast<intptr_t>(reinterpret_cast<uintptr_t>(to) - reinterpret_cast<uintptr_t>(from));
}

template <class Value> std::string wrong_field(const char* name, Value is, Value expected)
{
    return std::string("the record's ") + name + " is " + std::to_string(is) + " instead of " +
           std::to_string(expected);
}

} // namespace

JobChecker::JobChecker(size_t reach)
    : Comparer(reach, {"picture_y", "picture_u", "picture_v", "subpic_alpha", "subpic_y", "subpic_u", "subpic_v",
                       "surface", "surface_u", "surface_v"}),
      job_{0, 0, 0, 0, 0, 0, nullptr, {}}
{
}

std::optional<std::string> JobChecker::run(const JobCase& c, const std::vector<Placement>& placements,
                                           const std::vector<Variant>& tables)
{
    case_ = &c;
    show();
    run_model();
    auto wrong = compare(placements, tables);
    if (drawing_.touched()) {
        std::copy(ground() + drawing_.low(), ground() + drawing_.high(), canvas(kDrawingCanvas) + drawing_.low());
    }
    return wrong;
}

void JobChecker::show()
{
    for (size_t plane = 0; plane < kJobPlanes; ++plane) {
        planes_.*kPlaneFields[plane].plane =
            memory(plane).show(stretch(shown_by(*case_, plane), case_->seed >> 5 * plane));
    }
    size_t number = 0;
    for (const size_t plane : case_->tested->destinations()) {
        planes_.*kPlaneFields[plane].plane = show_canvas(memory(plane), number++);
    }
    for (size_t plane = 0; plane < kJobPlanes; ++plane) {
        if (may_have_twin(*case_, plane)) planes_.*kPlaneFields[plane].plane = planes_.*kPlaneFields[twin(plane)].plane;
    }
    drawing_ = {};
    if (case_->tested->kind != JobKind::kConversion) return;
    planes_.surface = memory(kSurface).show(canvas(kDrawingCanvas));
    drawing_ = planes_.surface;
    draw(drawing_, *case_);
}

void JobChecker::run_model()
{
    const JobCase& c = *case_;
    job_ = {c.picture_pitch, c.subpicture_pitch, c.surface_pitch, c.width,
            c.height,        c.color_key,        &c.info,         model::state_from(c.adjustment)};
    c.tested->model(planes_, job_, c);
    for (size_t plane = 0; plane < kJobPlanes; ++plane) {
        memory(may_have_twin(c, plane) ? twin(plane) : plane).touch(planes_.*kPlaneFields[plane].plane);
    }
}

// What a call must not look at faults, or is null where its pointer does not move.
uint8_t* JobChecker::pointer(size_t plane) const
{
    if (may_have_twin(*case_, plane)) return address(twin(plane));
    const int64_t model::Job::Moved::*moved = kPlaneFields[plane].moved;
    const bool unused = !(planes_.*kPlaneFields[plane].plane).touched() && (moved == nullptr || job_.moved.*moved == 0);
    return unused && case_->seed % 2 == 0 ? nullptr : address(plane);
}

MIX_INFO JobChecker::record() const
{
    const JobCase& c = *case_;
    MIX_INFO record = {};
    record.picture_pitch = c.picture_pitch;
    record.subpicture_pitch = c.subpicture_pitch;
    record.surface_pitch = c.surface_pitch;
    record.width = c.width;
    record.height = c.height;
    for (size_t plane = 0; plane < kJobPlanes; ++plane) record.*kPlaneFields[plane].pointer = pointer(plane);
    record.color_key = c.color_key;
    record.reserved1 = c.reserved1;
    record.reserved2 = c.reserved2;
    record.contrast_info = job_.contrast_info.was_read() ? infos_.put(c.info) : infos_.forbidden(c.seed / 2 % 2 == 0);
    return record;
}

void JobChecker::call(const Variant& table)
{
    before_ = record();
    get_contrast_data(adjustments_.put(case_->adjustment));
    case_->tested->call(*table.kernels, *case_, records_.put(before_));
}

std::optional<std::string> JobChecker::wrong_records() const
{
    const MIX_INFO& after = records_.get();
    for (const NumberField& each : kNumberFields) {
        const int32_t expected = each.number == &MIX_INFO::height  ? job_.height
                                 : each.number == &MIX_INFO::width ? job_.width
                                                                   : before_.*each.number;
        if (after.*each.number != expected) return wrong_field(each.name, after.*each.number, expected);
    }
    for (const PlaneField& each : kPlaneFields) {
        const int64_t moved = distance(before_.*each.pointer, after.*each.pointer);
        const int64_t expected = each.moved == nullptr ? 0 : job_.moved.*each.moved;
        if (moved != expected) return wrong_field(each.name, moved, expected) + ", counted from where it was";
    }
    if (after.color_key != before_.color_key) return wrong_field("color_key", after.color_key, before_.color_key);
    if (after.contrast_info != before_.contrast_info) return "the record's contrast_info was changed";
    const bool intact = !job_.contrast_info.was_read() || infos_.intact(case_->info);
    if (!intact || !adjustments_.intact(case_->adjustment)) return "a record of adjustments was changed";
    return std::nullopt;
}

} // namespace harness
