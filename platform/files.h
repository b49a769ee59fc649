#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/expected.h"

namespace korv {

class Yielder;

/// Why the file system refused. `PermissionDenied` is the one kind that users are told apart.
enum class FileFault { NotFound, PermissionDenied, IsFolder, NotAFolder, NoSpace, Other };

struct FileError {
  FileFault Fault = FileFault::Other;
  std::string Description;  ///< The system's own words, UTF-8, without the path.
};

/// A file open for reading, from its beginning. Closed by its destructor.
class InputFile {
 public:
  virtual ~InputFile() = default;
  /// Fills up to all of `buffer` and returns the bytes read; 0 only at the end of the file. What is added to
  /// a file after it was opened is not read.
  virtual Expected<size_t, FileError> Read(std::span<char> buffer) = 0;
  /// Length in bytes when it was opened; files that have no length (pipes) say 0.
  virtual uint64_t Size() const = 0;
  /// When it was changed last, as it was opened, in units of the system's own: to be compared, no more. 0
  /// where there is no telling.
  virtual int64_t Modified() const { return 0; }
  /// Goes on reading at `position` bytes from the beginning. Pipes and terminals refuse.
  virtual std::optional<FileError> SeekTo(uint64_t position);
};

/// A file being written beside its target. Nothing is seen under the target's name until Commit();
/// destroyed without it, the file disappears and the target is as it was. A target that is no ordinary
/// file (a device, a pipe) is written to directly.
class OutputFile {
 public:
  virtual ~OutputFile() = default;
  /// Writes all of `bytes`, unbuffered: hand over large blocks. An empty result on success.
  virtual std::optional<FileError> Write(std::string_view bytes) = 0;
  /// Whether Commit() takes away a file that was there when this one was opened. Known from the beginning.
  virtual bool Replaces() const = 0;
  /// Puts the file in the target's place in one step, with the permissions of the file that it replaces.
  virtual std::optional<FileError> Commit() = 0;
};

struct FolderListing {
  /// Names only, in no order. Links to files count as files, and so do links that lead nowhere (opening
  /// them tells); pipes, sockets and devices are left out, because opening them may wait for ever.
  std::vector<std::filesystem::path> Files;
  std::vector<std::filesystem::path> Subfolders;  ///< Names only, in no order, links to folders left out.
};

/// Everything that touches the disk, so that a test can make any call fail.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// Whether there is something of that name (links followed) that is no folder.
  virtual bool FileExists(const std::filesystem::path& path) const = 0;
  virtual bool FolderExists(const std::filesystem::path& path) const = 0;
  /// In bytes. Pipes and devices have no size: an error of the kind Other.
  virtual Expected<uint64_t, FileError> FileSize(const std::filesystem::path& path) const = 0;
  /// Whether both names lead to one existing file (links followed, case as the system has it).
  virtual bool SameFile(const std::filesystem::path& a, const std::filesystem::path& b) const = 0;
  /// Absolute, without "." and "..", links not followed.
  virtual std::filesystem::path AbsolutePath(const std::filesystem::path& path) const = 0;
  /// Absolute, with links followed as far as the path exists; AbsolutePath() where that fails.
  virtual std::filesystem::path CanonicalPath(const std::filesystem::path& path) const = 0;

  virtual Expected<std::unique_ptr<InputFile>, FileError> OpenForReading(
      const std::filesystem::path& path) = 0;
  virtual Expected<std::unique_ptr<OutputFile>, FileError> OpenForWriting(
      const std::filesystem::path& path) = 0;
  virtual Expected<FolderListing, FileError> ListFolder(const std::filesystem::path& path) = 0;

  /// A folder that is there already is as good as a new one.
  virtual std::optional<FileError> CreateFolder(const std::filesystem::path& path) = 0;
  /// Removes a file or an empty folder.
  virtual std::optional<FileError> Remove(const std::filesystem::path& path) = 0;
  /// A fresh folder in the user's temporary folder that only its owner can enter.
  virtual Expected<std::filesystem::path, FileError> CreatePrivateTemporaryFolder() = 0;

  /// Starts a program, found where the system looks for programs by their names, and reads what it prints.
  /// It has nothing to read, and its messages go nowhere. It ends with the object, and where `yielder`, which
  /// must outlive the object, is stopped: that is the end of the file. A status other than 0 makes the last
  /// Read() fail. NotFound where there is no such program, and on systems on which none is started.
  virtual Expected<std::unique_ptr<InputFile>, FileError> OpenOutputOf(
      const std::string& program, const std::vector<std::filesystem::path>& arguments, Yielder& yielder);
};

/// The disks of this system. What it opens may be used from any thread, one thread at a time.
std::unique_ptr<FileSystem> MakeSystemFiles();

/// A path as text to show: UTF-8; bytes that are none become U+FFFD.
std::string PathToText(const std::filesystem::path& path);
/// The path that a UTF-8 text names.
std::filesystem::path PathFromText(std::string_view text);
/// An existing path for a library that opens files by names of bytes. Where the system's code page lacks some
/// of its letters, that is its short name, if it has one.
std::string PathForLibraries(const std::filesystem::path& path);

}  // namespace korv
