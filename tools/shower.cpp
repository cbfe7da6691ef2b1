// SPDX-License-Identifier: MIT
#include "tools/shower.h"
#include "tools/error.h"
#include <algorithm>
#include <future>
#include <new>
#include <vector>

namespace player {
namespace {

vsurf_format picture_format(int format)
{
    switch (format) {
    case AV_PIX_FMT_NV12: return VSURF_NV12;
    case AV_PIX_FMT_NV21: return VSURF_NV21;
    case AV_PIX_FMT_YUYV422: return VSURF_YUY2;
    case AV_PIX_FMT_UYVY422: return VSURF_UYVY;
    default: return VSURF_I420;
    }
}

vsurf_format surface_format(SurfaceFormat format)
{
    switch (format) {
    case SurfaceFormat::rgb32: return VSURF_BGRX;
    case SurfaceFormat::rgb24: return VSURF_BGR24;
    case SurfaceFormat::rgb16_565: return VSURF_RGB565;
    case SurfaceFormat::rgb16_555: return VSURF_RGB555X;
    case SurfaceFormat::rgb16_664: return VSURF_RGB664;
    case SurfaceFormat::rgb16_655: return VSURF_RGB655;
    case SurfaceFormat::yuy2: return VSURF_YUY2;
    default: return VSURF_I420;
    }
}

vsurf_picture picture_of(const AVFrame& frame, const Colours& colours)
{
    vsurf_picture picture{};
    picture.format = picture_format(frame.format);
    picture.width = frame.width;
    picture.height = frame.height;
    std::copy_n(frame.data, 3, picture.plane);
    std::copy_n(frame.linesize, 3, picture.pitch);
    picture.matrix = colours.matrix == Matrix::bt601   ? VSURF_BT601
                     : colours.matrix == Matrix::bt709 ? VSURF_BT709
                                                       : VSURF_BT2020;
    picture.range = colours.full ? VSURF_FULL : VSURF_LIMITED;
    return picture;
}

void check(vsurf_status status, const vsurf_job& job)
{
    if (status == VSURF_OK) return;
    std::string why(vsurf_explain(&job, nullptr, 0), '\0');
    vsurf_explain(&job, why.data(), why.size() + 1);
    throw Error("vsurf_show: " + why);
}

} // namespace

const char* Shower::run(const vsurf_picture& picture, const vsurf_surface& surface) const
{
    vsurf_job job{};
    job.picture = &picture;
    job.surface = &surface;
    if (threads_ == 1) {
        check(vsurf_show(&job), job);
        return "vsurf_show";
    }
    std::vector<std::future<vsurf_status>> bands;
    for (int i = 1; i < threads_; i++)
        bands.push_back(std::async(std::launch::async, vsurf_show_band, &job, i, threads_));
    vsurf_status status = vsurf_show_band(&job, 0, threads_);
    for (auto& each : bands) status = std::max(status, each.get());
    check(status, job);
    return "vsurf_show_band";
}

bool Shower::is_of_exports(const AVFrame& frame, bool packed)
{
    return colours_of(frame).are_of_exports() && (packed || frame.format == AV_PIX_FMT_YUV420P);
}

const char* Shower::show(const AVFrame& frame, const Colours& colours, const Surface& surface) const
{
    vsurf_surface out{};
    out.format = surface_format(surface.format());
    out.width = surface.shown_width();
    out.height = surface.shown_height();
    out.plane[0] = surface.bytes();
    out.pitch[0] = surface.pitch();
    if (surface.format() == SurfaceFormat::yv12) {
        out.plane[1] = surface.u_plane();
        out.plane[2] = surface.v_plane();
        out.pitch[1] = out.pitch[2] = surface.chroma_pitch();
    }
    return run(picture_of(frame, colours), out);
}

const AVFrame& Shower::to_planes(const AVFrame& frame, const Colours& colours)
{
    if (!planes_ || planes_->width != frame.width || planes_->height != frame.height) {
        planes_ = new_frame();
        planes_->format = AV_PIX_FMT_YUV420P;
        planes_->width = frame.width;
        planes_->height = frame.height;
        if (av_frame_get_buffer(planes_.get(), 0) < 0) throw std::bad_alloc();
    }
    vsurf_surface out{};
    out.format = VSURF_I420;
    out.width = frame.width;
    out.height = frame.height;
    std::copy_n(planes_->data, 3, out.plane);
    std::copy_n(planes_->linesize, 3, out.pitch);
    run(picture_of(frame, colours), out);
    return *planes_;
}

} // namespace player
