#include "engine/patterns/word_filters.h"

#include "engine/patterns/list_entry.h"
#include "engine/patterns/matching.h"
#include "engine/patterns/pattern_set.h"
#include "engine/patterns/phrase_patterns.h"
#include "engine/text/unicode.h"

namespace korv {

struct WordFilters::Lists {
  explicit Lists(bool caseSignificant)
      : Ignore(caseSignificant), CountOnlyWords(caseSignificant), CountOnlyPhrases(caseSignificant) {}

  bool HasIgnore = false;
  bool HasCountOnly = false;
  PatternSet Ignore;
  PatternSet CountOnlyWords;
  PhrasePatterns CountOnlyPhrases;
};

namespace {

void AddOneWord(PatternSet& set, const std::string& entry, bool isPattern) {
  const std::string folded = FoldOutsideBrackets(entry);
  if (isPattern)
    set.AddPattern(folded);
  else
    set.AddWord(folded);
}

/// A part, folded as the words of phrases are where case is not significant, because folding can change the
/// form in NFC. ASCII parts and those with an escape stay: the match ignores case, and "\W" means something
/// else than "\w".
std::string FoldedPart(std::string_view part) {
  if (IsAscii(part) || part.find('\\') != std::string_view::npos) return std::string(part);
  return FoldOutsideBrackets(part);
}

void AddCountOnly(PatternSet& words, PhrasePatterns& phrases, const std::string& entry,
                  bool caseSignificant) {
  std::vector<std::string> pieces;
  for (const std::string_view piece : SplitOutsideBrackets(entry, ' '))
    if (!piece.empty()) pieces.emplace_back(piece);
  if (pieces.empty()) return;
  if (pieces.size() > 1) {
    const std::string pattern = PhrasePattern(entry);
    std::vector<std::string> parts;
    for (const std::string_view part : SplitOutsideBrackets(pattern, '+'))
      parts.push_back(caseSignificant ? std::string(part) : FoldedPart(part));
    phrases.AddParts(parts);
  } else if (pieces[0].find(' ') != std::string::npos) {
    phrases.AddWholePhrase(pieces[0]);
  } else {
    AddOneWord(words, pieces[0], HoldsPattern(pieces[0]));
  }
}

}  // namespace

WordFilters::WordFilters() = default;

WordFilters::WordFilters(const WordFilterSpec& entries)
    : lists_(std::make_unique<Lists>(entries.CaseSignificant)) {
  NoYielder yielder;
  Compile(entries, yielder);
}

WordFilters::WordFilters(const WordFilterSpec& entries, Yielder& yielder)
    : lists_(std::make_unique<Lists>(entries.CaseSignificant)) {
  Compile(entries, yielder);
}

void WordFilters::Compile(const WordFilterSpec& entries, Yielder& yielder) {
  Lists& lists = *lists_;
  const auto addEach = [&](const std::vector<std::string>& list, const auto& add) {
    for (const std::string& entry : list) {
      yielder.Yield();
      if (yielder.Stopped()) return;
      add(entry);
    }
  };
  const bool all = entries.PatternMatchingInWordsToIgnoreFile;
  addEach(entries.FileWordsToIgnore, [&](const std::string& word) { AddOneWord(lists.Ignore, word, all); });
  addEach(entries.TypedWordsToIgnore,
          [&](const std::string& word) { AddOneWord(lists.Ignore, word, all || HoldsPattern(word)); });
  addEach(entries.CountOnly, [&](const std::string& entry) {
    AddCountOnly(lists.CountOnlyWords, lists.CountOnlyPhrases, entry, entries.CaseSignificant);
  });
  lists.Ignore.Prepare(yielder);
  lists.CountOnlyWords.Prepare(yielder);
  lists.CountOnlyPhrases.Prepare(yielder);
  lists.HasIgnore = !entries.FileWordsToIgnore.empty() || !entries.TypedWordsToIgnore.empty();
  lists.HasCountOnly = !entries.CountOnly.empty();
}

WordFilters::~WordFilters() = default;
WordFilters& WordFilters::operator=(WordFilters&&) noexcept = default;

bool WordFilters::HasWordsToIgnore() const {
  return lists_ && lists_->HasIgnore;
}

bool WordFilters::IsWordToIgnore(std::string_view word) const {
  return HasWordsToIgnore() && lists_->Ignore.Matches(FoldCase(word));
}

bool WordFilters::HasCountOnly() const {
  return lists_ && lists_->HasCountOnly;
}

bool WordFilters::IsCountOnlyWord(std::string_view word) const {
  return HasCountOnly() && lists_->CountOnlyWords.Matches(FoldCase(word));
}

bool WordFilters::HasCountOnlyPhrases() const {
  return lists_ && !lists_->CountOnlyPhrases.Empty();
}

bool WordFilters::IsCountOnlyPhrase(std::string_view phrase) const {
  return HasCountOnlyPhrases() && lists_->CountOnlyPhrases.Matches(phrase);
}

}  // namespace korv
