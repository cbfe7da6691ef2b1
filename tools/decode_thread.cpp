// SPDX-License-Identifier: MIT
#include "tools/decode_thread.h"
#include "tools/upright.h"
#include <condition_variable>
#include <csignal>
#include <exception>
#include <utility>

namespace player {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kPicturesAhead = 4;
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
    Work(Source source, SubtitleChoice choice) : source_(std::move(source)), choice_(std::move(choice)) {}

    void run() noexcept;
    Got next(TimedPicture& picture, std::chrono::milliseconds longest);
    void jump(const Jump& where);
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

private:
    void open();
    std::shared_ptr<Subtitles> open_subtitles();
    void decode();
    void publish(TimedPicture* picture, int epoch);

    const Source source_;
    const SubtitleChoice choice_;
    Interrupt interrupt_;
    std::optional<Decoder> decoder_;
    Upright upright_;

    mutable std::mutex mutex_; // of all that follows, and of what is public
    std::condition_variable changed_;
    std::deque<TimedPicture> pictures_;
    std::optional<Jump> jump_;
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
    const std::lock_guard lock(mutex_);
    about = {decoder_->duration(), decoder_->frame_seconds(), decoder_->seekable(), std::move(subtitles)};
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

void DecodeThread::Work::decode()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock,
                  [&] { return interrupt_.requested() || jump_ || (!end_ && pictures_.size() < kPicturesAhead); });
    const int epoch = epoch_;
    const auto jump = std::exchange(jump_, std::nullopt);
    lock.unlock();
    if (jump && jump->rewind) decoder_->rewind();
    else if (jump && !decoder_->seek(jump->time)) {
        lock.lock();
        seek_failed_ = true;
        lock.unlock();
    }
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

bool DecodeThread::Work::ended(std::chrono::milliseconds longest)
{
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, longest, [&] { return over_; });
}

DecodeThread::DecodeThread(const Source& source, const SubtitleChoice& subtitles)
    : work_(std::make_shared<Work>(source, subtitles))
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
bool DecodeThread::seek_failed() { return work_->take_seek_failure(); }
bool DecodeThread::stalled() const { return work_->stalled(); }
Damage DecodeThread::damage() const { return work_->look(&Work::damage); }

} // namespace player
