#include "tests/reference/naive_places.h"

#include <algorithm>

#include "tests/reference/naive_decoding.h"
#include "tests/reference/naive_scanner.h"
#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

/// A character and the column of the one that it comes from.
struct Placed {
  char32_t Character;
  size_t Column;
};
using PlacedText = std::vector<Placed>;

std::u32string Characters(const PlacedText& text) {
  std::u32string characters;
  for (const Placed& c : text) characters += c.Character;
  return characters;
}

std::u32string Composed(const std::u32string& text) {
  return Decode(Nfc(Encode(text)));
}

/// Characters that do not stay what they are beside each other become one group, whose characters all get the
/// column of the first but for those that were there before.
PlacedText WithNfc(const PlacedText& text) {
  std::vector<PlacedText> groups;
  for (const Placed& c : text) {
    const std::u32string one(1, c.Character);
    if (!groups.empty()) {
      std::u32string before = Characters(groups.back());
      if (Composed(before + one) != Composed(before) + Composed(one)) {
        groups.back().push_back(c);
        continue;
      }
    }
    groups.push_back({c});
  }
  PlacedText result;
  for (const PlacedText& group : groups) {
    const std::u32string composed = Composed(Characters(group));
    for (size_t k = 0; k < composed.size(); ++k) {
      // The first character with which the text reaches so far.
      size_t from = 0;
      std::u32string beginning;
      for (; from + 1 < group.size(); ++from) {
        beginning += group[from].Character;
        if (Encode(Composed(beginning)).size() > Encode(composed.substr(0, k)).size()) break;
      }
      result.push_back({composed[k], group[from].Column});
    }
  }
  return result;
}

PlacedText Cleaned(const std::u32string& raw, bool isUtf8) {
  PlacedText text;
  for (size_t k = 0; k < raw.size(); ++k)
    for (const char32_t c : WithReplacements(raw.substr(k, 1), isUtf8)) text.push_back({c, k + 1});
  return isUtf8 ? WithNfc(text) : text;
}

PlacedText WithEntities(const PlacedText& text) {
  PlacedText result;
  for (size_t at = 0; at < text.size(); ++at) {
    size_t semicolon = at;
    while (text[at].Character == U'&' && semicolon < text.size() && text[semicolon].Character != U';')
      ++semicolon;
    if (semicolon == at || semicolon == text.size()) {
      result.push_back(text[at]);
      continue;
    }
    const std::u32string entity =
        Characters(PlacedText(text.begin() + static_cast<std::ptrdiff_t>(at),
                              text.begin() + static_cast<std::ptrdiff_t>(semicolon) + 1));
    const std::u32string with = Scanner::ReplaceNamedEntities(entity);
    if (with != entity)
      result.push_back({with[0], text[at].Column});
    else
      for (size_t k = at; k <= semicolon; ++k) result.push_back(text[k]);
    at = semicolon;
  }
  return result;
}

bool IsBlank(char32_t c) {
  static const std::u32string kBlanks =
      U"\t\n\v\f\r "
      U"\u0085\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u2028\u2029"
      U"\u202F\u205F\u3000";
  return kBlanks.find(c) != std::u32string::npos;
}

std::vector<std::u32string> Words(const std::u32string& text) {
  std::vector<std::u32string> words(1);
  for (const char32_t c : text) {
    if (!IsBlank(c))
      words.back() += c;
    else if (!words.back().empty())
      words.emplace_back();
  }
  if (words.back().empty()) words.pop_back();
  return words;
}

}  // namespace

std::vector<std::u32string> RawLines(std::string_view bytes, bool isUtf8) {
  if (isUtf8 && bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
  std::vector<std::u32string> lines;
  for (const std::string_view line : BytesOfLines(bytes)) lines.push_back(RawCharacters(line, isUtf8));
  return lines;
}

std::vector<WordPlace> PlacesOfWords(std::string_view bytes, bool isUtf8, const WordRules& rules,
                                     std::string_view language) {
  std::vector<WordPlace> places;
  Scanner scanner(rules, language);
  size_t seen = 0;
  size_t number = 0;
  for (const std::u32string& raw : RawLines(bytes, isUtf8)) {
    ++number;
    const PlacedText cleaned = Cleaned(raw, isUtf8);
    const std::u32string line = Characters(cleaned);
    scanner.ScanLine(Encode(line));
    // Hyphens first, as the scanner does; they keep their columns.
    PlacedText replaced = cleaned;
    const std::u32string blanks = Scanner::ReplaceDoubleHyphens(line);
    for (size_t k = 0; k < blanks.size(); ++k) replaced[k].Character = blanks[k];
    if (language == "XML" || language == "HTML" || language == "PHP") replaced = WithEntities(replaced);
    for (; seen < scanner.Found().size(); ++seen) {
      if (scanner.Found()[seen] == Scanner::kBreak) {
        places.emplace_back();
        continue;
      }
      const auto [begin, end] = scanner.Spans()[seen];
      places.push_back({scanner.Found()[seen], number, replaced[begin].Column, replaced[end - 1].Column});
    }
  }
  return places;
}

std::string LeftWords(const std::u32string& text, size_t end, size_t most) {
  std::vector<std::u32string> words = Words(text.substr(0, end));
  std::u32string left;
  for (size_t k = words.size(); k-- > 0;) {
    const std::u32string longer = left.empty() ? words[k] : words[k] + U" " + left;
    if (longer.size() > most) break;
    left = longer;
  }
  return Encode(left);
}

std::string RightWords(const std::u32string& text, size_t begin, size_t most) {
  std::u32string right;
  for (const std::u32string& word : Words(text.substr(std::min(begin, text.size())))) {
    const std::u32string longer = right.empty() ? word : right + U" " + word;
    if (longer.size() > most) break;
    right = longer;
  }
  return Encode(right);
}

}  // namespace korv::reference
