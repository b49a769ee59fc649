#include "platform/process.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>

#include <shellapi.h>

#include <cerrno>

#include "platform/system_calls.h"

namespace korv {

namespace {

constexpr int kStandardInput = 0;
constexpr int kStandardError = 2;

class StandardInput final : public InputFile {
 public:
  explicit StandardInput(const Yielder& yielder) : yielder_(yielder) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    if (yielder_.Stopped()) return size_t{0};
    const int got = _read(kStandardInput, buffer.data(), static_cast<unsigned>(buffer.size()));
    if (got < 0 && !yielder_.Stopped()) return FileErrorOf({errno, std::generic_category()});
    return got < 0 ? size_t{0} : static_cast<size_t>(got);
  }
  uint64_t Size() const override { return 0; }

 private:
  const Yielder& yielder_;
};

}  // namespace

std::vector<std::string> ProgramArguments(int, char**) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int k = 1; wide && k < count; ++k)
    arguments.push_back(PathToText(std::filesystem::path(wide[k], std::filesystem::path::native_format)));
  LocalFree(wide);
  return arguments;
}

std::filesystem::path ExecutablePath(const char* argv0) {
  std::wstring path(32768, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length >= path.size()) return argv0;
  path.resize(length);
  return path;
}

void PrepareStandardStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  SetConsoleOutputCP(CP_UTF8);
}

bool StandardErrorIsTerminal() {
  return _isatty(kStandardError) != 0;
}

std::unique_ptr<InputFile> OpenStandardInput(const Yielder& yielder) {
  return std::make_unique<StandardInput>(yielder);
}

}  // namespace korv
