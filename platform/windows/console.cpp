#include "platform/windows/console.h"

#include <windows.h>

#include <mutex>

namespace korv {

namespace {

struct ConsoleState {
  std::mutex Mutex;
  UINT OutputCodePage = 0;  ///< 0 where nothing is to be restored.
  HANDLE Screen = INVALID_HANDLE_VALUE;
  DWORD Mode = 0;
};

ConsoleState& Before() {
  static ConsoleState state;
  return state;
}

}  // namespace

void PrepareConsole() {
  ConsoleState& before = Before();
  const std::lock_guard lock(before.Mutex);
  before.OutputCodePage = ::GetConsoleOutputCP();
  if (before.OutputCodePage != 0) ::SetConsoleOutputCP(CP_UTF8);
  const HANDLE screen = ::GetStdHandle(STD_ERROR_HANDLE);
  if (!::GetConsoleMode(screen, &before.Mode)) return;
  before.Screen = screen;
  ::SetConsoleMode(screen, before.Mode | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

void RestoreConsole() {
  ConsoleState& before = Before();
  const std::lock_guard lock(before.Mutex);
  if (before.Screen != INVALID_HANDLE_VALUE) ::SetConsoleMode(before.Screen, before.Mode);
  if (before.OutputCodePage != 0) ::SetConsoleOutputCP(before.OutputCodePage);
  before.Screen = INVALID_HANDLE_VALUE;
  before.OutputCodePage = 0;
}

}  // namespace korv
