#include "platform/windows/waiting_read.h"

#include <windows.h>

#include <mutex>

namespace korv {

namespace {

std::mutex readerMutex;
HANDLE reader = nullptr;  ///< The thread that reads, with the right to end its calls.

/// Whether there is nothing to end any more.
bool Ended() {
  const std::lock_guard lock(readerMutex);
  return reader == nullptr || ::CancelSynchronousIo(reader) != 0;
}

}  // namespace

WaitingRead::WaitingRead() {
  const std::lock_guard lock(readerMutex);
  reader = ::OpenThread(THREAD_TERMINATE, FALSE, ::GetCurrentThreadId());
}

WaitingRead::~WaitingRead() {
  const std::lock_guard lock(readerMutex);
  if (reader) ::CloseHandle(reader);
  reader = nullptr;
}

void EndWaitingRead() {
  // The reader may just be about to call, and a call that has not begun cannot be ended.
  constexpr int kTries = 100;
  for (int k = 0; k < kTries && !Ended(); ++k) ::Sleep(1);
}

}  // namespace korv
