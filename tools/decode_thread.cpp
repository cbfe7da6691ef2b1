// SPDX-License-Identifier: MIT
#include "tools/decode_thread.h"
#include "tools/decode_work.h"
#include <SDL.h>
#include <csignal>

namespace player {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 100ms; // with a thread that is to end
constexpr int kWakeSignal = SIGUSR1;

// Without SA_RESTART: a system call that waits ends with EINTR, and FFmpeg looks at its interrupt callback.
void let_signal_wake()
{
    struct sigaction action {};
    action.sa_handler = [](int) {};
    sigaction(kWakeSignal, &action, nullptr);
}

} // namespace

DecodeThread::DecodeThread(const Source& source, const SubtitleChoice& subtitles, const SoundChoice& sound)
    : work_(std::make_shared<Work>(source, subtitles, sound))
{
    let_signal_wake();
    thread_ = std::thread([work = work_] {
        work->run();
        SDL_TLSCleanup(); // what SDL keeps for threads that it did not start
    });
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
