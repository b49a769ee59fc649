#include "engine/analysis/phrase_query.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "engine/analysis/word_marks.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/patterns/regex.h"
#include "engine/patterns/required_literal.h"
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

/// The longest part of a literal that can stand in one word.
std::string LongestPart(std::string_view literal, std::string_view separators) {
  std::string_view longest;
  for (size_t at = 0; at <= literal.size();) {
    const size_t end = std::min(literal.find_first_of(separators, at), literal.size());
    if (end - at > longest.size()) longest = literal.substr(at, end - at);
    at = end + 1;
  }
  return std::string(longest);
}

/// Texts of which every phrase that matches an expression holds one within a word. Empty: none are known.
std::vector<std::string> NeededByExpression(const std::string& expression, bool caseSignificant) {
  std::vector<std::string> needed;
  for (const RequiredLiteral& literal : RequiredLiteralsOfExpression(expression, caseSignificant)) {
    needed.push_back(LongestPart(literal.Text, " "));
    if (needed.back().empty()) return {};
  }
  return needed.size() <= WordMarks::kMostTerms ? needed : std::vector<std::string>();
}

/// Puts the texts of phrases together for a wildcard or an expression. Most phrases are rejected before that,
/// by their words.
struct TextTest {
  std::variant<Wildcard, Regex> Pattern;
  bool FoldsAccents;
  std::optional<WordMarks> Needed = {};
};

/// Asks about one phrase after the other.
class TextSearch {
 public:
  TextSearch(const PhraseTable& table, const TextTest& test) : table_(table), test_(test) {}

  bool Matches(PhraseIndex i, const WordNumber* words, int count) {
    if (test_.Needed && !test_.Needed->Matches(words, count)) return false;
    text_.clear();
    table_.AppendText(i, text_);
    if (test_.FoldsAccents && !IsAscii(text_)) text_ = FoldAccents(text_);
    const auto* wildcard = std::get_if<Wildcard>(&test_.Pattern);
    return wildcard != nullptr ? wildcard->Matches(text_)
                               : std::get_if<Regex>(&test_.Pattern)->Matches(text_, scratch_);
  }

 private:
  const PhraseTable& table_;
  const TextTest& test_;
  std::string text_;
  Regex::Scratch scratch_;
};

/// Entries and their words lie all over the memory.
void PrefetchBlock(const PhraseTableData& data, std::span<const PhraseIndex> entries) {
  for (const PhraseIndex i : entries) __builtin_prefetch(&data.Entries[ValueOf(i) - 1]);
  for (const PhraseIndex i : entries)
    __builtin_prefetch(data.Corpus.From(data.Entries[ValueOf(i) - 1].First));
}

/// Calls `matches(entry, words, count)` for the candidates.
template <typename Matches>
uint64_t EachCandidate(const PhraseTableData& data, std::span<const PhraseIndex> entries, uint64_t candidates,
                       const Matches& matches) {
  uint64_t matching = 0;
  for (uint64_t left = candidates; left != 0; left &= left - 1) {
    const int k = std::countr_zero(left);
    const PhraseIndex i = entries[static_cast<size_t>(k)];
    const PhraseEntry& entry = data.Entries[ValueOf(i) - 1];
    matching |= uint64_t{matches(i, data.Corpus.From(entry.First), entry.Words)} << k;
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
  const WordMarks::Fold fold = query.FoldAccents ? WordMarks::Fold(FoldAccents) : WordMarks::Fold();
  if (query.Mode == MatchMode::Expression) {
    Regex regex(text, caseSignificant);
    if (!regex.Valid()) return std::string(regex.Fault());
    auto& test = form->Test.emplace<TextTest>(TextTest{std::move(regex), query.FoldAccents});
    const std::vector<std::string> needed = NeededByExpression(text, caseSignificant);
    if (!needed.empty())
      test.Needed.emplace(
          corpus.Words, needed, MarkRule{.AnyTerm = true},
          [&](std::string_view word) { return FoldForMatching(fold ? fold(word) : word, caseSignificant); },
          yielder);
  } else if (query.Mode == MatchMode::Wildcards) {
    auto& test = form->Test.emplace<TextTest>(TextTest{Wildcard::FromText(text), query.FoldAccents});
    const std::string needed = LongestPart(text, "*? ");
    if (!needed.empty())
      test.Needed.emplace(corpus.Words, std::vector{needed}, MarkRule{.AnyTerm = true}, fold, yielder);
  } else {
    std::vector<std::string> terms = Terms(text);
    if (query.Mode == MatchMode::WordsInAnyOrder) {
      std::ranges::sort(terms);
      terms.erase(std::unique(terms.begin(), terms.end()), terms.end());
    }
    form->Test.emplace<WordMarks>(corpus.Words, terms, RuleOf(query.Mode), fold, yielder);
  }
  return PhraseMatcher(std::move(form));
}

uint64_t PhraseMatcher::Passing(std::span<const PhraseIndex> entries, uint64_t candidates) const {
  if (std::holds_alternative<std::monostate>(form_->Test) || candidates == 0) return candidates;
  const PhraseTableData& data = form_->Table.Data();
  PrefetchBlock(data, entries);
  uint64_t matching = 0;
  if (const auto* marks = std::get_if<WordMarks>(&form_->Test)) {
    matching = EachCandidate(data, entries, candidates, [&](PhraseIndex, const WordNumber* words, int count) {
      return marks->Matches(words, count);
    });
  } else {
    TextSearch search(form_->Table, std::get<TextTest>(form_->Test));
    matching = EachCandidate(
        data, entries, candidates,
        [&](PhraseIndex i, const WordNumber* words, int count) { return search.Matches(i, words, count); });
  }
  return form_->Excludes ? candidates & ~matching : matching;
}

bool MatchesAll(const PhraseQuery& query) {
  return SoughtBy(query).Text.empty();
}

std::string FaultOf(const PhraseQuery& query) {
  if (query.Mode != MatchMode::Expression || MatchesAll(query)) return {};
  return Regex(SoughtBy(query).Text, false).Fault();
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
