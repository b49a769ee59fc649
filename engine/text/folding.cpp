#include "engine/text/folding.h"

#include <array>

#include "engine/text/unicode.h"

namespace korv {
namespace {

constexpr std::u32string_view kAccented = U"ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝšÿàáâãäåçèéêëìíîïñòóôõöøùúûüý";
constexpr std::string_view kBase = "SYAAAAAACEEEEIIIIDNOOOOOOUUUUYsyaaaaaaceeeeiiiinoooooouuuuy";
static_assert(kAccented.size() == kBase.size());

struct Expansion {
  char32_t Letter;
  std::string_view Letters;
};
/// The vowels with a diaeresis have two-letter forms too, but the one-to-one table comes first.
constexpr std::array<Expansion, 5> kExpansions = {
    {{U'Œ', "Oe"}, {U'Æ', "Ae"}, {U'œ', "oe"}, {U'æ', "ae"}, {U'ß', "ss"}}};

/// The letters of both tables lie between these two.
constexpr char32_t kFirst = U'À';
constexpr char32_t kLast = U'Ÿ';

using Foldings = std::array<std::string_view, kLast - kFirst + 1>;

constexpr Foldings MakeFoldings() {
  Foldings foldings{};
  for (const Expansion& e : kExpansions) foldings[e.Letter - kFirst] = e.Letters;
  for (size_t k = 0; k < kAccented.size(); ++k) foldings[kAccented[k] - kFirst] = kBase.substr(k, 1);
  return foldings;
}

constexpr Foldings kFoldings = MakeFoldings();

}  // namespace

std::string FoldAccents(std::string_view text) {
  if (IsAscii(text)) return std::string(text);
  std::string folded;
  folded.reserve(text.size());
  for (size_t at = 0; at < text.size();) {
    const size_t begin = at;
    const char32_t c = NextCharacter(text, at);
    const std::string_view letters = c >= kFirst && c <= kLast ? kFoldings[c - kFirst] : std::string_view();
    folded += letters.empty() ? text.substr(begin, at - begin) : letters;
  }
  return folded;
}

std::string FoldKey(std::string_view text) {
  return LowerText(text);
}

}  // namespace korv
