// SPDX-License-Identifier: MIT
// A way out of FFmpeg's blocking calls, and the word of how long they have been waiting.
#pragma once
#include "tools/ffmpeg.h"
#include <atomic>
#include <chrono>

namespace player {

class Interrupt {
public:
    using Clock = std::chrono::steady_clock;

    AVIOInterruptCB callback()
    {
        return {[](void* self) { return static_cast<int>(static_cast<Interrupt*>(self)->requested()); }, this};
    }
    void request() { requested_ = true; }
    bool requested() const { return requested_; }

    // Around every call that reads.
    template <class Read> auto reading(Read&& read)
    {
        since_ = Clock::now().time_since_epoch().count();
        const auto result = read();
        since_ = 0;
        return result;
    }
    // How long the call that reads at the moment has been waiting.
    Clock::duration waiting() const
    {
        const Clock::rep since = since_;
        return since ? Clock::now().time_since_epoch() - Clock::duration(since) : Clock::duration::zero();
    }

private:
    std::atomic<bool> requested_ = false;
    std::atomic<Clock::rep> since_ = 0;
};

} // namespace player
