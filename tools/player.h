// SPDX-License-Identifier: MIT
// Plays a source: decodes, paces, renders, shows and dumps, and obeys the keys.
#pragma once
#include "tools/decoder.h"
#include "tools/options.h"
#include "tools/pace.h"
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

private:
    enum class Next { show, quit, read_again };

    void open_subtitles();
    bool read();
    Next wait_for(double time);
    Next obey(Command command);
    void turn(Command command);
    void toggle(Scaling scaling);
    bool seek(double by);
    void take_picture();
    void render();
    void show();
    void hold_last();
    void finish() const;
    std::string title() const;

    const Options& options_;
    const StopSignals& stop_;
    Decoder decoder_;
    Stats stats_;
    Renderer renderer_;
    std::unique_ptr<Subtitles> subtitles_;
    Pace pace_;
    std::optional<PngWriter> dump_;
    std::optional<Window> window_;
    Progress progress_;

    FramePtr coming_, shown_; // the decoder's next picture, and the one that is seen
    double shown_time_ = 0;
    int64_t pictures_ = 0, pictures_at_start_ = 0;
    View view_;
    bool paused_ = false, step_ = false, keys_in_title_ = false;
};

} // namespace player
