#include "platform/process.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <string_view>

#include "platform/posix/stop_signals.h"
#include "platform/posix/system_calls.h"
#include "platform/posix/temporary_names.h"

namespace korv {

namespace {

class StandardInput final : public InputFile {
 public:
  explicit StandardInput(const Yielder& yielder) : yielder_(yielder) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    while (!yielder_.Stopped() && WaitForInput(STDIN_FILENO)) {
      const ssize_t got = ::read(STDIN_FILENO, buffer.data(), buffer.size());
      if (got >= 0) return static_cast<size_t>(got);
      // Another process that shares standard input may have read what there was, or have set it not to wait.
      if (errno != EINTR && errno != EAGAIN) return FileErrorOf({errno, std::generic_category()});
    }
    return size_t{0};
  }
  uint64_t Size() const override { return 0; }

 private:
  const Yielder& yielder_;
};

}  // namespace

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

bool ShellExpandsPatterns() {
  return true;
}

std::filesystem::path ExecutablePath(const char* argv0) {
  std::error_code code;
  std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", code);
  if (code) path = std::filesystem::canonical(argv0, code);
  return code ? std::filesystem::path(argv0) : path;
}

StandardStreams::StandardStreams() = default;
StandardStreams::~StandardStreams() = default;

bool StandardErrorIsTerminal() {
  return ::isatty(STDERR_FILENO) == 1;
}

size_t OutputColumns() {
  if (::isatty(STDOUT_FILENO) != 1) return 0;
  if (const char* const set = std::getenv("COLUMNS"); set != nullptr) {
    size_t columns = 0;
    const std::string_view text(set);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), columns);
    if (error == std::errc{} && end == text.data() + text.size() && columns > 0) return columns;
  }
  winsize size{};
  return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

// Every program has the streams of its terminal here.
void AnswerInTheTerminal() {}

std::filesystem::path StandardInputPath() {
  return "/dev/stdin";
}

std::unique_ptr<InputFile> OpenStandardInput(const Yielder& yielder) {
  return std::make_unique<StandardInput>(yielder);
}

void EndProcess(int status) noexcept {
  RemoveTemporaries();
  ::_exit(status);
}

}  // namespace korv
