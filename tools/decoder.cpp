// SPDX-License-Identifier: MIT
#include "tools/decoder.h"
#include "tools/error.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <new>
#include <utility>

namespace player {
namespace {

constexpr int kMostReadErrors = 100;    // in a row; then the source counts as ended
constexpr double kMissingSeconds = 0.3; // less than this, or than three pictures, may be an inexact announcement

int64_t duration_of(const AVFrame& frame)
{
#if LIBAVUTIL_VERSION_INT >= AV_VERSION_INT(57, 30, 100)
    return frame.duration;
#else
    return frame.pkt_duration;
#endif
}

std::string counted(int64_t count, const char* one, const char* many)
{
    return std::to_string(count) + " " + (count == 1 ? one : many);
}

} // namespace

std::string Damage::text() const
{
    std::string text;
    auto add = [&](const std::string& part) { text.append(text.empty() ? "" : "; ").append(part); };
    if (lost_packets) add("skipped " + counted(lost_packets, "damaged packet", "damaged packets"));
    if (damaged_pictures) add(counted(damaged_pictures, "picture was", "pictures were") + " damaged");
    if (!missing_end.empty()) add(missing_end);
    return text;
}

Decoder::Decoder(Source source, Interrupt& interrupt) : source_(std::move(source)), interrupt_(interrupt)
{
    open_source();
}

void Decoder::open_source()
{
    format_ = open(source_, interrupt_);
    const AVCodec* codec = nullptr;
    const int index = av_find_best_stream(format_.get(), AVMEDIA_TYPE_VIDEO, -1, -1, &codec, 0);
    if (index == AVERROR_DECODER_NOT_FOUND) throw Error(source_.name() + ": no decoder for this kind of video");
    if (index < 0) throw Error(source_.name() + ": has no video");
    stream_ = format_->streams[index];
    if (stream_->disposition & AV_DISPOSITION_ATTACHED_PIC) throw Error(source_.name() + ": has no video");
    select_streams();

    codec_.reset(avcodec_alloc_context3(codec));
    if (!codec_) throw std::bad_alloc();
    int status = avcodec_parameters_to_context(codec_.get(), stream_->codecpar);
    codec_->pkt_timebase = stream_->time_base;
    codec_->thread_count = 0; // as many as there are processors
    if (status >= 0) status = avcodec_open2(codec_.get(), codec, nullptr);
    if (status < 0) throw Error(source_.name() + ": " + av_error_text(status));

    const AVRational rate = av_guess_frame_rate(format_.get(), stream_, nullptr);
    frame_seconds_ = rate.num > 0 && rate.den > 0 ? av_q2d(av_inv_q(rate)) : 1.0 / 25;
    first_ = true;
    drained_ = file_ended_ = false;
    waiting_.clear();
}

void Decoder::select_streams()
{
    for (int i = 0; i < static_cast<int>(format_->nb_streams); i++)
        format_->streams[i]->discard = i == stream_->index || takers_.contains(i) ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
}

void Decoder::divert(int stream, std::function<void(AVPacket&)> take)
{
    if (take) takers_[stream] = std::move(take);
    else takers_.erase(stream);
    select_streams();
}

bool Decoder::next(AVFrame& frame)
{
    while (receive(frame)) {
        take_time(frame);
        if (skip_until_ && time_ < *skip_until_ - frame_seconds_ / 2) continue;
        skip_until_.reset();
        account(frame);
        return true;
    }
    if (!interrupt_.requested()) notice_missing_end();
    return false;
}

bool Decoder::receive(AVFrame& frame)
{
    while (!interrupt_.requested()) {
        const int status = avcodec_receive_frame(codec_.get(), &frame);
        if (status >= 0) return true;
        if (status == AVERROR_EOF) return false;
        if (status == AVERROR(EAGAIN)) feed();
        else if (status == AVERROR(ENOMEM)) throw std::bad_alloc();
        else if (!std::exchange(cut_, false)) lose_packet();
    }
    return false;
}

// Gives the decoder one packet, or signals that there are no more. A packet that is known to be cut counts once,
// though the decoder complains, too.
void Decoder::feed()
{
    const PacketPtr packet = drained_ ? nullptr : take_packet();
    if (!packet) drained_ = true;
    int status = avcodec_send_packet(codec_.get(), packet.get());
    if (status == AVERROR(ENOMEM)) throw std::bad_alloc();
    cut_ = packet && packet->flags & AV_PKT_FLAG_CORRUPT;
    if (cut_) status = AVERROR_INVALIDDATA;
    if (status < 0 && status != AVERROR_EOF) lose_packet();
}

PacketPtr Decoder::take_packet()
{
    while (waiting_.empty())
        if (!read_ahead()) return nullptr;
    PacketPtr packet = std::move(waiting_.front());
    waiting_.pop_front();
    return packet;
}

bool Decoder::read_ahead()
{
    if (file_ended_) return false;
    PacketPtr packet(av_packet_alloc());
    if (!packet) throw std::bad_alloc();
    const int status = interrupt_.reading([&] { return av_read_frame(format_.get(), packet.get()); });
    if (status == AVERROR(ENOMEM)) throw std::bad_alloc();
    if (status < 0) {
        file_ended_ = status == AVERROR_EOF || interrupt_.requested() || ++read_errors_ == kMostReadErrors;
        if (status != AVERROR_EOF && !interrupt_.requested()) lose_packet();
        return !file_ended_;
    }
    read_errors_ = 0;
    if (packet->stream_index == stream_->index) waiting_.push_back(std::move(packet));
    else if (const auto taker = takers_.find(packet->stream_index); taker != takers_.end()) taker->second(*packet);
    return true;
}

// After a jump into the middle a decoder may complain of references that it never saw; that is not an error.
void Decoder::lose_packet()
{
    if (!skip_until_) damage_.lost_packets++;
}

void Decoder::account(const AVFrame& frame)
{
    if (frame.decode_error_flags || frame.flags & AV_FRAME_FLAG_CORRUPT) damage_.damaged_pictures++;
}

void Decoder::take_time(const AVFrame& frame)
{
    if (frame.best_effort_timestamp == AV_NOPTS_VALUE) {
        time_ += first_ ? 0 : frame_seconds_;
    } else {
        const double time = static_cast<double>(frame.best_effort_timestamp) * av_q2d(stream_->time_base);
        if (first_ && whole_) start_ = time;
        time_ = time - start_;
    }
    const double shown_for = static_cast<double>(duration_of(frame)) * av_q2d(stream_->time_base);
    end_ = time_ + std::max(shown_for, frame_seconds_);
    first_ = false;
}

void Decoder::rewind()
{
    if (!source_.is_pattern() && seek(0)) return;
    whole_ = true;
    open_source();
    time_ = 0;
}

bool Decoder::seek(double time)
{
    time = std::max(time, 0.0);
    const int64_t target = std::llround((time + start_) * AV_TIME_BASE);
    if (avformat_seek_file(format_.get(), -1, INT64_MIN, target, target, 0) < 0) return false;
    avcodec_flush_buffers(codec_.get());
    waiting_.clear();
    skip_until_ = time;
    drained_ = file_ended_ = cut_ = false;
    first_ = whole_ = false;
    return true;
}

// A container with only the video announces the video's length; with sound in it, only the stream's own
// word counts, and an estimate from the bit rate never does.
void Decoder::notice_missing_end()
{
    const bool alone = format_->nb_streams == 1 && format_->duration_estimation_method != AVFMT_DURATION_FROM_BITRATE;
    double announced = 0;
    if (stream_->duration > 0) announced = static_cast<double>(stream_->duration) * av_q2d(stream_->time_base);
    else if (alone && format_->duration > 0) announced = static_cast<double>(format_->duration) / AV_TIME_BASE;
    if (announced - end_ < std::max(kMissingSeconds, 3 * frame_seconds_) || !damage_.missing_end.empty()) return;
    char text[80];
    std::snprintf(text, sizeof text, "ended after %.2f s of %.2f s", end_, announced);
    damage_.missing_end = text;
}

std::optional<double> Decoder::duration() const
{
    if (source_.is_pattern()) return source_.seconds;
    if (format_->duration > 0) return static_cast<double>(format_->duration) / AV_TIME_BASE;
    return std::nullopt;
}

bool Decoder::seekable() const
{
    return !source_.is_pattern() && !(format_->ctx_flags & AVFMTCTX_UNSEEKABLE) &&
           (!format_->pb || format_->pb->seekable & AVIO_SEEKABLE_NORMAL);
}

std::string Decoder::description() const
{
    char text[80];
    std::snprintf(text, sizeof text, "%s, %.2f pictures per second", avcodec_get_name(codec_->codec_id),
                  1 / frame_seconds_);
    return text;
}

AVRational Decoder::sample_aspect(AVFrame& frame) const
{
    const AVRational ratio = av_guess_sample_aspect_ratio(format_.get(), stream_, &frame);
    return ratio.num > 0 && ratio.den > 0 ? ratio : AVRational{1, 1};
}

} // namespace player
