// SPDX-License-Identifier: MIT
// The model dressed as vsurf_show, with one thing wrong.
#pragma once
#include "harness/show_case.h"
#include "harness/variants.h"

namespace selfcheck {

enum class ShowSpoil {
    kNothing,
    kWrongHead,     // the first byte of a line
    kLostTail,      // the last four bytes of a line are not stored
    kLostLine,      // a whole line
    kByteBefore,    // one byte more, to the left of the first line
    kByteBehind,    // ... to the right of the last line
    kByteInPadding, // ... to the right of the first line
    kReadsTooEarly, // a byte before the picture's first
    kReadsTooFar,   // a byte behind its last
    kReadsOverlay,  // a byte before the overlay's first
    kReadsNoPlane,  // of a plane that the format has not
    kChangesSource,
    kChangesJob,
    kRefuses,
};

extern ShowSpoil show_spoil;

std::vector<harness::Variant> fake_show();

} // namespace selfcheck
