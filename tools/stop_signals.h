// SPDX-License-Identifier: MIT
// Interrupt and termination, noticed between pictures, so that everything is put away before the process ends.
#pragma once
#include <csignal>

namespace player {

class StopSignals {
public:
    StopSignals();  // before any thread starts: they inherit the mask
    ~StopSignals(); // a signal that came in the meantime is delivered now, and ends the process in the usual way
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    bool pending() const;

private:
    sigset_t signals_, before_;
};

} // namespace player
