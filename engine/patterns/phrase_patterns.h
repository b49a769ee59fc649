#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "engine/patterns/pattern.h"
#include "engine/patterns/pattern_set.h"

namespace korv {

/// A set of patterns for whole phrases: tells whether a phrase matches one of them.
///
/// A pattern of several parts matches word by word (see MatchPhrasePattern). An expression in angle brackets
/// with a blank in it is searched in the whole phrase, its words joined by single blanks. A pattern with a
/// plain part is a candidate only for phrases with that word in that place; all others with as many parts as
/// words are candidates.
class PhrasePatterns {
 public:
  explicit PhrasePatterns(bool caseSignificant)
      : caseSignificant_(caseSignificant), wholePhrases_(caseSignificant) {}

  /// Adds a pattern of several parts, one per word.
  void AddParts(const std::vector<std::string>& parts);
  /// Adds an expression in angle brackets with a blank in it.
  void AddWholePhrase(std::string_view expression);

  /// Call it after the last addition, for speed.
  void Prepare(Yielder& yielder) { wholePhrases_.Prepare(yielder); }

  bool Empty() const { return entries_.empty() && !hasWholePhrases_; }
  /// `phrase` has its words joined by "+". May be called from several threads at once.
  bool Matches(std::string_view phrase) const;

 private:
  using Entry = std::vector<Pattern>;
  /// The number of words, the index of the plain part, and that part.
  using Key = std::pair<std::pair<size_t, size_t>, std::string>;
  struct KeyHash {
    size_t operator()(const Key& key) const;
  };

  bool EntryMatches(const Entry& entry, const std::vector<std::string_view>& words,
                    const std::vector<std::string>& folded) const;

  bool caseSignificant_;
  std::vector<Entry> entries_;
  std::unordered_map<Key, std::vector<size_t>, KeyHash> byPlainPart_;
  std::unordered_map<size_t, std::vector<size_t>> byWordCount_;  ///< Patterns without a plain part.
  bool hasWholePhrases_ = false;
  PatternSet wholePhrases_;
};

}  // namespace korv
