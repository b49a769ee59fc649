#include "app/texts/rules_sample.h"

#include "engine/text/unicode.h"
#include "engine/text/word_form.h"
#include "sources/detect/comment_markers.h"
#include "sources/read/text_reader.h"
#include "sources/scan/word_cutter.h"

namespace korv {

namespace {

/// Writes down what the scanner finds, as far as the rules let it pass.
class SampleSink final : public WordSink {
 public:
  explicit SampleSink(const WordRules& rules) : rules_(rules) {}

  void TakeWord(std::string_view word) override {
    if (DroppedByForm(word, rules_)) return;
    const std::string folded = FoldedWord(word, rules_);
    if (rules_.Only7bitASCII && !Is7bit(folded)) return;
    if (!found_.empty()) found_ += phraseEnds_ ? " || " : " | ";
    found_ += folded;
    phraseEnds_ = false;
  }
  void ResetPhrases() override { phraseEnds_ = true; }

  std::string Take() { return std::move(found_); }

 private:
  const WordRules& rules_;
  std::string found_;
  bool phraseEnds_ = false;
};

std::string Replaced(std::string_view text, std::string_view mark, char meant) {
  std::string result;
  for (size_t at = 0; at < text.size();) {
    const bool found = text.substr(at).starts_with(mark);
    result += found ? meant : text[at];
    at += found ? mark.size() : 1;
  }
  return result;
}

}  // namespace

std::string RulesSample() {
  return "I don't see R&D, stop-loss, my_file, MP3 word(s), and/or red,green at C:\\dir e.g. me@home.org: "
         "2024 Grrrr! Caf\xC3\xA9" +
         std::string(kTabMark) + "Korv said\" then" + std::string(kLineEndMark) + "left";
}

std::string WordsOfSample(std::string_view sample, const WordRules& rules) {
  WordRules current = rules;
  SetAllowedExtraChars(current);
  SetAllowedExtraChars2(current);
  SampleSink sink(current);
  WordCutter cutter(current, sink);
  LineScanner<WordCutter> scanner(current, CommentMarkers{}, cutter);
  scanner.BeginSource();
  TextReader reader(Replaced(Replaced(sample, kLineEndMark, '\n'), kTabMark, '\t'), nullptr,
                    TextEncoding::Utf8);
  while (reader.NextLine()) scanner.ScanLine(reader.Line(), reader.StartsLine());
  return sink.Take();
}

}  // namespace korv
