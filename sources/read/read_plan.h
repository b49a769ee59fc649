#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "engine/source_path.h"
#include "sources/folders/folder_walk.h"
#include "sources/read/document_reader.h"

namespace korv {

/// A document that is going to be read.
struct PlannedDocument {
  std::filesystem::path Path;    ///< Empty for standard input.
  const DocumentReader* Reader;  ///< By its name; its beginning may tell otherwise (see ReaderOfFile).
  size_t Folders;                ///< How many folders the plan has met by then, its own among them.
};

/// The documents that a run reads, in order: their paths, what their names tell of them, and what that means
/// for the run, settled before the first one is opened. Reading does not change it, so that any number of
/// threads may take documents from it; what they find belongs in the order of the plan.
///
/// Holds the name of each document, about its length and 9 bytes more, and the path of each folder.
class ReadPlan {
 public:
  /// `readAs`: see ReaderOfName.
  explicit ReadPlan(std::string readAs = {}) : readAs_(std::move(readAs)) {}

  /// A single file, by any path.
  void AddFile(const std::filesystem::path& path);
  /// Walks `folder` and adds its wanted files. Calls `events` as the walk goes on.
  FolderTotals AddFolder(FolderWalk& walk, const std::filesystem::path& folder, const FolderEvents& events);
  /// Files as they are named and the wanted ones of folders, in the order of `paths`. A file that is met
  /// twice is read once, and a folder counts once; what was added before does not matter. Calls `events` for
  /// each document and for what the walks tell. False when stopped. Asks the disk about each folder once
  /// more, and holds the names of all files twice meanwhile.
  bool AddTogether(std::span<const SourcePath> paths, FileSystem& files, FolderWalk& walk,
                   const FolderEvents& events);

  size_t Documents() const { return ends_.size(); }
  /// Folders entered and those of named files, those without wanted files among them.
  size_t Folders() const { return foldersMet_; }
  /// Logarithmic in the number of folders.
  PlannedDocument Document(size_t index) const;
  /// Whether some document may hold comments of programs, whose markers must then be no words.
  bool HasProgramComments() const { return hasProgramComments_; }

 private:
  using Name = std::filesystem::path::string_type;
  /// Documents that follow each other below one path.
  struct Folder {
    std::filesystem::path Path;  ///< Empty where the names are whole paths.
    size_t FirstDocument;
    size_t FoldersMet;
  };

  void EnterFolder(const std::filesystem::path& path);
  void Add(const std::filesystem::path& name);

  std::string readAs_;
  std::vector<Folder> folders_;
  size_t foldersMet_ = 0;
  Name names_;                ///< One behind the other.
  std::vector<size_t> ends_;  ///< Where each of them ends.
  bool hasProgramComments_ = false;
};

}  // namespace korv
