// SPDX-License-Identifier: MIT
// Looks for a job's first mistake. All arithmetic is right for any values of the members: sizes and places have 64
// bits, and what could leave them is checked.
#include "show/plan.h"

namespace vsurf {

// Pictures and surfaces in one form. The samples of a picture are not written through it.
struct Planes {
    int format, width, height;
    const uint8_t* const* plane;
    const ptrdiff_t* pitch;
    const FormatShape* shape;
};
template <class Record> static Planes planes_of(const Record& record)
{
    const int format = value_of(record.format);
    return {format,       record.width,    record.height, const_cast<const uint8_t* const*>(record.plane),
            record.pitch, shape_of(format)};
}

// Bytes of memory, the last one among them.
struct Extent {
    uintptr_t first = 0, last = 0;
};
static bool overlap(Extent a, Extent b) { return a.first <= b.last && b.first <= a.last; }

static uint64_t magnitude(int64_t pitch)
{
    return pitch < 0 ? -static_cast<uint64_t>(pitch) : static_cast<uint64_t>(pitch);
}

// From the lowest to the highest byte of lines. False where that is more than memory holds.
static bool extent_of(const uint8_t* first, int64_t pitch, int64_t lines, int64_t bytes, Extent& extent)
{
    const auto at = reinterpret_cast<uintptr_t>(first);
    const auto line = static_cast<uint64_t>(bytes);
    uint64_t steps, size;
    if (__builtin_mul_overflow(lines == 1 ? 0 : magnitude(pitch), static_cast<uint64_t>(lines - 1), &steps) ||
        __builtin_add_overflow(steps, line, &size) || size > PTRDIFF_MAX)
        return false;
    const auto before = static_cast<uintptr_t>(pitch < 0 ? steps : 0);
    extent.first = at - before;
    extent.last = extent.first + static_cast<uintptr_t>(size - 1);
    return before <= at && extent.last >= extent.first;
}

static int64_t lines_of(const PlaneShape& plane, int64_t height)
{
    return plane.half_height ? (height + 1) / 2 : height;
}

static int missing_plane(const Planes& p)
{
    for (int i = 0; i < p.shape->planes; i++)
        if (!p.plane[i]) return i;
    return -1;
}

static bool pitch_is_short(ptrdiff_t pitch, int64_t lines, int64_t bytes)
{
    return lines > 1 && magnitude(pitch) < static_cast<uint64_t>(bytes);
}

static Mistake pitch_mistake(const Planes& p, vsurf_status status)
{
    for (int i = 0; i < p.shape->planes; i++) {
        const int64_t lines = lines_of(p.shape->plane[i], p.height), bytes = line_bytes(p.shape->plane[i], p.width);
        Extent whole;
        if (pitch_is_short(p.pitch[i], lines, bytes)) return {status, i};
        if (!extent_of(p.plane[i], p.pitch[i], lines, bytes, whole)) return {status, i, true};
    }
    return {VSURF_OK};
}

static bool inside(int at, int64_t size, int edge) { return at >= 0 && at + size <= edge; }

// Not a number is outside, too.
static bool in_unit_range(float x) { return x >= -1 && x <= 1; }

static bool overlay_is_bad(const vsurf_overlay& overlay)
{
    const int kind = value_of(overlay.kind);
    if (kind < VSURF_STRAIGHT_RGBA || kind > VSURF_COVERAGE || overlay.width < 0 || overlay.height < 0) return true;
    if (overlay.width == 0 || overlay.height == 0) return false;
    const int64_t bytes = int64_t{overlay.width} * (kind == VSURF_COVERAGE ? 1 : 4);
    Extent whole;
    return !overlay.pixels || pitch_is_short(overlay.pitch, overlay.height, bytes) ||
           !extent_of(overlay.pixels, overlay.pitch, overlay.height, bytes, whole);
}

// What a plan reads or writes of one plane.
struct Used {
    const uint8_t* first;
    ptrdiff_t pitch;
    int64_t bytes, lines;
};

// Plane i of a rectangle whose first sample is at (x, y).
static Used used_of(const Planes& p, int i, int x, int y, int64_t width, int64_t height)
{
    const PlaneShape& shape = p.shape->plane[i];
    const int64_t column = shape.half_width ? x / 2 : x, line = shape.half_height ? y / 2 : y;
    return {p.plane[i] + column * shape.bytes + (line == 0 ? 0 : line * p.pitch[i]), p.pitch[i],
            line_bytes(shape, width), lines_of(shape, height)};
}

// The plan's planes of a rectangle. Of packed pixels luma and chroma start at bytes of their own.
template <class Byte>
static void take_planes(const Planes& p, int x, int y, const Plan& plan, Byte** first, ptrdiff_t* pitch)
{
    for (int i = 0; i < 3; i++) {
        const bool packed = is_packed(p.format), has = packed ? i < 2 : i < p.shape->planes;
        first[i] = nullptr, pitch[i] = 0;
        if (!has) continue;
        const Used used = used_of(p, packed ? 0 : i, x, y, plan.width, plan.height);
        const bool second = (p.format == VSURF_YUY2) == (i == 1);
        first[i] =
            const_cast<Byte*>(used.first) + (packed && second ? 1 : 0) + (packed && i == 0 && x % 2 != 0 ? 2 : 0);
        pitch[i] = used.lines == 1 ? 0 : used.pitch;
    }
}

// A packed line begins and ends with luma or with chroma, and at an odd place these are a pixel apart.
static Extent packed_extent(const uint8_t* luma, const uint8_t* chroma, ptrdiff_t pitch, const Plan& plan)
{
    Extent of_luma, of_chroma;
    extent_of(luma, pitch, plan.height, 2 * plan.width - 1, of_luma);
    extent_of(chroma, pitch, plan.height, (plan.width + 1) / 2 * 4 - 1, of_chroma);
    return {of_luma.first < of_chroma.first ? of_luma.first : of_chroma.first,
            of_luma.last > of_chroma.last ? of_luma.last : of_chroma.last};
}

static int extents_of(const Planes& p, const Plan& plan, const uint8_t* const* first, const ptrdiff_t* pitch,
                      Extent* extents)
{
    if (is_packed(p.format)) {
        extents[0] = packed_extent(first[0], first[1], pitch[0], plan);
        return 1;
    }
    for (int i = 0; i < p.shape->planes; i++) {
        const PlaneShape& shape = p.shape->plane[i];
        extent_of(first[i], pitch[i], lines_of(shape, plan.height), line_bytes(shape, plan.width), extents[i]);
    }
    return p.shape->planes;
}

// The part of an overlay that is used, if any.
static bool overlay_extent(const vsurf_overlay& overlay, const Plan& plan, Extent& extent)
{
    const int64_t x = int64_t{overlay.x} - plan.x, y = int64_t{overlay.y} - plan.y;
    const int64_t left = x < 0 ? -x : 0, top = y < 0 ? -y : 0;
    const int64_t right = x + overlay.width > plan.width ? plan.width - x : overlay.width;
    const int64_t bottom = y + overlay.height > plan.height ? plan.height - y : overlay.height;
    if (left >= right || top >= bottom) return false;
    const int bytes = value_of(overlay.kind) == VSURF_COVERAGE ? 1 : 4;
    const uint8_t* first = overlay.pixels + left * bytes + (top == 0 ? 0 : top * overlay.pitch);
    return extent_of(first, overlay.pitch, bottom - top, (right - left) * bytes, extent);
}

// Planes 1 and 2 may lie side by side in the same lines.
static bool side_by_side(const Plan& plan, const Extent* extents)
{
    const uint64_t pitch = magnitude(plan.to_pitch[1]), bytes = static_cast<uint64_t>(plan.width + 1) / 2;
    const int first = extents[1].first <= extents[2].first ? 1 : 2;
    if (plan.to_pitch[1] != plan.to_pitch[2] || pitch == 0) return false;
    const uint64_t apart = (extents[3 - first].first - extents[first].first) % pitch;
    return apart >= bytes && apart + bytes <= pitch;
}

static Mistake overlap_mistake(const Planes& picture, const Planes& surface, const Plan& plan)
{
    Extent read[3], written[3];
    const int reads = extents_of(picture, plan, plan.from, plan.from_pitch, read);
    const int writes = extents_of(surface, plan, plan.to, plan.to_pitch, written);
    for (int i = 0; i < writes; i++) {
        for (int j = 0; j < reads; j++)
            if (overlap(written[i], read[j])) return {VSURF_OVERLAP, i, false, j};
        for (int j = 0; j < plan.overlay_count; j++) {
            Extent pixels;
            if (overlay_extent(plan.overlays[j], plan, pixels) && overlap(written[i], pixels))
                return {VSURF_OVERLAP, i, false, kOverlayPlanes + j};
        }
        for (int j = 0; j < i; j++)
            if (overlap(written[i], written[j]) && !(j == 1 && side_by_side(plan, written)))
                return {VSURF_OVERLAP, i, false, j, true};
    }
    return {VSURF_OK};
}

static bool known_matrix(int matrix) { return matrix >= VSURF_BT601 && matrix <= VSURF_BT2020; }
static bool known_range(int range) { return range == VSURF_LIMITED || range == VSURF_FULL; }

static Mistake planes_mistake(const vsurf_job& job, const Planes& picture, const Planes& surface)
{
    if (!picture.shape || !has_chroma(picture.format)) return {VSURF_BAD_SOURCE_FORMAT};
    if (!surface.shape) return {VSURF_BAD_SURFACE_FORMAT};
    if (picture.width < 1 || picture.height < 1) return {VSURF_BAD_SOURCE_SIZE};
    if (surface.width < 1 || surface.height < 1) return {VSURF_BAD_SURFACE_SIZE};
    const bool encoded = has_chroma(surface.format);
    if (!known_matrix(value_of(job.picture->matrix))) return {VSURF_BAD_MATRIX, 0};
    if (encoded && !known_matrix(value_of(job.surface->matrix))) return {VSURF_BAD_MATRIX, 1};
    if (!known_range(value_of(job.picture->range))) return {VSURF_BAD_RANGE, 0};
    if (encoded && !known_range(value_of(job.surface->range))) return {VSURF_BAD_RANGE, 1};
    if (const int i = missing_plane(picture); i >= 0) return {VSURF_NO_SOURCE_PLANE, i};
    if (const int i = missing_plane(surface); i >= 0) return {VSURF_NO_SURFACE_PLANE, i};
    const Mistake mistake = pitch_mistake(picture, VSURF_SHORT_SOURCE_PITCH);
    return mistake.status != VSURF_OK ? mistake : pitch_mistake(surface, VSURF_SHORT_SURFACE_PITCH);
}

static Mistake place_mistake(const vsurf_job& job, const Plan& plan)
{
    if (job.crop_width < 0 || job.crop_height < 0 || job.crop_x >= job.picture->width ||
        job.crop_y >= job.picture->height || !inside(job.crop_x, plan.width, job.picture->width) ||
        !inside(job.crop_y, plan.height, job.picture->height))
        return {VSURF_BAD_CROP};
    if (!inside(job.x, plan.width, job.surface->width) || !inside(job.y, plan.height, job.surface->height))
        return {VSURF_BAD_POSITION};
    const float look[] = {job.look.brightness, job.look.contrast, job.look.saturation, job.look.hue};
    for (int i = 0; i < 4; i++)
        if (!in_unit_range(look[i])) return {VSURF_BAD_LOOK, i};
    if (job.overlay_count < 0) return {VSURF_BAD_OVERLAY_COUNT};
    if (job.overlay_count > 0 && !job.overlays) return {VSURF_NO_OVERLAYS};
    for (int i = 0; i < job.overlay_count; i++)
        if (overlay_is_bad(job.overlays[i])) return {VSURF_BAD_OVERLAY, i};
    return {VSURF_OK};
}

Mistake examine(const vsurf_job* job, Plan& plan)
{
    if (!job) return {VSURF_NO_JOB};
    if (!job->picture) return {VSURF_NO_PICTURE};
    if (!job->surface) return {VSURF_NO_SURFACE};
    const Planes picture = planes_of(*job->picture), surface = planes_of(*job->surface);
    Mistake mistake = planes_mistake(*job, picture, surface);
    if (mistake.status != VSURF_OK) return mistake;
    plan.source = picture.format, plan.surface = surface.format;
    plan.width = static_cast<ptrdiff_t>(job->crop_width ? job->crop_width : int64_t{picture.width} - job->crop_x);
    plan.height = static_cast<ptrdiff_t>(job->crop_height ? job->crop_height : int64_t{picture.height} - job->crop_y);
    plan.x = job->x, plan.y = job->y;
    plan.overlays = job->overlays, plan.overlay_count = job->overlay_count;
    mistake = place_mistake(*job, plan);
    if (mistake.status != VSURF_OK) return mistake;
    take_planes(picture, job->crop_x, job->crop_y, plan, plan.from, plan.from_pitch);
    take_planes(surface, job->x, job->y, plan, plan.to, plan.to_pitch);
    plan.first_pair = 0, plan.end_pair = (plan.height + 1) / 2;
    mistake = overlap_mistake(picture, surface, plan);
    if (mistake.status == VSURF_OK) plan_colours(*job, plan);
    return mistake;
}

} // namespace vsurf
