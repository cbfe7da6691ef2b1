// SPDX-License-Identifier: MIT
// What the decoding thread does.
#pragma once
#include "tools/audio_decoder.h"
#include "tools/decode_thread.h"
#include "tools/upright.h"
#include <atomic>
#include <condition_variable>
#include <exception>
#include <utility>

namespace player {

struct Jump {
    double time;
    bool rewind;
};

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
    static constexpr auto kStalled = std::chrono::milliseconds(300);

    void open();
    std::shared_ptr<Subtitles> open_subtitles();
    std::shared_ptr<Subtitles> subtitles_of_the_same_name();
    void open_sound();
    void listen_to(int stream);
    void decode();
    bool has_work() const;
    bool has_room() const;
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

} // namespace player
