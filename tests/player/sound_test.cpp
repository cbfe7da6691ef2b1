// SPDX-License-Identifier: MIT
// Films with sound, onto SDL's audio drivers for files and for nothing.
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include "tools/ffmpeg.h"
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <stdexcept>

namespace player_test {
namespace {

constexpr int kRate = 44100, kPacket = 2205;
constexpr int kDeviceRate = 48000;

void check(int status)
{
    if (status < 0) throw std::runtime_error("sound: " + player::av_error_text(status));
}

void describe(AVStream& stream)
{
    AVCodecParameters& parameters = *stream.codecpar;
    parameters.codec_type = AVMEDIA_TYPE_AUDIO;
    parameters.codec_id = AV_CODEC_ID_PCM_S16LE;
    parameters.format = AV_SAMPLE_FMT_S16;
    parameters.sample_rate = kRate;
    parameters.bits_per_coded_sample = 16;
    av_channel_layout_default(&parameters.ch_layout, 1);
    stream.time_base = {1, kRate};
}

void write_tone(AVFormatContext& file, int stream, int from, int frequency)
{
    const player::PacketPtr packet(av_packet_alloc());
    check(av_new_packet(packet.get(), 2 * kPacket));
    for (int i = 0; i < kPacket; i++) {
        const auto sample = static_cast<int16_t>(16000 * std::sin(2 * M_PI * frequency * (from + i) / kRate));
        std::memcpy(packet->data + 2 * i, &sample, 2);
    }
    packet->pts = packet->dts = from;
    packet->duration = kPacket;
    packet->stream_index = stream;
    av_packet_rescale_ts(packet.get(), {1, kRate}, file.streams[stream]->time_base);
    check(av_interleaved_write_frame(&file, packet.get()));
}

// The pictures of a film, and a tone for each track.
void add_sound(const std::filesystem::path& from, const std::filesystem::path& to, const std::vector<int>& frequencies,
               int seconds)
{
    AVFormatContext *opened = nullptr, *file = nullptr;
    check(avformat_open_input(&opened, from.c_str(), nullptr, nullptr));
    const player::FormatPtr video(opened);
    check(avformat_find_stream_info(opened, nullptr));
    check(avformat_alloc_output_context2(&file, nullptr, nullptr, to.c_str()));
    const std::unique_ptr<AVFormatContext, player::Release<avformat_free_context>> output(file);
    check(avcodec_parameters_copy(avformat_new_stream(file, nullptr)->codecpar, opened->streams[0]->codecpar));
    file->streams[0]->codecpar->codec_tag = 0;
    file->streams[0]->time_base = opened->streams[0]->time_base;
    for (std::size_t i = 0; i < frequencies.size(); i++) describe(*avformat_new_stream(file, nullptr));
    check(avio_open(&file->pb, to.c_str(), AVIO_FLAG_WRITE));
    check(avformat_write_header(file, nullptr));
    for (int sample = 0; sample < seconds * kRate; sample += kPacket)
        for (std::size_t i = 0; i < frequencies.size(); i++)
            write_tone(*file, static_cast<int>(i) + 1, sample, frequencies[i]);
    const player::PacketPtr packet(av_packet_alloc());
    while (av_read_frame(opened, packet.get()) >= 0) {
        av_packet_rescale_ts(packet.get(), opened->streams[0]->time_base, file->streams[0]->time_base);
        check(av_interleaved_write_frame(file, packet.get()));
    }
    check(av_write_trailer(file));
    check(avio_closep(&file->pb));
}

class SoundTrack : public testing::Test {
protected:
    static constexpr int kSeconds = 2;

    void SetUp() override
    {
        encode(scratch_ / "silent.mkv", {"mpeg4", "yuv420p", 64, 48, kSeconds * 25});
        add_sound(scratch_ / "silent.mkv", scratch_ / "film.mkv", {440, 880}, kSeconds);
    }

    Result hear(Arguments options, Arguments environment = {})
    {
        options.insert(options.end(), {"--stats", (scratch_ / "film.mkv").string()});
        environment.insert(environment.end(), {"SDL_VIDEODRIVER=dummy", "SDL_AUDIODRIVER=disk",
                                               "SDL_DISKAUDIOFILE=" + (scratch_ / "heard").string()});
        Result result = play(options, environment);
        EXPECT_EQ(result.status, 0) << result.err;
        return result;
    }

    std::vector<float> heard() const
    {
        const std::string bytes = contents(scratch_ / "heard");
        std::vector<float> samples(bytes.size() / sizeof(float));
        std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
        return samples;
    }

    // Of the left channel: how often it rises through zero, in what is not silent; and how long that is.
    struct Tone {
        double frequency, seconds, peak;
    };
    Tone tone() const
    {
        const std::vector<float> samples = heard();
        std::size_t first = samples.size(), last = 0;
        int rises = 0;
        double peak = 0;
        for (std::size_t i = 0; i < samples.size(); i += 2) {
            peak = std::max(peak, std::abs(double{samples[i]}));
            if (std::abs(samples[i]) < 0.01F) continue;
            first = std::min(first, i);
            last = i;
        }
        for (std::size_t i = first + 2; i < last; i += 2) rises += samples[i - 2] < 0 && samples[i] >= 0;
        const double seconds = first < last ? static_cast<double>(last - first) / 2 / kDeviceRate : 0;
        return {seconds > 0 ? rises / seconds : 0, seconds, peak};
    }

    const ScratchDirectory scratch_;
};

TEST_F(SoundTrack, is_heard_whole)
{
    const Result result = hear({});
    EXPECT_NEAR(tone().frequency, 440, 4);
    EXPECT_NEAR(tone().seconds, kSeconds, 0.15);
    // One channel on two loudspeakers is as loud as before.
    EXPECT_NEAR(tone().peak, 16000 / 32768.0 * std::sqrt(0.5), 0.02);
    EXPECT_GE(result.seconds, kSeconds - 0.1);
    EXPECT_LT(result.seconds, kSeconds + 2);
}

TEST_F(SoundTrack, is_chosen_by_number)
{
    hear({"--audio-track", "2"});
    EXPECT_NEAR(tone().frequency, 880, 8);
    const Result result = play({"--audio-track", "3", (scratch_ / "film.mkv").string()}, {"SDL_VIDEODRIVER=dummy"});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("no sound track 3, only 2"), std::string::npos) << result.err;
}

TEST_F(SoundTrack, is_mute_on_demand)
{
    hear({"--mute"});
    EXPECT_GT(heard().size(), std::size_t{2} * kDeviceRate);
    EXPECT_EQ(tone().peak, 0);
}

// A device that takes its samples at half the pace has pictures to wait for it.
TEST_F(SoundTrack, sets_the_pace_of_the_pictures)
{
    const Result result = hear({}, {"SDL_DISKAUDIODELAY=43"});
    EXPECT_GE(result.seconds, 1.8 * kSeconds);
    EXPECT_LT(result.seconds, 3.5 * kSeconds);
}

TEST_F(SoundTrack, is_missed_without_a_device_and_the_film_goes_on)
{
    const Result result =
        play({(scratch_ / "film.mkv").string()}, {"SDL_VIDEODRIVER=dummy", "SDL_AUDIODRIVER=none-such"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_GE(result.seconds, kSeconds - 0.1);
    EXPECT_LT(result.seconds, kSeconds + 2);
}

} // namespace
} // namespace player_test
