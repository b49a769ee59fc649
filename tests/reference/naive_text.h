#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The models that the program is compared with: its rules written down in the plainest way. They share
/// nothing with the program but plain records, enums and limits (see README.md). This one is of characters.
namespace korv::reference {

/// UTF-8 (well-formed) to code points and back.
std::u32string Decode(std::string_view text);
std::string Encode(std::u32string_view characters);
/// Code points.
int CharacterCount(std::string_view text);

/// A letter as the no-letter and repetition rules mean it: by the table of codes below 256, by category
/// (letter or mark) from there on. Digits and extra characters are none.
bool IsLetter(char32_t character);
/// The two kinds of it: only a letter can begin a word, marks follow one.
bool IsMark(char32_t character);
bool IsLetterProper(char32_t character);
/// Unicode simple lower-casing, character by character.
std::string Lower(std::string_view text);
std::string Nfc(std::string_view text);
/// As words, entries and filter words are compared without regard to case.
std::string Fold(std::string_view text);

/// Which characters of a text belong to words where they stand, `extra` among them.
std::vector<bool> BelongsToWord(std::u32string_view text, std::u32string_view extra);

std::string FoldAccents(std::string_view text);
std::string FoldKey(std::string_view text);

}  // namespace korv::reference
