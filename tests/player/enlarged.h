// SPDX-License-Identifier: MIT
// What enlarged and halved pictures look like, sample by sample: written from what they should be, not from how they
// are made.
#pragma once
#include "tests/player/clip.h"

namespace player_test {

// Every second sample of a line is the average of its neighbours; the last one repeats.
Yuv widened(const Yuv& from);

// 4:2:0 to 4:2:2 of twice the height: new lines are averages of those above and below.
Yuv lines_doubled(const Yuv& from);
// New lines come from four lines around them, weighted -1, 5, 5, -1, away from the borders of the padded picture.
Yuv lines_filtered(const Yuv& from);
// 4:2:2 to 4:2:2.
Yuv packed_lines_doubled(const Yuv& from);
// 4:2:0 to 4:2:0, every plane moved down by one of its lines.
Yuv planes_doubled(const Yuv& from);

// 4:2:2 to 4:2:0, every second line of chroma, and back, every line twice.
Yuv chroma_of_upper_lines(const Yuv& from);
Yuv chroma_for_every_line(const Yuv& from);

// 4:2:0 to 4:2:2 of the same size: lines 0, 2, 4, ... of each plane, those between them mixed, along edges or not.
Yuv field_doubled(const Yuv& from, bool along_edges = true);
// 4:2:0 to 4:2:0 of the same size: in each plane, its lines 0, 2, 4, ... and averages of them.
Yuv planes_of_field_doubled(const Yuv& from);

// Averages of two neighbours, or the second of them.
Yuv half_width(const Yuv& from, bool averaged);

} // namespace player_test
