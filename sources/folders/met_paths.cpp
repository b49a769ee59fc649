#include "sources/folders/met_paths.h"

#include <algorithm>

#include "engine/text/unicode.h"

namespace korv {

namespace fs = std::filesystem;

void MetPaths::MeetFolder(const fs::path& folder) {
  NumberOf(folder);
}

bool MetPaths::MeetFile(const fs::path& file) {
  const size_t folder = NumberOf(file.parent_path());
  // Whether case matters is for the disk to say.
  Spellings& names = met_[std::to_string(folder) + '/' + LowerText(PathToText(file.filename()))];
  const bool known = std::any_of(names.begin(), names.end(), [&](const fs::path& other) {
    return other.filename() == file.filename() || files_.SameFile(other, file);
  });
  if (!known) names.push_back(file);
  return !known;
}

size_t MetPaths::NumberOf(const fs::path& folder) {
  if (lastNumber_ != 0 && folder == last_) return lastNumber_;
  const fs::path canonical = files_.CanonicalPath(folder.empty() ? fs::path(".") : folder);
  auto& alike = numbers_[LowerText(PathToText(canonical))];
  auto known = std::find_if(alike.begin(), alike.end(), [&](const auto& other) {
    return other.first == canonical || files_.SameFile(other.first, canonical);
  });
  if (known == alike.end()) known = alike.insert(alike.end(), {canonical, ++folders_});
  last_ = folder;
  lastNumber_ = known->second;
  return lastNumber_;
}

}  // namespace korv
