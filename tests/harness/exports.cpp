// SPDX-License-Identifier: MIT
#include "harness/exports.h"

#include "harness/case.h"
#include "model/band.h"
#include "model/enlarged.h"
#include "model/packed.h"
#include "model/planar.h"
#include "model/planes.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace harness {
namespace {

// The real call, one form for each list of parameters.
void make(LoaderFunction f, const Case& c, const Arguments& a)
{
    f(a.y, a.u, a.v, a.dst, c.width, c.height, c.y_pitch, c.dst_pitch, a.info);
}

void make(void (*f)(unsigned char*, unsigned char*, int, int, int, int), const Case& c, const Arguments& a)
{
    f(a.y, a.dst, c.width, c.height, c.y_pitch, c.dst_pitch);
}

void make(void (*f)(unsigned char*, unsigned char*, int, int, int, int, ajust_contrast_info*, int), const Case& c,
          const Arguments& a)
{
    f(a.y, a.dst, c.width, c.height, c.y_pitch, c.dst_pitch, a.info, c.plane);
}

void make(void (*f)(tagVideoFrame*, int, int, unsigned char*, int, ajust_contrast_info*), const Case& c,
          const Arguments& a)
{
    f(a.frame, c.start, c.height, a.dst, c.dst_pitch, a.info);
}

void make(void (*f)(void*, void*, void*, void*, int, int, int), const Case& c, const Arguments& a)
{
    f(a.y, a.u, a.v, a.dst, 2 * c.width, c.height, c.dst_pitch);
}

void make(void (*f)(void*, void*, void*, void*, int, int, int, ajust_contrast_info*), const Case& c, const Arguments& a)
{
    f(a.y, a.u, a.v, a.dst, 2 * c.width, c.height, c.dst_pitch, a.info);
}

LoaderFunction vsurf::Kernels::*as_loader(LoaderFunction vsurf::Kernels::*entry) { return entry; }

template <class Other> LoaderFunction vsurf::Kernels::*as_loader(Other vsurf::Kernels::*) { return nullptr; }

std::vector<Export> of(bool (*wanted)(const Export&))
{
    std::vector<Export> found;
    std::copy_if(exports().begin(), exports().end(), std::back_inserter(found), wanted);
    return found;
}

constexpr Sizes kAny = {};
constexpr Sizes kSamples = {.width_step = 1, .least_width = 1, .least_height = 1, .least_line = 32};
constexpr Sizes kBlocks8 = {.width_step = 8, .least_width = 8, .least_height = 1};
constexpr Sizes kChroma8 = {.width_step = 16, .least_width = 16, .least_height = 2};

constexpr Sizes guarded(int least_width, int least_height)
{
    return {
        .width_step = 16, .least_width = least_width, .height_step = 2, .least_height = least_height, .guarded = true};
}

constexpr Sizes kBand = {.width_step = 16, .least_width = 32, .least_height = 8, .guarded = true};

} // namespace

const std::vector<Export>& exports()
{
#define ROW(name) #name, CALL(name), model::name, as_loader(&vsurf::Kernels::name)
#define CALL(name) [](const vsurf::Kernels& table, const Case& c, const Arguments& a) { make(table.name, c, a); }
    static const std::vector<Export> all = {
        {ROW(loadimage_yv12), Family::kLoader, 16, kAny, false, false, false},
        {ROW(loadimage_yuy2), Family::kLoader, 32, kAny},
        {ROW(loadimage_rgb32), Family::kLoader, 64, kAny},
        {ROW(loadimage_rgb24), Family::kLoader, 48, kAny},
        {ROW(loadimage_rgb16), Family::kLoader, 32, kAny, true},
        {ROW(loadimage_rgb32_ajust), Family::kLoader, 64, kAny},
        {ROW(loadimage_rgb24_ajust), Family::kLoader, 48, kAny},
        {ROW(loadimage_rgb16_ajust), Family::kLoader, 32, kAny, true},
        {ROW(loadimage_yuy2_ajust), Family::kLoader, 32, kAny},
        {ROW(loadimage_yuy2_mono_ajust), Family::kLoader, 32, kAny},
        {ROW(loadimage_yv12_ajust), Family::kLoader, 16, kAny, false, true},
        {ROW(loadimage_half_yuy2_ajust), Family::kLoader, 16, kAny},
        {ROW(loadimage_half_yv12_ajust), Family::kLoader, 8, kAny},
        {ROW(LoadYUY2_YUY2), Family::kLoader, 32, kAny},
        {ROW(LoadYUY2_YUY2_adjust), Family::kLoader, 32, kAny},
        {ROW(LoadYUY2_RGB32), Family::kLoader, 64, kAny},
        {ROW(LoadYUY2_RGB24), Family::kLoader, 48, kAny},
        {ROW(LoadYUY2_RGB16), Family::kLoader, 32, kAny, true},
        {ROW(LoadYUY2_RGB32_adjust), Family::kLoader, 64, kAny},
        {ROW(LoadYUY2_RGB24_adjust), Family::kLoader, 48, kAny},
        {ROW(LoadYUY2_RGB16_adjust), Family::kLoader, 32, kAny, true},
        {ROW(strech_pic_2X2), Family::kPlane, 32, kSamples},
        {ROW(strech_pic_2X2_adjust), Family::kPlane, 32, kBlocks8},
        {ROW(strech_pic_1X2_adjust), Family::kPlane, 16, kBlocks8},
        {ROW(strech_picture_2X2_yv12_ajust), Family::kPicture, 32, kChroma8},
        {ROW(strech_picture_1X2_yv12_ajust), Family::kPicture, 16, kChroma8},
        {ROW(strech_opt_yuy2_ajust), Family::kBand, 32, kBand},
        {ROW(strech_picture_1X2_yuy2), Family::kEnlarger, 32, guarded(16, 8)},
        {ROW(strech_picture_1X2_yuy2_ajust), Family::kEnlarger, 32, guarded(16, 8)},
        {ROW(strech_picture_2X2_yuy2), Family::kEnlarger, 64, guarded(32, 8)},
        {ROW(strech_picture_2X2_yuy2_ajust), Family::kEnlarger, 64, guarded(32, 16)},
        {ROW(strech_picture_1X2_yuy2_ajust_rgb32), Family::kEnlarger, 64, guarded(16, 12)},
        {ROW(strech_picture_1X2_yuy2_ajust_rgb24), Family::kEnlarger, 48, guarded(16, 12)},
        {ROW(strech_picture_1X2_yuy2_ajust_rgb16), Family::kEnlarger, 32, guarded(16, 12), true},
        {ROW(yuy2_strech_picture_2X2_yuy2), Family::kPackedPicture, 64, guarded(32, 16)},
        {ROW(yuy2_strech_picture_2X2_yuy2_ajust), Family::kPackedPicture, 64, guarded(32, 8)},
    };
#undef CALL
#undef ROW
    return all;
}

std::vector<Export> loaders()
{
    return of([](const Export& e) { return e.family == Family::kLoader; });
}

const Export& export_named(const std::string& name)
{
    return *std::find_if(exports().begin(), exports().end(), [&](const Export& e) { return e.name == name; });
}

std::vector<Export> enlargers()
{
    return of([](const Export& e) { return e.family != Family::kLoader; });
}

} // namespace harness
