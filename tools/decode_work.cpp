// SPDX-License-Identifier: MIT
#include "tools/decode_work.h"
#include "tools/error.h"
#include <algorithm>
#include <filesystem>

namespace player {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kPicturesAhead = 4;
constexpr int64_t kPixelsAhead = 64'000'000; // of large pictures there are fewer
constexpr double kSoundAhead = 0.5;          // seconds
constexpr std::size_t kPacketsAhead = 2000;
constexpr auto kSoundLook = 20ms; // how often the thread looks whether there is enough of it

} // namespace

void DecodeThread::Work::run() noexcept
{
    std::exception_ptr failure;
    try {
        open();
        while (!interrupt_.requested()) decode();
    } catch (...) {
        failure = std::current_exception();
    }
    const std::lock_guard lock(mutex_);
    failure_ = failure;
    over_ = true;
    changed_.notify_all();
}

void DecodeThread::Work::open()
{
    decoder_.emplace(source_, interrupt_);
    auto subtitles = open_subtitles();
    if (sound_choice_.wanted) open_sound();
    const std::lock_guard lock(mutex_);
    about.stream = decoder_->description();
    about.duration = decoder_->duration();
    about.frame_seconds = decoder_->frame_seconds();
    about.seekable = decoder_->seekable();
    about.own_subtitles = choice_.wanted && choice_.file.empty();
    about.subtitles = std::move(subtitles);
    about.sound = sound_;
    about.sound_tracks = static_cast<int>(sound_streams_.size());
}

std::shared_ptr<Subtitles> DecodeThread::Work::open_subtitles()
{
    if (!choice_.wanted) return subtitles_of_the_same_name();
    if (!choice_.file.empty()) {
        Source source;
        source.file = choice_.file;
        source.content = "subtitles";
        return read_subtitles(source, choice_.track, interrupt_);
    }
    auto own = std::make_shared<Subtitles>(decoder_->file(), choice_.track, source_.name());
    decoder_->divert(own->stream(), [own](AVPacket& packet) { own->take(packet); });
    return own;
}

// film.srt for film.mp4. Nobody asked for it: one that cannot be read is no mistake.
std::shared_ptr<Subtitles> DecodeThread::Work::subtitles_of_the_same_name()
{
    if (source_.is_pattern() || source_.is_standard_input()) return nullptr;
    for (const char* extension : {".ass", ".ssa", ".srt", ".vtt"}) {
        const auto file = std::filesystem::path(source_.file).replace_extension(extension);
        std::error_code ignored;
        if (file == source_.file || !std::filesystem::is_regular_file(file, ignored)) continue;
        try {
            Source source;
            source.file = file.string();
            source.content = "subtitles";
            return read_subtitles(source, 0, interrupt_);
        } catch (const Error&) {
            return nullptr;
        }
    }
    return nullptr;
}

void DecodeThread::Work::open_sound()
{
    sound_streams_ = streams_of(decoder_->file(), AVMEDIA_TYPE_AUDIO);
    if (sound_streams_.empty()) return;
    const auto count = static_cast<int>(sound_streams_.size()), track = sound_choice_.track;
    if (track > count)
        throw Error(source_.name() + ": has no sound track " + std::to_string(track) + ", only " +
                    std::to_string(count));
    sound_ = Sound::open();
    if (!sound_) return;
    const int best =
        av_find_best_stream(const_cast<AVFormatContext*>(&decoder_->file()), AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0);
    listen_to(track > 0   ? sound_streams_[static_cast<std::size_t>(track) - 1]
              : best >= 0 ? best
                          : sound_streams_.front());
}

void DecodeThread::Work::listen_to(int stream)
{
    if (listened_ >= 0) decoder_->divert(listened_, nullptr);
    listened_ = stream;
    audio_ = std::make_unique<AudioDecoder>(*decoder_->file().streams[stream], sound_);
    decoder_->divert(stream, [this](AVPacket& packet) { audio_->take(packet, speed); });
    const std::lock_guard lock(mutex_);
    sound_track =
        static_cast<int>(std::find(sound_streams_.begin(), sound_streams_.end(), stream) - sound_streams_.begin()) + 1;
}

void DecodeThread::Work::decode()
{
    std::unique_lock lock(mutex_);
    auto ready = [this] { return has_work(); };
    if (sound_) changed_.wait_for(lock, kSoundLook, ready);
    else changed_.wait(lock, ready);
    const int epoch = epoch_;
    lock.unlock();
    obey();
    read_sound_ahead();
    lock.lock();
    const bool room = epoch == epoch_ && has_room();
    lock.unlock();
    if (room && !interrupt_.requested()) decode_picture(epoch);
}

bool DecodeThread::Work::has_work() const { return interrupt_.requested() || jump_ || next_sound_ || has_room(); }

bool DecodeThread::Work::has_room() const
{
    if (end_ || pictures_.empty()) return !end_;
    const AVFrame& last = *pictures_.back().frame;
    const int64_t pixels = int64_t{last.width} * last.height * static_cast<int64_t>(pictures_.size() + 1);
    return pictures_.size() < kPicturesAhead && pixels < kPixelsAhead;
}

void DecodeThread::Work::obey()
{
    std::unique_lock lock(mutex_);
    const auto jump = std::exchange(jump_, std::nullopt);
    const bool next_sound = std::exchange(next_sound_, false);
    lock.unlock();
    if (next_sound && audio_) listen_to(sound_streams_[static_cast<std::size_t>(sound_track) % sound_streams_.size()]);
    if (!jump) return;
    bool done = true;
    if (jump->rewind) decoder_->rewind();
    else done = decoder_->seek(jump->time);
    if (audio_) audio_->jumped();
    if (sound_) sound_->clear();
    lock.lock();
    seek_failed_ = !done;
}

void DecodeThread::Work::read_sound_ahead()
{
    auto wanted = [this] {
        const std::lock_guard lock(mutex_);
        return !interrupt_.requested() && !jump_ && decoder_->packets_ahead() < kPacketsAhead;
    };
    while (sound_ && sound_->buffered() < kSoundAhead && wanted() && decoder_->read_ahead()) {}
}

void DecodeThread::Work::decode_picture(int epoch)
{
    TimedPicture picture{new_frame()};
    const bool more = decoder_->next(*picture.frame);
    if (interrupt_.requested()) return;
    picture.time = decoder_->time();
    picture.file_time = decoder_->start() + picture.time;
    if (more) {
        picture.sample_aspect = decoder_->sample_aspect(*picture.frame);
        if (upright_.turn(*picture.frame, decoder_->stream()))
            std::swap(picture.sample_aspect.num, picture.sample_aspect.den);
    }
    publish(more ? &picture : nullptr, epoch);
}

void DecodeThread::Work::publish(TimedPicture* picture, int epoch)
{
    const std::lock_guard lock(mutex_);
    damage = decoder_->damage();
    if (epoch != epoch_) return;
    if (picture) pictures_.push_back(std::move(*picture));
    else end_ = true;
    changed_.notify_all();
}

DecodeThread::Got DecodeThread::Work::next(TimedPicture& picture, std::chrono::milliseconds longest)
{
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, longest, [&] { return !pictures_.empty() || end_ || over_; });
    if (pictures_.empty() && failure_) std::rethrow_exception(failure_);
    if (pictures_.empty()) return end_ ? Got::end : Got::nothing_yet;
    picture = std::move(pictures_.front());
    pictures_.pop_front();
    changed_.notify_all();
    return Got::picture;
}

void DecodeThread::Work::jump(const Jump& where)
{
    const std::lock_guard lock(mutex_);
    jump_ = where;
    epoch_++;
    end_ = false;
    pictures_.clear();
    changed_.notify_all();
}

void DecodeThread::Work::stop()
{
    interrupt_.request();
    const std::lock_guard lock(mutex_);
    changed_.notify_all();
}

void DecodeThread::Work::turn_to_next_sound()
{
    const std::lock_guard lock(mutex_);
    next_sound_ = true;
    changed_.notify_all();
}

bool DecodeThread::Work::ended(std::chrono::milliseconds longest)
{
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, longest, [&] { return over_; });
}

} // namespace player
