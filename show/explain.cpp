// SPDX-License-Identifier: MIT
// Mistakes in words.
#include "show/plan.h"

#include <stdarg.h>
#include <stdio.h>

namespace vsurf {

static constexpr const char* kTexts[] = {
    "done",
    "the job is null",
    "the job has no picture",
    "the job has no surface",
    "the picture's format is none of a picture",
    "the surface's format is unknown",
    "the picture's width or height is below 1",
    "the surface's width or height is below 1",
    "a matrix is unknown",
    "a range is unknown",
    "a plane of the picture is null",
    "a plane of the surface is null",
    "a pitch of the picture is smaller than a line, or a plane larger than memory",
    "a pitch of the surface is smaller than a line, or a plane larger than memory",
    "the crop is not inside the picture",
    "what is shown does not fit on the surface there",
    "a member of the look is not a number from -1 to 1",
    "the count of overlays is negative",
    "overlays are counted, yet there are none",
    "an overlay's kind, size, pixels or pitch is unusable",
    "memory that is written overlaps memory that is read, or other memory that is written",
    "there is no such band",
};

struct Text {
    char* to;
    size_t room;

    __attribute__((format(printf, 2, 3))) size_t say(const char* format, ...) const
    {
        va_list values;
        va_start(values, format);
        const int length = vsnprintf(to, room, format, values);
        va_end(values);
        return length < 0 ? 0 : static_cast<size_t>(length);
    }
};

static size_t explain_pitch(Text text, const char* side, int format, int width, int height, ptrdiff_t pitch,
                            const Mistake& mistake)
{
    const FormatShape& shape = *shape_of(format);
    const int i = mistake.index;
    const auto line = static_cast<long long>(line_bytes(shape.plane[i], width));
    if (mistake.large)
        return text.say("%s.pitch[%d] is %lld, with which %d lines do not fit into memory from %s.plane[%d] on", side,
                        i, static_cast<long long>(pitch), height, side, i);
    return text.say("%s.pitch[%d] is %lld, a line of %d %s pixels takes %lld bytes", side, i,
                    static_cast<long long>(pitch), width, shape.name, line);
}

template <class Record>
static size_t explain_plane(Text text, const char* side, const Record& record, const Mistake& mistake)
{
    const FormatShape& shape = *shape_of(value_of(record.format));
    if (mistake.status == VSURF_NO_SOURCE_PLANE || mistake.status == VSURF_NO_SURFACE_PLANE)
        return text.say("%s.plane[%d] is null, %s has %d plane%s", side, mistake.index, shape.name, shape.planes,
                        shape.planes == 1 ? "" : "s");
    return explain_pitch(text, side, value_of(record.format), record.width, record.height, record.pitch[mistake.index],
                         mistake);
}

static size_t explain_overlay(Text text, const vsurf_overlay& overlay, int i)
{
    const int kind = value_of(overlay.kind);
    if (kind < VSURF_STRAIGHT_RGBA || kind > VSURF_COVERAGE)
        return text.say("overlays[%d].kind is %d, which is unknown", i, kind);
    if (overlay.width < 0 || overlay.height < 0)
        return text.say("overlays[%d] is of %d x %d pixels", i, overlay.width, overlay.height);
    if (!overlay.pixels)
        return text.say("overlays[%d].pixels is null, and it is of %d x %d pixels", i, overlay.width, overlay.height);
    return text.say("overlays[%d].pitch is %lld for %d lines, a line of %d pixels takes %lld bytes", i,
                    static_cast<long long>(overlay.pitch), overlay.height, overlay.width,
                    static_cast<long long>(overlay.width) * (kind == VSURF_COVERAGE ? 1 : 4));
}

static size_t explain_overlap(Text text, const Mistake& mistake)
{
    if (mistake.read >= kOverlayPlanes)
        return text.say("what is written of surface.plane[%d] overlaps what is read of overlays[%d]", mistake.index,
                        mistake.read - kOverlayPlanes);
    return text.say("what is written of surface.plane[%d] overlaps what is %s.plane[%d]", mistake.index,
                    mistake.both_written ? "written of surface" : "read of picture", mistake.read);
}

static size_t explain_look(Text text, const vsurf_look& look, int i)
{
    static constexpr const char* names[] = {"brightness", "contrast", "saturation", "hue"};
    const float values[] = {look.brightness, look.contrast, look.saturation, look.hue};
    return text.say("look.%s is %g, it must be from -1 to 1", names[i], static_cast<double>(values[i]));
}

static size_t explain_job(Text text, const vsurf_job& job, const Plan& plan)
{
    static constexpr const char *matrices[] = {"BT.601", "BT.709", "BT.2020"}, *ranges[] = {"limited", "full"};
    const auto width = static_cast<int>(plan.width), height = static_cast<int>(plan.height);
    return text.say("%dx%d of %s, %s %s, to %s %dx%d at %d,%d", width, height, shape_of(plan.source)->name,
                    matrices[value_of(job.picture->matrix)], ranges[value_of(job.picture->range)],
                    shape_of(plan.surface)->name, job.surface->width, job.surface->height, plan.x, plan.y);
}

static size_t explain(Text text, const vsurf_job& job, const Plan& plan, const Mistake& mistake)
{
    const char* side = mistake.index == 0 ? "picture" : "surface";
    switch (mistake.status) {
    case VSURF_OK: return explain_job(text, job, plan);
    case VSURF_BAD_SOURCE_FORMAT:
        return text.say("picture.format is %d, a picture's is from %d to %d", value_of(job.picture->format), VSURF_I420,
                        VSURF_UYVY);
    case VSURF_BAD_SURFACE_FORMAT:
        return text.say("surface.format is %d, a surface's is from %d to %d", value_of(job.surface->format), VSURF_I420,
                        VSURF_RGB655);
    case VSURF_BAD_SOURCE_SIZE:
        return text.say("the picture is of %d x %d pixels", job.picture->width, job.picture->height);
    case VSURF_BAD_SURFACE_SIZE:
        return text.say("the surface is of %d x %d pixels", job.surface->width, job.surface->height);
    case VSURF_BAD_MATRIX:
        return text.say("%s.matrix is %d, which is unknown", side,
                        mistake.index == 0 ? value_of(job.picture->matrix) : value_of(job.surface->matrix));
    case VSURF_BAD_RANGE:
        return text.say("%s.range is %d, which is unknown", side,
                        mistake.index == 0 ? value_of(job.picture->range) : value_of(job.surface->range));
    case VSURF_NO_SOURCE_PLANE:
    case VSURF_SHORT_SOURCE_PITCH: return explain_plane(text, "picture", *job.picture, mistake);
    case VSURF_NO_SURFACE_PLANE:
    case VSURF_SHORT_SURFACE_PITCH: return explain_plane(text, "surface", *job.surface, mistake);
    case VSURF_BAD_CROP:
        return text.say("the crop is of %d x %d pixels at %d,%d, the picture of %d x %d", job.crop_width,
                        job.crop_height, job.crop_x, job.crop_y, job.picture->width, job.picture->height);
    case VSURF_BAD_POSITION:
        return text.say("%d x %d pixels at %d,%d do not fit on a surface of %d x %d", static_cast<int>(plan.width),
                        static_cast<int>(plan.height), job.x, job.y, job.surface->width, job.surface->height);
    case VSURF_BAD_LOOK: return explain_look(text, job.look, mistake.index);
    case VSURF_BAD_OVERLAY_COUNT: return text.say("overlay_count is %d", job.overlay_count);
    case VSURF_NO_OVERLAYS: return text.say("overlays is null, and overlay_count is %d", job.overlay_count);
    case VSURF_BAD_OVERLAY: return explain_overlay(text, job.overlays[mistake.index], mistake.index);
    case VSURF_OVERLAP: return explain_overlap(text, mistake);
    default: return text.say("%s", vsurf_status_text(mistake.status));
    }
}

} // namespace vsurf

using namespace vsurf;

extern "C" const char* VSURF_CALL vsurf_status_text(vsurf_status status)
{
    static_assert(sizeof kTexts / sizeof *kTexts == VSURF_BAD_BAND + 1);
    const auto i = static_cast<unsigned>(value_of(status));
    return i <= VSURF_BAD_BAND ? kTexts[i] : "unknown status";
}

extern "C" size_t VSURF_CALL vsurf_explain(const vsurf_job* job, char* text, size_t room)
{
    Plan plan;
    const Mistake mistake = examine(job, plan);
    const Text to = {text, room};
    return job ? explain(to, *job, plan, mistake) : to.say("%s", vsurf_status_text(mistake.status));
}
