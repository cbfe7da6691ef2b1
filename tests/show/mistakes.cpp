// SPDX-License-Identifier: MIT
#include "show/mistakes.h"

#include <climits>
#include <limits>

namespace show_test {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInfinity = std::numeric_limits<float>::infinity();

} // namespace

// Each member with each value that it must not have.
const std::vector<Mistake>& mistakes()
{
#define MISTAKE(status, change)                                  \
    {                                                            \
        VSURF_##status, #change, [](Good& good) { good.change; } \
    }
#define NUMBER(status, member, value)                                                            \
    {                                                                                            \
        VSURF_##status, #member " = " #value, [](Good& good) { set_number(good.member, value); } \
    }
    static const std::vector<Mistake> all = {
        MISTAKE(NO_PICTURE, job.picture = nullptr),
        MISTAKE(NO_SURFACE, job.surface = nullptr),
        NUMBER(BAD_SOURCE_FORMAT, picture->format, 0),
        NUMBER(BAD_SOURCE_FORMAT, picture->format, -1),
        NUMBER(BAD_SOURCE_FORMAT, picture->format, VSURF_BGRX),
        NUMBER(BAD_SOURCE_FORMAT, picture->format, VSURF_RGB655),
        NUMBER(BAD_SOURCE_FORMAT, picture->format, INT_MAX),
        NUMBER(BAD_SOURCE_FORMAT, picture->format, INT_MIN),
        NUMBER(BAD_SURFACE_FORMAT, surface->format, 0),
        NUMBER(BAD_SURFACE_FORMAT, surface->format, -1),
        NUMBER(BAD_SURFACE_FORMAT, surface->format, VSURF_RGB655 + 1),
        NUMBER(BAD_SURFACE_FORMAT, surface->format, INT_MAX),
        NUMBER(BAD_SURFACE_FORMAT, surface->format, INT_MIN),
        MISTAKE(BAD_SOURCE_SIZE, picture->width = 0),
        MISTAKE(BAD_SOURCE_SIZE, picture->width = -1),
        MISTAKE(BAD_SOURCE_SIZE, picture->width = INT_MIN),
        MISTAKE(BAD_SOURCE_SIZE, picture->height = 0),
        MISTAKE(BAD_SOURCE_SIZE, picture->height = INT_MIN),
        MISTAKE(BAD_SURFACE_SIZE, surface->width = 0),
        MISTAKE(BAD_SURFACE_SIZE, surface->width = INT_MIN),
        MISTAKE(BAD_SURFACE_SIZE, surface->height = 0),
        MISTAKE(BAD_SURFACE_SIZE, surface->height = -7),
        MISTAKE(BAD_SURFACE_SIZE, surface->height = INT_MIN),
        NUMBER(BAD_MATRIX, picture->matrix, 3),
        NUMBER(BAD_MATRIX, picture->matrix, -1),
        NUMBER(BAD_MATRIX, surface->matrix, 3),
        NUMBER(BAD_MATRIX, surface->matrix, INT_MIN),
        NUMBER(BAD_RANGE, picture->range, 2),
        NUMBER(BAD_RANGE, picture->range, -1),
        NUMBER(BAD_RANGE, surface->range, 2),
        NUMBER(BAD_RANGE, surface->range, INT_MAX),
        MISTAKE(NO_SOURCE_PLANE, picture->plane[0] = nullptr),
        MISTAKE(NO_SOURCE_PLANE, picture->plane[1] = nullptr),
        MISTAKE(NO_SOURCE_PLANE, picture->plane[2] = nullptr),
        MISTAKE(NO_SURFACE_PLANE, surface->plane[0] = nullptr),
        MISTAKE(NO_SURFACE_PLANE, surface->plane[1] = nullptr),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[0] = 20),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[0] = -20),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[0] = 0),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[0] = PTRDIFF_MAX),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[0] = PTRDIFF_MIN),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[0] = PTRDIFF_MAX / 11),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[1] = 10),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[1] = PTRDIFF_MIN),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[2] = -10),
        MISTAKE(SHORT_SOURCE_PITCH, picture->pitch[2] = PTRDIFF_MAX),
        MISTAKE(SHORT_SOURCE_PITCH, picture->width = INT_MAX),
        MISTAKE(SHORT_SURFACE_PITCH, surface->pitch[0] = 18),
        MISTAKE(SHORT_SURFACE_PITCH, surface->pitch[0] = -18),
        MISTAKE(SHORT_SURFACE_PITCH, surface->pitch[0] = PTRDIFF_MAX),
        MISTAKE(SHORT_SURFACE_PITCH, surface->pitch[0] = PTRDIFF_MIN),
        MISTAKE(SHORT_SURFACE_PITCH, surface->pitch[1] = 19),
        MISTAKE(SHORT_SURFACE_PITCH, surface->pitch[1] = PTRDIFF_MIN + 1),
        MISTAKE(SHORT_SURFACE_PITCH, surface->width = INT_MAX),
        MISTAKE(BAD_CROP, job.crop_x = -1),
        MISTAKE(BAD_CROP, job.crop_x = INT_MIN),
        MISTAKE(BAD_CROP, job.crop_x = 5),
        MISTAKE(BAD_CROP, job.crop_x = 21),
        MISTAKE(BAD_CROP, job.crop_x = INT_MAX),
        MISTAKE(BAD_CROP, job.crop_y = -1),
        MISTAKE(BAD_CROP, job.crop_y = 12),
        MISTAKE(BAD_CROP, job.crop_y = INT_MAX),
        MISTAKE(BAD_CROP, job.crop_width = 19),
        MISTAKE(BAD_CROP, job.crop_width = -1),
        MISTAKE(BAD_CROP, job.crop_width = INT_MAX),
        MISTAKE(BAD_CROP, job.crop_width = INT_MIN),
        MISTAKE(BAD_CROP, job.crop_height = 11),
        MISTAKE(BAD_CROP, job.crop_height = INT_MIN),
        MISTAKE(BAD_CROP, job.crop_height = INT_MAX),
        MISTAKE(BAD_POSITION, job.x = -1),
        MISTAKE(BAD_POSITION, job.x = 3),
        MISTAKE(BAD_POSITION, job.x = INT_MAX),
        MISTAKE(BAD_POSITION, job.x = INT_MIN),
        MISTAKE(BAD_POSITION, job.y = -1),
        MISTAKE(BAD_POSITION, job.y = 2),
        MISTAKE(BAD_POSITION, job.y = INT_MAX),
        MISTAKE(BAD_LOOK, job.look.brightness = kNan),
        MISTAKE(BAD_LOOK, job.look.brightness = 1.0001f),
        MISTAKE(BAD_LOOK, job.look.contrast = -kNan),
        MISTAKE(BAD_LOOK, job.look.contrast = kInfinity),
        MISTAKE(BAD_LOOK, job.look.saturation = -kInfinity),
        MISTAKE(BAD_LOOK, job.look.saturation = -1.0001f),
        MISTAKE(BAD_LOOK, job.look.hue = kNan),
        MISTAKE(BAD_LOOK, job.look.hue = 3e38f),
        MISTAKE(BAD_OVERLAY_COUNT, job.overlay_count = -1),
        MISTAKE(BAD_OVERLAY_COUNT, job.overlay_count = INT_MIN),
        MISTAKE(NO_OVERLAYS, job.overlays = nullptr),
        NUMBER(BAD_OVERLAY, overlays[0].kind, 5),
        NUMBER(BAD_OVERLAY, overlays[1].kind, -1),
        NUMBER(BAD_OVERLAY, overlays[1].kind, INT_MAX),
        MISTAKE(BAD_OVERLAY, overlays[0].width = -1),
        MISTAKE(BAD_OVERLAY, overlays[1].width = INT_MIN),
        MISTAKE(BAD_OVERLAY, overlays[1].height = -1),
        MISTAKE(BAD_OVERLAY, overlays[0].pixels = nullptr),
        MISTAKE(BAD_OVERLAY, overlays[1].pixels = nullptr),
        MISTAKE(BAD_OVERLAY, overlays[0].pitch = 4),
        MISTAKE(BAD_OVERLAY, overlays[1].pitch = -19),
        MISTAKE(BAD_OVERLAY, overlays[1].pitch = PTRDIFF_MAX),
        MISTAKE(BAD_OVERLAY, overlays[0].pitch = PTRDIFF_MIN),
    };
#undef NUMBER
#undef MISTAKE
    return all;
}

} // namespace show_test
