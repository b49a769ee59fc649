#pragma once

namespace korv {

/// Makes the console take UTF-8 and the sequences that erase a line. Nothing where there is no console.
void PrepareConsole();

/// Gives the console back as PrepareConsole() found it. May be called from any thread, and again.
void RestoreConsole();

}  // namespace korv
