#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "base/yielder.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/system_calls.h"

namespace korv {

namespace {

/// What a program may take that was given a file to do harm with.
constexpr rlim_t kMostMemory = rlim_t{4} << 30;
constexpr rlim_t kMostSeconds = 600;
/// A stop is looked for so often.
constexpr int kMillisecondsBetweenLooks = 20;

void Limit(pid_t child) {
#ifdef __linux__
  const rlimit memory{kMostMemory, kMostMemory};
  const rlimit time{kMostSeconds, kMostSeconds};
  // A child that is over already needs none.
  ::prlimit(child, RLIMIT_AS, &memory, nullptr);
  ::prlimit(child, RLIMIT_CPU, &time, nullptr);
#else
  (void)child;
#endif
}

class ProgramOutput final : public InputFile {
 public:
  ProgramOutput(pid_t child, FileDescriptor output, Yielder& yielder)
      : child_(child), output_(std::move(output)), yielder_(yielder) {}
  ~ProgramOutput() override {
    if (child_ > 0) {
      ::kill(child_, SIGKILL);
      (void)Wait();
    }
  }

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    if (child_ <= 0 || !WaitForOutput()) return size_t{0};
    const ssize_t got = Uninterrupted([&] { return ::read(output_.Number(), buffer.data(), buffer.size()); });
    if (got < 0) return LastError();
    if (got > 0) return static_cast<size_t>(got);
    const int status = Wait();
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return size_t{0};
    return FileError{FileFault::Other, "The program failed."};
  }
  uint64_t Size() const override { return 0; }

 private:
  /// False where a stop is requested first.
  bool WaitForOutput() {
    pollfd waiting{output_.Number(), POLLIN, 0};
    do {
      yielder_.YieldNow();
      if (yielder_.Stopped()) return false;
    } while (Uninterrupted([&] { return ::poll(&waiting, 1, kMillisecondsBetweenLooks); }) == 0);
    return true;
  }

  int Wait() {
    int status = 0;
    Uninterrupted([&] { return ::waitpid(child_, &status, 0); });
    child_ = 0;
    return status;
  }

  pid_t child_;
  FileDescriptor output_;
  Yielder& yielder_;
};

/// What a child does before it is the program.
class Actions {
 public:
  explicit Actions(int output) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    ::posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  ~Actions() { ::posix_spawn_file_actions_destroy(&actions_); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

Expected<std::unique_ptr<InputFile>, FileError> SystemOpenOutputOf(
    const std::string& program, const std::vector<std::filesystem::path>& arguments, Yielder& yielder) {
  int ends[2];
  if (::pipe2(ends, O_CLOEXEC) != 0) return LastError();
  FileDescriptor reading(ends[0]);
  const FileDescriptor writing(ends[1]);
  std::vector<std::string> texts{program};
  for (const std::filesystem::path& argument : arguments) texts.push_back(argument.native());
  std::vector<char*> values;
  values.reserve(texts.size() + 1);
  for (std::string& text : texts) values.push_back(text.data());
  values.push_back(nullptr);
  const Actions actions(writing.Number());
  pid_t child = 0;
  errno = ::posix_spawnp(&child, program.c_str(), actions.Get(), nullptr, values.data(), environ);
  if (errno != 0) return LastError();
  Limit(child);
  return std::unique_ptr<InputFile>(std::make_unique<ProgramOutput>(child, std::move(reading), yielder));
}

}  // namespace korv
