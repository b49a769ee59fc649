#include "platform/posix/system_calls.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/utf8.h"
#include "platform/posix/stop_signals.h"
#include "platform/posix/temporary_names.h"
#include "platform/random_name.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

std::error_code LastErrorCode() {
  return {errno, std::generic_category()};
}

FileError LastError() {
  FileError error = FileErrorOf(LastErrorCode());
  if (errno == EDQUOT) error.Fault = FileFault::NoSpace;
  return error;
}

class FileDescriptor {
 public:
  explicit FileDescriptor(int number = -1) : number_(number) {}
  FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&&) = delete;
  ~FileDescriptor() {
    if (number_ >= 0) ::close(number_);
  }
  bool Open() const { return number_ >= 0; }
  int Number() const { return number_; }
  /// False where the system reports only now that something was not written.
  bool Close() { return ::close(std::exchange(number_, -1)) == 0 || errno == EINTR; }

 private:
  int number_;
};

int64_t NanosecondsOf(const timespec& time) {
  return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

// Opening a pipe must not wait for its other end.
FileDescriptor OpenWithoutWaiting(const fs::path& path, int flags) {
  return FileDescriptor(::open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
}

void WaitWhenUsed(const FileDescriptor& file) {
  const int state = ::fcntl(file.Number(), F_GETFL);
  if (state >= 0) ::fcntl(file.Number(), F_SETFL, state & ~O_NONBLOCK);
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

std::optional<FileError> WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return LastError();
    bytes.remove_prefix(static_cast<size_t>(written));
  }
  return std::nullopt;
}

/// Devices and pipes: what is written is gone.
class DirectOutput final : public OutputFile {
 public:
  explicit DirectOutput(FileDescriptor file) : file_(std::move(file)) {}

  std::optional<FileError> Write(std::string_view bytes) override {
    if (!fault_) fault_ = WriteAll(file_.Number(), bytes);
    return fault_;
  }
  bool Replaces() const override { return false; }
  std::optional<FileError> Commit() override {
    if (!fault_ && file_.Open() && !file_.Close()) fault_ = LastError();
    return fault_;
  }

 private:
  FileDescriptor file_;
  std::optional<FileError> fault_;
};

class ReplacingOutput final : public OutputFile {
 public:
  ReplacingOutput(FileDescriptor file, fs::path temporary, fs::path target, bool replaces)
      : file_(std::move(file)),
        temporary_(std::move(temporary)),
        target_(std::move(target)),
        replaces_(replaces) {}
  ~ReplacingOutput() override {
    if (committed_) return;
    ::unlink(temporary_.c_str());
    ForgetTemporary(temporary_);
  }

  std::optional<FileError> Write(std::string_view bytes) override {
    if (!fault_) fault_ = WriteAll(file_.Number(), bytes);
    return fault_;
  }

  bool Replaces() const override { return replaces_; }
  std::optional<FileError> Commit() override {
    if (fault_ || committed_) return fault_;
    // A file that takes another's place must be on the disk first, or a crash of the system could leave
    // neither. A new file has nothing to lose, and waiting for the disk is slow.
    const bool kept = !replaces_ || ::fsync(file_.Number()) == 0 || errno == EINVAL;
    if (!kept || !file_.Close() || ::rename(temporary_.c_str(), target_.c_str()) != 0) {
      fault_ = LastError();
      return fault_;
    }
    committed_ = true;
    if (IsTemporary(target_.parent_path())) NoteTemporary(target_);
    ForgetTemporary(temporary_);
    return std::nullopt;
  }

 private:
  FileDescriptor file_;
  fs::path temporary_;
  fs::path target_;
  bool replaces_;
  bool committed_ = false;
  std::optional<FileError> fault_;
};

// Paths that name the open files of a process. A file that was renamed over such a path's target would be
// another one than a process has open, for example a shell that redirects standard output.
bool NamesOpenFile(const fs::path& path) {
  const std::string& name = path.native();
  return name.starts_with("/proc/") || name.starts_with("/dev/fd/");
}

struct Target {
  fs::path Path;  ///< With links followed, so that a link stays one and its file is replaced.
  bool Direct = false;
};

Expected<Target, FileError> FollowLinks(fs::path path) {
  constexpr int kMostLinks = 40;
  for (int k = 0; k < kMostLinks; ++k) {
    if (NamesOpenFile(path)) return Target{path, true};
    std::error_code code;
    const fs::path next = fs::read_symlink(path, code);
    if (code) return Target{path, false};
    path = (path.parent_path() / next).lexically_normal();
  }
  return FileErrorOf(std::make_error_code(std::errc::too_many_symbolic_link_levels));
}

Expected<std::unique_ptr<OutputFile>, FileError> OpenDirectly(const fs::path& path) {
  FileDescriptor file = OpenWithoutWaiting(path, O_WRONLY | O_APPEND);
  if (!file.Open()) return LastError();
  WaitWhenUsed(file);
  return std::unique_ptr<OutputFile>(std::make_unique<DirectOutput>(std::move(file)));
}

Expected<std::unique_ptr<OutputFile>, FileError> OpenBeside(const fs::path& target,
                                                            const struct stat* replaced) {
  // Nobody else may look into the new file before it has the permissions of the old one.
  const mode_t mode = replaced ? 0600 : 0666;
  for (;;) {
    const fs::path temporary = target.parent_path() / (".korv-" + RandomNamePart() + ".tmp");
    NoteTemporary(temporary);
    FileDescriptor file(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file.Open()) {
      const int error = errno;
      ForgetTemporary(temporary);
      errno = error;
      if (error == EEXIST) continue;
      return LastError();
    }
    if (replaced) {
      // The owner can often not be kept, and then a program must not run with another owner's rights.
      const bool owned = ::fchown(file.Number(), replaced->st_uid, replaced->st_gid) == 0;
      ::fchmod(file.Number(), replaced->st_mode & (owned ? 07777U : 0777U));
    }
    return std::unique_ptr<OutputFile>(
        std::make_unique<ReplacingOutput>(std::move(file), temporary, target, replaced != nullptr));
  }
}

}  // namespace

Expected<std::unique_ptr<InputFile>, FileError> SystemOpenForReading(const fs::path& path) {
  FileDescriptor file = OpenWithoutWaiting(path, O_RDONLY);
  if (!file.Open()) return LastError();
  struct stat facts {};
  if (::fstat(file.Number(), &facts) != 0) return LastError();
  if (S_ISDIR(facts.st_mode)) return FileErrorOf(std::make_error_code(std::errc::is_a_directory));
  const uint64_t size = S_ISREG(facts.st_mode) ? static_cast<uint64_t>(facts.st_size) : 0;
  return std::unique_ptr<InputFile>(
      std::make_unique<PosixInput>(std::move(file), size, NanosecondsOf(facts.st_mtim)));
}

Expected<std::unique_ptr<OutputFile>, FileError> SystemOpenForWriting(const fs::path& path) {
  const Expected<Target, FileError> target = FollowLinks(path);
  if (!target) return target.Error();
  if (target->Direct) return OpenDirectly(target->Path);
  struct stat facts {};
  if (::stat(target->Path.c_str(), &facts) != 0) {
    if (errno != ENOENT) return LastError();
    return OpenBeside(target->Path, nullptr);
  }
  if (S_ISDIR(facts.st_mode)) return FileErrorOf(std::make_error_code(std::errc::is_a_directory));
  if (!S_ISREG(facts.st_mode)) return OpenDirectly(target->Path);
  // Renaming over a file needs no right to write to it; a user who has none does not expect it to change.
  if (!FileDescriptor(::open(target->Path.c_str(), O_WRONLY | O_CLOEXEC)).Open()) return LastError();
  return OpenBeside(target->Path, &facts);
}

Expected<fs::path, FileError> SystemPrivateTemporaryFolder() {
  std::error_code code;
  const fs::path parent = fs::temp_directory_path(code);
  if (code) return FileErrorOf(code);
  std::string name = (parent / "korv-XXXXXX").native();
  if (::mkdtemp(name.data()) == nullptr) return LastError();
  NoteTemporary(name);
  return fs::path(name);
}

std::string PathToText(const fs::path& path) {
  return MendedUtf8(path.native());
}

fs::path PathFromText(std::string_view text) {
  return fs::path(std::string(text));
}

}  // namespace korv
