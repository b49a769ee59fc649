#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

namespace korv {

/// A text with names of files, written with "/", as this system separates them.
inline std::string Native(std::string text) {
  std::ranges::replace(text, '/', static_cast<char>(std::filesystem::path::preferred_separator));
  return text;
}

/// The path of `rest`, written with "/", below `folder`: the folder as its user wrote it, the rest as this
/// system separates names.
inline std::string Below(std::string_view folder, std::string_view rest) {
  return std::string(folder) + Native("/" + std::string(rest));
}

/// A report written with "/" as this system separates the names after each "{Folder}", up to the end of a
/// column or a line. No name may hold two blanks in a row.
inline std::string WithNativePaths(std::string_view report) {
  constexpr std::string_view kFolder = "{Folder}/";
  std::string native;
  for (;;) {
    const size_t folder = report.find(kFolder);
    if (folder == report.npos) return native += report;
    native += report.substr(0, folder + kFolder.size() - 1);
    report.remove_prefix(folder + kFolder.size());
    const size_t end = std::min({report.find("  "), report.find_first_of("\t\r\n"), report.size()});
    native += Below("", report.substr(0, end));
    report.remove_prefix(end);
  }
}

}  // namespace korv
