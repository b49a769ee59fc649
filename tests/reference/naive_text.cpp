#include "tests/reference/naive_text.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>

namespace korv::reference {
namespace {

constexpr std::u32string_view kAccented = U"ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝšÿàáâãäåçèéêëìíîïñòóôõöøùúûüý";
constexpr std::string_view kBaseLetters = "SYAAAAAACEEEEIIIIDNOOOOOOUUUUYsyaaaaaaceeeeiiiinoooooouuuuy";
static_assert(kAccented.size() == kBaseLetters.size());

struct TwoLetters {
  char32_t Letter;
  std::string_view Form;
};
constexpr TwoLetters kTwoLetters[] = {{U'Œ', "Oe"}, {U'Ä', "Ae"}, {U'Æ', "Ae"}, {U'Ö', "Oe"},
                                      {U'Ü', "Ue"}, {U'ä', "ae"}, {U'æ', "ae"}, {U'ö', "oe"},
                                      {U'ü', "ue"}, {U'ß', "ss"}, {U'œ', "oe"}};

constexpr std::u32string_view kUpperAccented = U"ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝ";
constexpr std::u32string_view kLowerAccented = U"šÿàáâãäåçèéêëìíîïðñòóôõöøùúûüý";
static_assert(kUpperAccented.size() == kLowerAccented.size());

char32_t LowerCode(char32_t character) {
  return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(character)));
}

std::string FoldAccent(char32_t character) {
  if (size_t at = kAccented.find(character); at != std::u32string_view::npos) {
    return std::string(1, kBaseLetters[at]);
  }
  for (const TwoLetters& pair : kTwoLetters) {
    if (pair.Letter == character) return std::string(pair.Form);
  }
  return Encode(std::u32string_view(&character, 1));
}

}  // namespace

std::u32string Decode(std::string_view text) {
  std::u32string characters;
  for (size_t at = 0; at < text.size();) {
    auto first = static_cast<unsigned char>(text[at]);
    int following = first < 0x80 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
    char32_t code = following == 0 ? first : first & (0x3Fu >> following);
    for (int i = 1; i <= following; ++i) {
      code = code << 6 | (static_cast<unsigned char>(text[at + static_cast<size_t>(i)]) & 0x3Fu);
    }
    characters += code;
    at += static_cast<size_t>(following) + 1;
  }
  return characters;
}

std::string Encode(std::u32string_view characters) {
  std::string text;
  for (char32_t code : characters) {
    if (code < 0x80) {
      text += static_cast<char>(code);
    } else if (code < 0x800) {
      text += static_cast<char>(0xC0 | code >> 6);
      text += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
      text += static_cast<char>(0xE0 | code >> 12);
      text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
      text += static_cast<char>(0x80 | (code & 0x3F));
    } else {
      text += static_cast<char>(0xF0 | code >> 18);
      text += static_cast<char>(0x80 | (code >> 12 & 0x3F));
      text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
      text += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return text;
}

int CharacterCount(std::string_view text) {
  return static_cast<int>(Decode(text).size());
}

bool IsMark(char32_t character) {
  if (character < 256) return false;
  const utf8proc_category_t category = utf8proc_category(static_cast<utf8proc_int32_t>(character));
  return category == UTF8PROC_CATEGORY_MN || category == UTF8PROC_CATEGORY_MC ||
         category == UTF8PROC_CATEGORY_ME;
}

bool IsLetterProper(char32_t character) {
  if (character < 256) {
    return (character >= 65 && character <= 90) || (character >= 97 && character <= 122) ||
           (character >= 192 && character != 215 && character != 247);
  }
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
      return true;
    default:
      return false;
  }
}

bool IsLetter(char32_t character) {
  return IsLetterProper(character) || IsMark(character);
}

std::string Lower(std::string_view text) {
  std::u32string characters = Decode(text);
  for (char32_t& character : characters) character = LowerCode(character);
  return Encode(characters);
}

std::string Nfc(std::string_view text) {
  // The library's own call ends at the first NUL, so what stands between them is composed piece by piece.
  std::string composed;
  for (size_t begin = 0;;) {
    const size_t end = std::min(text.find('\0', begin), text.size());
    const std::string piece(text.substr(begin, end - begin));
    utf8proc_uint8_t* result = utf8proc_NFC(reinterpret_cast<const utf8proc_uint8_t*>(piece.c_str()));
    if (result == nullptr) std::abort();
    composed += reinterpret_cast<const char*>(result);
    std::free(result);
    if (end == text.size()) return composed;
    composed += '\0';
    begin = end + 1;
  }
}

std::string Fold(std::string_view text) {
  return Nfc(Lower(text));
}

std::vector<bool> BelongsToWord(std::u32string_view text, std::u32string_view extra) {
  std::vector<bool> belongs(text.size());
  const auto isJoiner = [&](size_t at) { return text[at] == U'\u200C' || text[at] == U'\u200D'; };
  for (size_t at = 0; at < text.size(); ++at) {
    const bool behindLetter = at > 0 && belongs[at - 1] && IsLetter(text[at - 1]);
    if (IsLetterProper(text[at]))
      belongs[at] = true;
    else if (IsMark(text[at]))
      belongs[at] = behindLetter;
    else if (isJoiner(at))
      belongs[at] = behindLetter && at + 1 < text.size() && IsLetterProper(text[at + 1]);
    else
      belongs[at] = extra.find(text[at]) != std::u32string_view::npos;
  }
  return belongs;
}

std::string FoldAccents(std::string_view text) {
  std::string folded;
  for (char32_t character : Decode(text)) folded += FoldAccent(character);
  return folded;
}

std::string FoldKey(std::string_view text) {
  std::u32string characters = Decode(text);
  for (char32_t& character : characters) {
    size_t at = kUpperAccented.find(character);
    character = at != std::u32string_view::npos ? kLowerAccented[at] : LowerCode(character);
  }
  return Encode(characters);
}

}  // namespace korv::reference
