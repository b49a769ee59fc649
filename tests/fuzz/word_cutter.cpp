// Any text under the rules of a reader: each word is a part of the line, they come in order and do not
// overlap, and a second reading finds the same.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/utf8.h"
#include "engine/text/clean_text.h"
#include "sources/scan/word_cutter.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

class Words final : public WordSink {
 public:
  explicit Words(const std::string_view& line) : line_(line) {}
  void TakeWord(std::string_view word) override {
    Require(!word.empty() && MendedUtf8(word) == word);
    Require(word.data() >= line_.data() + end_ && word.data() + word.size() <= line_.data() + line_.size());
    end_ = static_cast<size_t>(word.data() - line_.data()) + word.size();
    Found.emplace_back(word);
  }
  void ResetPhrases() override {
    if (!Found.empty() && !Found.back().empty()) Found.emplace_back();
  }
  void BeginLine() { end_ = 0; }

  std::vector<std::string> Found;

 private:
  const std::string_view& line_;
  size_t end_ = 0;
};

std::vector<std::string> WordsOf(std::string_view text, const WordRules& rules) {
  std::string_view line;
  Words words(line);
  WordCutter cutter(rules, words);
  LineScanner<WordCutter> scanner(rules, {}, cutter);
  cutter.BeginSource(false);
  scanner.BeginSource();
  std::string cleaned;
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    // Without hyphens in pairs, which are cleaned away in another buffer.
    cleaned = CleanText(text.substr(begin, end - begin));
    for (size_t at = 0; (at = cleaned.find("--", at)) != cleaned.npos;) cleaned.erase(at, 1);
    line = cleaned;
    words.BeginLine();
    scanner.ScanLine(line);
    begin = end + 1;
  }
  return words.Found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 2, size - 2);
  WordRules rules;
  rules.TerminateAtSentence = data[0] & 1;
  rules.TerminateAtBlock = data[0] & 2;
  rules.UnicodeWords = data[0] & 4;
  rules.AllowApostrophes = data[0] & 8;
  rules.AllowNumerals = data[0] & 16;
  rules.TerminateAtComma = data[0] & 32;
  rules.AllowPeriods = data[0] & 64;
  rules.Segment = static_cast<Segmentation>(data[1] % 4);
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  const std::vector<std::string> found = WordsOf(text, rules);
  Require(WordsOf(text, rules) == found);
  return 0;
}
