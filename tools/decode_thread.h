// SPDX-License-Identifier: MIT
// A source, decoded a few pictures ahead in a thread of its own: whatever its input does, the caller never waits for
// it.
#pragma once
#include "tools/decoder.h"
#include "tools/sound.h"
#include "tools/subtitles.h"
#include <memory>
#include <thread>

namespace player {

struct SubtitleChoice {
    bool wanted = false;
    std::string file; // empty: the clip itself
    int track = 0;    // from 1; 0: the file's default
};

struct SoundChoice {
    bool wanted = false;
    int track = 0; // from 1; 0: FFmpeg's choice
};

struct TimedPicture {
    FramePtr frame;
    double time = 0;      // from the start, in seconds
    double file_time = 0; // as the file counts
    AVRational sample_aspect{1, 1};
};

class DecodeThread {
public:
    // What is known of a source when it is open.
    struct About {
        std::string stream; // "h264, 25.00 pictures per second"
        std::optional<double> duration;
        double frame_seconds = 0;
        bool seekable = false;
        std::shared_ptr<Subtitles> subtitles; // null where none are wanted
        bool own_subtitles = false;           // of the source itself, counted as it counts
        std::shared_ptr<Sound> sound;         // null where there is none to be heard
        int sound_tracks = 0;
    };
    enum class Got { picture, nothing_yet, end };

    DecodeThread(const Source& source, const SubtitleChoice& subtitles, const SoundChoice& sound);
    // A thread that cannot be interrupted is left to itself after a moment.
    ~DecodeThread();
    DecodeThread(const DecodeThread&) = delete;
    DecodeThread& operator=(const DecodeThread&) = delete;

    // Waits for a picture no longer than that. Throws what ended the thread.
    Got next(TimedPicture& picture, std::chrono::milliseconds longest);
    // Valid from the first picture, or the end, on.
    About about() const;
    // To the first picture at or after `time`. The pictures from before are gone.
    void seek(double time);
    void rewind();
    // The sound of what is decoded from now on.
    void set_speed(double speed);
    void next_sound_track();
    int sound_track() const; // from 1
    bool seek_failed();      // since the last question
    // Whether the input, and not the decoder, keeps the caller waiting.
    bool stalled() const;
    Damage damage() const;

private:
    class Work;
    std::shared_ptr<Work> work_;
    std::thread thread_;
};

} // namespace player
