#include "platform/posix/temporary_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <string>
#include <utility>

#include "platform/posix/file_attributes.h"
#include "platform/posix/temporary_names.h"
#include "platform/random_name.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

constexpr const char* kPrefix = ".korv-";
constexpr const char* kSuffix = ".tmp";
constexpr time_t kLeftAfter = 60;  // seconds

fs::path NewName(const fs::path& folder) {
  return folder / (kPrefix + RandomNamePart() + kSuffix);
}

bool IsSuchName(const std::string& name) {
  return name.starts_with(kPrefix) && name.ends_with(kSuffix);
}

/// The name under which the system shows an open file.
fs::path NameOfOpen(int file) {
  return "/proc/self/fd/" + std::to_string(file);
}

void Lock(const FileDescriptor& file) {
  // Without a lock it is no worse than a file of a program that was killed.
  static_cast<void>(::flock(file.Number(), LOCK_EX | LOCK_NB));
}

bool IsLeftBehind(const fs::path& path) {
  const FileDescriptor file(
      Uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC); }));
  struct stat facts {};
  return file.Open() && ::fstat(file.Number(), &facts) == 0 && S_ISREG(facts.st_mode) &&
         facts.st_uid == ::geteuid() && facts.st_mtim.tv_sec + kLeftAfter < std::time(nullptr) &&
         ::flock(file.Number(), LOCK_EX | LOCK_NB) == 0;
}

}  // namespace

TemporaryFile::TemporaryFile(FileDescriptor file, fs::path folder, fs::path name)
    : file_(std::move(file)), folder_(std::move(folder)), name_(std::move(name)) {}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : file_(std::move(other.file_)),
      folder_(std::move(other.folder_)),
      name_(std::exchange(other.name_, fs::path())) {}

TemporaryFile& TemporaryFile::operator=(TemporaryFile&& other) noexcept {
  std::swap(file_, other.file_);
  folder_.swap(other.folder_);
  name_.swap(other.name_);
  return *this;
}

TemporaryFile::~TemporaryFile() {
  if (name_.empty()) return;
  ::unlink(name_.c_str());
  ForgetTemporary(name_);
}

std::optional<TemporaryFile> TemporaryFile::CreateUnnamed(const fs::path& folder, mode_t mode) {
#ifdef O_TMPFILE
  FileDescriptor file(
      Uninterrupted([&] { return ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode); }));
  // It gets its name by way of the names of open files, which not every system shows.
  if (!file.Open() || ::access(NameOfOpen(file.Number()).c_str(), F_OK) != 0) return std::nullopt;
  Lock(file);
  return TemporaryFile(std::move(file), folder, {});
#else
  return std::nullopt;
#endif
}

Expected<TemporaryFile, FileError> TemporaryFile::Create(const fs::path& folder, mode_t mode) {
  if (std::optional<TemporaryFile> unnamed = CreateUnnamed(folder, mode)) return std::move(*unnamed);
  return CreateNamed(folder, mode);
}

Expected<TemporaryFile, FileError> TemporaryFile::CreateNamed(const fs::path& folder, mode_t mode) {
  for (;;) {
    // Complete before there is a file: what throws afterwards leaves one behind.
    TemporaryFile made(FileDescriptor(), folder, NewName(folder));
    NoteTemporary(made.name_);
    made.file_ = FileDescriptor(Uninterrupted(
        [&] { return ::open(made.name_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode); }));
    if (made.file_.Open()) {
      Lock(made.file_);
      return made;
    }
    const FileError error = LastError();
    const bool taken = errno == EEXIST;
    ForgetTemporary(std::exchange(made.name_, fs::path()));
    if (!taken) return error;
  }
}

std::optional<FileError> TemporaryFile::BecomeNamed() {
  for (;;) {
    fs::path name = NewName(folder_);
    NoteTemporary(name);
    if (::linkat(AT_FDCWD, NameOfOpen(file_.Number()).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) ==
        0) {
      name_ = std::move(name);
      return std::nullopt;
    }
    const bool taken = errno == EEXIST;
    ForgetTemporary(name);
    // Some file systems, and some that guard them, let no file be linked.
    if (!taken) return MoveToNamed();
  }
}

std::optional<FileError> TemporaryFile::MoveToNamed() {
  struct stat facts {};
  if (::fstat(file_.Number(), &facts) != 0) return LastError();
  auto named = CreateNamed(folder_, 0600);
  if (!named) return named.Error();
  if (auto fault = CopyBytes(file_.Number(), named->Number())) return fault;
  CopyAttributes(file_.Number(), facts, named->Number());
  if (!SyncFile(named->Number())) return LastError();
  *this = std::move(*named);
  return std::nullopt;
}

std::optional<FileError> TemporaryFile::TakeName(const fs::path& target) {
  if (name_.empty())
    if (std::optional<FileError> fault = BecomeNamed()) return fault;
  if (::rename(name_.c_str(), target.c_str()) != 0) return LastError();
  ForgetTemporary(std::exchange(name_, fs::path()));
  // What the disk did not take was told when the file was synced, or does not matter.
  file_ = FileDescriptor();
  return std::nullopt;
}

void SweepTemporaryFiles(const fs::path& folder) {
  std::error_code code;
  for (fs::directory_iterator entry(folder, code); !code && entry != fs::directory_iterator();
       entry.increment(code)) {
    const fs::path& path = entry->path();
    if (IsSuchName(path.filename().native()) && !IsTemporary(path) && IsLeftBehind(path))
      ::unlink(path.c_str());
  }
}

}  // namespace korv
