#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "base/expected.h"
#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// How a text is looked for in phrases. A phrase is its words with single blanks between them; runs of white
/// space in the text count as one blank, and none counts at its ends.
enum class MatchMode {
  Contains,         ///< It stands anywhere in the phrase, within words too.
  WholeWords,       ///< It stands there as whole words, in a row.
  StartsWith,       ///< The phrase begins with it.
  EndsWith,         ///< The phrase ends with it.
  Wildcards,        ///< It is the whole phrase, where * stands for any characters and ? for one.
  Expression,       ///< A regular expression (engine/patterns/regex.h) that matches somewhere in the phrase.
  WordsInAnyOrder,  ///< Each of its words is a word of the phrase.
};

/// What a filter box asks for. Case is significant only where it was for the run.
struct PhraseQuery {
  std::string Text = {};  ///< As typed. One that begins with "-" excludes what the rest matches.
  MatchMode Mode = MatchMode::Contains;
  bool Not = false;          ///< Excludes, too.
  bool FoldAccents = false;  ///< Letters match with and without their accents.

  bool operator==(const PhraseQuery&) const = default;
};

/// Whether it asks for nothing: every phrase passes.
bool MatchesAll(const PhraseQuery& query);

/// What is wrong with it, where its text makes no regular expression: the reason and the place. Else empty.
std::string FaultOf(const PhraseQuery& query);

/// Whether every phrase that passes `after` certainly passes `before`, as when a text is typed on.
bool Narrows(const PhraseQuery& before, const PhraseQuery& after);

/// A query that is ready to be asked about the phrases of one table, which outlives it.
///
///   auto matcher = PhraseMatcher::Compile(query, table, yielder);
///   if (!matcher) return Say(matcher.Error());
///   if (matcher->Passes(i)) ...
///
/// All modes but wildcards and expressions mark words of the vocabulary and then look at word numbers alone,
/// with the same result as a search in the text. Const members may be called from several threads at once.
class PhraseMatcher {
 public:
  /// The error says why a regular expression makes no sense. Cost: a look at every word of the run. When
  /// stopped, the matcher must not be used.
  static Expected<PhraseMatcher, std::string> Compile(const PhraseQuery& query, const PhraseTable& table,
                                                      Yielder& yielder);
  ~PhraseMatcher();
  PhraseMatcher(PhraseMatcher&&) noexcept;

  static constexpr size_t kBlock = 64;
  /// Asks about up to kBlock entries at once, which is faster. Bit k of the result: entries[k] passes. Only
  /// those with bit k of `candidates` are looked at; the others do not pass.
  uint64_t Passing(std::span<const PhraseIndex> entries, uint64_t candidates) const;
  bool Passes(PhraseIndex i) const { return Passing({&i, 1}, 1) != 0; }

 private:
  struct Form;
  explicit PhraseMatcher(std::unique_ptr<const Form> form);

  std::unique_ptr<const Form> form_;
};

}  // namespace korv
