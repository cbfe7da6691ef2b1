// SPDX-License-Identifier: MIT
// A line on the terminal that follows the pictures.
#pragma once
#include <chrono>
#include <cstdint>
#include <optional>

namespace player {

class Progress {
public:
    // Silent where stderr is not a terminal.
    explicit Progress(bool wanted);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    bool shown() const { return shown_; }
    void update(double position, std::optional<double> duration, int64_t pictures);

private:
    void print() const;

    bool shown_;
    std::chrono::steady_clock::time_point last_{};
    double position_ = 0;
    std::optional<double> duration_;
    int64_t pictures_ = 0;
};

} // namespace player
