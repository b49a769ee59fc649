#include "platform/interrupts.h"

#include <signal.h>

#include <atomic>

namespace korv {

namespace {

// A handler has no other way to reach an object.
std::atomic<Yielder*> stoppedByInterrupt{nullptr};
static_assert(std::atomic<Yielder*>::is_always_lock_free);

extern "C" void OnInterrupt(int) {
  if (Yielder* const yielder = stoppedByInterrupt.load()) yielder->RequestStop();
}

}  // namespace

InterruptGuard::InterruptGuard(Yielder& yielder) {
  stoppedByInterrupt = &yielder;
  struct sigaction action = {};
  action.sa_handler = OnInterrupt;
  // Once only, and without going on with a system call that waits: a program that reads from a terminal
  // must notice.
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, nullptr);
}

InterruptGuard::~InterruptGuard() {
  signal(SIGINT, SIG_DFL);
  stoppedByInterrupt = nullptr;
}

}  // namespace korv
