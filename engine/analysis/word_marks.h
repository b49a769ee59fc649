#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "engine/corpus/vocabulary.h"
#include "engine/run_options.h"

namespace korv {

/// How terms must lie in a phrase.
struct MarkRule {
  bool FromFirstWord = false;     ///< The first term stands in the first word of the phrase.
  bool ToLastWord = false;        ///< The last term stands in its last word.
  bool BeginsWithinWord = false;  ///< A word may begin before the first term ...
  bool EndsWithinWord = false;    ///< ... and go on behind the last one.
  bool AnyOrder = false;          ///< Each term is a word of the phrase, wherever.
  bool AnyTerm = false;           ///< One term stands in one word of the phrase, wherever.
};

/// Looks for terms t1..tm in phrases without putting their texts together. For each word of a vocabulary it
/// keeps as bits which of the terms the word matches: the first one perhaps at its end only, the last one at
/// its beginning, those between as they are. A phrase holds the text "t1 .. tm" where m words in a row have
/// bits 1..m. This is the same as a search for that text in the phrase's words joined by single blanks.
///
/// It also finds phrases that may match a pattern: they hold one of the literals that the pattern requires.
///
/// 4 bytes a word of the vocabulary. A test costs a look-up for each word of the phrase and allocates
/// nothing.
class WordMarks {
 public:
  using Fold = std::function<std::string(std::string_view)>;
  /// At least one term, none with a blank in it; of more than kMostTerms no phrase matches. Words are
  /// compared after `fold`, where given, and terms as they are. On all cores; incomplete when stopped.
  WordMarks(const Vocabulary& words, const std::vector<std::string>& terms, const MarkRule& rule,
            const Fold& fold, Yielder& yielder);
  static constexpr size_t kMostTerms = kMostWords;

  /// Whether a phrase of `count` words matches.
  bool Matches(const WordNumber* words, int count) const {
    if (rule_.AnyTerm) return HoldsAny(words, count);
    return rule_.AnyOrder ? HoldsAll(words, count) : HoldsRow(words, count);
  }

 private:
  uint32_t MarksOf(std::string_view word, const std::vector<std::string>& terms) const;
  bool HoldsRow(const WordNumber* words, int count) const;
  bool HoldsAll(const WordNumber* words, int count) const;
  bool HoldsAny(const WordNumber* words, int count) const;

  MarkRule rule_;
  uint32_t all_ = 0;   ///< A bit for each term.
  uint32_t last_ = 0;  ///< The bit of the last one.
  RawVector<uint32_t> marks_;
};

}  // namespace korv
