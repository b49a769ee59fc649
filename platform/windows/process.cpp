#include "platform/process.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "platform/windows/console.h"
#include "platform/windows/extended_path.h"
#include "platform/windows/system_error.h"
#include "platform/windows/typed_input.h"
#include "platform/windows/waiting_read.h"
#include "platform/windows/wide_text.h"

// The runtime's own division of the command line, which its headers leave out.
struct RuntimeStart {
  int NewMode;
};
extern "C" int __cdecl __wgetmainargs(int* count, wchar_t*** arguments, wchar_t*** environment,
                                      int expandWildcards, RuntimeStart* start);

namespace korv {

namespace {

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != 0;
}

/// A file or a pipe.
class RedirectedInput final : public InputFile {
 public:
  RedirectedInput(HANDLE input, const Yielder& yielder) : input_(input), yielder_(yielder) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    constexpr size_t kMostAtOnce = size_t{1} << 30;
    const WaitingRead waiting;
    if (yielder_.Stopped()) return size_t{0};
    DWORD got = 0;
    const auto most = static_cast<DWORD>(std::min(buffer.size(), kMostAtOnce));
    if (::ReadFile(input_, buffer.data(), most, &got, nullptr)) return static_cast<size_t>(got);
    switch (const DWORD error = ::GetLastError()) {
      case ERROR_BROKEN_PIPE:
      case ERROR_PIPE_NOT_CONNECTED:
      case ERROR_OPERATION_ABORTED:
        return size_t{0};
      case ERROR_MORE_DATA:
        return static_cast<size_t>(got);
      default:
        return ErrorOf(error);
    }
  }
  uint64_t Size() const override { return 0; }

 private:
  HANDLE input_;
  const Yielder& yielder_;
};

class ConsoleInput final : public InputFile {
 public:
  ConsoleInput(HANDLE console, const Yielder& yielder)
      : yielder_(yielder),
        typed_([this, console](std::span<wchar_t> units) { return ReadConsoleUnits(console, units); }) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    const size_t got = typed_.Read(buffer);
    if (fault_ != ERROR_SUCCESS) return ErrorOf(fault_);
    return got;
  }
  uint64_t Size() const override { return 0; }

 private:
  size_t ReadConsoleUnits(HANDLE console, std::span<wchar_t> units) {
    const WaitingRead waiting;
    if (yielder_.Stopped()) return 0;
    DWORD got = 0;
    ::SetLastError(ERROR_SUCCESS);
    const bool read =
        ::ReadConsoleW(console, units.data(), static_cast<DWORD>(units.size()), &got, nullptr) != 0;
    const DWORD error = ::GetLastError();
    if (read && got > 0) return got;
    if (error == ERROR_OPERATION_ABORTED)
      WaitForTheInterrupt();
    else if (!read && !yielder_.Stopped())
      fault_ = error;
    return 0;
  }

  /// Ctrl-C ends the read at once; the thread that asks for the stop comes a little later.
  void WaitForTheInterrupt() const {
    constexpr int kTries = 100;
    for (int k = 0; k < kTries && !yielder_.Stopped(); ++k) ::Sleep(1);
  }

  const Yielder& yielder_;
  TypedInput typed_;
  DWORD fault_ = ERROR_SUCCESS;
};

}  // namespace

std::vector<std::string> ProgramArguments(int, char**) {
  // The system's function for this would make it a program with windows, which is not told on the console
  // that the user logs off.
  int count = 0;
  wchar_t** wide = nullptr;
  wchar_t** environment = nullptr;
  RuntimeStart start = {};
  constexpr int kLeaveWildcards = 0;
  std::vector<std::string> arguments;
  if (::__wgetmainargs(&count, &wide, &environment, kLeaveWildcards, &start) != 0) return arguments;
  for (int k = 1; k < count; ++k) arguments.push_back(ToUtf8(wide[k]));
  return arguments;
}

bool ShellExpandsPatterns() {
  return false;
}

std::filesystem::path ExecutablePath(const char* argv0) {
  constexpr size_t kLongestPath = 32768;
  std::wstring path(kLongestPath, L'\0');
  const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length >= path.size()) return PathFromText(argv0);
  path.resize(length);
  return PlainPath(path);
}

StandardStreams::StandardStreams() {
  for (FILE* const stream : {stdin, stdout, stderr}) ::_setmode(::_fileno(stream), _O_BINARY);
  PrepareConsole();
}

StandardStreams::~StandardStreams() {
  // What is still held back is UTF-8 as well.
  std::cout.flush();
  std::cerr.flush();
  RestoreConsole();
}

bool StandardErrorIsTerminal() {
  return IsConsole(::GetStdHandle(STD_ERROR_HANDLE));
}

size_t OutputColumns() {
  CONSOLE_SCREEN_BUFFER_INFO info{};
  if (::GetConsoleScreenBufferInfo(::GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0) return 0;
  // A line that is full breaks by itself, and then there would be an empty one.
  const int columns = info.srWindow.Right - info.srWindow.Left;
  return columns > 0 ? static_cast<size_t>(columns) : 0;
}

void AnswerInTheTerminal() {
  const auto leadsNowhere = [](DWORD stream) {
    const HANDLE handle = ::GetStdHandle(stream);
    return handle == nullptr || handle == INVALID_HANDLE_VALUE;
  };
  const bool output = leadsNowhere(STD_OUTPUT_HANDLE);
  const bool error = leadsNowhere(STD_ERROR_HANDLE);
  if ((!output && !error) || ::AttachConsole(ATTACH_PARENT_PROCESS) == 0) return;
  if (output) static_cast<void>(::freopen("CONOUT$", "w", stdout));
  if (error) static_cast<void>(::freopen("CONOUT$", "w", stderr));
}

std::filesystem::path StandardInputPath() {
  return {};
}

std::unique_ptr<InputFile> OpenStandardInput(const Yielder& yielder) {
  const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE);
  if (IsConsole(input)) return std::make_unique<ConsoleInput>(input, yielder);
  return std::make_unique<RedirectedInput>(input, yielder);
}

void EndProcess(int status) noexcept {
  std::_Exit(status);
}

}  // namespace korv
