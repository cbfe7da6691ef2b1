// SPDX-License-Identifier: MIT
// Which jobs are refused, and why.
#pragma once
#include "show/vsurf_show.h"

namespace model {

// The first mistake of a job, but for overlapping memory.
vsurf_status mistake(const vsurf_job* job);

// Of a job without a mistake: whether a plane of the surface, from its first to its last byte, shares memory with a
// plane of the picture, with an overlay or with another plane of the surface. Without, no call may be refused because
// of that.
bool may_overlap(const vsurf_job& job);

} // namespace model
