// SPDX-License-Identifier: MIT
#include "tools/subtitle_decoder.h"
#include "tools/error.h"
#include <cstring>
#include <new>

namespace player {
namespace {

constexpr int64_t kUnknownDuration = 5000; // of an event that does not say when it ends

bool is_text(const AVStream& stream)
{
    const AVCodecDescriptor* codec = avcodec_descriptor_get(stream.codecpar->codec_id);
    return codec && codec->props & AV_CODEC_PROP_TEXT_SUB;
}

std::vector<const AVStream*> subtitle_streams(const AVFormatContext& file)
{
    std::vector<const AVStream*> streams;
    for (unsigned i = 0; i < file.nb_streams; i++)
        if (file.streams[i]->codecpar->codec_type == AVMEDIA_TYPE_SUBTITLE) streams.push_back(file.streams[i]);
    return streams;
}

const AVStream& text_or_refuse(const AVStream& stream, const std::string& which)
{
    if (is_text(stream)) return stream;
    throw Error(which + " holds pictures (" + avcodec_get_name(stream.codecpar->codec_id) + "), not text");
}

const AVStream& default_stream(const std::vector<const AVStream*>& streams, const std::string& name)
{
    const AVStream* first = nullptr;
    for (const AVStream* each : streams) {
        if (!is_text(*each)) continue;
        if (each->disposition & AV_DISPOSITION_DEFAULT) return *each;
        if (!first) first = each;
    }
    return first ? *first : text_or_refuse(*streams.front(), name + ": its subtitle track");
}

struct DecodedSubtitle : AVSubtitle {
    DecodedSubtitle() : AVSubtitle{} {}
    ~DecodedSubtitle() { avsubtitle_free(this); }
    DecodedSubtitle(const DecodedSubtitle&) = delete;
    DecodedSubtitle& operator=(const DecodedSubtitle&) = delete;
};

} // namespace

int choose_subtitles(const AVFormatContext& file, int track, const std::string& name)
{
    const std::vector<const AVStream*> streams = subtitle_streams(file);
    const std::size_t count = streams.size(), number = static_cast<std::size_t>(track);
    if (count == 0) throw Error(name + ": has no subtitles");
    if (track == 0) return default_stream(streams, name).index;
    if (number > count)
        throw Error(name + ": has no subtitle track " + std::to_string(track) + ", only " + std::to_string(count));
    return text_or_refuse(*streams[number - 1], name + ": its subtitle track " + std::to_string(track)).index;
}

SubtitleDecoder::SubtitleDecoder(const AVStream& stream, const std::string& name) : time_base_(stream.time_base)
{
    const AVCodecParameters& parameters = *stream.codecpar;
    if (parameters.codec_id == AV_CODEC_ID_ASS) {
        header_.assign(reinterpret_cast<const char*>(parameters.extradata),
                       static_cast<std::size_t>(parameters.extradata_size));
        return;
    }
    const AVCodec* decoder = avcodec_find_decoder(parameters.codec_id);
    if (!decoder) throw Error(name + ": no decoder for this kind of subtitles");
    codec_.reset(avcodec_alloc_context3(decoder));
    if (!codec_) throw std::bad_alloc();
    int status = avcodec_parameters_to_context(codec_.get(), &parameters);
    codec_->pkt_timebase = time_base_;
    if (status >= 0) status = avcodec_open2(codec_.get(), decoder, nullptr);
    if (status < 0) throw Error(name + ": its subtitles: " + av_error_text(status, "subtitles"));
    header_.assign(reinterpret_cast<const char*>(codec_->subtitle_header),
                   static_cast<std::size_t>(codec_->subtitle_header_size));
}

std::vector<SubtitleEvent> SubtitleDecoder::decode(AVPacket& packet)
{
    const int64_t ticks = packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
    if (ticks == AV_NOPTS_VALUE || packet.size == 0) return {};
    const int64_t start = av_rescale_q(ticks, time_base_, {1, 1000});
    const int64_t duration =
        packet.duration > 0 ? av_rescale_q(packet.duration, time_base_, {1, 1000}) : kUnknownDuration;
    if (!codec_)
        return {{start, duration,
                 std::string(reinterpret_cast<const char*>(packet.data), static_cast<std::size_t>(packet.size))}};

    DecodedSubtitle decoded;
    int complete = 0;
    if (avcodec_decode_subtitle2(codec_.get(), &decoded, &complete, &packet) < 0) {
        damaged_++;
        return {};
    }
    std::vector<SubtitleEvent> events;
    for (unsigned i = 0; complete && i < decoded.num_rects; i++)
        if (decoded.rects[i]->ass) events.push_back({start, duration, decoded.rects[i]->ass});
    return events;
}

} // namespace player
