// SPDX-License-Identifier: MIT
#include "show/fakes.h"

#include "model/show.h"
#include "model/show_formats.h"

namespace selfcheck {

ShowSpoil show_spoil = ShowSpoil::kNothing;

namespace {

// The bytes of a line of the rectangle in the surface's first plane.
struct Stretch {
    uint8_t *first, *end;
};

Stretch stretch_of(const vsurf_job& job, int line)
{
    const int format = job.surface->format;
    const int bytes = model::is_planar(format) ? 1 : model::pixel_bytes(format);
    uint8_t* const start = job.surface->plane[0] + (job.y + line) * job.surface->pitch[0] + bytes * job.x;
    return {start, start + bytes * model::shown_size(job).width};
}

void read(const uint8_t* address) { static_cast<void>(*static_cast<const volatile uint8_t*>(address)); }

void flip(const uint8_t* address) { *const_cast<uint8_t*>(address) ^= 1; }

// What lies below stays where a store is lost.
class Below {
public:
    explicit Below(Stretch part) : part_(part), bytes_(part.first, part.end) {}
    void restore() const { std::copy(bytes_.begin(), bytes_.end(), part_.first); }

private:
    Stretch part_;
    std::vector<uint8_t> bytes_;
};

void spoil(const vsurf_job& job)
{
    const vsurf_picture& picture = *job.picture;
    const Stretch first = stretch_of(job, 0), last = stretch_of(job, model::shown_size(job).height - 1);
    const model::PlaneShape luma = model::plane_shape(picture.format, 0, picture.width, picture.height);
    switch (show_spoil) {
    case ShowSpoil::kWrongHead: return flip(last.first);
    case ShowSpoil::kByteBefore: return flip(first.first - 1);
    case ShowSpoil::kByteBehind: return flip(last.end);
    case ShowSpoil::kByteInPadding: return flip(first.end);
    case ShowSpoil::kReadsTooEarly: return read(picture.plane[0] - 1);
    case ShowSpoil::kReadsTooFar: return read(picture.plane[0] + (luma.lines - 1) * picture.pitch[0] + luma.line);
    case ShowSpoil::kReadsOverlay: return read(job.overlays[0].pixels - 1);
    case ShowSpoil::kReadsNoPlane: return read(picture.plane[2]);
    case ShowSpoil::kChangesSource: return flip(picture.plane[0]);
    case ShowSpoil::kChangesJob: return flip(reinterpret_cast<const uint8_t*>(&job.look));
    default: return;
    }
}

vsurf_status show(const vsurf_job* job, int band, int bands)
{
    if (show_spoil == ShowSpoil::kRefuses) return VSURF_BAD_LOOK;
    const Stretch last = stretch_of(*job, model::shown_size(*job).height - 1);
    const Below line(last), tail({last.end - 4, last.end});
    model::show(*job, band, bands);
    if (show_spoil == ShowSpoil::kLostLine) line.restore();
    if (show_spoil == ShowSpoil::kLostTail) tail.restore();
    spoil(*job);
    return VSURF_OK;
}

} // namespace

std::vector<harness::Variant> fake_show() { return {{"the model itself", nullptr, nullptr, show}}; }

} // namespace selfcheck
