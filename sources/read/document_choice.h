#pragma once

#include <string>

namespace korv {

/// Which documents are read besides texts and .docx files, and what of them is text.
struct DocumentChoice {
  /// OpenDocument texts, e-books, PDF, RTF, subtitles and so on; without it they are refused, or read as the
  /// plain text that they are.
  bool Others = false;
  /// Of files for translators: "source" (or empty), "target", or the code of a language, as in "de" or
  /// "pt-BR".
  std::string Segments;
  /// Of XML files: only what stands inside of these elements, whose names stand between commas or blanks; all
  /// where there are none. Prefixes of names do not matter.
  std::string OnlyElements;
  /// And never what stands inside of these; empty: kSkippedElements, "none": all is text.
  std::string SkippedElements;

  bool operator==(const DocumentChoice&) const = default;
};

inline constexpr const char* kSkippedElements = "teiHeader, script, style";

}  // namespace korv
