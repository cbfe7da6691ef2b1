// SPDX-License-Identifier: MIT
#include "model/show_status.h"

#include "model/show.h"
#include "model/show_formats.h"

#include <cstdint>
#include <vector>

namespace model {
namespace {

uintptr_t magnitude(ptrdiff_t pitch)
{
    const auto bits = static_cast<uintptr_t>(pitch);
    return pitch < 0 ? 0 - bits : bits;
}

// Whether lines of a shape can lie at an address with a pitch: apart from each other, and within the address space.
bool is_good_plane(const uint8_t* plane, ptrdiff_t pitch, const PlaneShape& shape)
{
    const auto address = reinterpret_cast<uintptr_t>(plane);
    if (shape.line > PTRDIFF_MAX) return false;
    const auto line = static_cast<uintptr_t>(shape.line);
    uintptr_t above = 0, below = 0; // bytes before and after the first line
    if (shape.lines > 1) {
        const auto steps = static_cast<uintptr_t>(shape.lines - 1);
        if (magnitude(pitch) < line || magnitude(pitch) > (uintptr_t{PTRDIFF_MAX} - line) / steps) return false;
        (pitch < 0 ? above : below) = steps * magnitude(pitch);
    }
    return address >= above && UINTPTR_MAX - address >= below + (line - 1);
}

template <class Planes> bool has_all_planes(const Planes& planes)
{
    for (int i = 0; i < planes_of(number(planes.format)); ++i) {
        if (planes.plane[i] == nullptr) return false;
    }
    return true;
}

template <class Planes> bool has_good_planes(const Planes& planes)
{
    const int format = number(planes.format);
    for (int i = 0; i < planes_of(format); ++i) {
        const PlaneShape shape = plane_shape(format, i, planes.width, planes.height);
        if (!is_good_plane(planes.plane[i], planes.pitch[i], shape)) return false;
    }
    return true;
}

bool is_good_stretch(int start, int length, int whole)
{
    return start >= 0 && length >= 0 && start < whole && length <= whole - start;
}

bool is_good_look(const vsurf_look& look)
{
    for (const float member : {look.brightness, look.contrast, look.saturation, look.hue}) {
        if (!(member >= -1 && member <= 1)) return false;
    }
    return true;
}

PlaneShape overlay_shape(const vsurf_overlay& overlay)
{
    return {int64_t{overlay.width} * (number(overlay.kind) == VSURF_COVERAGE ? 1 : 4), overlay.height};
}

bool is_good_overlay(const vsurf_overlay& overlay)
{
    const int kind = number(overlay.kind);
    if (kind < VSURF_STRAIGHT_RGBA || kind > VSURF_COVERAGE) return false;
    if (overlay.width < 0 || overlay.height < 0) return false;
    if (overlay.width == 0 || overlay.height == 0) return true;
    return overlay.pixels != nullptr && is_good_plane(overlay.pixels, overlay.pitch, overlay_shape(overlay));
}

template <class Member> bool is_any_of(const Member& member, int count)
{
    return number(member) >= 0 && number(member) < count;
}

vsurf_status planes_mistake(const vsurf_picture& picture, const vsurf_surface& surface)
{
    const bool encoded = is_yuv(number(surface.format));
    if (!is_yuv(number(picture.format))) return VSURF_BAD_SOURCE_FORMAT;
    if (!is_known(number(surface.format))) return VSURF_BAD_SURFACE_FORMAT;
    if (picture.width < 1 || picture.height < 1) return VSURF_BAD_SOURCE_SIZE;
    if (surface.width < 1 || surface.height < 1) return VSURF_BAD_SURFACE_SIZE;
    if (!is_any_of(picture.matrix, 3) || (encoded && !is_any_of(surface.matrix, 3))) return VSURF_BAD_MATRIX;
    if (!is_any_of(picture.range, 2) || (encoded && !is_any_of(surface.range, 2))) return VSURF_BAD_RANGE;
    if (!has_all_planes(picture)) return VSURF_NO_SOURCE_PLANE;
    if (!has_all_planes(surface)) return VSURF_NO_SURFACE_PLANE;
    if (!has_good_planes(picture)) return VSURF_SHORT_SOURCE_PITCH;
    if (!has_good_planes(surface)) return VSURF_SHORT_SURFACE_PITCH;
    return VSURF_OK;
}

// From the first to behind the last byte.
struct Range {
    uintptr_t first, end;
};

Range range_of(const uint8_t* plane, ptrdiff_t pitch, const PlaneShape& shape)
{
    const auto first = reinterpret_cast<uintptr_t>(plane);
    const auto last = first + static_cast<uintptr_t>(shape.lines - 1) * static_cast<uintptr_t>(pitch);
    return {pitch < 0 ? last : first, (pitch < 0 ? first : last) + static_cast<uintptr_t>(shape.line)};
}

template <class Planes> void add_ranges(std::vector<Range>& to, const Planes& planes)
{
    const int format = number(planes.format);
    for (int i = 0; i < planes_of(format); ++i) {
        const PlaneShape shape = plane_shape(format, i, planes.width, planes.height);
        to.push_back(range_of(planes.plane[i], planes.pitch[i], shape));
    }
}

} // namespace

vsurf_status mistake(const vsurf_job* job)
{
    if (job == nullptr) return VSURF_NO_JOB;
    if (job->picture == nullptr) return VSURF_NO_PICTURE;
    if (job->surface == nullptr) return VSURF_NO_SURFACE;
    const vsurf_picture& picture = *job->picture;
    const vsurf_surface& surface = *job->surface;
    if (const vsurf_status wrong = planes_mistake(picture, surface); wrong != VSURF_OK) return wrong;
    if (!is_good_stretch(job->crop_x, job->crop_width, picture.width)) return VSURF_BAD_CROP;
    if (!is_good_stretch(job->crop_y, job->crop_height, picture.height)) return VSURF_BAD_CROP;
    const auto [width, height] = shown_size(*job);
    if (!is_good_stretch(job->x, width, surface.width)) return VSURF_BAD_POSITION;
    if (!is_good_stretch(job->y, height, surface.height)) return VSURF_BAD_POSITION;
    if (!is_good_look(job->look)) return VSURF_BAD_LOOK;
    if (job->overlay_count < 0) return VSURF_BAD_OVERLAY_COUNT;
    if (job->overlay_count > 0 && job->overlays == nullptr) return VSURF_NO_OVERLAYS;
    for (int i = 0; i < job->overlay_count; ++i) {
        if (!is_good_overlay(job->overlays[i])) return VSURF_BAD_OVERLAY;
    }
    return VSURF_OK;
}

bool may_overlap(const vsurf_job& job)
{
    std::vector<Range> ranges; // the surface's come first
    add_ranges(ranges, *job.surface);
    const size_t written = ranges.size();
    add_ranges(ranges, *job.picture);
    for (int i = 0; i < job.overlay_count; ++i) {
        const vsurf_overlay& overlay = job.overlays[i];
        if (overlay.width == 0 || overlay.height == 0) continue;
        ranges.push_back(range_of(overlay.pixels, overlay.pitch, overlay_shape(overlay)));
    }
    for (size_t i = 0; i < written; ++i) {
        for (size_t other = i + 1; other < ranges.size(); ++other) {
            if (ranges[i].first < ranges[other].end && ranges[other].first < ranges[i].end) return true;
        }
    }
    return false;
}

} // namespace model
