#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_format.h"
#include "base/yielder.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "sources/folders/file_selection.h"

namespace korv {

/// What a walk found.
struct FolderTotals {
  uint64_t Files = 0;    ///< Wanted files.
  uint64_t Folders = 0;  ///< Folders entered, the chosen one included.
  bool Stopped = false;  ///< The user stopped it before its end.
};

/// Functions that a walk calls while it goes on. Each may be empty.
struct FolderEvents {
  /// A wanted file, in order: the chosen folder's path as given, then the names below it.
  std::function<void(const std::filesystem::path&)> Wanted;
  /// A folder whose files come next.
  std::function<void(const std::filesystem::path&)> Entered;
  /// A folder that could not be read and is skipped; told once per folder while the object lives.
  std::function<void(const std::filesystem::path&, const FileError&)> Unreadable;
  /// A text for the output box.
  std::function<void(const std::string&)> Say;
};

enum class WalkMode {
  Counting,  ///< Says "Counting files . . .", and how far it got where it is stopped.
  Reading,
};

/// Walks a folder: files by name, then subfolders by name, both by character code of the lower-cased name,
/// then of the name. Recycle bins, folders named "extracted_text" and links to folders are not entered.
///
/// Holds the names of one folder for each level of depth. The disk may change during a walk: a folder that
/// has vanished is reported as unreadable, and a wanted file may be gone when it is opened.
class FolderWalk {
 public:
  FolderWalk(FileSystem& files, Yielder& yielder, FileSelection selection, bool includeSubfolders);

  /// Asks the yielder for a stop after every file and folder.
  FolderTotals ProcessFolder(const std::filesystem::path& folder, WalkMode mode, const FolderEvents& events);

 private:
  void Walk(const std::filesystem::path& folder, const FolderEvents& events, FolderTotals& totals);
  bool StopAsked(FolderTotals& totals);

  FileSystem& files_;
  Yielder& yielder_;
  FileSelection selection_;
  bool includeSubfolders_;
  std::set<std::filesystem::path> toldUnreadable_;
};

/// The listing of the wanted files: "{Folder} = " and the folder, then a path a line. Every line is handed
/// over with its CR LF. `events.Wanted` is not called.
FolderTotals ListFiles(FolderWalk& walk, const std::filesystem::path& folder, FolderEvents events,
                       const std::function<void(const std::string&)>& line);

/// A path below the chosen folder with the folder's own path written as "{Folder}".
std::string FolderAbbreviated(const std::filesystem::path& path, const std::filesystem::path& folder);

/// "No files will be scanned.", "1 file will be scanned.", "1,234 files will be scanned."
std::string WillBeScannedText(uint64_t count, const NumberFormat& format);

/// "Stopped while counting files (so far: 12)."
std::string StoppedCountingText(uint64_t count);

/// The notice about a folder that could not be read, without a line break.
std::string UnreadableFolderText(const std::filesystem::path& path, const FileError& error);

}  // namespace korv
