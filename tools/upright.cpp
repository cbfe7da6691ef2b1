// SPDX-License-Identifier: MIT
#include "tools/upright.h"
#include "tools/error.h"
#include <cstdio>
#include <cstdlib>
#include <new>
extern "C" {
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

namespace player {
namespace {

const int32_t* matrix_of(const AVFrame& frame, const AVStream& stream)
{
    if (const AVFrameSideData* data = av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX))
        return reinterpret_cast<const int32_t*>(data->data);
#if LIBAVFORMAT_VERSION_INT >= AV_VERSION_INT(60, 15, 100)
    const AVPacketSideData* data = av_packet_side_data_get(
        stream.codecpar->coded_side_data, stream.codecpar->nb_coded_side_data, AV_PKT_DATA_DISPLAYMATRIX);
    return data ? reinterpret_cast<const int32_t*>(data->data) : nullptr;
#else
    return reinterpret_cast<const int32_t*>(av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, nullptr));
#endif
}

// The matrix takes a column p and a line q to a * p + c * q and b * p + d * q. Only right angles are of interest.
struct Turn {
    const char* filters;
    bool on_side;
};

Turn turn_of(const int32_t* matrix)
{
    if (!matrix) return {"", false};
    const int64_t a = matrix[0], b = matrix[1], c = matrix[3], d = matrix[4];
    if (std::abs(b) + std::abs(c) > std::abs(a) + std::abs(d)) {
        if (b > 0) return {c > 0 ? "transpose=cclock_flip" : "transpose=clock", true};
        return {c > 0 ? "transpose=cclock" : "transpose=clock_flip", true};
    }
    if (a < 0) return {d < 0 ? "hflip,vflip" : "hflip", false};
    return {d < 0 ? "vflip" : "", false};
}

void check(int status)
{
    if (status == AVERROR(ENOMEM)) throw std::bad_alloc();
    if (status < 0) throw Error("a picture cannot be turned: " + av_error_text(status));
}

} // namespace

bool Upright::turn(AVFrame& frame, const AVStream& stream)
{
    const Turn turn = turn_of(matrix_of(frame, stream));
    if (!*turn.filters) return false;
    prepare({turn.filters, frame.width, frame.height, frame.format});
    const int64_t time = frame.pts;
    check(av_buffersrc_add_frame(source_, &frame));
    check(av_buffersink_get_frame(sink_, &frame));
    frame.pts = time;
    return turn.on_side;
}

void Upright::prepare(const Kind& kind)
{
    if (graph_ && kind == kind_) return;
    kind_ = kind;
    graph_.reset(avfilter_graph_alloc());
    if (!graph_) throw std::bad_alloc();
    graph_->nb_threads = 1;
    char description[160];
    std::snprintf(description, sizeof description,
                  "buffer@in=video_size=%dx%d:pix_fmt=%d:time_base=1/1:pixel_aspect=1/1,%s,buffersink@out", kind.width,
                  kind.height, kind.format, kind.filters);
    AVFilterInOut *inputs = nullptr, *outputs = nullptr;
    const int status = avfilter_graph_parse2(graph_.get(), description, &inputs, &outputs);
    avfilter_inout_free(&inputs);
    avfilter_inout_free(&outputs);
    check(status);
    check(avfilter_graph_config(graph_.get(), nullptr));
    source_ = avfilter_graph_get_filter(graph_.get(), "buffer@in");
    sink_ = avfilter_graph_get_filter(graph_.get(), "buffersink@out");
    if (!source_ || !sink_) throw Error("a picture cannot be turned: this FFmpeg names its filters otherwise");
}

} // namespace player
