// What enlarged pictures look like, sample by sample: written from what they should be, not from how they are made.
#pragma once
#include "tests/player/clip.h"

namespace player_test {

// Every second sample of a line is the average of its neighbours; the last one repeats.
Yuv widened(const Yuv& picture);

// 4:2:0 to 4:2:2 of twice the height: new lines are averages of those above and below.
Yuv lines_doubled(const Yuv& picture);
// New lines come from four lines around them, weighted -1, 5, 5, -1, away from the borders of the padded picture.
Yuv lines_filtered(const Yuv& picture);
// 4:2:2 to 4:2:2.
Yuv packed_lines_doubled(const Yuv& picture);
// 4:2:0 to 4:2:0, every plane moved down by one of its lines.
Yuv planes_doubled(const Yuv& picture);

// 4:2:2 to 4:2:0, every second line of chroma, and back, every line twice.
Yuv chroma_of_upper_lines(const Yuv& picture);
Yuv chroma_for_every_line(const Yuv& picture);

// 4:2:0 to 4:2:2 of the same size: lines 0, 2, 4, ... of each plane, those between them mixed along edges.
Yuv field_doubled(const Yuv& picture);

} // namespace player_test
