// SPDX-License-Identifier: MIT
// The pictures of a source, one after the other, and an account of what was damaged.
#pragma once
#include "tools/source.h"
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>

namespace player {

struct Damage {
    int64_t lost_packets = 0;     // could not be read or decoded
    int64_t damaged_pictures = 0; // came out, with errors inside
    std::string missing_end;      // how much of the announced length was missing

    bool any() const { return lost_packets || damaged_pictures || !missing_end.empty(); }
    std::string text() const;
};

class Decoder {
public:
    Decoder(Source source, Interrupt& interrupt);

    // False at the end, and after an interrupt. `frame` gets a new reference.
    bool next(AVFrame& frame);
    void rewind();
    // To the first picture at or after `time`; false where the source cannot.
    bool seek(double time);

    // Packets of another stream go to `take`, as they come up in the file.
    void divert(int stream, std::function<void(AVPacket&)> take);
    // Reads one packet ahead of the pictures, for the sake of the other streams; false at the end of the file.
    bool read_ahead();
    std::size_t packets_ahead() const { return waiting_.size(); }
    const AVFormatContext& file() const { return *format_; }

    double time() const { return time_; }   // of the last picture, from the start, in seconds
    double start() const { return start_; } // what the file calls the time of its first picture
    double frame_seconds() const { return frame_seconds_; }
    std::optional<double> duration() const;
    AVRational sample_aspect(AVFrame& frame) const;
    bool seekable() const;
    std::string description() const; // codec and rate
    const AVStream& stream() const { return *stream_; }
    const Damage& damage() const { return damage_; }

private:
    void open_source();
    void select_streams();
    bool receive(AVFrame& frame);
    void feed();
    PacketPtr take_packet();
    void lose_packet();
    void account(const AVFrame& frame);
    void take_time(const AVFrame& frame);
    void notice_missing_end();

    Source source_;
    FormatPtr format_;
    CodecPtr codec_;
    Interrupt& interrupt_;
    std::deque<PacketPtr> waiting_; // of the pictures
    std::map<int, std::function<void(AVPacket&)>> takers_;
    int read_errors_ = 0; // in a row
    bool file_ended_ = false;
    AVStream* stream_ = nullptr;
    double time_ = 0, end_ = 0, start_ = 0, frame_seconds_ = 0;
    std::optional<double> skip_until_; // after a seek, which lands on a key picture before the target
    bool first_ = true, drained_ = false, whole_ = true;
    bool cut_ = false; // the packet that was given last is incomplete
    Damage damage_;
};

} // namespace player
