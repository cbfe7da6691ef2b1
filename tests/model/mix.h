// SPDX-License-Identifier: MIT
// What the mixers onto YUY2 and RGB share: where they stand, the sixteen pixels of a block, and the mixture's samples.
#pragma once
#include "model/job.h"
#include "model/pixels.h"

#include <array>
#include <functional>

namespace model {

struct MixPicture {
    Pointer y, u, v;

    explicit MixPicture(JobPlanes& planes) : y(planes.picture_y), u(planes.picture_u), v(planes.picture_v) {}
    void advance(int32_t luma, int32_t chroma);
};

struct MixSubpicture {
    Pointer alpha, y, u, v;

    explicit MixSubpicture(JobPlanes& planes) : alpha(planes.alpha), y(planes.y), u(planes.u), v(planes.v) {}
    void advance(int32_t luma, int32_t chroma);
};

// One line of a plane or, in between the lines of a field, the average of two.
class PlaneLine {
public:
    PlaneLine(const Pointer& line) : line_(line), next_(line) {}
    PlaneLine(const Pointer& line, int32_t step) : line_(line), next_(line.plus(step)) {}

    uint8_t operator[](int i) const { return average(line_[i], next_[i]); }

private:
    Pointer line_, next_;
};

struct PictureLine {
    PlaneLine y, u, v;
};

// Line 0, 1, 2 or 3 of four that are made from two luma lines and one chroma line of a field. The luma pointer stands
// at the second of its lines from line 2 on. The last four of a field do not look at what follows below.
PictureLine field_line(const MixPicture& at, int line, bool last, int32_t luma_step, int32_t chroma_step);

// Sixteen pixels of a line, as they are read.
struct MixBlock {
    std::array<uint8_t, 16> picture_y, alpha, y;
    std::array<uint8_t, 8> picture_u, picture_v, u, v;
};

MixBlock read_block(const PictureLine& picture, const MixSubpicture& subpicture);

// Samples blended, then adjusted.
uint8_t mixed_luma(const MixBlock& block, size_t i, const State& state);
uint8_t mixed_u(const MixBlock& block, size_t k, uint8_t alpha, const State& state);
uint8_t mixed_v(const MixBlock& block, size_t k, uint8_t alpha, const State& state);

// Where a field's mixer stands.
struct MixField {
    MixPicture picture;
    MixSubpicture subpicture;
    Pointer surface;

    explicit MixField(JobPlanes& planes) : picture(planes), subpicture(planes), surface(planes.surface) {}
};

// Tells the job how far the record's pointers have come.
void leave_pointers(Job& job, const MixPicture& picture, const MixSubpicture& subpicture);

using StoreBlock = std::function<void(const Pointer& surface, const MixBlock& block)>;

// How a progressive mixer walks: what a pixel of the picture takes at the surface, how far below the picture's lower
// luma line lies, and by how much its chroma moves on from one pair of lines to the next.
struct Progression {
    int pixel_bytes;
    int32_t lower_luma, chroma_step;
};

void mix_progressive(JobPlanes& planes, Job& job, const Progression& progression, const StoreBlock& store);

inline int32_t even_below(int32_t pitch) { return wrap(int64_t{2} * shift_arithmetic(pitch, 1)); }

} // namespace model
