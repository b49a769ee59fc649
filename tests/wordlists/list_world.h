#pragma once

#include <string>
#include <vector>

#include "sources/detect/encoding_choice.h"
#include "sources/detect/text_file_check.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "wordlists/read_words.h"

namespace korv {

/// What reading a list file needs, in memory.
struct ListWorld {
  explicit ListWorld(EncodingChoice choice = EncodingChoice::Auto) : encodings(choice) {}

  /// Reads `content` as a list file; empty when it was refused.
  WordList Read(std::string content, ListKind kind = ListKind::WordsToIgnore) {
    files.Add("/lists/l.txt", std::move(content));
    WordList list;
    loaded = ReadWords(reading, "/lists/l.txt", kind, rules, list);
    return list;
  }

  FakeFiles files;
  FakeMessages messages;
  NumberFormat format;
  NoYielder yielder;
  EncodingChooser encodings;
  TextFileCheck check{files, messages, format, {}};
  std::vector<std::string> progress;
  ListReading reading{check, encodings, yielder,
                      [this](const std::string& text) { progress.push_back(text); }};
  WordRules rules;
  bool loaded = false;
};

}  // namespace korv
