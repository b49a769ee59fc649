#include "sources/read/read_plan.h"

#include <algorithm>

#include "sources/folders/met_paths.h"
#include "sources/read/document_readers.h"

namespace korv {

void ReadPlan::AddFile(const std::filesystem::path& path) {
  ++foldersMet_;
  EnterFolder({});
  Add(path);
}

FolderTotals ReadPlan::AddFolder(FolderWalk& walk, const std::filesystem::path& folder,
                                 const FolderEvents& events) {
  FolderEvents planned = events;
  planned.Entered = [this, &events](const std::filesystem::path& path) {
    ++foldersMet_;
    EnterFolder(path);
    if (events.Entered) events.Entered(path);
  };
  planned.Wanted = [this, &events](const std::filesystem::path& path) {
    Add(path.filename());
    if (events.Wanted) events.Wanted(path);
  };
  return walk.ProcessFolder(folder, WalkMode::Counting, planned);
}

bool ReadPlan::AddTogether(std::span<const SourcePath> paths, FileSystem& files, FolderWalk& walk,
                           const FolderEvents& events) {
  MetPaths met(files);
  const size_t foldersBefore = foldersMet_;
  FolderEvents planned = events;
  planned.Entered = [&](const std::filesystem::path& path) {
    met.MeetFolder(path);
    foldersMet_ = foldersBefore + met.Folders();
    EnterFolder(path);
    if (events.Entered) events.Entered(path);
  };
  planned.Wanted = [&](const std::filesystem::path& path) {
    if (!met.MeetFile(path)) return;
    Add(path.filename());
    if (events.Wanted) events.Wanted(path);
  };
  for (const SourcePath& source : paths) {
    const std::filesystem::path path = PathFromText(source.Path);
    if (source.What == SourcePath::Kind::Folder) {
      if (walk.ProcessFolder(path, WalkMode::Counting, planned).Stopped) return false;
      continue;
    }
    const bool isFile = source.What == SourcePath::Kind::File;
    // What is not there is told when it is to be read, and has no folder.
    if (isFile && files.FileExists(path) && !met.MeetFile(path)) continue;
    foldersMet_ = foldersBefore + met.Folders();
    EnterFolder({});
    Add(isFile ? path : std::filesystem::path());
    if (events.Wanted) events.Wanted(path);
  }
  return true;
}

PlannedDocument ReadPlan::Document(size_t index) const {
  const auto next = std::ranges::upper_bound(folders_, index, {}, &Folder::FirstDocument);
  const Folder& folder = *(next - 1);
  const size_t begin = index == 0 ? 0 : ends_[index - 1];
  const std::filesystem::path name = names_.substr(begin, ends_[index] - begin);
  const std::filesystem::path path = folder.Path.empty() ? name : folder.Path / name;
  return {path, &ReaderOfName(path, readAs_), folder.FoldersMet};
}

void ReadPlan::EnterFolder(const std::filesystem::path& path) {
  // Named files that lie in one folder, or in one that was met before, need no more than the first of them.
  if (path.empty() && !folders_.empty() && folders_.back().Path.empty() &&
      folders_.back().FoldersMet == foldersMet_)
    return;
  folders_.push_back({path, Documents(), foldersMet_});
}

void ReadPlan::Add(const std::filesystem::path& name) {
  names_ += name.native();
  ends_.push_back(names_.size());
  hasProgramComments_ = hasProgramComments_ || HoldsProgramComments(MarkersOfFile(name, readAs_).Language);
}

}  // namespace korv
