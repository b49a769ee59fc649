#include "engine/text/word_form.h"

#include <algorithm>

#include "engine/text/blankless.h"
#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"

namespace korv {

namespace {

/// Whether a dictionary or the like found the word; most of these have one letter or two.
bool IsSegmented(std::string_view word, const WordRules& rules) {
  return rules.Segment != Segmentation::Off && BeginsBlankless(word);
}

}  // namespace

std::optional<DropReason> DroppedByForm(std::string_view word, const WordRules& rules) {
  constexpr int kRepetitions = 4;
  int characters = 0;
  bool hasLetter = false;
  bool repeats = false;
  char32_t last = 0;
  int inARow = 0;
  for (size_t at = 0; at < word.size();) {
    const char32_t c = NextCharacter(word, at);
    ++characters;
    if (!IsWordCharCode(c, false, {})) {
      inARow = 0;
      continue;
    }
    hasLetter = true;
    const char32_t lower = LowerCharacter(c);
    inARow = inARow > 0 && lower == last ? inARow + 1 : 1;
    last = lower;
    repeats = repeats || inARow >= kRepetitions;
  }
  if (rules.IgnoreShortWords && characters < rules.ShortWordSize && !IsSegmented(word, rules))
    return DropReason::Short;
  if (characters > rules.LongWordSize) return DropReason::Long;
  if (rules.IgnoreNoLetter && !hasLetter) return DropReason::Letterless;
  if (rules.IgnoreRepetitions && repeats) return DropReason::Repetition;
  return std::nullopt;
}

std::string FoldedWord(std::string_view word, const WordRules& rules) {
  if (rules.CaseSignificant) return std::string(word);
  return rules.FoldCaseFully ? FoldCaseFully(word) : FoldCase(word);
}

bool Is7bit(std::string_view word) {
  return std::all_of(word.begin(), word.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace korv
