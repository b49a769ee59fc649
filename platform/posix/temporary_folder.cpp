#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <ctime>
#include <string>
#include <utility>

#include "platform/posix/file_descriptor.h"
#include "platform/posix/system_calls.h"
#include "platform/posix/temporary_names.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

constexpr const char* kPrefix = "korv-run-";
constexpr const char* kRandomPart = "XXXXXX";
constexpr time_t kLeftAfter = 600;  // seconds

bool IsSuchName(const std::string& name) {
  const std::string pattern = std::string(kPrefix) + kRandomPart;
  return name.starts_with(kPrefix) && name.size() == pattern.size();
}

/// A folder is locked as long as its program lives.
FileDescriptor OpenAndLock(const fs::path& folder) {
  FileDescriptor opened(
      Uninterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC); }));
  if (!opened.Open() || ::flock(opened.Number(), LOCK_EX | LOCK_NB) != 0) return FileDescriptor();
  return opened;
}

bool IsLeftBehind(const FileDescriptor& folder) {
  struct stat facts {};
  return folder.Open() && ::fstat(folder.Number(), &facts) == 0 && facts.st_uid == ::geteuid() &&
         (facts.st_mode & 07777) == 0700 && facts.st_mtim.tv_sec + kLeftAfter < std::time(nullptr);
}

// What killed programs left, as far as that is certain.
void Sweep(const fs::path& parent) {
  std::error_code code;
  for (fs::directory_iterator entry(parent, code); !code && entry != fs::directory_iterator();
       entry.increment(code)) {
    const fs::path& path = entry->path();
    if (!IsSuchName(path.filename().native()) || IsTemporary(path)) continue;
    std::error_code ignored;
    if (IsLeftBehind(OpenAndLock(path))) fs::remove_all(path, ignored);
  }
}

}  // namespace

Expected<fs::path, FileError> SystemPrivateTemporaryFolder(SweptFolders& swept) {
  std::error_code code;
  const fs::path parent = fs::temp_directory_path(code);
  if (code) return FileErrorOf(code);
  if (swept.Add(parent)) Sweep(parent);
  std::string name = (parent / (std::string(kPrefix) + kRandomPart)).native();
  if (::mkdtemp(name.data()) == nullptr) return LastError();
  NoteTemporary(name, OpenAndLock(name));
  return fs::path(name);
}

}  // namespace korv
