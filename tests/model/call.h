// SPDX-License-Identifier: MIT
// One call as the models see it: the memory behind its pointers, its numbers, and the record that it got.
#pragma once
#include "model/memory.h"
#include "model/samples.h"

namespace model {

struct Planes {
    Plane y, u, v, dst; // a packed picture and a single plane are read from `y`
};

// The record that a call got, and whether it was read.
class Record {
public:
    Record(const ajust_contrast_info* info) : info_(info) {}

    const ajust_contrast_info* operator->() const
    {
        read_ = true;
        return info_;
    }

    bool was_read() const { return read_; }

private:
    const ajust_contrast_info* info_;
    mutable bool read_ = false;
};

// A packed picture's `y_pitch` counts pixels; a band's is the pitch of its frame.
struct Call {
    int width, height, y_pitch, dst_pitch;
    Record info;
    State state;
    int plane = 0;            // 1, 2 or 3, of a single enlarged plane
    int start = 0, lines = 0; // of a band
    int field_mode = 0;       // of the frame that holds the band
};

} // namespace model
