#include "report/folder_paths.h"

#include "base/utf8.h"
#include "platform/files.h"

namespace korv {

namespace {
constexpr std::string_view kFolder = "{Folder}";

bool IsSeparator(char c) {
  return c == '/' || c == '\\';
}
}  // namespace

std::string ShownPath(std::string_view given) {
  return MendedUtf8(given);
}

std::string AbbreviatePath(std::string_view path, std::string_view folder) {
  if (folder.empty() || !path.starts_with(folder)) return std::string(path);
  std::string_view rest = path.substr(folder.size());
  // The root of a drive ends with its separator, which then belongs to what follows.
  if (IsSeparator(folder.back()))
    rest = path.substr(folder.size() - 1);
  else if (!rest.empty() && !IsSeparator(rest.front()))
    return std::string(path);
  return std::string(kFolder).append(rest);
}

std::vector<std::string> AbbreviatePaths(const std::vector<std::filesystem::path>& paths,
                                         std::string_view folder) {
  std::vector<std::string> texts;
  texts.reserve(paths.size());
  for (const auto& path : paths)
    texts.push_back(path.empty() ? "-" : AbbreviatePath(PathToText(path), folder));
  return texts;
}

}  // namespace korv
