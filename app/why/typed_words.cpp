#include "app/why/typed_words.h"

#include <utility>

#include "engine/corpus/corpus_builder.h"
#include "sources/read/text_decoder.h"
#include "sources/scan/word_cutter.h"

namespace korv {

namespace {

/// Takes words as a corpus does, and looks what became of each.
class WordLooker final : public WordSink {
 public:
  explicit WordLooker(const Corpus& corpus)
      : corpus_(corpus), builder_(corpus.Rules, corpus.Options, *corpus.Lists) {}

  void TakeWord(std::string_view word) override {
    const WordCounts before = builder_.Counts();
    const size_t tokens = builder_.Corpus().Tokens.size();
    builder_.TakeWord(word);
    const WordCounts& after = builder_.Counts();
    TypedWord taken{
        .Text = std::string(word), .Dropped = std::nullopt, .BehindEnd = std::exchange(end_, false)};
    for (size_t reason = 0; reason < kDropReasons; ++reason)
      if (after.DroppedBy[reason] > before.DroppedBy[reason]) taken.Dropped = static_cast<DropReason>(reason);
    const auto& now = builder_.Corpus().Tokens;
    const bool isToken = now.size() > tokens && now.back() != kNoWord;
    taken.Excludes = !taken.Dropped && !isToken;
    if (isToken) taken.Number = corpus_.Words.Find(builder_.Corpus().Words.Text(now.back()));
    Words.push_back(std::move(taken));
  }
  void ResetPhrases() override {
    builder_.ResetPhrases();
    end_ = true;
  }

  std::vector<TypedWord> Words;

 private:
  const Corpus& corpus_;
  CorpusBuilder builder_;
  bool end_ = false;
};

}  // namespace

std::vector<TypedWord> TypedWordsOf(std::string_view text, const Corpus& corpus) {
  WordLooker looker(corpus);
  WordCutter cutter(corpus.Rules, looker);
  LineScanner<WordCutter> scanner(corpus.Rules, {}, cutter);
  std::string buffer;
  scanner.BeginSource();
  scanner.ScanLine(DecodeText(text, TextEncoding::Utf8, buffer));
  return std::move(looker.Words);
}

}  // namespace korv
