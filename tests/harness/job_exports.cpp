// SPDX-License-Identifier: MIT
#include "harness/job_exports.h"

#include "harness/job_case.h"
#include "model/colorkey.h"

namespace harness {
namespace {

// The real call and its model, one form for each list of parameters.
void make(void (*f)(MIX_INFO*), const JobCase&, MIX_INFO* job) { f(job); }

void make(void (*f)(unsigned, void*, int, int, int, int), const JobCase& c, MIX_INFO* at)
{
    f(c.color_key, at->surface, c.width, c.height, c.reserved1, c.surface_pitch);
}

void make(void (*f)(unsigned char*, unsigned char*, unsigned, unsigned, int, int, int), const JobCase& c, MIX_INFO* at)
{
    f(at->surface, at->picture_y, c.match, c.color_key, c.width, c.surface_pitch, c.height);
}

void imitate(void (*f)(model::JobPlanes&, model::Job&), model::JobPlanes& planes, model::Job& job, const JobCase&)
{
    f(planes, job);
}

void imitate(void (*f)(model::Plane&, const model::Fill&), model::JobPlanes& planes, model::Job&, const JobCase& c)
{
    f(planes.surface, {c.color_key, c.width, c.height, c.surface_pitch});
}

void imitate(void (*f)(model::Plane&, model::Plane&, const model::Replacement&), model::JobPlanes& planes, model::Job&,
             const JobCase& c)
{
    f(planes.surface, planes.picture_y, {c.match, c.color_key, c.width, c.surface_pitch, c.height});
}

constexpr JobSizes kAny = {};
constexpr JobSizes kBlocks8 = {.least_width = 8};
constexpr JobSizes kStrips = {.signed_width = true};
constexpr JobSizes kUnsigned = {.least_height = 0};
constexpr JobSizes kField = {.signed_picture = false};
constexpr JobSizes kUnsignedField = {.least_height = 0, .signed_picture = false};

} // namespace

std::vector<JobPlane> JobExport::destinations() const
{
    switch (kind) {
    case JobKind::kConversion: return {kSubpictureY, kSubpictureU, kSubpictureV};
    case JobKind::kRestore: return {kAlpha};
    case JobKind::kPlanarMixer: return {kSurface, kSurfaceU, kSurfaceV};
    default: return {kSurface};
    }
}

bool JobExport::works_in_place() const { return kind == JobKind::kPlanarMixer || kind == JobKind::kMask; }

const std::vector<JobExport>& job_exports()
{
    using enum JobKind;
#define ROW(name) #name, CALL(name), MODEL(name)
#define CALL(name) [](const vsurf::Kernels& table, const JobCase& c, MIX_INFO* job) { make(table.name, c, job); }
#define MODEL(name) \
    [](model::JobPlanes& planes, model::Job& job, const JobCase& c) { imitate(model::name, planes, job, c); }
    static const std::vector<JobExport> all = {
        {ROW(Convert_RGB32_To_AYUY2), kConversion, 4, kBlocks8},
        {ROW(Convert_RGB24_To_AYUY2), kConversion, 3, kBlocks8},
        {ROW(Convert_RGB16_565_To_AYUY2), kConversion, 2, kBlocks8},
        {ROW(Restore_RGB32_To_Alpha), kRestore, 4},
        {ROW(Restore_RGB24_To_Alpha), kRestore, 3},
        {ROW(Restore_RGB16_565_To_Alpha), kRestore, 2},
        {ROW(load_subpicture_alpha_rgb32), kAlphaDrawer, 4},
        {ROW(load_subpicture_alpha_rgb24), kAlphaDrawer, 3},
        {ROW(load_subpicture_alpha_rgb16_565), kAlphaDrawer, 2},
        {ROW(load_subpicture_yuy2_rgb32), kDrawer, 4},
        {ROW(load_subpicture_yuy2_rgb24), kDrawer, 3},
        {ROW(load_subpicture_yuy2_rgb16), kDrawer, 2, kAny, true},
        {ROW(load_subpicture_yuy2_rgb32_ajust), kDrawer, 4},
        {ROW(load_subpicture_yuy2_rgb24_ajust), kDrawer, 3},
        {ROW(load_subpicture_yuy2_rgb16_ajust), kDrawer, 2, kAny, true},
        {ROW(mix_ayuy2_yuy2_p_ajust), kMixer, 2},
        {ROW(mix_ayuy2_half_yuy2_p_ajust), kMixer, 1},
        {ROW(mix_ayuy2_yuy2_i_ajust), kMixer, 2, kField},
        {ROW(mix_ayuy2_rgb32_p_ajust), kMixer, 4},
        {ROW(mix_ayuy2_rgb24_p_ajust), kMixer, 3},
        {ROW(mix_ayuy2_rgb16_p_ajust), kMixer, 2, kAny, true},
        {ROW(mix_ayuy2_rgb32_i_ajust), kMixer, 4, kStrips},
        {ROW(mix_ayuy2_rgb24_i_ajust), kMixer, 3, kStrips},
        {ROW(mix_ayuy2_rgb16_i_ajust), kMixer, 2, kStrips, true},
        {ROW(mix_ayv12_yv12_p), kPlanarMixer, 1, kUnsigned},
        {ROW(mix_ayv12_yv12_p_ajust), kPlanarMixer, 1, kUnsigned},
        {ROW(mix_ayv12_yv12_i), kPlanarMixer, 1, kUnsignedField},
        {ROW(LoadColorKeyRgb32), kFill, 4, kUnsigned},
        {ROW(LoadColorKeyRgb24), kFill, 3, kUnsigned},
        {ROW(LoadColorKeyRgb16), kFill, 2, kUnsigned},
        {ROW(RelaceMaskWithColorKey), kMask, 1, kUnsigned},
    };
#undef MODEL
#undef CALL
#undef ROW
    return all;
}

} // namespace harness
