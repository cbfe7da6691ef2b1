// SPDX-License-Identifier: MIT
// The same for subpictures and colour keys.
#include "bands/bands.h"
#include "bands/names.h"
#include "harness/fixture.h"
#include "harness/job_case.h"
#include "harness/job_record.h"

#include <array>
#include <optional>

namespace {

using bands::Plane;
using harness::Content;
using harness::JobCase;
using harness::JobExport;
using harness::JobKind;
using harness::Variant;

// Moves the record of the whole region to the band that begins with `line`.
using Start = void (*)(const JobExport& tested, int line, MIX_INFO& job);

void move_surface(int line, MIX_INFO& job) { job.surface += line * job.surface_pitch; }

void move_subpicture(int line, MIX_INFO& job)
{
    job.subpic_alpha += line * job.subpicture_pitch;
    job.subpic_y += line * job.subpicture_pitch;
    job.subpic_u += line / 2 * job.subpicture_pitch;
    job.subpic_v += line / 2 * job.subpicture_pitch;
}

void move_picture_chroma(int lines, int pitch, MIX_INFO& job)
{
    job.picture_u += lines * (pitch >> 1);
    job.picture_v += lines * (pitch >> 1);
}

void convert_from(const JobExport&, int line, MIX_INFO& job)
{
    job.subpic_y += line * job.subpicture_pitch;
    job.subpic_u += line * (job.subpicture_pitch >> 1);
    job.subpic_v += line * (job.subpicture_pitch >> 1);
    move_surface(line, job);
}

void alpha_from(const JobExport&, int line, MIX_INFO& job)
{
    job.subpic_alpha += line * (job.width + ((job.picture_pitch - job.width) >> 1));
    move_surface(line, job);
}

void draw_from(const JobExport&, int line, MIX_INFO& job)
{
    job.subpic_alpha += line * job.picture_pitch;
    job.subpic_y += line * job.picture_pitch;
    job.subpic_u += line * (job.picture_pitch / 2);
    job.subpic_v += line * (job.picture_pitch / 2);
    move_surface(line, job);
}

void mix_from(const JobExport& tested, int line, MIX_INFO& job)
{
    const bool half_width = std::string(tested.name) == "mix_ayuy2_half_yuy2_p_ajust";
    job.picture_y += line * job.picture_pitch;
    move_picture_chroma(line / 2, half_width ? job.subpicture_pitch : job.picture_pitch, job);
    move_subpicture(line, job);
    move_surface(line, job);
}

void move_surface_chroma(int line, MIX_INFO& job)
{
    job.surface_u += line / 2 * (job.surface_pitch >> 1);
    job.surface_v += line / 2 * (job.surface_pitch >> 1);
}

void mix_planes_from(const JobExport& tested, int line, MIX_INFO& job)
{
    mix_from(tested, line, job);
    move_surface_chroma(line, job);
}

// Two lines of the surface are one of the field, and the line after a band's last is the next band's first.
void mix_field_from(const JobExport&, int line, MIX_INFO& job)
{
    job.picture_y += line / 2 * job.picture_pitch;
    move_picture_chroma(line / 4, job.picture_pitch, job);
    move_subpicture(line, job);
    move_surface(line, job);
    move_surface_chroma(line, job);
}

void fill_from(const JobExport&, int line, MIX_INFO& job) { move_surface(line, job); }

void replace_from(const JobExport&, int line, MIX_INFO& job)
{
    job.picture_y += line * job.surface_pitch; // the mask
    move_surface(line, job);
}

struct Cut {
    Start start;
    int step; // lines at which a band may begin
};

bool interlaced(const JobExport& tested) { return std::string(tested.name).find("_i") != std::string::npos; }

std::optional<Cut> cut_of(const JobExport& tested)
{
    switch (tested.kind) {
    case JobKind::kConversion: return Cut{convert_from, 1};
    case JobKind::kRestore:
    case JobKind::kAlphaDrawer: return Cut{alpha_from, 1};
    case JobKind::kDrawer: return Cut{draw_from, 1};
    case JobKind::kMixer: return interlaced(tested) ? std::nullopt : std::optional(Cut{mix_from, 2});
    case JobKind::kPlanarMixer: return interlaced(tested) ? Cut{mix_field_from, 4} : Cut{mix_planes_from, 2};
    case JobKind::kFill: return Cut{fill_from, 2};
    case JobKind::kMask: return Cut{replace_from, 1};
    }
    return std::nullopt;
}

struct Geometry {
    int width, picture_pitch, subpicture_pitch, surface_pitch;
};

// All planes of a record, and one call or several on them.
class Planes {
public:
    Planes()
    {
        at_[harness::kAlpha] = Plane(Content::kSubtitle);
        at_[harness::kSurface] = Plane(Content::kSubtitle); // a drawing with stretches of 0, the key
    }

    void call(const JobExport& tested, const Variant& table, const Geometry& g, int line, int lines, Start start)
    {
        ajust_contrast_info info = {};
        info.rgb16_layout = g.width / 16 % 4;
        MIX_INFO job = {};
        job.picture_pitch = g.picture_pitch;
        job.subpicture_pitch = g.subpicture_pitch;
        job.surface_pitch = g.surface_pitch;
        job.width = g.width;
        job.height = lines;
        job.contrast_info = &info;
        for (size_t i = 0; i < at_.size(); ++i) job.*harness::kPlaneFields[i].pointer = at_[i].origin();
        start(tested, line, job);

        JobCase c;
        c.tested = &tested;
        c.width = g.width;
        c.height = lines;
        c.surface_pitch = g.surface_pitch;
        c.color_key = tested.kind == JobKind::kFill ? 0x00332211 : 0;
        table.apply();
        tested.call(*table.kernels, c, &job);
    }
    bool operator==(const Planes&) const = default;

private:
    std::array<Plane, harness::kJobPlanes> at_;
};

Geometry geometry_of(const JobExport& tested, int width, int padding)
{
    const int line = width * tested.pixel_bytes;
    Geometry g{width, width + 2 * padding, width + 2 * padding, line + 4 * padding};
    if (tested.kind == JobKind::kDrawer) g.picture_pitch = width;
    if (padding % 3 == 1 && tested.kind != JobKind::kPlanarMixer) g.surface_pitch = -g.surface_pitch;
    return g;
}

const Planes& untouched()
{
    static const Planes planes;
    return planes;
}

class BandsOfJobs : public testing::TestWithParam<Variant> {
protected:
    void check(const JobExport& tested, const Cut& cut, const Geometry& g)
    {
        whole_ = untouched();
        whole_.call(tested, GetParam(), g, 0, bands::kHeight, cut.start);
        written_ |= !(whole_ == untouched());
        for (const std::vector<int>& cuts : bands::kCuts) {
            if (!bands::falls_on(cuts, cut.step, 1)) continue;
            for (const bool upwards : {false, true}) {
                parts_ = untouched();
                bands::for_each_band(cuts, upwards, [&](int line, int lines) {
                    parts_.call(tested, GetParam(), g, line, lines, cut.start);
                });
                ASSERT_TRUE(parts_ == whole_)
                    << tested.name << " of width " << g.width << " in " << cuts.size() - 1 << " bands";
            }
        }
    }

    Planes whole_, parts_;
    bool written_ = false; // by any call: what a drawing leaves to the key is not
};

TEST_P(BandsOfJobs, write_the_bytes_of_one_call)
{
    harness::set_adjustment({70, 60}, {-3, 5, 9});
    for (const JobExport& tested : harness::job_exports()) {
        const std::optional<Cut> cut = cut_of(tested);
        if (!cut) continue;
        written_ = false;
        for (const int width : {16, 64, 208}) {
            for (const int padding : bands::paddings()) check(tested, *cut, geometry_of(tested, width, padding));
        }
        EXPECT_TRUE(written_) << tested.name << " writes nothing";
    }
}

VSURF_ON_EVERY_TABLE(BandsOfJobs);

} // namespace

std::vector<std::string> bands::jobs()
{
    std::vector<std::string> names;
    for (const JobExport& each : harness::job_exports()) {
        if (cut_of(each)) names.push_back(each.name);
    }
    return names;
}
