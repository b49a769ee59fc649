#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>

#include "base/expected.h"
#include "platform/files.h"
#include "platform/posix/file_descriptor.h"

namespace korv {

/// A file that is written before it has its name. Where the system has files without a name it is one, so
/// that nothing is left behind however the program ends. Elsewhere it is called ".korv-" and eight letters
/// and
/// ".tmp", and is removed by the destructor, and by RemoveTemporaries() where a signal ends the program.
/// Either is locked while it is open: that tells it from what a killed program left.
class TemporaryFile {
 public:
  /// A new file in an existing folder, open for reading and writing, with the permissions `mode` less those
  /// that the process takes from new files.
  static Expected<TemporaryFile, FileError> Create(const std::filesystem::path& folder, mode_t mode);

  TemporaryFile(TemporaryFile&& other) noexcept;
  TemporaryFile& operator=(TemporaryFile&& other) noexcept;
  ~TemporaryFile();

  int Number() const { return file_.Number(); }
  /// Gives the file this name, in the folder where it was made, in place of a file that has it. The file is
  /// closed then, and is no temporary one any more. On failure all is as before.
  std::optional<FileError> TakeName(const std::filesystem::path& target);

 private:
  TemporaryFile(FileDescriptor file, std::filesystem::path folder, std::filesystem::path name);

  static std::optional<TemporaryFile> CreateUnnamed(const std::filesystem::path& folder, mode_t mode);
  static Expected<TemporaryFile, FileError> CreateNamed(const std::filesystem::path& folder, mode_t mode);
  std::optional<FileError> BecomeNamed();
  std::optional<FileError> MoveToNamed();

  FileDescriptor file_;
  std::filesystem::path folder_;
  std::filesystem::path name_;  ///< Empty while the file has none.
};

/// Removes from the folder what killed programs left of such files, as far as that is certain: it is the
/// user's, a minute old, and nobody has it locked.
void SweepTemporaryFiles(const std::filesystem::path& folder);

}  // namespace korv
