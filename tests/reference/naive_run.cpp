#include "tests/reference/naive_run.h"

#include <algorithm>
#include <utility>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

int WordsIn(std::string_view phrase) {
  return static_cast<int>(std::count(phrase.begin(), phrase.end(), '+')) + 1;
}

std::string WithBlanks(std::string phrase) {
  std::replace(phrase.begin(), phrase.end(), '+', ' ');
  return phrase;
}

}  // namespace

std::string RulesDrop(std::string_view word, const WordRules& rules) {
  const std::u32string characters = Decode(word);
  const auto length = static_cast<int>(characters.size());
  if (rules.IgnoreShortWords && length < rules.ShortWordSize) return "short";
  if (length > rules.LongWordSize) return "long";
  if (rules.IgnoreNoLetter && std::none_of(characters.begin(), characters.end(), IsLetter))
    return "letterless";
  if (rules.IgnoreRepetitions) {
    const std::u32string lowered = Decode(Lower(word));
    for (size_t i = 3; i < characters.size(); ++i) {
      if (IsLetter(characters[i]) && lowered[i] == lowered[i - 1] && lowered[i] == lowered[i - 2] &&
          lowered[i] == lowered[i - 3]) {
        return "repetition";
      }
    }
  }
  return "";
}

std::vector<size_t> PlacesOf(const std::vector<std::string>& words, const std::vector<std::string>& phrase) {
  std::vector<size_t> places;
  for (size_t place = 0; place + phrase.size() <= words.size(); ++place) {
    bool same = true;
    for (size_t k = 0; k < phrase.size(); ++k) same = same && words[place + k] == phrase[k];
    if (same) places.push_back(place);
  }
  return places;
}

CountingRun::CountingRun(const WordRules& rules, const RunOptions& options, WordFilterSpec entries)
    : rules_(rules),
      options_(options),
      lists_(std::move(entries)),
      table_(options.SourceKind),
      buffers_(static_cast<size_t>(options.MaxWords) + 1) {}

void CountingRun::BeginSource(std::string_view path) {
  table_.SetPath(path);
  wordsOfSources_.push_back(0);
  ResetPhrases();
}

void CountingRun::TakeWord(std::string_view word) {
  if (const std::string rule = RulesDrop(word, rules_); !rule.empty()) {
    ++dropped_[rule];
    return;
  }
  std::string folded = rules_.CaseSignificant ? std::string(word) : Fold(word);
  if (options_.IgnoreMode == IgnoreRule::Remove && lists_.IsWordToIgnore(folded)) {
    ++dropped_["ignored"];
    return;
  }
  GetWords2(folded);
}

void CountingRun::GetWords2(std::string_view word, const WordEnd& end) {
  const bool sevenBit = std::all_of(word.begin(), word.end(), [](char c) { return (c & 0x80) == 0; });
  if (rules_.Only7bitASCII && !sevenBit) {
    ++dropped_["not 7-bit"];
  } else {
    ++taken_;
    if (!wordsOfSources_.empty()) ++wordsOfSources_.back();
    // No phrase holds or crosses a word that excludes every phrase with it.
    if (options_.IgnoreMode == IgnoreRule::ExcludeWith && lists_.IsWordToIgnore(word))
      NoteEnd();
    else
      NoteWord(word);
    for (int k = options_.MinWords; k <= options_.MaxWords; ++k) {
      std::string& buffer = buffers_[static_cast<size_t>(k)];
      if (buffer.empty() || k == 1) {
        buffer = word;
      } else {
        if (WordsIn(buffer) >= k) buffer.erase(0, buffer.find('+') + 1);
        buffer += "+" + std::string(word);
      }
      if (WordsIn(buffer) != k) continue;
      std::string phrase = buffer;
      if (options_.IgnoreMode == IgnoreRule::Remove && lists_.HasWordsToIgnore()) {
        phrase = StripPhrase(buffer);
        std::replace(phrase.begin(), phrase.end(), ' ', '+');
        if (phrase.empty() || WordsIn(phrase) < options_.MinWords || WordsIn(phrase) > options_.MaxWords)
          continue;
      }
      if (!IgnoreRuleAccepts(phrase) || !lists_.CountOnlyAdmits(phrase)) continue;
      table_.AddWordToList(WithBlanks(phrase));
    }
  }
  if (rules_.TerminateAtPeriod && end.EndedByPeriod) ResetPhrases();
  if (rules_.TerminateAtDoubleQuote && end.EndedByDoubleQuote) ResetPhrases();
  if (rules_.TerminateAtTab && end.EndedByTab) ResetPhrases();
  if (rules_.TerminateAtComma && end.EndedByComma) ResetPhrases();
}

/// The word at hand has been counted as taken.
void CountingRun::NoteWord(std::string_view word) {
  words_.emplace_back(word);
  takenBefore_.push_back(taken_ - 1);
}

void CountingRun::NoteEnd() {
  if (words_.back().empty()) return;
  words_.emplace_back();
  takenBefore_.push_back(taken_);
}

void CountingRun::ResetPhrases() {
  NoteEnd();
  for (size_t k = 2; k < buffers_.size(); ++k) buffers_[k].clear();
}

std::string CountingRun::StripPhrase(std::string_view phrase) const {
  std::string stripped;
  for (const std::string& word : Split(phrase, '+')) {
    if (lists_.IsWordToIgnore(word)) continue;
    if (!stripped.empty()) stripped += ' ';
    stripped += word;
  }
  return stripped;
}

bool CountingRun::IgnoreRuleAccepts(std::string_view phrase) const {
  if (!lists_.HasWordsToIgnore()) return true;
  int ignored = 0, words = 0;
  for (const std::string& word : Split(phrase, '+')) {
    ++words;
    if (lists_.IsWordToIgnore(word)) ++ignored;
  }
  if (options_.IgnoreMode == IgnoreRule::ExcludeWith) return ignored == 0;
  if (options_.IgnoreMode == IgnoreRule::ExcludeAll) return ignored < words;
  return true;
}

void CountingRun::Finish(ChainBy by) {
  SortPhrases(table_, 1, table_.PhraseCount, 1, Direction::Descending);
  for (int32_t i = 1; i <= table_.PhraseCount; ++i) {
    table_[i].Listed = options_.MinFrequency == 1 || table_[i].Count >= options_.MinFrequency;
  }
  // A word inside another word is no redundant phrase.
  if (options_.MaxWords > 1 && !options_.KeepRedundant) ExcludeRedundantSubphrases(table_);
  SortPhrases(table_, 1, table_.PhraseCount, 1, Direction::Ascending);
  SetUpFrequencyChain(table_, by);
}

}  // namespace korv::reference
