// SPDX-License-Identifier: MIT
#include "harness/show_checker.h"

#include "model/show.h"
#include "model/show_formats.h"

#include <algorithm>

namespace harness {
namespace {

// Of the planes that memory is set aside for.
constexpr size_t kPicture = 0, kSurface = 3, kOverlays = 6;

// The bytes of a plane, as offsets from its first line. The last byte of a line of UYVY whose last pixel has no partner
// is none of them: it is neither read nor written.
struct Extent {
    int64_t low, high;
};

Extent extent_of(const model::PlaneShape& shape, ptrdiff_t pitch, bool last_byte_counts = true)
{
    const int64_t way = shape.lines == 1 ? 0 : (shape.lines - 1) * int64_t{pitch};
    return {std::min<int64_t>(way, 0), std::max<int64_t>(way, 0) + shape.line - (last_byte_counts ? 0 : 1)};
}

template <class Planes> Extent extent_of(const Planes& planes, int plane)
{
    const model::PlaneShape shape = model::plane_shape(planes.format, plane, planes.width, planes.height);
    return extent_of(shape, planes.pitch[plane], planes.format != VSURF_UYVY || planes.width % 2 == 0);
}

} // namespace

ShowChecker::ShowChecker(size_t reach)
    : Comparer(reach,
               {"the picture's plane 0", "the picture's plane 1", "the picture's plane 2", "the surface's plane 0",
                "the surface's plane 1", "the surface's plane 2", "overlay 0", "overlay 1", "overlay 2"})
{
}

std::optional<std::string> ShowChecker::run(const ShowCase& c, const std::vector<Placement>& placements,
                                            const std::vector<Variant>& tables)
{
    case_ = &c;
    shown_ = c;
    show();
    run_model();
    return compare(placements, tables);
}

// What the model works on. Memories that no plane lies in stay untouched, and faults where it is touched.
void ShowChecker::show()
{
    for (size_t i = 0; i < kOverlays + kMostOverlays; ++i) memory(i).show(stretch(case_->content, 0));
    auto touch = [this](size_t number, const Extent& extent) { memory(number).touch(extent.low, extent.high); };
    for (int i = 0; i < model::planes_of(shown_.picture.format); ++i) {
        const size_t number = kPicture + static_cast<size_t>(i);
        uint8_t* const content = stretch(case_->content, case_->seed >> (5 * i));
        memory(number).show(content);
        shown_.picture.plane[i] = content;
        touch(number, extent_of(shown_.picture, i));
    }
    for (int i = 0; i < model::planes_of(shown_.surface.format); ++i) {
        const size_t number = kSurface + static_cast<size_t>(i);
        show_canvas(memory(number), static_cast<size_t>(i));
        shown_.surface.plane[i] = canvas(static_cast<size_t>(i));
        touch(number, extent_of(shown_.surface, i));
    }
    for (size_t i = 0; i < shown_.overlays.size(); ++i) {
        vsurf_overlay& overlay = shown_.overlays[i];
        uint8_t* const content = stretch(case_->overlay_content, (case_->seed >> (7 * i)) & ~uint64_t{3});
        memory(kOverlays + i).show(content);
        overlay.pixels = content;
        const int pixel = overlay.kind == VSURF_COVERAGE ? 1 : 4;
        if (overlay.width == 0 || overlay.height == 0) continue;
        touch(kOverlays + i, extent_of({overlay.width * pixel, overlay.height}, overlay.pitch));
    }
}

template <class Work> void ShowChecker::for_each_band(const Work& work) const
{
    if (case_->band >= 0) return work(case_->band);
    for (int band = case_->bands - 1; band >= 0; --band) work(band);
}

void ShowChecker::run_model() const
{
    vsurf_job job = shown_.job;
    job.picture = &shown_.picture;
    job.surface = &shown_.surface;
    job.overlays = shown_.overlays.data();
    job.overlay_count = static_cast<int>(shown_.overlays.size());
    if (case_->band < 0) return model::show(job);
    for_each_band([&](int band) { model::show(job, band, case_->bands); });
}

// Planes that there are not are not looked at: their pointers are null, or fault.
uint8_t* ShowChecker::pointer(size_t plane)
{
    return !memory(plane).touched() && case_->seed % 2 == 0 ? nullptr : address(plane);
}

void ShowChecker::call(const Variant& table)
{
    for (size_t i = 0; i < 3; ++i) {
        shown_.picture.plane[i] = pointer(kPicture + i);
        shown_.surface.plane[i] = pointer(kSurface + i);
    }
    const size_t count = shown_.overlays.size(), unused = kMostOverlays - count;
    for (size_t i = 0; i < count; ++i) {
        shown_.overlays[i].pixels = pointer(kOverlays + i);
        last_overlays_[unused + i] = shown_.overlays[i];
    }
    shown_.job.picture = pictures_.put(shown_.picture);
    shown_.job.surface = surfaces_.put(shown_.surface);
    shown_.job.overlays = overlays_.put(last_overlays_)->data() + unused;
    shown_.job.overlay_count = static_cast<int>(count);
    const vsurf_job* const job = jobs_.put(shown_.job);
    status_ = VSURF_OK;
    for_each_band([&](int band) {
        const vsurf_status status = table.show(job, band, case_->bands);
        if (status_ == VSURF_OK) status_ = status;
    });
}

std::optional<std::string> ShowChecker::wrong_records() const
{
    if (status_ != VSURF_OK) return std::string("refused: ") + vsurf_status_text(status_);
    const bool intact = jobs_.intact(shown_.job) && pictures_.intact(shown_.picture) &&
                        surfaces_.intact(shown_.surface) && overlays_.intact(last_overlays_);
    return intact ? std::nullopt : std::optional<std::string>("a record was changed");
}

} // namespace harness
