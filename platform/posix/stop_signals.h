#pragma once

#include <signal.h>

namespace korv {

/// The signals that request a stop while an InterruptGuard lives.
inline constexpr int kStopSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// Whether one of them has come since the guard began to live; false without a guard.
bool StopWasSignalled();

/// Waits until there is something to read, or the end of it. False once a stop was signalled, whether that
/// comes before the waiting or during it.
bool WaitForInput(int file);

}  // namespace korv
