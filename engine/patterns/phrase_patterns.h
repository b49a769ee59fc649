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

/// Count-only entries of several words, asked together whether one of them matches a phrase.
///
/// An entry matches word by word (see MatchPhrasePattern); an expression in angle brackets that holds a
/// blank is matched against the whole phrase, its words separated by single blanks. An entry with a plain
/// part is found by that part; the others are tried one after the other.
class PhrasePatterns {
 public:
  explicit PhrasePatterns(bool caseSignificant)
      : caseSignificant_(caseSignificant), wholePhrases_(caseSignificant) {}

  /// The parts of a multi-word entry, one per word.
  void AddParts(const std::vector<std::string>& parts);
  /// One expression in angle brackets with a blank in it.
  void AddWholePhrase(std::string_view expression);

  /// After the last addition, for speed.
  void Prepare() { wholePhrases_.Prepare(); }

  bool Empty() const { return entries_.empty() && !hasWholePhrases_; }
  /// `phrase` has its words joined by "+". Const and safe from several threads at once.
  bool Matches(std::string_view phrase) const;

 private:
  using Entry = std::vector<Pattern>;
  /// Number of words, place of the plain part, and that part.
  using Key = std::pair<std::pair<size_t, size_t>, std::string>;
  struct KeyHash {
    size_t operator()(const Key& key) const;
  };

  bool EntryMatches(const Entry& entry, const std::vector<std::string_view>& words,
                    const std::vector<std::string>& folded) const;

  bool caseSignificant_;
  std::vector<Entry> entries_;
  std::unordered_map<Key, std::vector<size_t>, KeyHash> byPlainPart_;
  std::unordered_map<size_t, std::vector<size_t>> byWordCount_;  ///< Those without a plain part.
  bool hasWholePhrases_ = false;
  PatternSet wholePhrases_;
};

}  // namespace korv
