#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "base/yielder.h"
#include "engine/text/word_rules.h"
#include "sources/detect/encoding_choice.h"
#include "sources/detect/text_file_check.h"
#include "wordlists/list_kind.h"
#include "wordlists/word_list.h"

namespace korv {

/// What reading a list file works with.
struct ListReading {
  TextFileCheck& Check;
  EncodingChooser& Encodings;
  Yielder& Yield;  ///< Called after each line.
  /// Told "Number of words read so far: " and the number, every ten new words; may be empty.
  std::function<void(const std::string&)> ShowWordsRead;
};

/// Reads a list file into `list`. A file of words to ignore is cut into words like the text that is counted,
/// with "~" and "?" among the characters of words; a count-only file has one entry a line. C comments are
/// left out of both. False when the file cannot be read; the user has been told then, and `list` is
/// unchanged.
bool ReadWords(ListReading& reading, const std::filesystem::path& path, ListKind kind, const WordRules& rules,
               WordList& list);

/// The same for a file that may be gone, which is told with a message. `stateLabel` is set when the list was
/// loaded.
bool AttemptToReadWords(ListReading& reading, const std::filesystem::path& path, ListKind kind,
                        const WordRules& rules, WordList& list, std::string& stateLabel);

}  // namespace korv
