// SPDX-License-Identifier: MIT
#include "tools/sound.h"
#include <SDL.h>
#include <algorithm>

namespace player {
namespace {

constexpr int kRate = 48000, kFramesAtOnce = 1024;
constexpr double kInTime = 0.01; // seconds; a chunk that is so near is taken as it is

} // namespace

std::shared_ptr<Sound> Sound::open()
{
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return nullptr;
    std::shared_ptr<Sound> sound(new Sound);
    // ALSA would complain of it on stderr.
    if (SDL_GetNumAudioDevices(0) == 0) return nullptr;
    SDL_AudioSpec wanted{}, got{};
    wanted.freq = kRate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = kFramesAtOnce;
    wanted.callback = fill;
    wanted.userdata = sound.get();
    sound->device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, &got, SDL_AUDIO_ALLOW_FREQUENCY_CHANGE);
    if (sound->device_ == 0) return nullptr;
    sound->rate_ = got.freq;
    sound->latency_ = static_cast<double>(got.samples) / got.freq;
    SDL_PauseAudioDevice(sound->device_, 0);
    return sound;
}

Sound::~Sound()
{
    if (device_) SDL_CloseAudioDevice(device_);
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
}

void Sound::put(SoundChunk chunk)
{
    const std::lock_guard lock(mutex_);
    if (!chunk.samples.empty()) chunks_.push_back(std::move(chunk));
}

void Sound::clear()
{
    const std::lock_guard lock(mutex_);
    chunks_.clear();
    used_ = 0;
}

double Sound::buffered() const
{
    const std::lock_guard lock(mutex_);
    std::size_t frames = 0;
    for (const SoundChunk& each : chunks_) frames += each.frames();
    return static_cast<double>(frames - used_) / rate_;
}

void Sound::play(double time)
{
    const std::lock_guard lock(mutex_);
    playing_ = true;
    position_ = filled_to_ = time + latency_ * speed_;
    filled_at_ = std::chrono::steady_clock::now();
}

void Sound::pause()
{
    const std::lock_guard lock(mutex_);
    playing_ = false;
}

double Sound::position() const
{
    const std::lock_guard lock(mutex_);
    const double since = std::chrono::duration<double>(std::chrono::steady_clock::now() - filled_at_).count();
    return filled_to_ + (std::min(since, 2 * latency_) - latency_) * speed_;
}

void Sound::set_speed(double speed)
{
    const std::lock_guard lock(mutex_);
    speed_ = speed;
}

void Sound::set_gain(float gain)
{
    const std::lock_guard lock(mutex_);
    gain_ = gain;
}

void Sound::fill(void* self, Uint8* bytes, int size)
{
    static_cast<Sound*>(self)->fill(reinterpret_cast<float*>(bytes),
                                    static_cast<std::size_t>(size) / (2 * sizeof(float)));
}

void Sound::fill(float* out, std::size_t frames)
{
    const std::lock_guard lock(mutex_);
    std::fill_n(out, 2 * frames, 0.0F);
    if (!playing_) return;
    filled_to_ = position_;
    filled_at_ = std::chrono::steady_clock::now();
    while (frames > 0) {
        if (!chunks_.empty()) skip_late(chunks_.front());
        if (!chunks_.empty() && used_ == chunks_.front().frames()) {
            chunks_.pop_front();
            used_ = 0;
            continue;
        }
        const std::size_t silent = chunks_.empty() ? frames : silent_before(chunks_.front(), frames);
        std::size_t count = silent;
        if (silent == 0) {
            const SoundChunk& chunk = chunks_.front();
            count = std::min(frames, chunk.frames() - used_);
            std::transform(chunk.samples.begin() + static_cast<std::ptrdiff_t>(2 * used_),
                           chunk.samples.begin() + static_cast<std::ptrdiff_t>(2 * (used_ + count)), out,
                           [this](float sample) { return sample * gain_; });
            used_ += count;
        }
        const double speed = silent ? speed_ : chunks_.front().speed;
        position_ += static_cast<double>(count) * speed / rate_;
        out += 2 * count;
        frames -= count;
    }
}

// How many frames of silence the chunk is away.
std::size_t Sound::silent_before(const SoundChunk& chunk, std::size_t frames) const
{
    const double away = chunk.time + static_cast<double>(used_) * chunk.speed / rate_ - position_;
    if (away <= kInTime) return 0;
    return static_cast<std::size_t>(std::clamp(away / speed_ * rate_, 1.0, static_cast<double>(frames)));
}

void Sound::skip_late(const SoundChunk& chunk)
{
    const double late = position_ - chunk.time - static_cast<double>(used_) * chunk.speed / rate_;
    if (late <= kInTime) return;
    const auto frames = static_cast<std::size_t>(late / chunk.speed * rate_);
    used_ = std::min(chunk.frames(), used_ + frames);
}

} // namespace player
