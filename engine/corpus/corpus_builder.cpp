#include "engine/corpus/corpus_builder.h"

#include <limits>
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
  const std::string folded = corpus_.Rules.CaseSignificant ? std::string(word) : FoldCase(word);
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

Corpus CorpusBuilder::TakeCorpus() && {
  if (corpus_.Tokens.size() > std::numeric_limits<uint32_t>::max() - kTrailingEnds)
    throw std::length_error(Tr("The text has more than four thousand million words."));
  for (size_t k = 0; k < kTrailingEnds; ++k) corpus_.Tokens.push_back(kNoWord);
  corpus_.IndexSources();
  return std::move(corpus_);
}

}  // namespace korv
