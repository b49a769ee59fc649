#include "sources/read/read_plan.h"

#include <algorithm>

#include "sources/read/document_readers.h"

namespace korv {

void ReadPlan::AddFile(const std::filesystem::path& path) {
  EnterFolder({});
  Add(path);
}

FolderTotals ReadPlan::AddFolder(FolderWalk& walk, const std::filesystem::path& folder,
                                 const FolderEvents& events) {
  FolderEvents planned = events;
  planned.Entered = [this, &events](const std::filesystem::path& path) {
    EnterFolder(path);
    if (events.Entered) events.Entered(path);
  };
  planned.Wanted = [this, &events](const std::filesystem::path& path) {
    Add(path.filename());
    if (events.Wanted) events.Wanted(path);
  };
  return walk.ProcessFolder(folder, WalkMode::Counting, planned);
}

PlannedDocument ReadPlan::Document(size_t index) const {
  const auto next = std::ranges::upper_bound(folders_, index, {}, &Folder::FirstDocument);
  const auto folder = static_cast<size_t>(next - folders_.begin()) - 1;
  const size_t begin = index == 0 ? 0 : ends_[index - 1];
  const std::filesystem::path path = folders_[folder].Path / names_.substr(begin, ends_[index] - begin);
  return {path, &ReaderOfName(path), folder};
}

void ReadPlan::EnterFolder(const std::filesystem::path& path) {
  folders_.push_back({path, Documents()});
}

void ReadPlan::Add(const std::filesystem::path& name) {
  names_ += name.native();
  ends_.push_back(names_.size());
  hasProgramComments_ = hasProgramComments_ || HoldsProgramComments(MarkersOfFile(name).Language);
}

}  // namespace korv
