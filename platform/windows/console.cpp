#include "platform/windows/console.h"

#include <windows.h>

#include <mutex>

namespace korv {

namespace {

struct ConsoleState {
  std::mutex mutex;
  UINT outputCodePage = 0;  ///< 0 where nothing is to be restored.
  HANDLE screen = INVALID_HANDLE_VALUE;
  DWORD mode = 0;
};

ConsoleState& Before() {
  static ConsoleState state;
  return state;
}

}  // namespace

void PrepareConsole() {
  ConsoleState& before = Before();
  const std::lock_guard lock(before.mutex);
  before.outputCodePage = ::GetConsoleOutputCP();
  if (before.outputCodePage != 0) ::SetConsoleOutputCP(CP_UTF8);
  const HANDLE screen = ::GetStdHandle(STD_ERROR_HANDLE);
  if (!::GetConsoleMode(screen, &before.mode)) return;
  before.screen = screen;
  ::SetConsoleMode(screen, before.mode | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

void RestoreConsole() {
  ConsoleState& before = Before();
  const std::lock_guard lock(before.mutex);
  if (before.screen != INVALID_HANDLE_VALUE) ::SetConsoleMode(before.screen, before.mode);
  if (before.outputCodePage != 0) ::SetConsoleOutputCP(before.outputCodePage);
  before.screen = INVALID_HANDLE_VALUE;
  before.outputCodePage = 0;
}

}  // namespace korv
