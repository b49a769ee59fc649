#include "cli/path_list.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/translation.h"

namespace korv {

namespace {

constexpr std::string_view kSignature = "\xEF\xBB\xBF";

std::vector<std::string> PathsOf(std::string_view bytes, char separator) {
  const bool lines = separator == '\n';
  if (lines && bytes.starts_with(kSignature)) bytes.remove_prefix(kSignature.size());
  std::vector<std::string> paths;
  while (!bytes.empty()) {
    const size_t end = std::min(bytes.find(separator), bytes.size());
    std::string_view path = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    if (lines && path.ends_with('\r')) path.remove_suffix(1);
    if (!path.empty()) paths.emplace_back(path);
  }
  return paths;
}

}  // namespace

std::string UnreadableListText(const FileError& error) {
  return Fill(Tr("cannot be read (%1)"), {error.Description});
}

Expected<std::vector<std::string>, std::string> ReadPathList(InputFile& file, char separator) {
  std::string bytes;
  std::array<char, 1U << 16> block{};
  for (;;) {
    const auto read = file.Read(block);
    if (!read) return UnreadableListText(read.Error());
    if (*read == 0) return PathsOf(bytes, separator);
    bytes.append(block.data(), *read);
    if (bytes.size() > kMostPathListBytes) return std::string(Tr("is too long"));
  }
}

}  // namespace korv
