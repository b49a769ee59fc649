#include <poll.h>

#include <cerrno>

#include "platform/posix/stop_signals.h"

namespace korv {

// A signal that comes between the look at the flag and the waiting would be missed, so such signals are let
// in only by the waiting itself.
bool WaitForInput(int file) {
  sigset_t stops;
  sigset_t before;
  sigemptyset(&stops);
  for (const int number : kStopSignals) sigaddset(&stops, number);
  pthread_sigmask(SIG_BLOCK, &stops, &before);
  pollfd waiting{file, POLLIN, 0};
  bool stopped = StopWasSignalled();
  while (!stopped && ::ppoll(&waiting, 1, nullptr, &before) < 0 && errno == EINTR)
    stopped = StopWasSignalled();
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return !stopped;
}

}  // namespace korv
