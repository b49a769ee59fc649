#include "engine/analysis/phrase_query.h"

#include <algorithm>
#include <bit>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "engine/analysis/word_marks.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/patterns/regex.h"
#include "engine/patterns/wildcard.h"
#include "engine/text/clean_text.h"
#include "engine/text/folding.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

constexpr std::string_view kWhite = " \t\n\v\f\r";

/// What a query looks for, without the sign that excludes.
struct Sought {
  std::string Text;  ///< Cleaned; but for expressions, words with single blanks between them.
  bool Excludes = false;
};

std::vector<std::string> Terms(std::string_view text) {
  std::vector<std::string> terms;
  for (size_t at = text.find_first_not_of(kWhite); at != text.npos;) {
    const size_t end = std::min(text.find_first_of(kWhite, at), text.size());
    terms.emplace_back(text.substr(at, end - at));
    at = text.find_first_not_of(kWhite, end);
  }
  return terms;
}

std::string JoinedTerms(std::string_view text) {
  std::string joined;
  for (const std::string& term : Terms(text)) joined.append(joined.empty() ? "" : " ").append(term);
  return joined;
}

Sought SoughtBy(const PhraseQuery& query) {
  const bool expression = query.Mode == MatchMode::Expression;
  std::string text = CleanText(query.Text);
  if (!expression) text = JoinedTerms(text);
  const bool minus = text.starts_with('-');
  if (minus) text = expression ? text.substr(1) : JoinedTerms(std::string_view(text).substr(1));
  return {std::move(text), query.Not || minus};
}

bool Within(const std::string& before, const std::string& after, MatchMode mode) {
  switch (mode) {
    case MatchMode::Contains:
      return after.find(before) != after.npos;
    case MatchMode::WholeWords:
      return (' ' + after + ' ').find(' ' + before + ' ') != after.npos;
    case MatchMode::StartsWith:
      return after.starts_with(before);
    case MatchMode::EndsWith:
      return after.ends_with(before);
    case MatchMode::Wildcards:
    case MatchMode::Expression:
    case MatchMode::WordsInAnyOrder:
      break;
  }
  return false;
}

MarkRule RuleOf(MatchMode mode) {
  switch (mode) {
    case MatchMode::StartsWith:
      return {.FromFirstWord = true, .EndsWithinWord = true};
    case MatchMode::EndsWith:
      return {.ToLastWord = true, .BeginsWithinWord = true};
    case MatchMode::Contains:
      return {.BeginsWithinWord = true, .EndsWithinWord = true};
    case MatchMode::WordsInAnyOrder:
      return {.AnyOrder = true};
    case MatchMode::WholeWords:
    case MatchMode::Wildcards:
    case MatchMode::Expression:
      break;
  }
  return {};
}

/// A phrase's text, put together for the test.
struct TextTest {
  const PhraseTable& Table;
  std::variant<Wildcard, Regex> Pattern;
  bool Folds;

  bool Matches(PhraseIndex i, std::string& text) const {
    text.clear();
    Table.AppendText(i, text);
    if (Folds && !IsAscii(text)) text = FoldAccents(text);
    const auto* wildcard = std::get_if<Wildcard>(&Pattern);
    return wildcard != nullptr ? wildcard->Matches(text) : std::get<Regex>(Pattern).Matches(text);
  }
};

/// Entries and their words lie all over the memory.
void PrefetchBlock(const PhraseTableData& data, std::span<const PhraseIndex> entries) {
  for (const PhraseIndex i : entries) __builtin_prefetch(&data.Entries[ValueOf(i) - 1]);
  for (const PhraseIndex i : entries)
    __builtin_prefetch(data.Corpus.From(data.Entries[ValueOf(i) - 1].First));
}

/// Calls `matches` for the candidates.
template <typename Matches>
uint64_t EachCandidate(std::span<const PhraseIndex> entries, uint64_t candidates, const Matches& matches) {
  uint64_t matching = 0;
  for (uint64_t left = candidates; left != 0; left &= left - 1) {
    const int k = std::countr_zero(left);
    matching |= uint64_t{matches(entries[static_cast<size_t>(k)])} << k;
  }
  return matching;
}

}  // namespace

struct PhraseMatcher::Form {
  const PhraseTable& Table;
  bool Excludes = false;
  /// The first one lets every phrase pass.
  std::variant<std::monostate, WordMarks, TextTest> Test = {};
};

PhraseMatcher::PhraseMatcher(std::unique_ptr<const Form> form) : form_(std::move(form)) {}
PhraseMatcher::~PhraseMatcher() = default;
PhraseMatcher::PhraseMatcher(PhraseMatcher&&) noexcept = default;
PhraseMatcher& PhraseMatcher::operator=(PhraseMatcher&&) noexcept = default;

Expected<PhraseMatcher, std::string> PhraseMatcher::Compile(const PhraseQuery& query,
                                                            const PhraseTable& table, Yielder& yielder) {
  const korv::Corpus& corpus = table.Corpus();
  auto [text, excludes] = SoughtBy(query);
  auto form = std::make_unique<Form>(Form{table, excludes && !text.empty()});
  if (text.empty()) return PhraseMatcher(std::move(form));
  const bool caseSignificant = corpus.Rules.CaseSignificant;
  // The library folds the case of expressions, in which a capital letter may be a sign: "\W" is not "\w".
  if (!caseSignificant && query.Mode != MatchMode::Expression) text = FoldCase(text);
  if (query.FoldAccents) text = FoldAccents(text);
  if (query.Mode == MatchMode::Expression) {
    Regex regex(text, caseSignificant);
    if (!regex.Valid()) return std::string(regex.Fault());
    form->Test.emplace<TextTest>(table, std::move(regex), query.FoldAccents);
  } else if (query.Mode == MatchMode::Wildcards) {
    form->Test.emplace<TextTest>(table, Wildcard::FromText(text), query.FoldAccents);
  } else {
    std::vector<std::string> terms = Terms(text);
    if (query.Mode == MatchMode::WordsInAnyOrder) {
      std::ranges::sort(terms);
      terms.erase(std::ranges::unique(terms).begin(), terms.end());
    }
    form->Test.emplace<WordMarks>(corpus.Words, terms, RuleOf(query.Mode), query.FoldAccents, yielder);
  }
  return PhraseMatcher(std::move(form));
}

uint64_t PhraseMatcher::Passing(std::span<const PhraseIndex> entries, uint64_t candidates) const {
  if (std::holds_alternative<std::monostate>(form_->Test) || candidates == 0) return candidates;
  const PhraseTableData& data = form_->Table.Data();
  PrefetchBlock(data, entries);
  uint64_t matching = 0;
  if (const auto* marks = std::get_if<WordMarks>(&form_->Test)) {
    matching = EachCandidate(entries, candidates, [&](PhraseIndex i) {
      const PhraseEntry& entry = data.Entries[ValueOf(i) - 1];
      return marks->Matches(data.Corpus.From(entry.First), entry.Words);
    });
  } else {
    std::string scratch;
    matching = EachCandidate(
        entries, candidates,
        [&, test = std::get_if<TextTest>(&form_->Test)](PhraseIndex i) { return test->Matches(i, scratch); });
  }
  return form_->Excludes ? candidates & ~matching : matching;
}

bool MatchesAll(const PhraseQuery& query) {
  return SoughtBy(query).Text.empty();
}

bool Narrows(const PhraseQuery& before, const PhraseQuery& after) {
  const Sought first = SoughtBy(before);
  const Sought then = SoughtBy(after);
  if (first.Text.empty() || before == after) return true;
  // Folding a letter may depend on those around it, so both forms must hold.
  return before.Mode == after.Mode && before.FoldAccents == after.FoldAccents && !first.Excludes &&
         !then.Excludes && Within(first.Text, then.Text, after.Mode) &&
         Within(FoldCase(first.Text), FoldCase(then.Text), after.Mode);
}

}  // namespace korv
