#include "tests/reference/naive_text.h"

#include <utf8proc.h>

namespace korv::naive {
namespace {

constexpr std::u32string_view kAccented = U"ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝšÿàáâãäåçèéêëìíîïñòóôõöøùúûüý";
constexpr std::string_view kBaseLetters = "SYAAAAAACEEEEIIIIDNOOOOOOUUUUYsyaaaaaaceeeeiiiinoooooouuuuy";
static_assert(kAccented.size() == kBaseLetters.size());

struct TwoLetters {
  char32_t letter;
  std::string_view form;
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
    if (pair.letter == character) return std::string(pair.form);
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

bool IsLetter(char32_t character) {
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
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
      return true;
    default:
      return false;
  }
}

std::string Lower(std::string_view text) {
  std::u32string characters = Decode(text);
  for (char32_t& character : characters) character = LowerCode(character);
  return Encode(characters);
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

}  // namespace korv::naive
