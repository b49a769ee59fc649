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
  explicit ListWorld(EncodingChoice choice = EncodingChoice::Auto) : Encodings(choice) {}

  /// Reads `content` as a list file; empty when it was refused.
  WordList Read(std::string content, ListKind kind = ListKind::WordsToIgnore) {
    Files.Add("/lists/l.txt", std::move(content));
    WordList list;
    Loaded = ReadWords(Reading, "/lists/l.txt", kind, Rules, list);
    return list;
  }

  FakeFiles Files;
  FakeMessages Messages;
  NumberFormat Format;
  NoYielder Yielder;
  EncodingChooser Encodings;
  TextFileCheck Check{Files, Messages, Format, {}};
  std::vector<std::string> Progress;
  ListReading Reading{Check, Encodings, Yielder,
                      [this](const std::string& text) { Progress.push_back(text); }};
  WordRules Rules;
  bool Loaded = false;
};

}  // namespace korv
