#include "engine/corpus/corpus_builder.h"

#include <algorithm>
#include <limits>
#include <span>
#include <stdexcept>
#include <utility>

#include "base/translation.h"
#include "engine/text/unicode.h"
#include "engine/text/word_form.h"

namespace korv {

CorpusBuilder::CorpusBuilder(const WordRules& rules, const RunOptions& options, const WordFilters& lists) {
  corpus_.Rules = rules;
  corpus_.Options = options;
  corpus_.Lists = &lists;
  corpus_.Tokens.push_back(kNoWord);
}

void CorpusBuilder::BeginSource(const std::filesystem::path& path) {
  ResetPhrases();
  corpus_.Sources.push_back({path, corpus_.Tokens.size(), counts_.Taken, {}});
  corpus_.Lines.BeginSource();
}

void CorpusBuilder::TakeWord(std::string_view word) {
  // Too long whatever its characters are. Such words need no place in the table.
  constexpr size_t kMostBytesOfCharacter = 4;
  if (word.size() > static_cast<size_t>(corpus_.Rules.LongWordSize) * kMostBytesOfCharacter)
    return Feed(Dropped(DropReason::Long));
  const uint32_t cut = asCut_.Number(word);
  if (cut == classes_.size()) classes_.push_back(ClassifyWord(word));
  Feed(classes_[cut]);
}

void CorpusBuilder::GetWords2(std::string_view word) {
  Feed(Admit(word));
}

WordNumber CorpusBuilder::ClassifyWord(std::string_view word) {
  if (const auto reason = DroppedByForm(word, corpus_.Rules)) return Dropped(*reason);
  const std::string folded = FoldedWord(word, corpus_.Rules);
  if (corpus_.Options.IgnoreMode == IgnoreRule::Remove && corpus_.Lists->IsWordToIgnore(folded))
    return Dropped(DropReason::Ignored);
  return Admit(folded);
}

WordNumber CorpusBuilder::Admit(std::string_view word) {
  if (corpus_.Rules.Only7bitASCII && !Is7bit(word)) return Dropped(DropReason::Not7bit);
  // Looked up once per word, not once per phrase: no phrase can hold the word.
  if (corpus_.Options.IgnoreMode == IgnoreRule::ExcludeWith && corpus_.Lists->IsWordToIgnore(word))
    return kEndsPhrase;
  return corpus_.Words.Number(word);
}

void CorpusBuilder::Feed(WordNumber wordClass) {
  if (wordClass > kEndsPhrase) {
    ++counts_.DroppedBy[(wordClass - kEndsPhrase) - 1];
    return;
  }
  ++counts_.Taken;
  if (wordClass != kEndsPhrase) return corpus_.Tokens.push_back(wordClass);
  ResetPhrases();
  if (KeepsPlaces(corpus_.Options))
    corpus_.WordsAtEnds.push_back(Place{static_cast<uint32_t>(corpus_.Tokens.size() - 1)});
}

void CorpusBuilder::BeginPiece() {
  corpus_.Tokens.clear();
  corpus_.Tokens.push_back(CorpusPiece::kBegin);
  corpus_.WordsAtEnds.clear();
  corpus_.Lines.Clear();
  counts_ = {};
}

void CorpusBuilder::TakePiece(CorpusPiece& piece) {
  std::swap(piece.Tokens, corpus_.Tokens);
  std::swap(piece.WordsAtEnds, corpus_.WordsAtEnds);
  std::swap(piece.Lines, corpus_.Lines);
  piece.Counts = counts_;
  piece.NewWords.clear();
  piece.NewWordEnds.clear();
  for (; wordsGiven_ < corpus_.Words.Size(); ++wordsGiven_) {
    piece.NewWords.append(std::span(corpus_.Words.Text(WordNumber{wordsGiven_ + 1})));
    piece.NewWordEnds.push_back(piece.NewWords.size());
  }
}

void CorpusBuilder::Append(const CorpusPiece& piece, const PieceBegin& begin, PartNumbers& numbers) {
  if (numbers.size() == 0) numbers.push_back(kNoWord);
  uint64_t wordBegin = 0;
  for (const uint64_t end : piece.NewWordEnds) {
    numbers.push_back(corpus_.Words.Number({piece.NewWords.data() + wordBegin, end - wordBegin}));
    wordBegin = end;
  }
  GrowingArray<WordNumber>& tokens = corpus_.Tokens;
  const size_t before = tokens.size();
  // The phrase end at which the piece begins may be there already.
  const bool same = piece.Tokens.size() > 1 && piece.Tokens[1] == kNoWord && tokens.back() == kNoWord;
  const size_t shift = before - (same ? 1 : 0);
  const auto placeOf = [shift](Place place) {
    return Place{static_cast<uint32_t>(ValueOf(place) - 1 + shift)};
  };
  const size_t first = same ? 2 : 1;
  const size_t more = piece.Tokens.size() - first;
  WordNumber* const to = tokens.Extend(more);
  const WordNumber* const from = piece.Tokens.data() + first;
  for (size_t i = 0; i < more; ++i) to[i] = numbers[ValueOf(from[i])];
  for (const Place end : piece.WordsAtEnds) corpus_.WordsAtEnds.push_back(placeOf(end));
  // A line that begins before that phrase end can give no token before what follows.
  corpus_.Lines.Append(piece.Lines, begin.Offset, begin.Lines, [&](Place place) {
    return std::max(placeOf(place), Place{static_cast<uint32_t>(before)});
  });
  counts_ = counts_ + piece.Counts;
}

Corpus CorpusBuilder::TakeCorpus() && {
  if (corpus_.Tokens.size() > std::numeric_limits<uint32_t>::max() - kTrailingEnds)
    throw std::length_error(Tr("The text has more than four thousand million words."));
  for (size_t k = 0; k < kTrailingEnds; ++k) corpus_.Tokens.push_back(kNoWord);
  corpus_.IndexSources();
  return std::move(corpus_);
}

}  // namespace korv
