// SPDX-License-Identifier: MIT
#include "tools/progress.h"
#include <cstdio>
#include <unistd.h>

namespace player {

using namespace std::chrono_literals;

Progress::Progress(bool wanted) : shown_(wanted && isatty(STDERR_FILENO)) {}

Progress::~Progress()
{
    if (!shown_ || pictures_ == 0) return;
    print();
    std::fputc('\n', stderr);
}

void Progress::update(double position, std::optional<double> duration, int64_t pictures)
{
    position_ = position;
    duration_ = duration;
    pictures_ = pictures;
    const auto now = std::chrono::steady_clock::now();
    if (!shown_ || now - last_ < 200ms) return;
    last_ = now;
    print();
}

void Progress::print() const
{
    std::fprintf(stderr, "\r%8.2f", position_);
    if (duration_) std::fprintf(stderr, " / %.2f", *duration_);
    std::fprintf(stderr, " s, picture %lld  ", static_cast<long long>(pictures_));
    std::fflush(stderr);
}

} // namespace player
