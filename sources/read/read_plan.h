#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

#include "sources/folders/folder_walk.h"
#include "sources/read/document_reader.h"

namespace korv {

/// A document that is going to be read.
struct PlannedDocument {
  std::filesystem::path Path;
  const DocumentReader* Reader;  ///< By its name; its beginning may tell otherwise (see ReaderOfFile).
  size_t Folder;                 ///< Index of its folder in the plan.
};

/// The documents that a run reads, in order: their paths, what their names tell of them, and what that means
/// for the run, settled before the first one is opened. Reading does not change it, so that any number of
/// threads may take documents from it; what they find belongs in the order of the plan.
///
/// Holds the name of each document, about its length and 9 bytes more, and the path of each folder.
class ReadPlan {
 public:
  /// A single file, by any path.
  void AddFile(const std::filesystem::path& path);
  /// Walks `folder` and adds its wanted files. Calls `events` as the walk goes on.
  FolderTotals AddFolder(FolderWalk& walk, const std::filesystem::path& folder, const FolderEvents& events);

  size_t Documents() const { return ends_.size(); }
  /// Folders entered, those without wanted files among them.
  size_t Folders() const { return folders_.size(); }
  /// Logarithmic in the number of folders.
  PlannedDocument Document(size_t index) const;
  /// Whether some document may hold comments of programs, whose markers must then be no words.
  bool HasProgramComments() const { return hasProgramComments_; }

 private:
  using Name = std::filesystem::path::string_type;
  struct Folder {
    std::filesystem::path Path;
    size_t FirstDocument;
  };

  void EnterFolder(const std::filesystem::path& path);
  void Add(const std::filesystem::path& name);

  std::vector<Folder> folders_;
  Name names_;                ///< One behind the other.
  std::vector<size_t> ends_;  ///< Where each of them ends.
  bool hasProgramComments_ = false;
};

}  // namespace korv
