#include "engine/word_stream.h"

#include "engine/unicode.h"
#include "engine/word_verdict.h"

namespace korv {

WordStream::WordStream(const WordRules& rules, const RunOptions& options, const RunLists& lists)
    : rules_(rules), options_(options), lists_(&lists), numbers_{kNoWord} {}

void WordStream::BeginSource(const std::filesystem::path& path) {
  ResetPhrases();
  sources_.push_back({path, numbers_.size()});
}

void WordStream::TakeWord(std::string_view word) {
  // Too long to be counted whatever its characters are; such things are not worth remembering.
  constexpr size_t kMostBytesOfCharacter = 4;
  if (word.size() > static_cast<size_t>(rules_.LongWordSize) * kMostBytesOfCharacter)
    return Feed(Dropped(DropReason::Long));
  const uint32_t cut = asCut_.Number(word);
  if (cut == verdicts_.size()) verdicts_.push_back(Judge(word));
  Feed(verdicts_[cut]);
}

void WordStream::GetWords2(std::string_view word) {
  Feed(Admit(word));
}

WordNumber WordStream::Judge(std::string_view word) {
  if (const auto reason = DroppedByForm(word, rules_)) return Dropped(*reason);
  const std::string folded = rules_.CaseSignificant ? std::string(word) : LowerText(word);
  if (options_.IgnoreMode == IgnoreRule::Remove && lists_->IsWordToIgnore(folded))
    return Dropped(DropReason::Ignored);
  return Admit(folded);
}

WordNumber WordStream::Admit(std::string_view word) {
  if (rules_.Only7bitASCII && !Is7bit(word)) return Dropped(DropReason::Not7bit);
  // Asked here and not of every phrase: no phrase can hold the word or go past it.
  if (options_.IgnoreMode == IgnoreRule::ExcludeWith && lists_->IsWordToIgnore(word)) return kEndsPhrase;
  return vocabulary_.Number(word);
}

void WordStream::Feed(WordNumber verdict) {
  if (verdict > kEndsPhrase) {
    ++counts_.DroppedBy[verdict - kEndsPhrase - 1];
    return;
  }
  ++counts_.Taken;
  if (verdict == kEndsPhrase)
    ResetPhrases();
  else
    numbers_.push_back(verdict);
}

}  // namespace korv
