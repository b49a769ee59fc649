#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "engine/patterns/word_filters.h"
#include "engine/text/word_rules.h"
#include "wordlists/read_words.h"

namespace korv {

/// The list files and list entries that the user chose.
struct ListRequest {
  std::optional<std::filesystem::path> IgnoreFile;
  std::string IgnoreWords;  ///< As typed, separated by blanks.
  bool PatternMatching = false;
  std::optional<std::filesystem::path> CountOnlyFile;
  std::string CountOnly;  ///< As typed, separated by comma and blank.
};

/// The lists of a run from loaded files (null: none) and typed text.
WordFilterSpec MakeWordFilterSpec(const WordList* ignoreFile, const std::string& ignoreWords,
                                  bool patternMatching, const WordList* countOnlyFile,
                                  const std::string& countOnly, const WordRules& rules);

/// Reads the files and checks the typed text. Empty when a file could not be read; the user has been told.
std::optional<WordFilterSpec> LoadWordFilters(const ListRequest& request, const WordRules& rules,
                                              ListReading& reading);

}  // namespace korv
