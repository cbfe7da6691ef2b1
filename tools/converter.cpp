// SPDX-License-Identifier: MIT
#include "tools/converter.h"
#include "tools/colours.h"
#include "tools/error.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <new>
extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

namespace player {
namespace {

std::string format_text(int format)
{
    const char* name = av_get_pix_fmt_name(static_cast<AVPixelFormat>(format));
    return name ? name : "unknown";
}

constexpr uint64_t kRgb = AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL;

bool is_known(int format)
{
    constexpr std::array kKnown{AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_NV12,
                                AV_PIX_FMT_NV21,    AV_PIX_FMT_YUYV422,  AV_PIX_FMT_UYVY422};
    return std::find(kKnown.begin(), kKnown.end(), format) != kKnown.end();
}

// swscale takes every grey for one of full range.
bool is_grey(int format)
{
    const AVPixFmtDescriptor* found = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format));
    return found && found->nb_components < 3 && !(found->flags & AV_PIX_FMT_FLAG_PAL);
}

FramePtr planes(int width, int height, const AVFrame& like)
{
    FramePtr frame = new_frame();
    frame->format = AV_PIX_FMT_YUV420P;
    frame->width = width;
    frame->height = height;
    if (av_frame_get_buffer(frame.get(), 0) < 0) throw std::bad_alloc();
    const Colours colours = colours_of(like);
    frame->colorspace = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(like.format))->flags & kRgb ? AVCOL_SPC_SMPTE170M
                                                                                                   : like.colorspace;
    frame->color_range = colours.full ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    return frame;
}

} // namespace

const AVFrame& Converter::to_known(const AVFrame& frame)
{
    if (is_known(frame.format)) return frame;
    // A new buffer each time: its padding is what swscale's vector code may touch beyond a line.
    converted_ = planes(frame.width, frame.height, frame);
    if (frame.format == AV_PIX_FMT_GRAY8) {
        add_neutral_chroma(frame);
        return *converted_;
    }
    prepare({frame.width, frame.height, frame.format, is_grey(frame.format) || colours_of(frame).full});
    const int status =
        sws_scale(scaler_.get(), frame.data, frame.linesize, 0, frame.height, converted_->data, converted_->linesize);
    if (status < 0) throw Error("a picture of format " + format_text(frame.format) + ": " + av_error_text(status));
    return *converted_;
}

void Converter::add_neutral_chroma(const AVFrame& grey)
{
    av_image_copy_plane(converted_->data[0], converted_->linesize[0], grey.data[0], grey.linesize[0], grey.width,
                        grey.height);
    for (const int plane : {1, 2})
        std::memset(converted_->data[plane], 128,
                    static_cast<std::size_t>(converted_->linesize[plane]) *
                        static_cast<std::size_t>((grey.height + 1) / 2));
}

// The ranges are options, known before the start: set afterwards they are ignored between formats that are alike.
void Converter::prepare(const Kind& kind)
{
    if (scaler_ && kind == kind_) return;
    kind_ = kind;
    scaler_.reset(sws_alloc_context());
    if (!scaler_) throw std::bad_alloc();
    auto set = [&](const char* option, int value) { av_opt_set_int(scaler_.get(), option, value, 0); };
    set("srcw", kind.width);
    set("srch", kind.height);
    set("src_format", kind.format);
    set("src_range", kind.full_range);
    set("dstw", kind.width);
    set("dsth", kind.height);
    set("dst_format", AV_PIX_FMT_YUV420P);
    set("dst_range", kind.full_range);
    set("sws_flags", SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INP);
    if (sws_init_context(scaler_.get(), nullptr, nullptr) < 0)
        throw Error("pictures of format " + format_text(kind.format) + " cannot be converted to 4:2:0");
    const int* matrix = sws_getCoefficients(SWS_CS_ITU601);
    sws_setColorspaceDetails(scaler_.get(), matrix, kind.full_range, matrix, kind.full_range, 0, 1 << 16, 1 << 16);
}

} // namespace player
