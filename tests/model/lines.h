// SPDX-License-Identifier: MIT
// Whole lines of samples, and how the enlarged loaders combine them.
#pragma once
#include "model/memory.h"
#include "model/samples.h"

#include <functional>
#include <vector>

namespace model {

using Line = std::vector<uint8_t>;
using Lines = std::vector<Line>;
using Treat = std::function<uint8_t(uint8_t)>; // how a sample is changed

// `count` samples, `step` bytes apart, from `at` on.
Line take(Plane& plane, int64_t at, int count, int step = 1);

Line treated(Line line, const Treat& treat);

Line average(const Line& a, const Line& b);

// Every sample followed by its average with its right neighbour, the last one's being itself. Samples are treated
// before; one that is the neighbour of a block's last sample is treated as `ahead` in that place.
Line doubled(const Line& line, const Treat& treat, const Treat& ahead, size_t block);

// The new line between line s and the next: their average. The last line has no next one and takes its place.
Line between(const Lines& lines, size_t s);

// The same with a filter of four lines from line `first` on, as far as there are four.
Line between_filtered(const Lines& lines, size_t s, size_t first);

} // namespace model
