// SPDX-License-Identifier: MIT
// What a conversion reads: a drawing on the key colour.
#pragma once
#include "harness/job_case.h"

namespace harness {

// Lines that are all key, all except one pixel, in runs, or nowhere.
void draw(model::Plane& surface, const JobCase& c);

} // namespace harness
