#include "platform/interrupts.h"

#include <windows.h>

#include <atomic>

namespace korv {

namespace {

// A handler has no other way to reach an object.
std::atomic<Yielder*> stoppedByInterrupt{nullptr};

BOOL WINAPI OnInterrupt(DWORD event) {
  if (event != CTRL_C_EVENT) return FALSE;
  Yielder* const yielder = stoppedByInterrupt;
  // Where nobody has heeded the first one, the second ends the program.
  if (!yielder || yielder->Stopped()) return FALSE;
  yielder->RequestStop();
  return TRUE;
}

}  // namespace

InterruptGuard::InterruptGuard(Yielder& yielder) {
  stoppedByInterrupt = &yielder;
  SetConsoleCtrlHandler(OnInterrupt, TRUE);
}

InterruptGuard::~InterruptGuard() {
  SetConsoleCtrlHandler(OnInterrupt, FALSE);
  stoppedByInterrupt = nullptr;
}

}  // namespace korv
