#include "sources/folders/file_selection.h"

#include <algorithm>
#include <array>

#include "base/translation.h"
#include "engine/text/unicode.h"
#include "sources/detect/classification.h"
#include "sources/documents/other_readers.h"

namespace korv {

namespace {

// In UTF-8 every byte that is no continuation begins a character.
size_t AfterCharacter(std::string_view text, size_t at) {
  do ++at;
  while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
  return at;
}

void Complain(std::string text, Messages& messages) {
  messages.Show({.Text = std::move(text), .Title = Tr("Invalid input"), .Icon = Icon::Exclamation});
}

}  // namespace

std::vector<std::string> SplitPatterns(std::string_view typed) {
  constexpr std::string_view kBetween = ", \t\r\n";
  std::vector<std::string> patterns;
  size_t at = typed.find_first_not_of(kBetween);
  while (at != std::string_view::npos && patterns.size() < kMostPatterns) {
    const size_t end = std::min(typed.find_first_of(kBetween, at), typed.size());
    patterns.emplace_back(typed.substr(at, end - at));
    at = typed.find_first_not_of(kBetween, end);
  }
  return patterns;
}

std::string JoinPatterns(std::span<const std::string> patterns) {
  std::string joined;
  for (const std::string& pattern : patterns) {
    if (!joined.empty()) joined += ", ";
    joined += pattern;
  }
  return joined;
}

bool ValidatePatterns(const FileSelection& selection, Messages& messages) {
  for (const std::string& pattern : selection.Patterns) {
    if (pattern.find_first_of("~,;/\\<>`") != std::string::npos) {
      Complain(Fill(Tr("File pattern '%1' contains an invalid character."), {pattern}), messages);
      return false;
    }
  }
  for (const std::string& text : selection.Exclusions) {
    if (text.find_first_of("*?") != std::string::npos) {
      Complain(Fill(Tr("Folder pattern '%1' contains an invalid character."), {text}), messages);
      return false;
    }
  }
  return true;
}

void WarnAboutDocPattern(std::string_view typed, Messages& messages) {
  if (!typed.ends_with(".doc") && typed.find(".doc,") == std::string_view::npos) return;
  messages.Show({.Text = Tr("This software does not process .doc files.  To process\n"
                            "Word .doc files they should first be converted to .docx files."),
                 .Title = Tr("Match file patterns"),
                 .Icon = Icon::Information});
}

bool IsRefusedExtension(std::string_view extension) {
  static constexpr std::array<std::string_view, 27> kRefused = {
      "ico", "gif", "jpg", "png", "bmp", "zip", "bin", "xls", "mdb", "pdf",      "com", "exe",  "dll", "cab",
      "ocx", "vxd", "drv", "sys", "vbx", "386", "---", "css", "js",  "loaded_0", "ini", "gdoc", "doc"};
  return std::ranges::find(kRefused, extension) != kRefused.end();
}

bool FileIsWanted(const FileSelection& selection, std::string_view filePath) {
  const std::string name = LowerText(FileNamePart(filePath));
  const std::string extension = FileExtension(name, false);
  if (IsRefusedExtension(extension) && !(selection.OtherDocuments && IsOtherExtension(extension)))
    return false;
  for (const std::string& text : selection.Exclusions)
    if (name.find(LowerText(text)) != std::string::npos) return false;
  if (selection.Patterns.empty()) return true;
  return std::ranges::any_of(selection.Patterns, [&](const std::string& pattern) {
    return pattern == "*.*" || MatchesWildcards(name, LowerText(pattern));
  });
}

bool MatchesWildcards(std::string_view name, std::string_view pattern) {
  // Where a "*" was met last, and how much of the name it takes so far.
  size_t star = std::string_view::npos;
  size_t taken = 0;
  size_t at = 0;
  size_t p = 0;
  while (at < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      taken = at;
    } else if (p < pattern.size() && pattern[p] == '?') {
      ++p;
      at = AfterCharacter(name, at);
    } else if (p < pattern.size() && pattern[p] == name[at]) {
      ++p;
      ++at;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      taken = AfterCharacter(name, taken);
      at = taken;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace korv
