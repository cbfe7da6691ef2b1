// SPDX-License-Identifier: MIT
// The loudspeaker, and the clock that it is.
#pragma once
#include <SDL_audio.h>
#include <chrono>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

namespace player {

// Two channels, interleaved.
struct SoundChunk {
    double time; // of its first sample, as the file counts
    double speed;
    std::vector<float> samples;

    std::size_t frames() const { return samples.size() / 2; }
};

// Time goes on while it plays, with or without something to be heard: chunks that are late are cut, and gaps are
// silent.
class Sound {
public:
    static constexpr int kMaxVolume = 100;

    static std::shared_ptr<Sound> open(); // null where there is no device
    ~Sound();
    Sound(const Sound&) = delete;
    Sound& operator=(const Sound&) = delete;

    int rate() const { return rate_; }
    void put(SoundChunk chunk);
    void clear();
    double buffered() const; // seconds

    void play(double time);
    void pause();
    double position() const; // what is heard now
    void set_speed(double speed);
    void set_gain(float gain);

private:
    Sound() = default;
    static void fill(void* self, Uint8* bytes, int size);
    void fill(float* out, std::size_t frames);
    std::size_t silent_before(const SoundChunk& chunk, std::size_t frames) const;
    void skip_late(const SoundChunk& chunk);

    SDL_AudioDeviceID device_ = 0;
    int rate_ = 0;
    double latency_ = 0; // of what was handed over, in seconds

    mutable std::mutex mutex_; // of all that follows
    std::deque<SoundChunk> chunks_;
    std::size_t used_ = 0; // frames of the first chunk
    bool playing_ = false;
    float gain_ = 1;
    double speed_ = 1;
    double position_ = 0;  // of the next sample
    double filled_to_ = 0; // where it was when the device asked last
    std::chrono::steady_clock::time_point filled_at_;
};

} // namespace player
