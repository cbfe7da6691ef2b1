// SPDX-License-Identifier: MIT
// How much of the case space a run covers: VSURF_TEST_EFFORT=quick is for emulated machines.
#pragma once

namespace harness {

bool quick();

// `full` normally, `reduced` under VSURF_TEST_EFFORT=quick.
template <class T> T by_effort(T full, T reduced) { return quick() ? reduced : full; }

} // namespace harness
