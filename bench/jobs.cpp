// SPDX-License-Identifier: MIT
#include "bench/jobs.h"

#include "bench/covers.h"

namespace bench {
namespace {

void set_subpicture(MIX_INFO& job, uint8_t* y, uint8_t* u, uint8_t* v)
{
    job.subpic_y = y;
    job.subpic_u = u;
    job.subpic_v = v;
}

void set_picture(MIX_INFO& job, const Picture& p)
{
    job.picture_y = p.y;
    job.picture_u = p.u;
    job.picture_v = p.v;
}

// Alpha planes are stepped by half of what this pitch exceeds the width by, so that the step is `pitch`.
int pitch_for_alpha(int pitch, int width) { return 2 * pitch - width; }

} // namespace

MIX_INFO job_for(const Layout& layout, const Picture& picture, ajust_contrast_info* info)
{
    const Access& access = layout.access;
    const Size region = layout.region();
    MIX_INFO job{};
    job.picture_pitch = job.subpicture_pitch = layout.y_pitch;
    job.surface_pitch = layout.dst_pitch;
    job.width = region.width;
    job.height = region.height;
    job.subpic_alpha = picture.alpha;
    job.surface = picture.surface;
    job.color_key = kColorKey;
    job.contrast_info = info;
    if (access.mixes()) {
        const Planes to = planes_of(picture.surface, layout.dst_pitch, region.height);
        set_picture(job, picture);
        set_subpicture(job, picture.overlay_y, picture.overlay_u, picture.overlay_v);
        job.surface_u = to.u;
        job.surface_v = to.v;
    } else if (access.source == Source::subpicture) {
        set_subpicture(job, picture.y, picture.u, picture.v);
    } else if (access.converts()) {
        const Planes to = planes422_of(picture.surface, layout.dst_pitch, region.height);
        job.surface = picture.y;
        job.surface_pitch = layout.y_pitch;
        job.subpicture_pitch = layout.dst_pitch;
        job.picture_pitch = pitch_for_alpha(layout.dst_pitch, region.width);
        job.subpic_alpha = to.y; // a restore's surface is the alpha plane; a conversion only moves the pointer
        set_subpicture(job, to.y, to.u, to.v);
    } else {
        job.picture_pitch = pitch_for_alpha(layout.y_pitch, region.width);
        job.subpic_alpha = picture.y;
    }
    return job;
}

} // namespace bench
