// SPDX-License-Identifier: MIT
#include "tests/player/tracks.h"
#include "tools/ffmpeg.h"
#include <cstring>
#include <stdexcept>

namespace player_test {
namespace {

constexpr AVRational kMilliseconds{1, 1000};

void check(int status)
{
    if (status < 0) throw std::runtime_error("tracks: " + player::av_error_text(status));
}

AVCodecID codec(Track::Kind kind)
{
    switch (kind) {
    case Track::Kind::script: return AV_CODEC_ID_ASS;
    case Track::Kind::plain: return AV_CODEC_ID_SUBRIP;
    default: return AV_CODEC_ID_HDMV_PGS_SUBTITLE;
    }
}

void describe(const Track& track, AVStream& stream)
{
    AVCodecParameters& parameters = *stream.codecpar;
    parameters.codec_type = AVMEDIA_TYPE_SUBTITLE;
    parameters.codec_id = codec(track.kind);
    stream.time_base = kMilliseconds;
    stream.disposition = track.is_default ? AV_DISPOSITION_DEFAULT : 0;
    if (track.header.empty()) return;
    parameters.extradata = static_cast<uint8_t*>(av_mallocz(track.header.size() + AV_INPUT_BUFFER_PADDING_SIZE));
    std::memcpy(parameters.extradata, track.header.data(), track.header.size());
    parameters.extradata_size = static_cast<int>(track.header.size());
}

struct Output {
    AVFormatContext* file = nullptr;

    explicit Output(const std::string& name)
    {
        check(avformat_alloc_output_context2(&file, nullptr, nullptr, name.c_str()));
        check(avio_open(&file->pb, name.c_str(), AVIO_FLAG_WRITE));
    }
    ~Output()
    {
        avio_closep(&file->pb);
        avformat_free_context(file);
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    void write(AVPacket& packet, int stream, AVRational time_base, int start) const
    {
        av_packet_rescale_ts(&packet, time_base, file->streams[stream]->time_base);
        const int64_t later = av_rescale_q(start, kMilliseconds, file->streams[stream]->time_base);
        packet.pts += later;
        packet.dts += later;
        packet.stream_index = stream;
        packet.pos = -1;
        check(av_interleaved_write_frame(file, &packet));
    }
};

void write_events(const Track& track, int stream, int start, const Output& output)
{
    int number = 0;
    for (const Track::Event& event : track.events) {
        const std::string line =
            track.kind == Track::Kind::script ? std::to_string(number++) + ",0," + event.text : event.text;
        const player::PacketPtr packet(av_packet_alloc());
        check(av_new_packet(packet.get(), static_cast<int>(line.size())));
        std::memcpy(packet->data, line.data(), line.size());
        packet->pts = packet->dts = event.start;
        packet->duration = event.duration;
        output.write(*packet, stream, kMilliseconds, start);
    }
}

} // namespace

void add_tracks(const std::filesystem::path& from, const std::filesystem::path& to, const std::vector<Track>& tracks,
                int start)
{
    AVFormatContext* opened = nullptr;
    check(avformat_open_input(&opened, from.c_str(), nullptr, nullptr));
    const player::FormatPtr video(opened);
    check(avformat_find_stream_info(opened, nullptr));
    const Output output(to.string());
    check(avcodec_parameters_copy(avformat_new_stream(output.file, nullptr)->codecpar, opened->streams[0]->codecpar));
    output.file->streams[0]->codecpar->codec_tag = 0;
    output.file->streams[0]->time_base = opened->streams[0]->time_base;
    for (const Track& track : tracks) describe(track, *avformat_new_stream(output.file, nullptr));
    check(avformat_write_header(output.file, nullptr));
    for (std::size_t i = 0; i < tracks.size(); i++) write_events(tracks[i], static_cast<int>(i) + 1, start, output);
    const player::PacketPtr packet(av_packet_alloc());
    while (av_read_frame(opened, packet.get()) >= 0) output.write(*packet, 0, opened->streams[0]->time_base, start);
    check(av_write_trailer(output.file));
}

} // namespace player_test
