#include "sources/scan/markup.h"

#include <algorithm>

#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"

namespace korv {
namespace {

/// Each entity in full, right behind it what it stands for, then a blank. It is searched as text: the
/// replacement of "&amp;" and the entry after it make "& &nbsp;" a hit of its own.
constexpr std::string_view kEntities =
    "&lsquo;' &rsquo;' &ldquo;' &rdquo;' &#8220;' &#8221;' &copy;\u00A9 &amp;& &nbsp;  &#160;  "
    "&#8212;\u2014 &#8211;- &AElig;\u00C6 &Aacute;\u00C1 &Acirc;\u00C2 &Agrave;\u00C0 &Aring;\u00C5 "
    "&Atilde;\u00C3 &Auml;\u00C4 &Ccedil;\u00C7 &ETH;\u00D0 &Eacute;\u00C9 &Ecirc;\u00CA &Egrave;\u00C8 "
    "&Euml;\u00CB &Iacute;\u00CD &Icirc;\u00CE &Igrave;\u00CC &Iuml;\u00CF &Ntilde;\u00D1 &Oacute;\u00D3 "
    "&Ocirc;\u00D4 &Ograve;\u00D2 &Oslash;\u00D8 &Otilde;\u00D5 &Ouml;\u00D6 &THORN;\u00DE "
    "&Uacute;\u00DA &Ucirc;\u00DB &Ugrave;\u00D9 &Uuml;\u00DC &Yacute;\u00DD &aacute;\u00E1 "
    "&acirc;\u00E2 &aelig;\u00E6 &agrave;\u00E0 &aring;\u00E5 &atilde;\u00E3 &auml;\u00E4 "
    "&ccedil;\u00E7 &eacute;\u00E9 &ecirc;\u00EA &egrave;\u00E8 &eth;\u00F0 &euml;\u00EB &iacute;\u00ED "
    "&icirc;\u00EE &igrave;\u00EC &iuml;\u00EF &ntilde;\u00F1 &oacute;\u00F3 &ocirc;\u00F4 "
    "&ograve;\u00F2 &oslash;\u00F8 &otilde;\u00F5 &ouml;\u00F6 &szlig;\u00DF &thorn;\u00FE "
    "&uacute;\u00FA &ucirc;\u00FB &ugrave;\u00F9 &uuml;\u00FC &yacute;\u00FD &yuml;\u00FF ";
constexpr size_t kLongestEntity = std::string_view("&Aacute;").size();

constexpr std::string_view kNegativeContractionStems =
    "aren couldn didn doesn hadn hasn isn shouldn wasn weren wouldn ";
constexpr size_t kLongestStem = std::string_view("shouldn").size();

/// What `entity` stands for; empty when it is not known.
std::string_view Replacement(std::string_view entity) {
  if (entity == "&quot;") return "\"";
  if (entity.size() > kLongestEntity) return {};
  const size_t found = kEntities.find(entity);
  if (found == std::string_view::npos) return {};
  const size_t begin = found + entity.size();
  size_t end = begin;
  NextCharacter(kEntities, end);
  return kEntities.substr(begin, end - begin);
}

/// Whether the character at byte `at` is the third of a line or a later one, of which `charactersBefore` came
/// before `text`.
bool IsPastSecondCharacter(std::string_view text, size_t at, size_t charactersBefore) {
  constexpr size_t kLongestTwo = 8;  // Two characters take at most so many bytes.
  return at > kLongestTwo || charactersBefore + CharacterCount(text.substr(0, at)) >= 2;
}

}  // namespace

void ReplaceNamedEntities(std::string& text, std::vector<ReplacedEntity>* replaced) {
  bool open = false;
  ReplaceNamedEntities(text, open, replaced);
}

void ReplaceNamedEntities(std::string& text, bool& open, std::vector<ReplacedEntity>* replaced) {
  const size_t begin = open ? text.find(';') : 0;
  if (begin == std::string::npos) return;
  size_t ampersand = text.find('&', begin);
  open = false;
  size_t from = 0;  // What is read next ...
  size_t to = 0;    // ... and where it goes: a replacement is never longer than its entity.
  const auto keepUntil = [&](size_t end) {
    std::copy(text.begin() + static_cast<std::ptrdiff_t>(from),
              text.begin() + static_cast<std::ptrdiff_t>(end),
              text.begin() + static_cast<std::ptrdiff_t>(to));
    to += end - from;
    from = end;
  };
  while (ampersand != std::string::npos) {
    const size_t semicolon = text.find(';', ampersand);
    open = semicolon == std::string::npos;
    if (open) break;
    const std::string_view with =
        Replacement(std::string_view(text).substr(ampersand, semicolon + 1 - ampersand));
    if (!with.empty()) {
      keepUntil(ampersand);
      if (replaced != nullptr) replaced->push_back({to, with.size(), ampersand, semicolon + 1 - ampersand});
      std::copy(with.begin(), with.end(), text.begin() + static_cast<std::ptrdiff_t>(to));
      to += with.size();
      from = semicolon + 1;
    }
    ampersand = text.find('&', semicolon + 1);
  }
  keepUntil(text.size());
  text.resize(to);
}

size_t SizeBeforeEntity(std::string_view part, bool open) {
  constexpr auto kNone = std::string_view::npos;
  const size_t begin = open ? part.find(';') : 0;
  if (begin == kNone) return part.size();
  for (size_t ampersand = part.find('&', begin); ampersand != kNone;) {
    const size_t semicolon = part.find(';', ampersand);
    if (semicolon == kNone) return part.size() - ampersand < kLongestEntity ? ampersand : part.size();
    ampersand = part.find('&', semicolon + 1);
  }
  return part.size();
}

std::string ReplaceDoubleHyphens(std::string_view text) {
  std::string cleaned(text);
  ReplaceDoubleHyphensInPlace(cleaned, 0);
  return cleaned;
}

void ReplaceDoubleHyphensInPlace(std::string& text, size_t charactersBefore) {
  const std::string_view view = text;
  for (size_t at = view.find("--"); at != std::string_view::npos; at = view.find("--", at + 2)) {
    if (charactersBefore < 2 && !IsPastSecondCharacter(view, at, charactersBefore)) continue;
    const bool opensComment = at >= 2 && view.substr(at - 2, 4) == "<!--";
    const bool closesComment = view.substr(at, 3) == "-->";
    if (!opensComment && !closesComment) text[at] = text[at + 1] = ' ';
  }
}

int EntityLength(std::string_view text) {
  constexpr size_t kShortest = 4;
  constexpr int kLatestSemicolon = 20;
  if (text.size() < kShortest || CharacterCount(text.substr(0, 4 * kShortest)) < kShortest) return 0;
  if (text.substr(0, 2) == "&#") return 1;
  if (text[0] != '&') return 0;
  size_t at = 1;
  if (KindOf(NextCharacter(text, at)) != CharKind::Letter) return 0;
  for (int position = 3; at < text.size() && position <= kLatestSemicolon; ++position) {
    const char32_t c = NextCharacter(text, at);
    if (c == ';') return position;
    if (c == ' ') return 0;
  }
  return 0;
}

bool IsNegativeContractionStem(std::string_view word) {
  constexpr size_t kWidestLetter = 2;  // Some capital outside ASCII has an ASCII letter as its small one.
  if (word.size() > kLongestStem * kWidestLetter) return false;
  return kNegativeContractionStems.find(LowerText(word) + ' ') != std::string_view::npos;
}

}  // namespace korv
