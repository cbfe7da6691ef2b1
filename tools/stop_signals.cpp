// SPDX-License-Identifier: MIT
#include "tools/stop_signals.h"
#include <initializer_list>

namespace player {

StopSignals::StopSignals()
{
    sigemptyset(&signals_);
    for (int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals_, signal);
    pthread_sigmask(SIG_BLOCK, &signals_, &before_);
}

StopSignals::~StopSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

bool StopSignals::pending() const
{
    sigset_t waiting;
    sigpending(&waiting);
    for (int signal : {SIGINT, SIGTERM, SIGHUP})
        if (sigismember(&waiting, signal) == 1) return true;
    return false;
}

} // namespace player
