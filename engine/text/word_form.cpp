#include "engine/text/word_form.h"

#include <algorithm>

#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"

namespace korv {

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
  if (rules.IgnoreShortWords && characters < rules.ShortWordSize) return DropReason::Short;
  if (characters > rules.LongWordSize) return DropReason::Long;
  if (rules.IgnoreNoLetter && !hasLetter) return DropReason::Letterless;
  if (rules.IgnoreRepetitions && repeats) return DropReason::Repetition;
  return std::nullopt;
}

bool Is7bit(std::string_view word) {
  return std::all_of(word.begin(), word.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace korv
