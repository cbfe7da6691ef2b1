// SPDX-License-Identifier: MIT
#include "tools/audio_decoder.h"
#include <cmath>
#include <new>

namespace player {

AudioDecoder::AudioDecoder(const AVStream& stream, std::shared_ptr<Sound> sound)
    : time_base_(stream.time_base), sound_(std::move(sound))
{
    const AVCodec* decoder = avcodec_find_decoder(stream.codecpar->codec_id);
    if (!decoder) return;
    codec_.reset(avcodec_alloc_context3(decoder));
    if (!codec_) throw std::bad_alloc();
    int status = avcodec_parameters_to_context(codec_.get(), stream.codecpar);
    codec_->pkt_timebase = time_base_;
    if (status >= 0) status = avcodec_open2(codec_.get(), decoder, nullptr);
    if (status < 0) codec_ = nullptr;
}

void AudioDecoder::take(AVPacket& packet, double speed)
{
    if (!codec_) return;
    if (avcodec_send_packet(codec_.get(), &packet) < 0) damaged_++;
    while (avcodec_receive_frame(codec_.get(), frame_.get()) >= 0) put(*frame_, speed);
}

void AudioDecoder::jumped()
{
    if (codec_) avcodec_flush_buffers(codec_.get());
    resampler_ = nullptr;
}

void AudioDecoder::put(AVFrame& frame, double speed)
{
    prepare(frame, {frame.sample_rate, frame.format, frame.ch_layout.nb_channels, speed});
    const double time = frame.best_effort_timestamp == AV_NOPTS_VALUE
                            ? next_
                            : static_cast<double>(frame.best_effort_timestamp) * av_q2d(time_base_);
    next_ = time + static_cast<double>(frame.nb_samples) / frame.sample_rate;
    // What the resampler still holds is heard first.
    const double held = static_cast<double>(swr_get_delay(resampler_.get(), 1'000'000)) / 1e6 * speed;
    SoundChunk chunk{time - held, speed, {}};
    const int most = swr_get_out_samples(resampler_.get(), frame.nb_samples);
    if (most <= 0) return;
    chunk.samples.resize(2 * static_cast<std::size_t>(most));
    auto* out = reinterpret_cast<uint8_t*>(chunk.samples.data());
    const int count =
        swr_convert(resampler_.get(), &out, most, const_cast<const uint8_t**>(frame.extended_data), frame.nb_samples);
    if (count <= 0) return;
    chunk.samples.resize(2 * static_cast<std::size_t>(count));
    sound_->put(std::move(chunk));
}

// At another speed the samples count as those of another rate.
void AudioDecoder::prepare(AVFrame& frame, const Kind& kind)
{
    if (resampler_ && kind == kind_) return;
    kind_ = kind;
    AVChannelLayout stereo = AV_CHANNEL_LAYOUT_STEREO;
    SwrContext* made = nullptr;
    const int rate = static_cast<int>(std::lround(kind.rate * kind.speed));
    if (swr_alloc_set_opts2(&made, &stereo, AV_SAMPLE_FMT_FLT, sound_->rate(), &frame.ch_layout,
                            static_cast<AVSampleFormat>(kind.format), rate, 0, nullptr) < 0)
        throw std::bad_alloc();
    resampler_.reset(made);
    if (swr_init(made) < 0) throw std::bad_alloc();
}

std::vector<int> streams_of(const AVFormatContext& file, AVMediaType type)
{
    std::vector<int> streams;
    for (unsigned i = 0; i < file.nb_streams; i++)
        if (file.streams[i]->codecpar->codec_type == type) streams.push_back(static_cast<int>(i));
    return streams;
}

} // namespace player
