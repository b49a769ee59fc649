#include "sources/folders/folder_walk.h"

#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "engine/text/unicode.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFolder = "{Folder}";

void SortByName(std::vector<fs::path>& names) {
  std::vector<std::pair<std::string, fs::path>> keyed;
  keyed.reserve(names.size());
  for (fs::path& name : names) keyed.emplace_back(LowerText(PathToText(name)), std::move(name));
  std::ranges::sort(keyed, [](const auto& a, const auto& b) {
    if (const int order = a.first.compare(b.first); order != 0) return order < 0;
    return PathToText(a.second) < PathToText(b.second) ||
           (PathToText(a.second) == PathToText(b.second) && a.second.native() < b.second.native());
  });
  std::ranges::transform(keyed, names.begin(), [](auto& entry) { return std::move(entry.second); });
}

bool IsEntered(const fs::path& subfolder) {
  const std::string name = LowerText(PathToText(subfolder));
  return name.find("recycle.bin") == std::string::npos && name != "extracted_text";
}

}  // namespace

FolderWalk::FolderWalk(FileSystem& files, Yielder& yielder, FileSelection selection, bool includeSubfolders)
    : files_(files),
      yielder_(yielder),
      selection_(std::move(selection)),
      includeSubfolders_(includeSubfolders) {}

FolderTotals FolderWalk::ProcessFolder(const fs::path& folder, WalkMode mode, const FolderEvents& events) {
  const bool counting = mode == WalkMode::Counting;
  if (counting && events.Say) events.Say(Tr("Counting files . . ."));
  FolderTotals totals;
  Walk(folder, events, totals);
  if (counting && totals.Stopped && events.Say) events.Say(StoppedCountingText(totals.Files));
  return totals;
}

bool FolderWalk::StopAsked(FolderTotals& totals) {
  yielder_.Yield();
  totals.Stopped = totals.Stopped || yielder_.Stopped();
  return totals.Stopped;
}

void FolderWalk::Walk(const fs::path& folder, const FolderEvents& events, FolderTotals& totals) {
  Expected<FolderListing, FileError> listing = files_.ListFolder(folder);
  if (!listing) {
    if (toldUnreadable_.insert(folder).second && events.Unreadable)
      events.Unreadable(folder, listing.Error());
    return;
  }
  ++totals.Folders;
  if (events.Entered) events.Entered(folder);
  std::vector<fs::path> names = std::move(listing->Files);
  std::erase_if(names, [&](const fs::path& name) { return !FileIsWanted(selection_, PathToText(name)); });
  SortByName(names);
  for (const fs::path& name : names) {
    if (StopAsked(totals)) return;
    ++totals.Files;
    if (events.Wanted) events.Wanted(folder / name);
  }
  if (!includeSubfolders_) return;
  names = std::move(listing->Subfolders);
  std::erase_if(names, [](const fs::path& name) { return !IsEntered(name); });
  SortByName(names);
  for (const fs::path& name : names) {
    if (StopAsked(totals)) return;
    Walk(folder / name, events, totals);
    if (totals.Stopped) return;
  }
}

FolderTotals ListFiles(FolderWalk& walk, const fs::path& folder, FolderEvents events,
                       const std::function<void(const std::string&)>& line) {
  line(std::string(kFolder) + " = " + PathToText(folder) + "\r\n");
  events.Wanted = [&](const fs::path& path) { line(FolderAbbreviated(path, folder) + "\r\n"); };
  return walk.ProcessFolder(folder, WalkMode::Reading, events);
}

std::string FolderAbbreviated(const fs::path& path, const fs::path& folder) {
  const std::string text = PathToText(path);
  std::string prefix = PathToText(folder);
  if (!text.starts_with(prefix)) return text;
  // The root of a drive ends with its separator, which then belongs to what follows.
  if (prefix.ends_with('/') || prefix.ends_with('\\')) prefix.pop_back();
  return std::string(kFolder) + text.substr(prefix.size());
}

std::string WillBeScannedText(uint64_t count, const NumberFormat& format) {
  if (count == 0) return Tr("No files will be scanned.");
  return Fill(TrCount("%1 file will be scanned.", "%1 files will be scanned.", count),
              {format.Grouped(static_cast<int64_t>(count))});
}

std::string StoppedCountingText(uint64_t count) {
  return Fill(Tr("Stopped while counting files (so far: %1)."), {std::to_string(count)});
}

std::string UnreadableFolderText(const fs::path& path, const FileError& error) {
  return Fill(Tr("Folder %1 cannot be read (%2)."), {PathToText(path), error.Description});
}

}  // namespace korv
