// SPDX-License-Identifier: MIT
#include "tools/decode_thread.h"
#include "tools/audio_decoder.h"
#include "tools/error.h"
#include "tools/upright.h"
#include <algorithm>
#include <condition_variable>
#include <csignal>
#include <exception>
#include <utility>

namespace player {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kPicturesAhead = 4;
constexpr double kSoundAhead = 0.5; // seconds
constexpr std::size_t kPacketsAhead = 2000;
constexpr auto kSoundLook = 20ms; // how often the thread looks whether there is enough of it
constexpr auto kStalled = 300ms;
constexpr auto kPatience = 100ms; // with a thread that is to end
constexpr int kWakeSignal = SIGUSR1;

// Without SA_RESTART: a system call that waits ends with EINTR, and FFmpeg looks at its interrupt callback.
void let_signal_wake()
{
    struct sigaction action {};
    action.sa_handler = [](int) {};
    sigaction(kWakeSignal, &action, nullptr);
}

struct Jump {
    double time;
    bool rewind;
};

} // namespace

// Owned by the thread, too, which may outlive the player for as long as a system call takes.
class DecodeThread::Work {
public:
    Work(Source source, SubtitleChoice choice, SoundChoice sound)
        : source_(std::move(source)), choice_(std::move(choice)), sound_choice_(sound)
    {
    }

    void run() noexcept;
    Got next(TimedPicture& picture, std::chrono::milliseconds longest);
    void jump(const Jump& where);
    void turn_to_next_sound();
    void stop();
    bool ended(std::chrono::milliseconds longest);

    template <class T> T look(T Work::*member) const
    {
        const std::lock_guard lock(mutex_);
        return this->*member;
    }
    bool stalled() const { return interrupt_.waiting() > kStalled; }
    bool take_seek_failure()
    {
        const std::lock_guard lock(mutex_);
        return std::exchange(seek_failed_, false);
    }

    About about;
    Damage damage;
    int sound_track = 0;
    std::atomic<double> speed = 1;

private:
    void open();
    std::shared_ptr<Subtitles> open_subtitles();
    void open_sound();
    void listen_to(int stream);
    void decode();
    bool has_work() const;
    void obey();
    void read_sound_ahead();
    void decode_picture(int epoch);
    void publish(TimedPicture* picture, int epoch);

    const Source source_;
    const SubtitleChoice choice_;
    const SoundChoice sound_choice_;
    std::vector<int> sound_streams_;
    std::shared_ptr<Sound> sound_;
    std::unique_ptr<AudioDecoder> audio_;
    int listened_ = -1; // stream
    Interrupt interrupt_;
    std::optional<Decoder> decoder_;
    Upright upright_;

    mutable std::mutex mutex_; // of all that follows, and of what is public
    std::condition_variable changed_;
    std::deque<TimedPicture> pictures_;
    std::optional<Jump> jump_;
    bool next_sound_ = false;
    int epoch_ = 0; // counts the jumps: what was decoded before the last one is of no use
    bool end_ = false, over_ = false, seek_failed_ = false;
    std::exception_ptr failure_;
};

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
    about = {decoder_->description(),
             decoder_->duration(),
             decoder_->frame_seconds(),
             decoder_->seekable(),
             std::move(subtitles),
             sound_,
             static_cast<int>(sound_streams_.size())};
}

std::shared_ptr<Subtitles> DecodeThread::Work::open_subtitles()
{
    if (!choice_.wanted) return nullptr;
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
    const bool room = !end_ && epoch == epoch_ && pictures_.size() < kPicturesAhead;
    lock.unlock();
    if (room && !interrupt_.requested()) decode_picture(epoch);
}

bool DecodeThread::Work::has_work() const
{
    return interrupt_.requested() || jump_ || next_sound_ || (!end_ && pictures_.size() < kPicturesAhead);
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

DecodeThread::DecodeThread(const Source& source, const SubtitleChoice& subtitles, const SoundChoice& sound)
    : work_(std::make_shared<Work>(source, subtitles, sound))
{
    let_signal_wake();
    thread_ = std::thread([work = work_] { work->run(); });
}

// The signal is repeated: it may come just before the system call that it is to end.
DecodeThread::~DecodeThread()
{
    work_->stop();
    const auto end = Interrupt::Clock::now() + kPatience;
    while (!work_->ended(5ms) && Interrupt::Clock::now() < end) pthread_kill(thread_.native_handle(), kWakeSignal);
    if (work_->ended(0ms)) thread_.join();
    else thread_.detach();
}

DecodeThread::Got DecodeThread::next(TimedPicture& picture, std::chrono::milliseconds longest)
{
    return work_->next(picture, longest);
}

DecodeThread::About DecodeThread::about() const { return work_->look(&Work::about); }
void DecodeThread::seek(double time) { work_->jump({time, false}); }
void DecodeThread::rewind() { work_->jump({0, true}); }
void DecodeThread::set_speed(double speed) { work_->speed = speed; }
void DecodeThread::next_sound_track() { work_->turn_to_next_sound(); }
int DecodeThread::sound_track() const { return work_->look(&Work::sound_track); }
bool DecodeThread::seek_failed() { return work_->take_seek_failure(); }
bool DecodeThread::stalled() const { return work_->stalled(); }
Damage DecodeThread::damage() const { return work_->look(&Work::damage); }

} // namespace player
