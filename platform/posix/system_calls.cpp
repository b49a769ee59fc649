#include "platform/posix/system_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/utf8.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/stop_signals.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

int64_t NanosecondsOf(const timespec& time) {
  return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

class PosixInput final : public InputFile {
 public:
  PosixInput(FileDescriptor file, uint64_t size, int64_t modified)
      : file_(std::move(file)), size_(size), modified_(modified) {}

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    // A file that grows while it is read ends where it ended when it was opened: one that grows faster than
    // it is read would have no end. This also saves asking for more where nothing can be.
    if (size_ > 0)
      buffer = buffer.first(std::min<uint64_t>(buffer.size(), size_ - std::min(position_, size_)));
    if (buffer.empty()) return size_t{0};
    for (;;) {
      const ssize_t got = ::read(file_.Number(), buffer.data(), buffer.size());
      if (got < 0 && errno == EINTR) continue;
      if (got < 0 && errno == EAGAIN) {
        // A stop is the end of a pipe whose writer lets the reader wait.
        if (!WaitForInput(file_.Number())) return size_t{0};
        continue;
      }
      if (got < 0) return LastError();
      position_ += static_cast<uint64_t>(got);
      return static_cast<size_t>(got);
    }
  }
  uint64_t Size() const override { return size_; }
  int64_t Modified() const override { return modified_; }
  std::optional<FileError> SeekTo(uint64_t position) override {
    if (::lseek(file_.Number(), static_cast<off_t>(position), SEEK_SET) < 0) return LastError();
    position_ = position;
    return std::nullopt;
  }

 private:
  FileDescriptor file_;
  uint64_t size_;  ///< 0 where there is no telling: pipes, and files that the system makes up.
  int64_t modified_;
  uint64_t position_ = 0;
};

}  // namespace

Expected<std::unique_ptr<InputFile>, FileError> SystemOpenForReading(const fs::path& path) {
  // Opening a pipe must not wait for its other end.
  FileDescriptor file(
      Uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY); }));
  if (!file.Open()) return LastError();
  struct stat facts {};
  if (::fstat(file.Number(), &facts) != 0) return LastError();
  if (S_ISDIR(facts.st_mode)) return FileErrorOf(std::make_error_code(std::errc::is_a_directory));
  const uint64_t size = S_ISREG(facts.st_mode) ? static_cast<uint64_t>(facts.st_size) : 0;
  return std::unique_ptr<InputFile>(
      std::make_unique<PosixInput>(std::move(file), size, NanosecondsOf(facts.st_mtim)));
}

std::string PathToText(const fs::path& path) {
  return MendedUtf8(path.native());
}

fs::path PathFromText(std::string_view text) {
  return fs::path(std::string(text));
}

}  // namespace korv
