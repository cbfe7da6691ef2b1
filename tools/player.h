// SPDX-License-Identifier: MIT
// Plays a source: paces, renders, shows and dumps its pictures, and obeys the viewer.
#pragma once
#include "tools/clock.h"
#include "tools/decode_thread.h"
#include "tools/options.h"
#include "tools/png_writer.h"
#include "tools/progress.h"
#include "tools/renderer.h"
#include "tools/stop_signals.h"
#include "tools/window.h"

namespace player {

class Player {
public:
    Player(const Options& options, const StopSignals& stop);

    // Returns when the source is over or the viewer quits. Throws Error when something of it could not be played.
    void run();
    // What the viewer asked for at the end.
    bool quit() const { return quit_; }
    const std::string& dropped_file() const { return next_file_; }

private:
    bool over() const;
    void fetch();
    void keep_within_limits();
    void wait_for_viewer();
    void obey(Command command);
    void advance();
    void advance_to_coming();
    void end();
    void start_clock(const TimedPicture& picture);
    bool late() const;

    void turn(Command command);
    void pause(bool wanted);
    void seek(double time);
    void jumped();
    void set_speed(double speed);
    void set_volume(int volume, bool mute);
    void turn_to_next_sound();
    void delay_subtitles(double by);
    void take_picture();
    void take_back(const View& before, const std::exception& error);
    void show_or_shrink();
    void render();
    void show();
    void finish() const;
    std::string title() const;
    OsdContent osd() const;
    std::vector<std::string> state() const;
    std::vector<std::string> info() const;
    std::string picture_text() const;

    const Options& options_;
    const StopSignals& stop_;
    Stats stats_;
    Renderer renderer_;
    DecodeThread input_;
    DecodeThread::About about_;
    Clock clock_;
    std::optional<PngWriter> dump_;
    std::optional<Window> window_;
    Progress progress_;

    std::optional<TimedPicture> coming_; // the decoder's next picture
    TimedPicture shown_;                 // the one that is seen
    Clock::Wall::time_point shown_since_;
    int64_t pictures_ = 0, pictures_at_start_ = 0, dropped_ = 0;
    View view_;
    std::string refused_;   // in words
    std::string next_file_; // dropped onto the window, to be played next
    int volume_ = Sound::kMaxVolume;
    bool mute_ = false;
    double subtitle_delay_ = 0; // seconds
    Clock::Wall::time_point state_until_{};
    bool started_ = false; // at the wanted time
    bool known_ = false, ended_ = false, still_ = false, quit_ = false, finished_ = false;
    bool paused_ = false, show_next_ = false, keys_shown_ = false, info_shown_ = false;
};

} // namespace player
