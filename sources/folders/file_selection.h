#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/messages.h"

namespace korv {

/// Which files of a folder are wanted, as typed by the user.
struct FileSelection {
  std::vector<std::string> Patterns;    ///< "*" and "?" are wildcards; none at all wants every file.
  std::vector<std::string> Exclusions;  ///< Names that hold one of these are not wanted.
  bool OtherDocuments = false;          ///< Further kinds of documents are read: none of them is refused.

  bool operator==(const FileSelection&) const = default;
};

inline constexpr size_t kMostPatterns = 100;

/// Splits at commas and blanks, and keeps the first kMostPatterns.
std::vector<std::string> SplitPatterns(std::string_view typed);
/// Joined by ", ", as the box is rewritten.
std::string JoinPatterns(std::span<const std::string> patterns);

/// False after showing the first fault: a pattern with one of "~,;/\<>`", an exclusion with "*" or "?".
bool ValidatePatterns(const FileSelection& selection, Messages& messages);
/// When the pattern box loses the focus: says so where it asks for .doc files.
void WarnAboutDocPattern(std::string_view typed, Messages& messages);

/// Whether an extension (lower-cased, without its dot) is of a type that is never scanned.
bool IsRefusedExtension(std::string_view extension);
/// Whether a file is wanted, by its name alone and without regard to case: its extension is not refused, no
/// exclusion occurs in the name, and a pattern matches it. `filePath` may be a path or a name.
bool FileIsWanted(const FileSelection& selection, std::string_view filePath);
/// Whether `name` matches: "*" is any run of characters, "?" any one. Both lower-cased already.
/// Costs at worst the product of both lengths.
bool MatchesWildcards(std::string_view name, std::string_view pattern);

}  // namespace korv
