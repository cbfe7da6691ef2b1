// SPDX-License-Identifier: MIT
#include "tools/converter.h"
#include "tools/error.h"
#include <new>
extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

namespace player {
namespace {

bool full_range(const AVFrame& frame)
{
    const auto format = static_cast<AVPixelFormat>(frame.format);
    return frame.color_range == AVCOL_RANGE_JPEG || format == AV_PIX_FMT_YUVJ420P || format == AV_PIX_FMT_YUVJ422P ||
           format == AV_PIX_FMT_YUVJ444P || format == AV_PIX_FMT_YUVJ440P || format == AV_PIX_FMT_YUVJ411P;
}

std::string format_text(int format)
{
    const char* name = av_get_pix_fmt_name(static_cast<AVPixelFormat>(format));
    return name ? name : "unknown";
}

} // namespace

bool is_yuy2(const AVFrame& frame) { return frame.format == AV_PIX_FMT_YUYV422 && !full_range(frame); }

const AVFrame& Converter::to_yuv420p(const AVFrame& frame)
{
    const bool full = full_range(frame);
    if (frame.format == AV_PIX_FMT_YUV420P && !full) return frame;
    prepare({frame.width, frame.height, frame.format, full, frame.colorspace});

    // A new buffer each time: its padding is what swscale's vector code may touch beyond a line.
    converted_ = new_frame();
    converted_->format = AV_PIX_FMT_YUV420P;
    converted_->width = frame.width;
    converted_->height = frame.height;
    int status = av_frame_get_buffer(converted_.get(), 0);
    if (status >= 0)
        status = sws_scale(scaler_.get(), frame.data, frame.linesize, 0, frame.height, converted_->data,
                           converted_->linesize);
    if (status < 0) throw Error("a picture of format " + format_text(frame.format) + ": " + av_error_text(status));
    return *converted_;
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
    set("dst_range", 0);
    set("sws_flags", SWS_BICUBIC | SWS_ACCURATE_RND);
    if (sws_init_context(scaler_.get(), nullptr, nullptr) < 0)
        throw Error("pictures of format " + format_text(kind.format) + " cannot be converted to 4:2:0");
    const int* from = sws_getCoefficients(kind.colorspace);
    const int* to = sws_getCoefficients(SWS_CS_ITU601);
    sws_setColorspaceDetails(scaler_.get(), from, kind.full_range, to, 0, 0, 1 << 16, 1 << 16);
}

} // namespace player
