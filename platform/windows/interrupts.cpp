#include "platform/interrupts.h"

#include <mutex>

#include "platform/windows/console.h"
#include "platform/windows/console_events.h"
#include "platform/windows/waiting_read.h"

namespace korv {

namespace {

// A handler has no other way to reach an object.
std::mutex yielderMutex;
Yielder* stoppedByInterrupt = nullptr;
bool stopSignalled = false;

enum class Request { NotTaken, First, Repeated };

Request RequestStop() {
  const std::lock_guard lock(yielderMutex);
  if (!stoppedByInterrupt) return Request::NotTaken;
  if (stopSignalled) return Request::Repeated;
  stopSignalled = true;
  stoppedByInterrupt->RequestStop();
  return Request::First;
}

bool EndsTheProgram(DWORD event) {
  return event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT;
}

}  // namespace

BOOL WINAPI OnConsoleEvent(DWORD event) {
  const Request request = RequestStop();
  if (request == Request::First) EndWaitingRead();
  if (request != Request::NotTaken && EndsTheProgram(event)) ::Sleep(INFINITE);
  if (request == Request::First) return TRUE;
  // What ends the program now runs no destructors.
  RestoreConsole();
  return FALSE;
}

InterruptGuard::InterruptGuard(Yielder& yielder) {
  {
    const std::lock_guard lock(yielderMutex);
    stoppedByInterrupt = &yielder;
    stopSignalled = false;
  }
  // Once, and never taken back: that would wait for a handler that is waiting for the program's end. Without
  // a guard it passes everything on.
  static const BOOL registered = ::SetConsoleCtrlHandler(OnConsoleEvent, TRUE);
  static_cast<void>(registered);
}

InterruptGuard::~InterruptGuard() {
  const std::lock_guard lock(yielderMutex);
  stoppedByInterrupt = nullptr;
}

}  // namespace korv
