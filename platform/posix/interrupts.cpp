#include "platform/interrupts.h"

#include <signal.h>

#include <atomic>

#include "platform/posix/stop_signals.h"
#include "platform/posix/temporary_names.h"

namespace korv {

namespace {

// A handler has no other way to reach an object.
std::atomic<Yielder*> stoppedByInterrupt{nullptr};
static_assert(std::atomic<Yielder*>::is_always_lock_free);
std::atomic<bool> stopSignalled{false};

/// What ends the program at once. When the reader has gone, nobody is left to report an error to.
constexpr int kEndSignals[] = {SIGQUIT, SIGPIPE};

extern "C" void OnEnd(int number) {
  RemoveTemporaries();
  // Delivered when the handler has returned, so that the program ends in the signal's own way.
  signal(number, SIG_DFL);
  raise(number);
}

extern "C" void OnStop(int number) {
  Yielder* const yielder = stoppedByInterrupt.load();
  if (yielder && !stopSignalled.exchange(true)) return yielder->RequestStop();
  OnEnd(number);
}

void Handle(int number, void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  // Without going on with a system call that waits: a program that reads from a terminal must notice.
  action.sa_flags = 0;
  sigemptyset(&action.sa_mask);
  sigaction(number, &action, nullptr);
}

bool IsHandledBy(int number, void (*handler)(int)) {
  struct sigaction now = {};
  return sigaction(number, nullptr, &now) == 0 && now.sa_handler == handler;
}

}  // namespace

bool StopWasSignalled() {
  return stopSignalled.load();
}

InterruptGuard::InterruptGuard(Yielder& yielder) {
  stopSignalled = false;
  stoppedByInterrupt = &yielder;
  for (const int number : kStopSignals) {
    // What was started to outlive its terminal shall do so.
    if (number != SIGHUP || !IsHandledBy(number, SIG_IGN)) Handle(number, OnStop);
  }
  for (const int number : kEndSignals) Handle(number, OnEnd);
  // A file that would become too large is an error of the write, like a full disk.
  Handle(SIGXFSZ, SIG_IGN);
}

InterruptGuard::~InterruptGuard() {
  for (const int number : kStopSignals)
    if (IsHandledBy(number, OnStop)) signal(number, SIG_DFL);
  for (const int number : kEndSignals)
    if (IsHandledBy(number, OnEnd)) signal(number, SIG_DFL);
  signal(SIGXFSZ, SIG_DFL);
  stoppedByInterrupt = nullptr;
  stopSignalled = false;
}

}  // namespace korv
