// SPDX-License-Identifier: MIT
// Instruction sets of the test's own, for the library's choice among them. The build puts this file before
// frame/entry.cpp and lists the sets as it lists the real ones: absent, best, middle, lowest.
#pragma once

namespace vsurf {
bool can_run_absent();
bool can_run_best();
bool can_run_middle();
bool can_run_lowest();
} // namespace vsurf
