#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Whether the character is one of Chinese, Japanese, Thai, Lao, Khmer or Burmese writing, in which no blanks
/// stand between words: a letter, a mark or a sign of their blocks.
bool IsBlankless(char32_t character);
/// Whether it is an ideograph or a sign of the kana.
bool IsIdeographOrKana(char32_t character);

/// Whether the first character of `text`, UTF-8 and not empty, is a blankless one.
bool BeginsBlankless(std::string_view text);
/// Whether the last one is.
bool EndsBlankless(std::string_view text);

/// Takes the blanks out of a phrase, its words joined by single blanks, that stand between two words of such
/// scripts.
void JoinBlankless(std::string& phrase);

/// False where `text` certainly has no blankless character. Looks at bytes alone.
bool MayHoldBlankless(std::string_view text);

}  // namespace korv
