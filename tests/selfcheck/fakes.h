// SPDX-License-Identifier: MIT
// The models dressed as a table of exports, and ways to spoil what they do.
#pragma once
#include "frame/dispatch.h"
#include "model/memory.h"

namespace selfcheck {

extern ajust_contrast_info known_adjustment; // the fakes cannot read the library's state

extern const vsurf::Kernels fakes;

// A plane that the model may touch anywhere.
model::Plane unlimited(void* origin);

enum class Spoil {
    kNothing,
    kWrongByte,
    kUnwrittenByte,
    kByteTooMany,
    kByteTooFew,
    kReadsTooFar,
    kReadsTooEarly,
    kChangesSource,
    kChangesRecord,
    kReadsIgnoredRecord,
    kReadsIgnoredPlane,
    kChangesFrame,
    kReadsBeyondFrame,
};

extern Spoil spoil; // of the exports that take pointers to planes

enum class JobSpoil {
    kNothing,
    // One of the planes.
    kWrongByte,
    kByteTooMany,
    kByteTooFew,
    kReadsTooFar,
    kReadsTooEarly,
    kReadsUnused,
    // The record: one of the pointers to planes, one of the numbers.
    kMovesPointer,
    kLeavesPointer,
    kChangesNumber,
    kChangesKey,
    kChangesInfoPointer,
    kChangesInfo,
    kReadsUnusedInfo,
};

struct SpoiltJob {
    JobSpoil how = JobSpoil::kNothing;
    size_t which = 0; // plane or number
};

extern SpoiltJob spoilt_job; // of the exports for subpictures and colour keys

} // namespace selfcheck
