// SPDX-License-Identifier: MIT
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include "tools/ffmpeg.h"
#include <algorithm>
#include <cmath>
#include <random>
#include <stdexcept>
extern "C" {
#include <libavutil/display.h>
#include <libavutil/imgutils.h>
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

namespace player_test {
namespace {

void check(int status)
{
    if (status < 0) throw std::runtime_error("encoding: " + player::av_error_text(status));
}

std::size_t area(int width, int height) { return static_cast<std::size_t>(width) * static_cast<std::size_t>(height); }

std::size_t index(int x, int line, int width) { return area(width, line) + static_cast<std::size_t>(x); }

uint8_t sample(double value) { return static_cast<uint8_t>(std::lround(std::clamp(value, 0.0, 255.0))); }

void write_packets(AVCodecContext* codec, const AVFrame* frame, AVFormatContext* file, AVStream* stream)
{
    check(avcodec_send_frame(codec, frame));
    player::PacketPtr packet(av_packet_alloc());
    while (avcodec_receive_packet(codec, packet.get()) >= 0) {
        packet->duration = 1;
        av_packet_rescale_ts(packet.get(), codec->time_base, stream->time_base);
        packet->stream_index = stream->index;
        check(av_interleaved_write_frame(file, packet.get()));
    }
}

// A texture that moves, so that every packet has something in it.
void draw(AVFrame& frame, int number)
{
    check(av_frame_make_writable(&frame));
    const int planes = av_pix_fmt_count_planes(static_cast<AVPixelFormat>(frame.format));
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    for (int plane = 0; plane < planes; plane++) {
        const int shift_y = plane ? format->log2_chroma_h : 0;
        const int line = av_image_get_linesize(static_cast<AVPixelFormat>(frame.format), frame.width, plane);
        for (int y = 0; y < AV_CEIL_RSHIFT(frame.height, shift_y); y++)
            for (int x = 0; x < line; x++)
                frame.data[plane][y * frame.linesize[plane] + x] =
                    static_cast<uint8_t>(64 + ((x * (3 + plane) + number * 5) ^ (y * 2)) % 128);
    }
    frame.pts = number;
}

} // namespace

Yuv::Yuv(int w, int h, int step)
    : width(w), height(h), chroma_step(step), y(area(w, h)), u(area(chroma_width(), chroma_height())), v(u.size())
{
}

int Yuv::luma(int column, int line) const
{
    return y[index(std::min(column, width - 1), std::min(line, height - 1), width)];
}

std::array<int, 2> Yuv::chroma(int column, int line) const
{
    const std::size_t at =
        index(std::min(column, chroma_width() - 1), std::min(line, chroma_height() - 1), chroma_width());
    return {u[at], v[at]};
}

Yuv noise(int width, int height, int chroma_step)
{
    Yuv picture(width, height, chroma_step);
    std::mt19937 random(20);
    auto fill = [&](std::vector<uint8_t>& plane, unsigned least, unsigned most) {
        for (uint8_t& each : plane) each = static_cast<uint8_t>(least + random() % (most - least + 1));
    };
    fill(picture.y, 16, 235);
    fill(picture.u, 16, 240);
    fill(picture.v, 16, 240);
    return picture;
}

Yuv gradient(int width, int height)
{
    Yuv picture(width, height);
    for (int line = 0; line < height; line++)
        for (int x = 0; x < width; x++) picture.y[index(x, line, width)] = sample(60 + 140.0 * x / width);
    for (int line = 0; line < picture.chroma_height(); line++) {
        for (int x = 0; x < picture.chroma_width(); x++) {
            const std::size_t at = index(x, line, picture.chroma_width());
            picture.u[at] = sample(108 + 40.0 * line / picture.chroma_height());
            picture.v[at] = sample(148 - 40.0 * x / picture.chroma_width());
        }
    }
    return picture;
}

Pixel bt601(double y, double u, double v)
{
    const double light = 1.164 * (y - 16), blue = u - 128, red = v - 128;
    return {sample(light + 1.596 * red), sample(light - 0.391 * blue - 0.813 * red), sample(light + 2.018 * blue)};
}

Image render(const Yuv& picture)
{
    Image image(picture.width, picture.height);
    for (int line = 0; line < picture.height; line++) {
        for (int x = 0; x < picture.width; x++) {
            const auto [u, v] = picture.chroma(x / 2, line / picture.chroma_step);
            image.at(x, line) = bt601(picture.luma(x, line), u, v);
        }
    }
    return image;
}

static int adjusted(int value, int gain, int offset) { return std::clamp(value * gain / 64 + offset, 0, 255); }

Yuv adjusted(Yuv picture, int brightness, int contrast, int saturation)
{
    const int luma_offset = 128 - 2 * contrast + brightness, chroma_offset = 128 - 2 * saturation;
    for (auto& each : picture.y) each = static_cast<uint8_t>(adjusted(each, contrast, luma_offset));
    for (auto* plane : {&picture.u, &picture.v})
        for (auto& each : *plane) each = static_cast<uint8_t>(adjusted(each, saturation, chroma_offset));
    return picture;
}

std::string packed_bytes(const Yuv& picture)
{
    constexpr char kNoSample = 77;
    std::string all;
    for (int line = 0; line < picture.height; line++) {
        for (int x = 0; x < picture.width; x += 2) {
            const auto [u, v] = picture.chroma(x / 2, line);
            const bool pair = x + 1 < picture.width;
            all += {static_cast<char>(picture.luma(x, line)), static_cast<char>(u),
                    pair ? static_cast<char>(picture.luma(x + 1, line)) : kNoSample, static_cast<char>(v)};
        }
    }
    return all;
}

std::string bytes(const Yuv& picture)
{
    std::string all;
    for (const auto* plane : {&picture.y, &picture.u, &picture.v}) all.append(plane->begin(), plane->end());
    return all;
}

void write_y4m(const std::filesystem::path& file, const Yuv& picture, int count, const std::string& tags)
{
    write_y4m(file, picture.width, picture.height, bytes(picture), count, tags);
}

void write_y4m(const std::filesystem::path& file, int width, int height, const std::string& picture, int count,
               const std::string& tags)
{
    std::string all =
        "YUV4MPEG2 W" + std::to_string(width) + " H" + std::to_string(height) + " F25:1 Ip " + tags + "\n";
    for (int i = 0; i < count; i++) all.append("FRAME\n").append(picture);
    write_file(file, all);
}

void encode(const std::filesystem::path& file, const Encoding& encoding)
{
    av_log_set_level(AV_LOG_ERROR);
    AVFormatContext* context = nullptr;
    check(avformat_alloc_output_context2(&context, nullptr, nullptr, file.c_str()));
    const std::unique_ptr<AVFormatContext, player::Release<avformat_free_context>> output(context);
    const AVCodec* encoder = avcodec_find_encoder_by_name(encoding.codec);
    if (!encoder) throw std::runtime_error(std::string("no encoder ") + encoding.codec);
    const player::CodecPtr codec(avcodec_alloc_context3(encoder));
    codec->width = encoding.width;
    codec->height = encoding.height;
    codec->pix_fmt = av_get_pix_fmt(encoding.pixel_format);
    codec->time_base = {1, 25};
    codec->gop_size = 10;
    codec->bit_rate = 2'000'000;
    codec->strict_std_compliance = FF_COMPLIANCE_UNOFFICIAL;
    if (context->oformat->flags & AVFMT_GLOBALHEADER) codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    check(avcodec_open2(codec.get(), encoder, nullptr));
    AVStream* stream = avformat_new_stream(context, nullptr);
    stream->time_base = codec->time_base;
    stream->avg_frame_rate = {25, 1};
    if (encoding.clockwise) {
        constexpr std::size_t kSize = 9 * sizeof(int32_t);
        auto* matrix = av_stream_new_side_data(stream, AV_PKT_DATA_DISPLAYMATRIX, kSize);
        av_display_rotation_set(reinterpret_cast<int32_t*>(matrix), encoding.clockwise);
    }
    check(avcodec_parameters_from_context(stream->codecpar, codec.get()));
    check(avio_open(&context->pb, file.c_str(), AVIO_FLAG_WRITE));
    // The index first, so that a file that lost its end can still be opened.
    av_opt_set(context, "movflags", "faststart", AV_OPT_SEARCH_CHILDREN);
    check(avformat_write_header(context, nullptr));
    const player::FramePtr frame = player::new_frame();
    frame->format = codec->pix_fmt;
    frame->width = encoding.width;
    frame->height = encoding.height;
    check(av_frame_get_buffer(frame.get(), 0));
    for (int i = 0; i < encoding.count; i++) {
        draw(*frame, i);
        write_packets(codec.get(), frame.get(), context, stream);
    }
    write_packets(codec.get(), nullptr, context, stream);
    check(av_write_trailer(context));
    check(avio_closep(&context->pb));
}

} // namespace player_test
