// SPDX-License-Identifier: MIT
// Exports that write lines as a faulty writer of whole cache lines would: right, except for something at their ends.
#pragma once
#include "harness/exports.h"
#include "harness/job_exports.h"

#include <optional>

namespace selfcheck {

enum class Break {
    kNothing,
    kWrongByte,  // the first of a line
    kWrongHead,  // what comes before the first whole cache line
    kLostTail,   // what follows the last one is not stored
    kByteBehind, // one byte more, where the next line does not follow at once
    kUpperLost,  // where two lines share a cache line, the upper one's part is not stored
    kLowerLost,  // ... the lower one's
};

struct BrokenLine {
    Break how = Break::kNothing;
    size_t destination = 0;                        // which of a job's
    std::optional<int> phase = {}, remainder = {}; // only there: the destination's address and the width, modulo 64
};

extern BrokenLine broken_line;

// The model dressed as this export, which breaks a line as `broken_line` says. It keeps `real`: one of each kind at a
// time.
harness::Export breaking(const harness::Export& real);
harness::JobExport breaking(const harness::JobExport& real);

} // namespace selfcheck
