#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <utility>

#include "base/translation.h"
#include "platform/posix/file_attributes.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/system_calls.h"
#include "platform/posix/temporary_file.h"
#include "platform/posix/temporary_names.h"
#include "platform/random_name.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

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

/// Takes the target's name when it is complete.
class RenamedOutput final : public OutputFile {
 public:
  RenamedOutput(TemporaryFile file, fs::path target, bool replaces)
      : file_(std::move(file)), target_(std::move(target)), replaces_(replaces) {}

  std::optional<FileError> Write(std::string_view bytes) override {
    if (!fault_) fault_ = WriteAll(file_.Number(), bytes);
    return fault_;
  }
  bool Replaces() const override { return replaces_; }
  std::optional<FileError> Commit() override {
    if (fault_ || committed_) return fault_;
    // What is temporary itself need not outlive a crash of the system.
    const bool temporary = IsTemporary(target_.parent_path());
    if (!temporary && !SyncFile(file_.Number()))
      fault_ = LastError();
    else
      fault_ = file_.TakeName(target_);
    if (fault_) return fault_;
    committed_ = true;
    if (temporary)
      NoteTemporary(target_);
    else
      SyncFolder(target_.parent_path());
    return std::nullopt;
  }

 private:
  TemporaryFile file_;
  fs::path target_;
  bool replaces_;
  bool committed_ = false;
  std::optional<FileError> fault_;
};

/// For a file that cannot be replaced by another one without a loss. The new content waits in a temporary
/// file until it is complete; then the old one is copied, and the new one written over it. Should that fail,
/// the copy stays, and the error names it.
class OverwritingOutput final : public OutputFile {
 public:
  /// `target` is open for reading and writing. `folder` is one where files can be made.
  OverwritingOutput(TemporaryFile content, FileDescriptor target, fs::path name, fs::path folder)
      : content_(std::move(content)),
        target_(std::move(target)),
        name_(std::move(name)),
        folder_(std::move(folder)) {}

  std::optional<FileError> Write(std::string_view bytes) override {
    if (!fault_) fault_ = WriteAll(content_.Number(), bytes);
    return fault_;
  }
  bool Replaces() const override { return true; }
  std::optional<FileError> Commit() override {
    if (fault_ || committed_) return fault_;
    fault_ = KeepCopy();
    if (fault_) return fault_;
    fault_ = Overwrite();
    if (fault_) {
      fault_->Description = Fill(Tr("%1; the file as it was: %2"), {fault_->Description, PathToText(copy_)});
      return fault_;
    }
    committed_ = true;
    ::unlink(copy_.c_str());
    return std::nullopt;
  }

 private:
  std::optional<FileError> KeepCopy() {
    auto copy = TemporaryFile::Create(folder_, 0600);
    if (!copy) return copy.Error();
    if (auto fault = CopyBytes(target_.Number(), copy->Number())) return fault;
    if (!SyncFile(copy->Number())) return LastError();
    const fs::path name = folder_ / (name_.filename().native() + ".old-" + RandomNamePart());
    if (auto fault = copy->TakeName(name)) return fault;
    copy_ = name;
    SyncFolder(folder_);
    return std::nullopt;
  }

  std::optional<FileError> Overwrite() {
    if (::lseek(target_.Number(), 0, SEEK_SET) < 0) return LastError();
    if (auto fault = CopyBytes(content_.Number(), target_.Number())) return fault;
    const off_t end = ::lseek(target_.Number(), 0, SEEK_CUR);
    if (end < 0 || Uninterrupted([&] { return ::ftruncate(target_.Number(), end); }) != 0 ||
        !SyncFile(target_.Number()) || !target_.Close())
      return LastError();
    return std::nullopt;
  }

  TemporaryFile content_;
  FileDescriptor target_;
  fs::path name_;
  fs::path folder_;
  fs::path copy_;
  bool committed_ = false;
  std::optional<FileError> fault_;
};

using Output = Expected<std::unique_ptr<OutputFile>, FileError>;

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

Output OpenDirectly(const fs::path& path) {
  // Opening a pipe must not wait for its other end, writing to it may.
  FileDescriptor file(::open(path.c_str(), O_WRONLY | O_APPEND | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
  if (!file.Open()) return LastError();
  const int state = ::fcntl(file.Number(), F_GETFL);
  if (state >= 0) ::fcntl(file.Number(), F_SETFL, state & ~O_NONBLOCK);
  return std::unique_ptr<OutputFile>(std::make_unique<DirectOutput>(std::move(file)));
}

void SweepOnce(const fs::path& folder, SweptFolders& swept) {
  if (swept.Add(folder)) SweepTemporaryFiles(folder);
}

Output OpenNew(const fs::path& target, SweptFolders& swept) {
  SweepOnce(target.parent_path(), swept);
  auto file = TemporaryFile::Create(target.parent_path(), 0666);
  if (!file) return file.Error();
  return std::unique_ptr<OutputFile>(std::make_unique<RenamedOutput>(std::move(*file), target, false));
}

bool MayMakeFilesIn(const fs::path& folder) {
  return ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

// In a folder like /tmp only the owners of a file and of the folder may take its name away.
bool MayTakeNameFrom(const struct stat& file, const fs::path& folder) {
  struct stat facts {};
  if (::stat(folder.c_str(), &facts) != 0 || (facts.st_mode & S_ISVTX) == 0) return true;
  const uid_t user = ::geteuid();
  return user == 0 || user == file.st_uid || user == facts.st_uid;
}

Output OpenExisting(const fs::path& target, const struct stat& facts, SweptFolders& swept) {
  // Renaming over a file needs no right to write to it; a user who has none does not expect it to change.
  FileDescriptor existing(Uninterrupted([&] { return ::open(target.c_str(), O_WRONLY | O_CLOEXEC); }));
  if (!existing.Open()) return LastError();
  const fs::path folder = target.parent_path();
  const bool writable = MayMakeFilesIn(folder);
  if (facts.st_nlink == 1 && writable && MayTakeNameFrom(facts, folder)) {
    SweepOnce(folder, swept);
    // Nobody else may look into the new file before it has the permissions of the old one.
    auto file = TemporaryFile::Create(folder, 0600);
    if (!file) return file.Error();
    CopyAttributes(existing.Number(), facts, file->Number());
    return std::unique_ptr<OutputFile>(std::make_unique<RenamedOutput>(std::move(*file), target, true));
  }
  // Its other names would keep the old content, or there is no way to give the new one its name.
  FileDescriptor both(Uninterrupted([&] { return ::open(target.c_str(), O_RDWR | O_CLOEXEC); }));
  if (!both.Open()) return LastError();
  std::error_code code;
  const fs::path beside = writable ? folder : fs::temp_directory_path(code);
  if (code) return FileErrorOf(code);
  auto file = TemporaryFile::Create(beside, 0600);
  if (!file) return file.Error();
  return std::unique_ptr<OutputFile>(
      std::make_unique<OverwritingOutput>(std::move(*file), std::move(both), target, beside));
}

}  // namespace

Output SystemOpenForWriting(const fs::path& path, SweptFolders& swept) {
  const Expected<Target, FileError> target = FollowLinks(path);
  if (!target) return target.Error();
  if (target->Direct) return OpenDirectly(target->Path);
  struct stat facts {};
  if (::stat(target->Path.c_str(), &facts) != 0) {
    if (errno != ENOENT) return LastError();
    return OpenNew(target->Path, swept);
  }
  if (S_ISDIR(facts.st_mode)) return FileErrorOf(std::make_error_code(std::errc::is_a_directory));
  if (!S_ISREG(facts.st_mode)) return OpenDirectly(target->Path);
  return OpenExisting(target->Path, facts, swept);
}

}  // namespace korv
