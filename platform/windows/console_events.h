#pragma once

#include <windows.h>

namespace korv {

/// What the system calls, in a thread of its own, when the console has something to tell. TRUE when that has
/// been dealt with; FALSE where the system is to end the program as usual. Does not return when the console
/// is closed, the user logs off or the system shuts down while an InterruptGuard lives: returning would end
/// the program at once, and this way it has the time that the system allows.
BOOL WINAPI OnConsoleEvent(DWORD event);

}  // namespace korv
