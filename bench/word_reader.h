#pragma once

#include <filesystem>
#include <fstream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "engine/text/unicode.h"
#include "engine/text/word_form.h"
#include "engine/text/word_rules.h"
#include "platform/files.h"
#include "sources/detect/comment_markers.h"
#include "sources/read/text_reader.h"
#include "sources/scan/line_scanner.h"

namespace korv::bench {

/// A file of the standard library's streams, so that a benchmark needs nothing of the platform layer.
class StreamFile final : public InputFile {
 public:
  explicit StreamFile(const std::filesystem::path& path) : stream_(path, std::ios::binary) {
    if (!stream_) throw std::runtime_error("cannot open " + path.string());
    size_ = std::filesystem::file_size(path);
  }
  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    stream_.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    return static_cast<size_t>(stream_.gcount());
  }
  uint64_t Size() const override { return size_; }

 private:
  std::ifstream stream_;
  uint64_t size_ = 0;
};

/// Reads a plain UTF-8 text and hands over its words under the default word rules, in lower case, exactly
/// those that a counting run with default options forms phrases of.
///
///   struct Visitor {
///     void Word(const std::string& word);
///     void DroppedWord();                // one that the rules drop, such as a short one
///     void PhraseEnd();                  // no phrase goes on here
///     bool Line(std::string_view line);  // after each line; false ends the reading
///   };
template <typename Visitor>
void ReadWordsOf(const std::filesystem::path& path, Visitor& visitor) {
  struct Sink final : WordSink {
    Sink(const WordRules& wordRules, Visitor& wordVisitor) : Rules(wordRules), Counter(wordVisitor) {}
    void TakeWord(std::string_view word) override {
      if (DroppedByForm(word, Rules)) {
        Counter.DroppedWord();
      } else {
        Counter.Word(FoldCase(word));
      }
    }
    void ResetPhrases() override { Counter.PhraseEnd(); }
    const WordRules& Rules;
    Visitor& Counter;
  };

  WordRules rules;
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  Sink sink(rules, visitor);
  LineScanner<WordSink> scanner(rules, CommentMarkers{}, sink);
  StreamFile file(path);
  TextReader reader({}, &file, TextEncoding::Utf8);
  scanner.BeginSource();
  while (reader.NextLine()) {
    scanner.ScanLine(reader.Line());
    if (!visitor.Line(reader.Line())) return;
  }
}

}  // namespace korv::bench
