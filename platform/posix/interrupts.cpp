#include "platform/interrupts.h"

#include <signal.h>

#include <atomic>

namespace korv {

namespace {

// A handler has no other way to reach an object.
std::atomic<Yielder*> stoppedByInterrupt{nullptr};
static_assert(std::atomic<Yielder*>::is_always_lock_free);

/// A program that is asked to end, or whose terminal goes, has temporary files to remove as well.
constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

extern "C" void OnInterrupt(int number) {
  Yielder* const yielder = stoppedByInterrupt.load();
  if (!yielder) return;
  if (!yielder->Stopped()) return yielder->RequestStop();
  // Nobody has heeded the first one. This one is delivered when the handler has returned.
  signal(number, SIG_DFL);
  raise(number);
}

}  // namespace

InterruptGuard::InterruptGuard(Yielder& yielder) {
  stoppedByInterrupt = &yielder;
  struct sigaction action = {};
  action.sa_handler = OnInterrupt;
  // Without going on with a system call that waits: a program that reads from a terminal must notice.
  action.sa_flags = 0;
  sigemptyset(&action.sa_mask);
  for (const int number : kSignals) {
    struct sigaction before = {};
    // What was started to outlive its terminal shall do so.
    const bool ignored = sigaction(number, nullptr, &before) == 0 && before.sa_handler == SIG_IGN;
    if (number != SIGHUP || !ignored) sigaction(number, &action, nullptr);
  }
}

InterruptGuard::~InterruptGuard() {
  for (const int number : kSignals) {
    struct sigaction now = {};
    if (sigaction(number, nullptr, &now) == 0 && now.sa_handler == OnInterrupt) signal(number, SIG_DFL);
  }
  stoppedByInterrupt = nullptr;
}

}  // namespace korv
