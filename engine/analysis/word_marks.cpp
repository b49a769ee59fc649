#include "engine/analysis/word_marks.h"

#include <algorithm>

#include "base/workers.h"

namespace korv {

static_assert(WordMarks::kMostTerms < 32, "a term is a bit");

WordMarks::WordMarks(const Vocabulary& words, const std::vector<std::string>& terms, const MarkRule& rule,
                     const Fold& fold, Yielder& yielder)
    : rule_(rule), marks_(size_t{words.Size()} + 1, 0) {
  // No word is marked, and no row of marks is complete.
  if (terms.size() > kMostTerms) return;
  last_ = 1U << (terms.size() - 1);
  all_ = last_ | (last_ - 1);
  RunParts(words.Size(), yielder, [&](size_t begin, size_t end) {
    for (size_t w = begin + 1; w <= end; ++w) {
      const std::string_view text = words.Text(WordNumber{static_cast<uint32_t>(w)});
      marks_[w] = fold ? MarksOf(fold(text), terms) : MarksOf(text, terms);
    }
  });
}

uint32_t WordMarks::MarksOf(std::string_view word, const std::vector<std::string>& terms) const {
  uint32_t marks = 0;
  for (size_t k = 0; k < terms.size(); ++k) {
    const std::string& term = terms[k];
    if (word.size() < term.size()) continue;
    const bool anyBegin = rule_.AnyTerm || (k == 0 && rule_.BeginsWithinWord);
    const bool anyEnd = rule_.AnyTerm || (k + 1 == terms.size() && rule_.EndsWithinWord);
    const bool matches = anyBegin && anyEnd ? word.find(term) != word.npos
                         : anyBegin         ? word.ends_with(term)
                         : anyEnd           ? word.starts_with(term)
                                            : word == term;
    marks |= uint32_t{matches} << k;
  }
  return marks;
}

bool WordMarks::HoldsRow(const WordNumber* words, int count) const {
  uint32_t rows = 0;  // Bit k: the terms up to k stand in the words up to this one.
  uint32_t begin = 1;
  for (int w = 0; w < count; ++w) {
    rows = ((rows << 1) | begin) & marks_[ValueOf(words[w])];
    if (rule_.FromFirstWord) begin = 0;
    if (!rule_.ToLastWord && (rows & last_) != 0) return true;
  }
  return (rows & last_) != 0;
}

bool WordMarks::HoldsAll(const WordNumber* words, int count) const {
  uint32_t found = 0;
  for (int w = 0; w < count; ++w) found |= marks_[ValueOf(words[w])];
  return last_ != 0 && found == all_;
}

bool WordMarks::HoldsAny(const WordNumber* words, int count) const {
  return std::any_of(words, words + count, [&](WordNumber word) { return marks_[ValueOf(word)] != 0; });
}

}  // namespace korv
