#include "engine/text/unicode.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace korv {
namespace {

unsigned char ByteAt(std::string_view text, size_t at) {
  return static_cast<unsigned char>(text[at]);
}

constexpr bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

utf8proc_int32_t Code(char32_t character) {
  return static_cast<utf8proc_int32_t>(character);
}

/// The most characters of a full decomposition of one character.
constexpr utf8proc_ssize_t kMostParts = 32;

utf8proc_ssize_t Decompose(char32_t character, utf8proc_int32_t* parts) {
  int boundary = UTF8PROC_BOUNDCLASS_START;
  return utf8proc_decompose_char(Code(character), parts, kMostParts,
                                 static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_STABLE),
                                 &boundary);
}

int CombiningClass(utf8proc_int32_t character) {
  return utf8proc_get_property(character)->combining_class;
}

void AppendDecomposed(std::string_view text, std::vector<utf8proc_int32_t>& parts) {
  parts.reserve(text.size());
  for (size_t at = 0; at < text.size();) {
    utf8proc_int32_t of[kMostParts];
    const utf8proc_ssize_t count = Decompose(NextCharacter(text, at), of);
    if (count < 0) throw std::runtime_error(utf8proc_errmsg(count));
    parts.insert(parts.end(), of, of + count);
  }
}

/// Orders marks by their combining class. The library does so by exchanging neighbours, which takes quadratic
/// time in a hostile text.
void OrderMarks(std::vector<utf8proc_int32_t>& parts) {
  for (auto it = parts.begin(); it != parts.end();) {
    const auto isStarter = [](utf8proc_int32_t c) { return CombiningClass(c) == 0; };
    const auto marks = std::find_if_not(it, parts.end(), isStarter);
    it = std::find_if(marks, parts.end(), isStarter);
    std::stable_sort(marks, it, [](utf8proc_int32_t a, utf8proc_int32_t b) {
      return CombiningClass(a) < CombiningClass(b);
    });
  }
}

bool HasCategoryOfLetters(char32_t character) {
  const utf8proc_category_t category = utf8proc_category(Code(character));
  return category >= UTF8PROC_CATEGORY_LU && category <= UTF8PROC_CATEGORY_LO;
}

bool HasCategoryOfMarks(char32_t character) {
  const utf8proc_category_t category = utf8proc_category(Code(character));
  return category >= UTF8PROC_CATEGORY_MN && category <= UTF8PROC_CATEGORY_ME;
}

/// Whether `character` is its own composition, is no mark and cannot join the character before it.
bool StandsAlone(char32_t character) {
  if (HasCategoryOfMarks(character) || CombiningClass(Code(character)) != 0) return false;
  if (character >= 0x1100 && character <= 0x11FF) return false;  // Syllables are composed of these.
  utf8proc_int32_t parts[kMostParts];
  utf8proc_ssize_t count = Decompose(character, parts);
  if (count < 1) return false;
  count = utf8proc_normalize_utf32(parts, count,
                                   static_cast<utf8proc_option_t>(UTF8PROC_COMPOSE | UTF8PROC_STABLE));
  return count == 1 && parts[0] == Code(character);
}

constexpr char32_t kPlaneEnd = 0x10000;

/// One bit for each character of the basic plane. A call of the library would take longer than reading a
/// word.
using BasicPlane = std::bitset<kPlaneEnd>;

template <typename Predicate>
BasicPlane BasicPlaneOf(Predicate is) {
  BasicPlane made;
  for (char32_t c = 0; c < kPlaneEnd; ++c) made[c] = is(c);
  return made;
}

constexpr char32_t kFirstThatMayCompose = 0x300;
constexpr char32_t kTableEnd = 0x3400;

/// One flag for each character from kFirstThatMayCompose up to kTableEnd: the alphabets.
using AloneTable = std::array<bool, kTableEnd - kFirstThatMayCompose>;

const AloneTable& StandingAlone() {
  static const AloneTable table = [] {
    AloneTable made{};
    for (size_t k = 0; k < made.size(); ++k)
      made[k] = StandsAlone(kFirstThatMayCompose + static_cast<char32_t>(k));
    return made;
  }();
  return table;
}

/// Beyond the alphabets: the ideographs, Hangul syllables, symbols for private use, full-width forms.
bool StandsAloneBeyondTable(char32_t c) {
  return (c >= 0x3400 && c <= 0x9FFF) || (c >= 0xAC00 && c <= 0xD7A3) || (c >= 0xE000 && c <= 0xF8FF) ||
         (c >= 0xFF00 && c <= 0xFFFD);
}

}  // namespace

char32_t NextLongCharacter(std::string_view text, size_t& at) {
  const unsigned char lead = ByteAt(text, at++);
  size_t more;
  unsigned char low = 0x80;
  unsigned char high = 0xBF;
  char32_t character;
  if (lead >= 0xC2 && lead <= 0xDF) {
    more = 1;
    character = lead & 0x1FU;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    more = 2;
    character = lead & 0x0FU;
    if (lead == 0xE0) low = 0xA0;   // Below are the overlong forms,
    if (lead == 0xED) high = 0x9F;  // above the surrogates.
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    more = 3;
    character = lead & 0x07U;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  } else {
    return kReplacementCharacter;
  }
  for (; more > 0; --more) {
    if (at == text.size()) return kReplacementCharacter;
    const unsigned char byte = ByteAt(text, at);
    if (byte < low || byte > high) return kReplacementCharacter;
    low = 0x80;
    high = 0xBF;
    character = (character << 6) | (byte & 0x3FU);
    ++at;
  }
  return character;
}

void AppendCharacter(char32_t character, std::string& text) {
  utf8proc_uint8_t bytes[4];
  const utf8proc_ssize_t count = utf8proc_encode_char(Code(character), bytes);
  text.append(reinterpret_cast<const char*>(bytes), static_cast<size_t>(count));
}

size_t CharacterCount(std::string_view text) {
  return static_cast<size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return !IsContinuation(static_cast<unsigned char>(c)); }));
}

size_t PastAscii(std::string_view text, size_t at) {
  constexpr uint64_t kHighBits = 0x8080808080808080;
  for (; at + 8 <= text.size(); at += 8) {
    uint64_t part;
    std::memcpy(&part, text.data() + at, 8);
    if (part & kHighBits) break;
  }
  while (at < text.size() && ByteAt(text, at) < 0x80) ++at;
  return at;
}

bool IsAscii(std::string_view text) {
  constexpr uint64_t kHighBits = 0x8080808080808080;
  size_t at = 0;
  uint64_t seen = 0;
  for (; at + 32 <= text.size(); at += 32) {
    uint64_t parts[4];
    std::memcpy(parts, text.data() + at, 32);
    seen = (parts[0] | parts[1]) | (parts[2] | parts[3]);
    if (seen & kHighBits) return false;
  }
  for (; at + 8 <= text.size(); at += 8) {
    uint64_t part;
    std::memcpy(&part, text.data() + at, 8);
    seen |= part;
  }
  for (; at < text.size(); ++at) seen |= ByteAt(text, at);
  return (seen & kHighBits) == 0;
}

bool IsCertainlyNfc(std::string_view text) {
  size_t at = 0;
  const auto skipLow = [&] {  // 0xCC leads U+0300.
    while (at < text.size() && ByteAt(text, at) < 0xCC) ++at;
  };
  skipLow();
  if (at == text.size()) return true;
  const AloneTable& table = StandingAlone();
  for (; at < text.size(); skipLow()) {
    const char32_t c = NextCharacter(text, at);
    if (c < kTableEnd ? !table[c - kFirstThatMayCompose] : !StandsAloneBeyondTable(c)) return false;
  }
  return true;
}

namespace {

void AppendComposed(std::string_view text, std::vector<utf8proc_int32_t>& characters, std::string& composed) {
  if (IsCertainlyNfc(text)) {
    composed += text;
    return;
  }
  characters.clear();
  AppendDecomposed(text, characters);
  OrderMarks(characters);
  const utf8proc_ssize_t count =
      utf8proc_normalize_utf32(characters.data(), static_cast<utf8proc_ssize_t>(characters.size()),
                               static_cast<utf8proc_option_t>(UTF8PROC_COMPOSE | UTF8PROC_STABLE));
  if (count < 0) throw std::runtime_error(utf8proc_errmsg(count));
  for (utf8proc_ssize_t k = 0; k < count; ++k)
    AppendCharacter(static_cast<char32_t>(characters[static_cast<size_t>(k)]), composed);
}

}  // namespace

std::string ToNfc(std::string_view text) {
  std::string composed;
  composed.reserve(text.size());
  std::vector<utf8proc_int32_t> characters;
  for (size_t at = 0; at < text.size();) {
    // A character of ASCII joins none before it, so that each begins a part that can be composed by itself.
    const size_t foreign = PastAscii(text, at);
    const bool hasMarks = foreign < text.size();
    const size_t begin = hasMarks && foreign > at ? foreign - 1 : foreign;
    composed += text.substr(at, begin - at);
    at = foreign;
    while (at < text.size() && ByteAt(text, at) >= 0x80) ++at;
    if (hasMarks) AppendComposed(text.substr(begin, at - begin), characters, composed);
  }
  return composed;
}

char32_t LowerCharacter(char32_t character) {
  if (character < 0x80) return character >= 'A' && character <= 'Z' ? character + 32 : character;
  return static_cast<char32_t>(utf8proc_tolower(Code(character)));
}

std::string LowerText(std::string_view text) {
  std::string lower;
  lower.reserve(text.size());
  for (size_t at = 0; at < text.size();) {
    const unsigned char byte = ByteAt(text, at);
    if (byte < 0x80) {
      lower += static_cast<char>(byte >= 'A' && byte <= 'Z' ? byte + 32 : byte);
      ++at;
    } else {
      AppendCharacter(LowerCharacter(NextCharacter(text, at)), lower);
    }
  }
  return lower;
}

std::string FoldCase(std::string_view text) {
  std::string folded = LowerText(text);
  return IsCertainlyNfc(folded) ? folded : ToNfc(folded);
}

std::string FoldCaseFully(std::string_view text) {
  if (IsAscii(text)) return LowerText(text);
  std::string folded;
  utf8proc_int32_t characters[kMostParts];
  for (size_t at = 0; at < text.size();) {
    const char32_t character = NextCharacter(text, at);
    int boundClass = 0;
    const utf8proc_ssize_t count =
        utf8proc_decompose_char(Code(character), characters, kMostParts, UTF8PROC_CASEFOLD, &boundClass);
    for (utf8proc_ssize_t k = 0; k < count; ++k)
      AppendCharacter(static_cast<char32_t>(characters[static_cast<size_t>(k)]), folded);
  }
  return IsCertainlyNfc(folded) ? folded : ToNfc(folded);
}

bool IsUnicodeLetter(char32_t character) {
  static const BasicPlane letters = BasicPlaneOf(HasCategoryOfLetters);
  return character < kPlaneEnd ? letters[character] : HasCategoryOfLetters(character);
}

bool IsUnicodeMark(char32_t character) {
  static const BasicPlane marks = BasicPlaneOf(HasCategoryOfMarks);
  return character < kPlaneEnd ? marks[character] : HasCategoryOfMarks(character);
}

}  // namespace korv
