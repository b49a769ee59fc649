#include "platform/lack_of_memory.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

#include "platform/process.h"

namespace korv {

namespace {

// Handlers of the language take nothing with them.
const char* programName = "korv";
int exitStatus = 1;
std::atomic<bool> memoryRanOut{false};

[[noreturn]] void OnLackOfMemory() {
  memoryRanOut = true;
  throw std::bad_alloc();
}

// Destructors and some functions of libraries let no exception through.
[[noreturn]] void OnTerminate() {
  if (memoryRanOut) EndForLackOfMemory();
  std::abort();
}

}  // namespace

void EndOnLackOfMemory(const char* program, int status) {
  programName = program;
  exitStatus = status;
  std::set_new_handler(OnLackOfMemory);
  std::set_terminate(OnTerminate);
}

void EndForLackOfMemory() noexcept {
  // Streams may want memory themselves.
  std::fputs(programName, stderr);
  std::fputs(": Insufficient memory\n", stderr);
  EndProcess(exitStatus);
}

}  // namespace korv
