// SPDX-License-Identifier: MIT
// FFmpeg's objects with owners, and its error codes in words.
#pragma once
#include <memory>
#include <string>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

namespace player {

template <auto release> struct ReleaseByAddress {
    template <class T> void operator()(T* object) const { release(&object); }
};
template <auto release> struct Release {
    template <class T> void operator()(T* object) const { release(object); }
};

using FramePtr = std::unique_ptr<AVFrame, ReleaseByAddress<av_frame_free>>;
using PacketPtr = std::unique_ptr<AVPacket, ReleaseByAddress<av_packet_free>>;
using CodecPtr = std::unique_ptr<AVCodecContext, ReleaseByAddress<avcodec_free_context>>;
using FormatPtr = std::unique_ptr<AVFormatContext, ReleaseByAddress<avformat_close_input>>;
using ScalerPtr = std::unique_ptr<SwsContext, Release<sws_freeContext>>;

FramePtr new_frame();
// `content` is what the file should be, in words.
std::string av_error_text(int code, const char* content = "a video");

} // namespace player
